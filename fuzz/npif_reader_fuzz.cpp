// Any bytes as the options of a job: every answer has its promised shape, refused commands hold nothing, what
// is well formed is within its ranges, and a job that is written anew from the answers is read the same.

#include "npif_reader.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void check_text(npif_text text) {
    require(text.bytes != nullptr && text.bytes[text.length] == '\0');
}

void check_word(npif_text word) {
    check_text(word);
    require(word.length <= 40 && npif::view(word).find_first_of(", /\\'\"\n") == std::string_view::npos);
}

void check_problem(const npif_problem& problem, std::size_t size) {
    require(problem.code >= NPIF_PROBLEM_OPTIONS && problem.code <= NPIF_PROBLEM_FLAG);
    check_text(problem.key);
    check_text(problem.sentence);
    for (const char byte : npif::view(problem.sentence)) {
        require(byte >= 0x20 && byte < 0x7F);
    }
    require(problem.sentence.length > problem.key.length && problem.sentence.length <= 512);
    require(problem.field <= 10 && problem.byte <= size + 1);
    require((problem.code == NPIF_PROBLEM_OPTIONS) == (problem.key.length == 0));
}

void check_fields(const npif_command& command) {
    const npif_paper& paper = command.paper;
    if (paper.interposer) {
        require(paper.type.bytes == nullptr && paper.color.bytes == nullptr);
        require(paper.width == 0 && paper.length == 0);
    } else {
        check_word(paper.type);
        check_word(paper.color);
        require(paper.width >= 0 && paper.length >= 0);
    }
    require(command.kind != NPIF_COVER || (command.cover.side <= NPIF_BACK && command.cover.printing <= 3));
    require(command.kind != NPIF_INSERTION || (command.insertion.page >= 0 && command.insertion.sheets >= 1));
    require(command.kind != NPIF_EXCEPTION ||
            (command.exception.first >= 1 && command.exception.last >= command.exception.first &&
             command.exception.sides <= 2));
}

void check_command(const npif_command& command, npif_kind kind, std::size_t index) {
    require(command.kind == kind && command.index == index);
    check_text(command.text);
    if (command.problem == nullptr) {
        check_fields(command);
    } else {
        require(command.problem->index == index);
        require(command.paper.type.bytes == nullptr && command.paper.width == 0 && !command.paper.interposer);
        require(command.insertion.sheets == 0 && command.exception.first == 0);
    }
}

std::string slash_decimal(std::string_view text) {
    std::string encoded;
    for (const char byte : text) {
        encoded += "/" + std::to_string(static_cast<unsigned char>(byte));
    }
    return encoded;
}

/// The commands of one kind as options, all in slash-decimal form, which leaves empty texts empty.
std::string options_of(const npif::Reader& reader, npif_kind kind, const std::string& name) {
    const std::string prefix = "com.norvalen.nb.rtz.printsettings.NPIF" + name;
    std::string options = prefix + "CountTicket=" + std::to_string(reader.commands(kind).size());
    for (const npif_command& command : reader.commands(kind)) {
        options += " " + prefix + "ValueTicket_" + std::to_string(command.index) + "=" +
                   slash_decimal(npif::view(command.text));
    }
    return options;
}

void check_written_anew(const npif::Reader& reader) {
    const std::string options = options_of(reader, NPIF_COVER, "Cover") + " " +
                                options_of(reader, NPIF_INSERTION, "Insertion") + " " +
                                options_of(reader, NPIF_EXCEPTION, "Exception");
    if (options.size() > NPIF_MAX_OPTION_BYTES) {
        return;
    }
    const npif::Reader again{std::string_view(options)};
    for (const npif_kind kind : {NPIF_COVER, NPIF_INSERTION, NPIF_EXCEPTION}) {
        require(again.commands(kind).size() == reader.commands(kind).size());
        for (const npif_command& command : reader.commands(kind)) {
            const npif_command& other = again.commands(kind)[command.index];
            require(npif::view(other.text) == npif::view(command.text));
            // A text that stood as it was stored since its form is malformed is an ordinary text now.
            require(command.problem != nullptr || other.problem == nullptr);
            require(command.problem != nullptr || other.paper.width == command.paper.width);
        }
    }
}

void check(const npif::Reader& reader, std::size_t size) {
    require(reader.ok() == reader.problems().empty());
    for (const npif_problem& problem : reader.problems()) {
        check_problem(problem, size);
    }
    for (const npif_kind kind : {NPIF_COVER, NPIF_INSERTION, NPIF_EXCEPTION}) {
        for (std::size_t i = 0; i < reader.commands(kind).size(); ++i) {
            check_command(reader.commands(kind)[i], kind, i);
        }
    }
    for (const npif_record& record : reader.records()) {
        require(record.kind >= NPIF_COVER && record.kind <= NPIF_EXCEPTION);
        require(npif_record_integer(&record, NPIF_RECORD_TYPE) == static_cast<std::int32_t>(record.kind));
        check_text(npif_record_text(&record, NPIF_RECORD_LONGMEASURE));
    }
    for (const npif_list list : {NPIF_SIZES, NPIF_TYPES, NPIF_COLORS}) {
        for (std::size_t i = 0; i < reader.papers(list).size(); ++i) {
            check_text(npif_reader_paper(reader.get(), list, i));
        }
    }
    check_written_anew(reader);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes{reinterpret_cast<const char*>(data), size};
    check(npif::Reader(bytes), size);
    // The same bytes as one value each of a cover, an exception and a list, whatever CUPS would make of them.
    const std::string value(bytes);
    const std::string prefix = "com.norvalen.nb.rtz.printsettings.";
    const std::string names[] = {prefix + "NPIFCoverCountTicket",     prefix + "NPIFCoverValueTicket_0",
                                 prefix + "NPIFExceptionCountTicket", prefix + "NPIFExceptionValueTicket_0",
                                 prefix + "pageSizeArrayTicket",      prefix + "NPIFCommandTicketCount",
                                 prefix + "NPIFCommandTicket_0"};
    const npif_pair pairs[] = {{names[0].c_str(), "1"},           {names[1].c_str(), value.c_str()},
                               {names[2].c_str(), "1"},           {names[3].c_str(), value.c_str()},
                               {names[4].c_str(), value.c_str()}, {names[5].c_str(), "1"},
                               {names[6].c_str(), value.c_str()}};
    const npif::Reader reader(pairs, 7);
    check(reader, size);
    require(reader.commands(NPIF_COVER).size() == 1 || !reader.ok());
    return 0;
}
