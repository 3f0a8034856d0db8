#include "paper/paper_texts.h"

#include "ppd/cups_ppd.h"
#include "ppd/name_lookup.h"
#include "ppd/ppd_access.h"

namespace specialpages {

namespace {

constexpr std::string_view kArgument = "%@";

/// Moves the format's text before its first argument to `out`, the argument itself replaced by `text`.
void take_argument(std::string_view& format, std::string_view text, std::string& out) {
    const std::size_t at = format.find(kArgument);
    out += format.substr(0, at);
    if (at == std::string_view::npos) {
        format = {};
        return;
    }
    out += text;
    format.remove_prefix(at + kArgument.size());
}

std::string line(std::string_view label, std::string_view title) {
    return std::string(label).append(": ").append(title);
}

} // namespace

std::optional<std::string> job_setting_text(ppd_file_t* ppd, const PaperOptionKeys& keys,
                                            const std::array<ppd_option_t*, 3>& options) {
    if (ppd == nullptr) {
        return std::nullopt;
    }
    for (const PaperPart part : kPaperParts) {
        if (GetIndexOfMarkedOptionWithKey(options[part_index(part)], ppd, keys.of(part).c_str()) < 0) {
            return std::nullopt;
        }
    }
    std::string text;
    const ppd_choice_t* carried = nullptr;
    for (const PaperPart part : kPaperParts) {
        if (const ppd_choice_t* marked = cups_find_marked_choice(ppd, keys.of(part).c_str())) {
            carried = marked;
        }
        if (carried != nullptr) {
            text += line(ppd_text(field_text(options[part_index(part)]->text)),
                         ppd_text(field_text(carried->text)));
            text += part == PaperPart::type ? "" : "\n";
        }
    }
    return text;
}

std::array<std::optional<std::string>, 3> paper_labels(ppd_file_t* ppd, const PaperOptionKeys& keys) {
    std::array<std::optional<std::string>, 3> labels;
    for (const PaperPart part : kPaperParts) {
        if (const ppd_option_t* option = cups_find_option(ppd, keys.of(part).c_str())) {
            labels[part_index(part)] = ppd_text(field_text(option->text));
        }
    }
    return labels;
}

std::string page_setting_text(const std::array<PaperLine, 3>& lines) {
    std::string text;
    for (const PaperLine& each : lines) {
        if (each.label && each.title) {
            text += line(*each.label, *each.title) + "\n";
        }
    }
    return text;
}

std::string format_two_texts(std::string_view format, std::string_view first, std::string_view second) {
    std::string text;
    take_argument(format, first, text);
    take_argument(format, second, text);
    text += format;
    return text;
}

std::string conflict_text(std::string_view format, const ConflictingChoice& reason) {
    if (reason.choice == nullptr || reason.option == nullptr) {
        return {};
    }
    return format_two_texts(format, ppd_text(field_text(reason.option->text)),
                            ppd_text(field_text(reason.choice->text)));
}

} // namespace specialpages
