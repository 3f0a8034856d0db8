#include "cli/DialogFace.h"
#include "cli/commands.h"
#include "cli/enter_job.h"
#include "cli/pane_tags.h"
#include "host/HostError.h"
#include "platform/toolkit/PopUpButton.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <iomanip>
#include <ostream>
#include <string_view>
#include <utility>

namespace specialpages::cli {

namespace {

using host::ErrorCode;
using host::HostError;
using nlohmann::ordered_json;

constexpr const char* kSelect = "--select";

struct PaperWindow {
    std::string_view word;
    std::int32_t opener;
    std::int32_t menu;
};
constexpr std::array<PaperWindow, 3> kPaperWindows{{
    {"covers", kAddCoversTag, kFrontPaperTag},
    {"inserts", kAddInsertsTag, kInsertPaperTag},
    {"exceptions", kAddExceptionsTag, kExceptionPaperTag},
}};

const PaperWindow& paper_window(const std::string& word) {
    const auto* const found = std::ranges::find(kPaperWindows, word, &PaperWindow::word);
    if (found == kPaperWindows.end()) {
        throw HostError(ErrorCode::usage, "--window", "expected covers, inserts or exceptions");
    }
    return *found;
}

/// "size=A4,color=Blue": each part once at most.
JobPaper selection(const std::string& text) {
    JobPaper paper;
    const std::array<std::pair<std::string_view, std::optional<std::string>*>, 3> parts{
        {{"size", &paper.size}, {"color", &paper.color}, {"type", &paper.type}}};
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::string_view piece = rest.substr(0, rest.find(','));
        rest.remove_prefix(std::min(rest.size(), piece.size() + 1));
        const std::size_t equals = piece.find('=');
        const auto* const part =
            std::ranges::find(parts, piece.substr(0, equals), &decltype(parts)::value_type::first);
        if (equals == std::string_view::npos || part == parts.end() || part->second->has_value()) {
            throw HostError(ErrorCode::usage, kSelect,
                            "expected size=, color= and type=, each once at most, found \"" +
                                std::string(piece) + "\"");
        }
        *part->second = std::string(piece.substr(equals + 1));
    }
    return paper;
}

ordered_json described(const platform::Menu& menu) {
    ordered_json items = ordered_json::array();
    for (std::size_t i = 0; i < menu.numberOfItems(); ++i) {
        const platform::MenuItem& item = *menu.itemAtIndex(static_cast<std::int64_t>(i));
        ordered_json line{{"title", item.title()}};
        if (item.representedObject()) {
            line["keyword"] = *item.representedObject();
        }
        line["tag"] = item.tag();
        line["enabled"] = item.isEnabled();
        line["hidden"] = item.isHidden();
        if (item.state()) {
            line["chosen"] = true;
        }
        if (!item.isEnabled() && !item.toolTip().empty()) {
            line["reason"] = item.toolTip();
        }
        if (item.submenu() != nullptr) {
            line["items"] = described(*item.submenu());
        }
        items.push_back(std::move(line));
    }
    return items;
}

/// One line an item: tag, mark, title and keyword, and why it is disabled.
void print_items(const ordered_json& items, int depth, std::ostream& out) {
    for (const ordered_json& item : items) {
        const bool enabled = item.at("enabled").get<bool>();
        const char mark = item.contains("chosen") ? '*' : enabled ? ' ' : '-';
        out << std::setw(5) << item.at("tag").get<int>() << ' ' << mark << ' '
            << std::string(static_cast<std::size_t>(2 * depth), ' ')
            << printable(item.at("title").get<std::string>());
        if (const std::string keyword = item.value("keyword", ""); !keyword.empty()) {
            out << " (" << printable(keyword) << ')';
        }
        if (item.at("hidden").get<bool>()) {
            out << " [hidden]";
        }
        if (!enabled) {
            const std::string reason = item.value("reason", "");
            out << " [not allowed" << (reason.empty() ? "" : ": ") << printable(reason) << ']';
        }
        out << '\n';
        if (item.contains("items")) {
            print_items(item.at("items"), depth + 1, out);
        }
    }
}

} // namespace

void menus_command(const MenusOptions& options, Streams streams) {
    const PaperWindow& window = paper_window(options.window);
    const JobPaper paper = selection(options.select);
    const auto host = open_pane(options.pane, streams.in);
    host->panel()->restoreValuesAndReturnError(nullptr);
    host->panel()->willShow();

    ordered_json items;
    DialogFace face(host->window());
    face.inDialog(window.opener, {std::string(window.word), "paper menus"}, [&](platform::Window& dialog) {
        if (window.opener == kAddCoversTag) {
            const std::array<std::int64_t, 1> frontOnly{kFrontCoverItem};
            DialogFace::choose(dialog, kCoverOptionTag, frontOnly, {kSelect, "front"});
        }
        enter_paper_parts(face, dialog, window.menu, paper, {kSelect, ""});
        items = described(popup_in(dialog, window.menu).menu());
    });
    if (options.json) {
        const ordered_json whole{{"window", window.word}, {"items", items}};
        streams.out << whole.dump(2, ' ', false, ordered_json::error_handler_t::replace) << '\n';
    } else {
        print_items(items, 0, streams.out);
    }
}

} // namespace specialpages::cli
