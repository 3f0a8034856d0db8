#include "cli/enter_job.h"

#include "cli/pane_tags.h"
#include "host/HostError.h"
#include "platform/toolkit/PopUpButton.h"

#include <array>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace specialpages::cli {

namespace {

using host::ErrorCode;
using host::HostError;

void choose(platform::Window& dialog, std::int32_t tag, std::initializer_list<std::int64_t> path,
            const EntryPlace& place) {
    DialogFace::choose(dialog, tag, std::span(path.begin(), path.size()), place);
}

/// The position of the choice of that keyword in a sub-menu of a paper menu.
std::int64_t choice_position(platform::Window& dialog, std::int32_t menuTag, std::int64_t part,
                             const std::string& keyword, const EntryPlace& place) {
    const platform::MenuItem* opener = popup_in(dialog, menuTag).menu().itemAtIndex(part);
    const platform::Menu* menu = opener == nullptr ? nullptr : opener->submenu();
    const std::size_t count = menu == nullptr ? 0 : menu->numberOfItems();
    for (std::size_t i = 1; i < count; ++i) { // behind "No Change"
        const auto position = static_cast<std::int64_t>(i);
        if (menu->itemAtIndex(position)->representedObject() == keyword) {
            return position;
        }
    }
    throw HostError(ErrorCode::input, place.text(), "the printer has no \"" + keyword + "\"");
}

/// OK in one of the windows behind a type of tab stock.
void confirm_tab_stock(DialogFace& face, platform::Window& window, const EntryPlace& place) {
    const bool large = window.viewWithTag(kTabStockOKTag) != nullptr;
    face.commit(window, large ? kTabStockOKTag : kTabStockSubOKTag, place);
}

/// Picks the choice of that keyword, unless it stands there already.
void choose_part(DialogFace& face, platform::Window& dialog, std::int32_t menuTag, std::int64_t part,
                 const std::string& keyword, const EntryPlace& place) {
    const std::int64_t position = choice_position(dialog, menuTag, part, keyword, place);
    const platform::MenuItem* opener = popup_in(dialog, menuTag).menu().itemAtIndex(part);
    if (opener->submenu()->itemAtIndex(position)->state()) {
        return;
    }
    const auto pick = [&] {
        choose(dialog, menuTag, {part, position}, place);
    };
    if (part == kTypeItem) {
        face.inPossibleDialog(pick,
                              [&](platform::Window& window) { confirm_tab_stock(face, window, place); });
    } else {
        pick();
    }
}

/// The entry's member whose field the pane gave the keyboard to when it refused.
std::string refused_member(const platform::Window& dialog,
                           std::initializer_list<std::pair<std::int32_t, const char*>> members) {
    const platform::View* focused = dialog.firstResponder();
    for (const auto& [tag, name] : members) {
        if (focused != nullptr && focused->tag() == tag) {
            return name;
        }
    }
    return members.begin()->second;
}

/// Commits a dialog whose entries are typed: its refusal names the member.
void commit_typed(DialogFace& face, platform::Window& dialog, std::int32_t button, const EntryPlace& place,
                  std::initializer_list<std::pair<std::int32_t, const char*>> members) {
    try {
        face.commit(dialog, button, place);
    } catch (const HostError& error) {
        throw HostError(error.code(), place.at(refused_member(dialog, members)).text(), error.detail());
    }
}

/// Picks the custom size and fills in the window that opens for it.
void enter_custom_size(DialogFace& face, platform::Window& dialog, std::int32_t menuTag,
                       const JobPaper& paper, const EntryPlace& place) {
    const std::int64_t position =
        choice_position(dialog, menuTag, kSizeItem, paper.size.value_or(""), place.at("size"));
    const std::int32_t width = paper.inches ? kCustomWidthInchTag : kCustomWidthMMTag;
    const std::int32_t length = paper.inches ? kCustomLengthInchTag : kCustomLengthMMTag;
    face.inNextDialog(
        [&] {
            choose(dialog, menuTag, {kSizeItem, position}, place.at("size"));
        },
        place.at("width"),
        [&](platform::Window& window) {
            DialogFace::press(window, paper.inches ? kCustomInchesTag : kCustomMMTag, place.at("unit"));
            face.type(window, width, *paper.width, place.at("width"));
            face.type(window, length, *paper.length, place.at("length"));
            commit_typed(face, window, kCustomOKTag, place, {{width, "width"}, {length, "length"}});
        });
}

void enter_paper(DialogFace& face, platform::Window& dialog, std::int32_t menuTag,
                 const std::optional<JobPaper>& paper, const std::string& file) {
    if (!paper) {
        return;
    }
    const EntryPlace place{file, paper->place};
    switch (paper->kind) {
    case JobPaper::Kind::interposer:
        choose(dialog, menuTag, {kInterposerItem}, place);
        return;
    case JobPaper::Kind::noChange:
        choose(dialog, menuTag, {kNoChangeItem}, place);
        return;
    case JobPaper::Kind::parts:
        break;
    }
    if (paper->width) {
        enter_custom_size(face, dialog, menuTag, *paper, place);
    }
    enter_paper_parts(face, dialog, menuTag, *paper, place);
}

struct SideTags {
    std::int32_t paper;
    std::int32_t printing;
};

/// What is printed on the cover comes first: a printed cover has the job's size.
void enter_cover_side(DialogFace& face, platform::Window& dialog, const std::optional<JobCoverSide>& side,
                      SideTags tags, const std::string& file) {
    if (!side) {
        return;
    }
    if (side->print) {
        choose(dialog, tags.printing, {*side->print}, EntryPlace{file, side->place}.at("print"));
    }
    enter_paper(face, dialog, tags.paper, side->paper, file);
}

void enter_covers(DialogFace& face, const JobCovers& covers, const std::string& file) {
    const EntryPlace place{file, "covers"};
    face.inDialog(kAddCoversTag, place, [&](platform::Window& dialog) {
        choose(dialog, kCoverOptionTag, {covers.option}, place.at("option"));
        enter_cover_side(face, dialog, covers.front, {kFrontPaperTag, kFrontPrintingTag}, file);
        enter_cover_side(face, dialog, covers.back, {kBackPaperTag, kBackPrintingTag}, file);
        face.commit(dialog, kCoversOKTag, place);
    });
}

void enter_insert(DialogFace& face, const JobInsert& insert, const std::string& file) {
    const EntryPlace place{file, insert.place};
    face.inDialog(kAddInsertsTag, place, [&](platform::Window& dialog) {
        if (insert.after) {
            choose(dialog, kInsertOptionTag, {kInsertAfterItem}, place.at("after"));
            face.type(dialog, kInsertPagesTag, *insert.after, place.at("after"));
        } else {
            choose(dialog, kInsertOptionTag, {kInsertBeforeItem}, place.at("before-page-one"));
        }
        if (insert.sheets) {
            face.type(dialog, kInsertQuantityTag, std::to_string(*insert.sheets), place.at("sheets"));
        }
        enter_paper(face, dialog, kInsertPaperTag, insert.paper, file);
        commit_typed(
            face, dialog, kInsertsOKTag, place,
            {{kInsertPagesTag, insert.after ? "after" : "before-page-one"}, {kInsertQuantityTag, "sheets"}});
    });
}

void enter_exception(DialogFace& face, const JobException& exception, const std::string& file) {
    const EntryPlace place{file, exception.place};
    face.inDialog(kAddExceptionsTag, place, [&](platform::Window& dialog) {
        face.type(dialog, kExceptionPagesTag, exception.pages, place.at("pages"));
        if (exception.sides) {
            choose(dialog, kExceptionSidesTag, {*exception.sides}, place.at("sides"));
        }
        enter_paper(face, dialog, kExceptionPaperTag, exception.paper, file);
        commit_typed(face, dialog, kExceptionsOKTag, place, {{kExceptionPagesTag, "pages"}});
    });
}

} // namespace

void enter_paper_parts(DialogFace& face, platform::Window& dialog, std::int32_t menuTag,
                       const JobPaper& paper, const EntryPlace& place) {
    const std::array<std::pair<const std::optional<std::string>*, std::string_view>, 3> parts{
        {{&paper.size, "size"}, {&paper.color, "color"}, {&paper.type, "type"}}};
    std::int64_t position = kSizeItem;
    for (const auto& [keyword, name] : parts) {
        if (*keyword) {
            choose_part(face, dialog, menuTag, position, **keyword, place.at(name));
        }
        ++position;
    }
}

void enter_job(const Job& job, const std::string& file, platform::Window& main) {
    DialogFace face(main);
    if (job.covers) {
        enter_covers(face, *job.covers, file);
    }
    for (const JobInsert& insert : job.inserts) {
        enter_insert(face, insert, file);
    }
    for (const JobException& exception : job.exceptions) {
        enter_exception(face, exception, file);
    }
}

} // namespace specialpages::cli
