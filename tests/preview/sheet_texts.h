// Sequences of sheets as short texts, so that a test can say the whole of what it expects:
//     "front #0 1"            the front cover of record 0, with page 1
//     "pages 2-9 x8"          plain pages, one a sheet; " long" and " short" after it when two-sided
//     "insert #1 x2"          "exception #2 5-7 x2 long"          "back #3 -"         "pages 13.. x?"
#pragma once

#include "preview/sheet_sequence.h"

#include <string>
#include <vector>

namespace specialpages::preview::test {

inline std::string text_of(const SheetRun& run) {
    static constexpr const char* kKinds[] = {"front", "pages", "insert", "exception", "back"};
    std::string text = kKinds[static_cast<std::size_t>(run.kind)];
    if (run.row) {
        text += " #" + std::to_string(*run.row);
    }
    const bool cover = run.kind == SheetKind::frontCover || run.kind == SheetKind::backCover;
    if (cover) {
        const SheetFaces faces = sheet_faces(run, 0);
        const auto side = [](std::int64_t page) {
            return page == 0 ? std::string("-") : std::to_string(page);
        };
        text += " " + side(faces.front);
        if (run.printing == CoverPrinting::sideTwo || run.printing == CoverPrinting::bothSides) {
            text += "/" + side(faces.back);
        }
        return text;
    }
    if (run.firstPage != 0) {
        text += " " + std::to_string(run.firstPage);
        text += run.open ? std::string("..") : "-" + std::to_string(run.lastPage);
    }
    text += run.open ? std::string(" x?") : " x" + std::to_string(run.sheets);
    return text + (run.sides == Sides::longEdge ? " long" : run.sides == Sides::shortEdge ? " short" : "");
}

inline std::vector<std::string> texts_of(const SheetSequence& sequence) {
    std::vector<std::string> texts;
    for (const SheetRun& run : sequence.runs) {
        texts.push_back(text_of(run));
    }
    return texts;
}

} // namespace specialpages::preview::test
