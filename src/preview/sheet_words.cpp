#include "preview/sheet_words.h"

#include "platform/foundation/Bundle.h"
#include "platform/foundation/numbers.h"
#include "support/identifiers.h"

#include <initializer_list>
#include <vector>

namespace specialpages::preview {

namespace {

using platform::decimal_text;

/// The format with its "%@" replaced by the texts, one after the other.
std::string filled(const std::string& format, std::initializer_list<std::string> texts) {
    std::string done;
    std::size_t at = 0;
    for (const std::string& text : texts) {
        const std::size_t place = format.find("%@", at);
        if (place == std::string::npos) {
            break;
        }
        done += format.substr(at, place - at) + text;
        at = place + 2;
    }
    return done + format.substr(at);
}

class Words {
  public:
    explicit Words(const platform::Bundle& bundle) : bundle_(bundle) {}

    std::string text(std::string_view key) const { return preview_text(bundle_, key); }
    std::string text(std::string_view key, std::initializer_list<std::string> texts) const {
        return filled(text(key), texts);
    }
    /// One text for one thing, another for any other number.
    std::string number(std::string_view one, std::string_view many, std::int64_t number) const {
        return number == 1 ? text(one) : text(many, {decimal_text(number)});
    }

    std::string joined(const std::vector<std::string>& parts) const {
        const std::string between = text("Sentence Comma");
        std::string sentence;
        for (const std::string& part : parts) {
            if (!part.empty()) {
                sentence += (sentence.empty() ? "" : between) + part;
            }
        }
        return sentence;
    }

    std::string sides(Sides sides) const {
        switch (sides) {
        case Sides::one:
            return text("One Sided");
        case Sides::longEdge:
            return text("Two Sided Long Edge");
        case Sides::shortEdge:
            return text("Two Sided Short Edge");
        }
        return {};
    }

    std::string cover(const SheetRun& run) const {
        const bool last = run.firstPage == 0; // of a document of unknown length
        const std::string first = decimal_text(run.firstPage);
        switch (run.printing) {
        case CoverPrinting::blank:
            return text("Cover Blank");
        case CoverPrinting::sideOne:
            return last ? text("Cover Last Page On Side One") : text("Cover Page On Side One", {first});
        case CoverPrinting::sideTwo:
            return last ? text("Cover Last Page On Side Two") : text("Cover Page On Side Two", {first});
        case CoverPrinting::bothSides:
            if (!last && run.lastPage == run.firstPage) {
                return text("Cover Page On Side One", {first});
            }
            return last ? text("Cover Last Pages")
                        : text("Cover Pages On Both Sides", {first, decimal_text(run.lastPage)});
        }
        return {};
    }

    std::string insert(std::int64_t page) const {
        return page <= 0 ? text("Insert Before Sheet") : text("Insert After Sheet", {decimal_text(page)});
    }

    /// The head of a sheet of pages; exceptions have keys of their own, since a word changes the next one's
    /// form in some languages.
    std::string pages(const SheetRun& run, std::int64_t place, std::int64_t sheets) const {
        const std::string kind = run.kind == SheetKind::exception ? "Exception " : "";
        const SheetFaces from = sheet_faces(run, place);
        const std::string first = decimal_text(from.front);
        if (run.open) {
            return text(kind + "Pages From", {first});
        }
        const SheetFaces to = sheet_faces(run, place + sheets - 1);
        const std::int64_t last = to.back == 0 ? to.front : to.back;
        if (last == from.front) {
            return text(kind + "Page", {first});
        }
        return text(kind + (last == from.front + 1 ? "Two Pages" : "Pages"), {first, decimal_text(last)});
    }

  private:
    const platform::Bundle& bundle_;
};

std::string head_of_record(const SpecialPageRecord& record, const Words& words) {
    switch (static_cast<RecordType>(record.type())) {
    case RecordType::cover:
        return words.text(record.integer(RecordKey::page) == 1 ? "Back Cover Sheet" : "Front Cover Sheet");
    case RecordType::insert:
        return words.insert(record.integer(RecordKey::page));
    case RecordType::exception:
        return words.text("Exception Row", {record.text(RecordKey::page)});
    }
    return {};
}

} // namespace

std::string preview_text(const platform::Bundle& bundle, std::string_view key) {
    return bundle.localizedStringForKey(key, kNoTranslation, kPreviewTable);
}

std::string sheet_sentence(const SheetRun& run, std::int64_t first, std::int64_t sheets,
                           const SheetPaper& paper, std::int64_t insertPage, const platform::Bundle& bundle) {
    const Words words(bundle);
    const auto count = [&] {
        return words.number("One Sheet", "Sheets", sheets);
    };
    switch (run.kind) {
    case SheetKind::frontCover:
        return words.joined({words.text("Front Cover Sheet"), words.cover(run), paper.text});
    case SheetKind::backCover:
        return words.joined({words.text("Back Cover Sheet"), words.cover(run), paper.text});
    case SheetKind::insert:
        return words.joined({words.insert(insertPage), count(), paper.text});
    case SheetKind::pages:
    case SheetKind::exception:
        break;
    }
    const bool one = run.open || sheets == 1;
    return words.joined(
        {words.pages(run, first, sheets), one ? std::string() : count(), words.sides(run.sides), paper.text});
}

std::string record_sentence(const SpecialPageRecord& record, const SheetPaper& paper, Sides job,
                            const platform::Bundle& bundle) {
    // As it would stand in a document of unknown length that has nothing else, so that the words are the
    // strip's.
    const Document document{std::nullopt, job};
    const SheetSequence alone = sheet_sequence({record}, document);
    if (!alone.notes.empty()) {
        return note_sentence(alone.notes.front(), record, document, bundle);
    }
    for (const SheetRun& run : alone.runs) {
        if (run.row && run.kind == SheetKind::exception) {
            // How many sheets that makes is up to the inserts between its pages.
            const Words words(bundle);
            return words.joined({words.pages(run, 0, run.sheets), words.sides(run.sides), paper.text});
        }
        if (run.row) {
            return sheet_sentence(run, 0, run.sheets, paper, record.integer(RecordKey::page), bundle);
        }
    }
    return {};
}

std::string note_sentence(const SheetNote& note, const SpecialPageRecord& record, const Document& document,
                          const platform::Bundle& bundle) {
    const Words words(bundle);
    const std::string head = head_of_record(record, words);
    const std::string end = decimal_text(document.pages.value_or(0));
    switch (note.reason) {
    case NoteReason::pastEnd:
        return words.text("Note Past End", {head, end});
    case NoteReason::partlyPastEnd:
        return words.text("Note Partly Past End", {head, end});
    case NoteReason::noSheets:
        return words.text("Note No Sheets", {head});
    case NoteReason::onCover:
        return words.text("Note On Cover", {head});
    case NoteReason::named:
        return words.text("Note Named", {head});
    case NoteReason::noPages:
        return words.text("Note No Pages", {head});
    }
    return {};
}

std::string setup_sentence(const SheetPaper& paper, Sides sides, const platform::Bundle& bundle) {
    const Words words(bundle);
    return words.joined({paper.text, words.sides(sides)});
}

std::string sequence_sentence(const SheetSequence& sequence, const Document& document,
                              const platform::Bundle& bundle) {
    const Words words(bundle);
    const auto sheets = sheet_count(sequence);
    if (!document.pages || !sheets) {
        return words.text("Summary Unknown");
    }
    return words.text("Summary", {words.number("One Page", "Page Count", *document.pages),
                                  words.number("One Sheet", "Sheets", *sheets)});
}

} // namespace specialpages::preview
