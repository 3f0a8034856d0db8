// Jobs with any records, as the pane writes them.
#pragma once

#include "npif_reader/reader_fixture.h"
#include "records/record_ticket.h"
#include "records/ticket_keys.h"
#include "ticket/npif_command.h"
#include "ticket/npif_vocabulary.h"

#include <rapidcheck.h>

#include <string>
#include <vector>

namespace npif::testing {

using specialpages::RecordKey;
using specialpages::SpecialPageRecord;
using specialpages::platform::PrintSettings;

/// A number as a record's text, seldom another text.
inline rc::Gen<std::string> number_text(int low, int high) {
    return rc::gen::map(rc::gen::inRange(low, high), [](int value) { return std::to_string(value); });
}

inline rc::Gen<std::string> odd_text() {
    return rc::gen::weightedOneOf<std::string>(
        {{20, number_text(-3, 12)},
         {1, rc::gen::element<std::string>("", " 7", "5-7", "+2x", "99999999999", "true", "false",
                                           "\xC3\xA4")}});
}

inline rc::Gen<std::string> keyword(std::vector<std::string> known) {
    known.insert(known.end(), {"", "Unknown", "Custom", "A,B", "it's", "/65", "back\\slash", "two words"});
    return rc::gen::elementOf(known);
}

template <typename Table>
std::vector<std::string> keywords_of(const Table& table) {
    std::vector<std::string> words;
    for (const auto& row : table) {
        words.emplace_back(row.keyword);
    }
    return words;
}

inline specialpages::PaperKeywords random_keywords() {
    return {*keyword(keywords_of(specialpages::MediaSizeNPIFComm)),
            *keyword(keywords_of(specialpages::MediaColorNPIFComm)),
            *keyword(keywords_of(specialpages::MediaTypeNPIFComm))};
}

inline SpecialPageRecord random_record(bool legal) {
    const auto text = [legal](int low, int high) {
        return legal ? *number_text(low, high) : *odd_text();
    };
    const int kind = *rc::gen::inRange(0, 3);
    std::string page = text(0, kind == 0 ? 2 : 5000);
    if (kind == 2 && legal) {
        const int first = *rc::gen::inRange(1, 5000);
        page = std::to_string(first) + "-" + std::to_string(first + *rc::gen::inRange(0, 10));
    }
    return {{RecordKey::type, std::to_string(kind)},
            {RecordKey::page, page},
            {RecordKey::printingoptions, text(0, 4)},
            {RecordKey::coversoption, text(1, 5)},
            {RecordKey::insertoption, text(0, 2)},
            {RecordKey::insertquantity, text(1, 256)},
            {RecordKey::twoSidePrint, text(1, 4)},
            {RecordKey::pagesize, text(0, 40)},
            {RecordKey::pagecolor, text(0, 20)},
            {RecordKey::pagetype, text(0, 40)},
            {RecordKey::interposer, *rc::gen::element<std::string>("true", "false")},
            {RecordKey::width, *rc::gen::element<std::string>("210.0", "123.4", "100")},
            {RecordKey::length, *rc::gen::element<std::string>("297.0", "123.", "200")},
            {RecordKey::longmeasure, text(0, 2)}};
}

/// One job as the pane writes it, with the commands held against the records that they were made of.
struct RandomJob {
    PrintSettings settings;
    std::vector<std::vector<specialpages::NPIFCommand>> commands{3};
    std::vector<std::vector<SpecialPageRecord>> records{3};
};

inline void put(PrintSettings& settings, std::string_view key, std::string value) {
    settings.setValue(key, std::move(value), false);
}

inline RandomJob random_job(bool legal) {
    RandomJob job;
    const auto count = *rc::gen::inRange(0, 40);
    put(job.settings, specialpages::kNPIFCommandTicketCount, std::to_string(count));
    std::vector<std::string> sizes;
    for (int i = 0; i < count; ++i) {
        const SpecialPageRecord record = random_record(legal);
        put(job.settings, specialpages::record_ticket_key(specialpages::kNPIFCommandTicket, i),
            specialpages::encode_record(record).value());
        const specialpages::PaperKeywords keywords = random_keywords();
        const specialpages::JobPaper paper{30, 21060, 29790};
        const auto kind = static_cast<std::size_t>(record.type());
        auto* const make = kind == 0   ? specialpages::cover_command
                           : kind == 1 ? specialpages::insertion_command
                                       : specialpages::exception_command;
        job.commands[kind].push_back(make(record, keywords, paper));
        job.records[kind].push_back(record);
        if (const auto& size = job.commands[kind].back().size) {
            sizes.push_back(*size);
        }
    }
    const std::string names[] = {"NPIFCover", "NPIFInsertion", "NPIFException"};
    for (std::size_t kind = 0; kind < 3; ++kind) {
        const auto& commands = job.commands[kind];
        put(job.settings, kPrefix + names[kind] + "CountTicket",
            commands.empty() ? "" : std::to_string(commands.size()));
        for (std::size_t i = 0; i < commands.size(); ++i) {
            put(job.settings, kPrefix + names[kind] + "ValueTicket_" + std::to_string(i),
                specialpages::ticket_text(commands[i].text));
        }
    }
    // A list of one empty entry travels as an empty list.
    job.settings.setValue(specialpages::kPageSizeArrayTicket,
                          sizes == std::vector<std::string>{""} ? std::vector<std::string>{} : sizes, false);
    for (const auto key : {specialpages::kWhetherMediaTypeTabTicket, specialpages::kWhetherInterposerTicket,
                           specialpages::kWhetherMediaSizeA5Ticket}) {
        put(job.settings, key, *rc::gen::element<std::string>("0", "1"));
    }
    return job;
}

} // namespace npif::testing
