#include "preview/sheet_paper.h"

#include "paper/paper_choice.h"
#include "paper/paper_menu.h"
#include "platform/foundation/Bundle.h"
#include "platform/foundation/numbers.h"
#include "platform/foundation/text.h"
#include "ppd/cups_ppd.h"
#include "ppd/name_lookup.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_keywords.h"
#include "records/record_tables.h"
#include "records/setup_text.h"
#include "support/identifiers.h"
#include "support/units.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace specialpages::preview {

namespace {

constexpr std::string_view kCustom = "Custom";
constexpr std::string_view kTabStock = "TabbedPaper";
constexpr const char* kInterposer = "interposer";

/// The choices of one option of the PPD.
class Choices {
  public:
    Choices(ppd_file_t* ppd, const std::string& key)
        : option_(cups_find_option(ppd, key.c_str())),
          marked_(option_ == nullptr ? -1 : GetIndexOfMarkedOptionWithKey(option_, ppd, key.c_str())) {}

    std::int32_t marked() const { return marked_; }
    std::optional<std::string> keyword(std::int64_t index) const {
        const ppd_choice_t* const choice = at(index);
        return choice == nullptr ? std::nullopt : std::optional(std::string(field_text(choice->choice)));
    }
    std::optional<std::string> title(std::int64_t index) const {
        const ppd_choice_t* const choice = at(index);
        return choice == nullptr ? std::nullopt : std::optional(ppd_text(field_text(choice->text)));
    }

  private:
    const ppd_choice_t* at(std::int64_t index) const {
        const bool there = option_ != nullptr && index >= 0 && index < option_->num_choices;
        return there ? &option_->choices[index] : nullptr;
    }

    ppd_option_t* option_;
    std::int32_t marked_;
};

class PpdPaper final : public PaperTitles {
  public:
    explicit PpdPaper(ppd_file_t* ppd)
        : size_(ppd, kPPDPageSizeKey), color_(ppd, FixPPDKeywordAccordingToType(ppd, kPPDMediaColorKey)),
          type_(ppd, kPPDMediaTypeKey) {}

    std::optional<std::string> getSelectedMenuItemTitle(std::int64_t kind,
                                                        std::int64_t index) const override {
        return part(kind).title(index);
    }
    std::optional<std::string> getSelectedMenuItemChoice(std::int64_t kind,
                                                         std::int64_t index) const override {
        return part(kind).keyword(index);
    }

    const Choices& size() const { return size_; }
    const Choices& color() const { return color_; }
    const Choices& type() const { return type_; }

  private:
    const Choices& part(std::int64_t kind) const {
        return kind == kSetupSize ? size_ : kind == kSetupColor ? color_ : type_;
    }

    Choices size_;
    Choices color_;
    Choices type_;
};

class PpdWords final : public SetupWords {
  public:
    PpdWords(ppd_file_t* ppd, const platform::Bundle& bundle, const PpdPaper& paper)
        : ppd_(ppd), bundle_(bundle), paper_(paper) {}

    std::string localizedText(std::string_view key) const override {
        return bundle_.localizedStringForKey(key, kNotFound, {}); // as the pane's list has it
    }
    std::string defaultTableText(std::string_view key) const override {
        return bundle_.localizedStringForKey(key, kNotFound, {});
    }
    std::optional<std::string> interposerText() const override {
        return separator_text(ppd_, kInterposerKey);
    }
    std::string sizeKeyword(std::int32_t index) const override {
        return paper_.size().keyword(index).value_or("");
    }

