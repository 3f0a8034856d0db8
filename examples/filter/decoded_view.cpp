#include "decoded_view.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace {

using Line = std::array<std::string, 3>;

/// Control characters as "?", so that a text stays in its line.
std::string printable(std::string_view text) {
    std::string shown(text);
    for (char& c : shown) {
        const auto byte = static_cast<unsigned char>(c);
        c = byte < 0x20 || byte == 0x7F ? '?' : c;
    }
    return shown;
}

std::string text_of(const npif_record& record, npif_record_key key) {
    return std::string(npif::view(npif_record_text(&record, key)));
}

std::string page_of(const npif_record& record) {
    switch (record.kind) {
    case NPIF_COVER:
        return npif_record_integer(&record, NPIF_RECORD_PAGE) == 0 ? "front" : "back";
    case NPIF_INSERTION:
        return npif_record_integer(&record, NPIF_RECORD_INSERTOPTION) == 1
                   ? "before 1"
                   : "after " + text_of(record, NPIF_RECORD_PAGE);
    case NPIF_EXCEPTION:
        break;
    }
    return text_of(record, NPIF_RECORD_PAGE);
}

std::string setup_of(const npif_record& record) {
    const std::string paper = text_of(record, NPIF_RECORD_INTERPOSER) == "true"
                                  ? "interposer"
                                  : "size " + text_of(record, NPIF_RECORD_PAGESIZE) + ", color " +
                                        text_of(record, NPIF_RECORD_PAGECOLOR) + ", type " +
                                        text_of(record, NPIF_RECORD_PAGETYPE);
    switch (record.kind) {
    case NPIF_COVER:
        return paper + ", printing " + text_of(record, NPIF_RECORD_PRINTINGOPTIONS);
    case NPIF_INSERTION:
        return paper + ", sheets " + text_of(record, NPIF_RECORD_INSERTQUANTITY);
    case NPIF_EXCEPTION:
        break;
    }
    return paper + ", sides " + text_of(record, NPIF_RECORD_TWOSIDEPRINT);
}

/// Characters, not bytes.
std::size_t width_of(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string records_table(const npif::Reader& job) {
    static const std::array<const char*, 3> kTypes{"cover", "insert", "exception"};
    std::vector<Line> lines{{"Page", "Type", "Setup"}};
    for (const npif_record& record : job.records()) {
        lines.push_back({printable(page_of(record)), kTypes.at(record.kind), printable(setup_of(record))});
    }
    std::array<std::size_t, 2> widths{};
    for (const Line& line : lines) {
        widths = {std::max(widths[0], width_of(line[0])), std::max(widths[1], width_of(line[1]))};
    }
    std::string table;
    for (const Line& line : lines) {
        std::string text;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            text += line[column] + std::string(widths[column] - width_of(line[column]) + 2, ' ');
        }
        text += line[2];
        text.erase(text.find_last_not_of(' ') + 1);
        table += text + "\n";
    }
    return table;
}

std::string commands_table(const npif::Reader& job) {
    static const std::array<const char*, 3> kNames{"cover      ", "insertion  ", "exception  "};
    std::string table;
    for (const npif_kind kind : {NPIF_COVER, NPIF_INSERTION, NPIF_EXCEPTION}) {
        for (const npif_command& command : job.commands(kind)) {
            table += std::string("  ") + kNames.at(kind) + printable(npif::view(command.text)) + "\n";
        }
    }
    return table.empty() ? "  -\n" : table;
}

std::string papers_of(const npif::Reader& job, npif_list list) {
    std::string text;
    for (const std::string_view paper : job.papers(list)) {
        text += (text.empty() ? "" : ", ") + printable(paper);
    }
    return text.empty() ? "-" : text;
}

std::string yes_or_no(bool flag) {
    return flag ? "yes" : "no";
}

/// Hundredths of a millimetre as millimetres with two decimals.
std::string millimetres(std::int32_t hundredths) {
    const std::string decimals = std::to_string(hundredths % 100);
    return std::to_string(hundredths / 100) + (decimals.size() < 2 ? ".0" : ".") + decimals;
}

std::string sheet_of(const npif_paper& paper) {
    if (paper.interposer) {
        return "from the interposer";
    }
    std::string text = "on " + millimetres(paper.width) + " x " + millimetres(paper.length) + " mm";
    for (const npif_text word : {paper.color, paper.type}) {
        text += word.length == 0 ? "" : ", " + std::string(npif::view(word));
    }
    return text;
}

} // namespace

std::string decoded_view(const npif::Reader& job) {
    return (job.records().empty() ? "No special pages\n" : records_table(job)) + "\nCommands\n" +
           commands_table(job) + "\nPapers\n  size   " + papers_of(job, NPIF_SIZES) + "\n  type   " +
           papers_of(job, NPIF_TYPES) + "\n  color  " + papers_of(job, NPIF_COLORS) + "\n\nFlags\n  tab " +
           yes_or_no(job.flag(NPIF_TAB)) + ", interposer " + yes_or_no(job.flag(NPIF_INTERPOSER)) + ", a5 " +
           yes_or_no(job.flag(NPIF_A5)) + "\n";
}

bool has_decoded_view(const npif::Reader& job) {
    const auto problems = job.problems();
    return std::none_of(problems.begin(), problems.end(), [](const npif_problem& problem) {
        const bool of_a_paper = npif::view(problem.key).find("ArrayTicket") != std::string_view::npos;
        return problem.code == NPIF_PROBLEM_OPTIONS || problem.code == NPIF_PROBLEM_MISSING ||
               problem.code == NPIF_PROBLEM_RECORD || (problem.code == NPIF_PROBLEM_FORM && !of_a_paper);
    });
}

std::string plan_of(const npif_command& command) {
    static const std::array<const char*, 4> kPrintings{"blank", "printed on side one", "printed on side two",
                                                       "printed on both sides"};
    static const std::array<const char*, 3> kSides{"one-sided", "two-sided on the long edge",
                                                   "two-sided on the short edge"};
    const std::string sheet = sheet_of(command.paper);
    switch (command.kind) {
    case NPIF_COVER:
        return std::string(command.cover.side == NPIF_FRONT ? "front" : "back") + " cover, " +
               kPrintings.at(command.cover.printing) + ", " + sheet;
    case NPIF_INSERTION:
        return std::to_string(command.insertion.sheets) + " sheet(s) " +
               (command.insertion.page == 0 ? "before page 1"
                                            : "after page " + std::to_string(command.insertion.page)) +
               ", " + sheet;
    case NPIF_EXCEPTION:
        break;
    }
    return "pages " + std::to_string(command.exception.first) + " to " +
           std::to_string(command.exception.last) + " " + kSides.at(command.exception.sides) + ", " + sheet;
}