  private:
    ppd_file_t* ppd_;
    const platform::Bundle& bundle_;
    const PpdPaper& paper_;
};

/// Points to hundredths of a millimetre.
std::int32_t from_points(float points) {
    return static_cast<std::int32_t>(std::lround(static_cast<double>(points) * 2540.0 / 72.0));
}

void measure_by_name(SheetPaper& paper, const std::string& size, const ppd_file_t* ppd) {
    for (int i = 0; i < ppd->num_sizes; ++i) {
        const ppd_size_t& each = ppd->sizes[i];
        if (field_text(each.name) == size) {
            paper.width = from_points(each.width);
            paper.length = from_points(each.length);
        }
    }
}

void measure(SheetPaper& paper, const SpecialPageRecord& record, const std::string& size,
             const ppd_file_t* ppd) {
    if (size == kCustom) {
        constexpr std::int32_t kLongest = 10'000'000; // tenths of a millimetre: nobody's paper
        paper.width = std::clamp(GetMillimetreFromStr(record.text(RecordKey::width)), 0, kLongest) * 10;
        paper.length = std::clamp(GetMillimetreFromStr(record.text(RecordKey::length)), 0, kLongest) * 10;
    } else {
        measure_by_name(paper, size, ppd);
    }
}

/// Without the places of parts that have no name.
std::string without_empty_places(const std::string& text) {
    std::string joined;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(", ", at), text.size());
        if (end > at) {
            joined += (joined.empty() ? "" : ", ") + text.substr(at, end - at);
        }
        at = end + 2;
    }
    return joined;
}

SheetPaper resolve(const SpecialPageRecord& record, ppd_file_t* ppd, const platform::Bundle& bundle) {
    const PpdPaper parts(ppd);
    const PpdWords words(ppd, bundle, parts);
    SheetPaper paper;
    paper.text = without_empty_places(paper_setup_text(record, parts, words));
    paper.interposer = record.is_true(RecordKey::interposer);
    if (paper.interposer) {
        paper.color = paper.text;
        paper.look = paper_color(kInterposer);
        return paper;
    }
    const std::int32_t size = record.integer(RecordKey::pagesize);
    const std::int32_t color = record.integer(RecordKey::pagecolor);
    const std::string sizeKeyword = words.sizeKeyword(size);
    measure(paper, record, sizeKeyword, ppd);
    paper.size = sizeKeyword == kCustom ? "" : parts.size().title(size).value_or("");
    paper.color = parts.color().title(color).value_or("");
    if (const auto keyword = parts.color().keyword(color)) {
        paper.look = paper_color(*keyword);
    }
    const auto type = parts.type().keyword(record.integer(RecordKey::pagetype));
    paper.tab = type && type->starts_with(kTabStock);
    return paper;
}

/// The record with the size that is marked for the job, a size of the job's own with its measures.
SpecialPageRecord with_size_of_job(const SpecialPageRecord& record, ppd_file_t* ppd) {
    const Choices sizes(ppd, kPPDPageSizeKey);
    const SpecialPageRecord sized = record.with(RecordKey::pagesize, platform::decimal_text(sizes.marked()));
    if (sizes.keyword(sizes.marked()) != kCustom) {
        return sized;
    }
    SheetPaper marked;
    measure_by_name(marked, std::string(kCustom), ppd);
    return sized.with(RecordKey::width, ConvertIntToFloatStr(marked.width / 10))
        .with(RecordKey::length, ConvertIntToFloatStr(marked.length / 10))
        .with(RecordKey::longmeasure, "1");
}

} // namespace

SheetPaper paper_of_record(const SpecialPageRecord& record, ppd_file_t* ppd, const platform::Bundle& bundle) {
    const bool ofJob = record.integer(RecordKey::pagesize) >= GetPPDKeyOptionCount(ppd, kPPDPageSizeKey);
    return resolve(ofJob ? with_size_of_job(record, ppd) : record, ppd, bundle);
}

SheetPaper paper_of_job(ppd_file_t* ppd, const platform::Bundle& bundle) {
    const PpdPaper parts(ppd);
    const auto text = [](const Choices& choices) {
        return platform::decimal_text(choices.marked());
    };
    const SpecialPageRecord record{{RecordKey::pagecolor, text(parts.color())},
                                   {RecordKey::pagetype, text(parts.type())}};
    return resolve(with_size_of_job(record, ppd), ppd, bundle);
}

} // namespace specialpages::preview
