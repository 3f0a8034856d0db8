#include "ticket/npif_command.h"

#include "platform/foundation/numbers.h"
#include "records/record_order.h"
#include "support/slash_decimal.h"
#include "support/units.h"
#include "ticket/npif_vocabulary.h"

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <span>

namespace specialpages {
namespace {

using platform::decimal_text;

constexpr std::string_view kPaperFollows = "1";
constexpr std::string_view kNoPaper = "0";
/// Two fields of every exception command.
constexpr std::string_view kExceptionConstant = "1";
constexpr std::string_view kCustomSize = "Custom";

std::string joined(std::initializer_list<std::string_view> fields) {
    std::string text;
    std::string_view separator;
    for (const auto field : fields) {
        text += separator;
        text += field;
        separator = ",";
    }
    return text;
}

std::string_view word_at(std::span<const std::string_view> words, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < words.size()
               ? words[static_cast<std::size_t>(index)]
               : std::string_view{};
}

/// The sheet's paper in the command's words, empty where there is none.
struct Paper {
    std::string color;
    std::string type;
    std::string x;
    std::string y;
};

/// Millimetre text as hundredths of a millimetre, held at the ends of 32 bits.
std::string hundredths(const std::string& millimetres) {
    using Limits = std::numeric_limits<std::int32_t>;
    const auto tenths = std::int64_t{GetMillimetreFromStr(millimetres)};
    return decimal_text(std::clamp(tenths * 10, std::int64_t{Limits::min()}, std::int64_t{Limits::max()}));
}

void resolve_size(const SpecialPageRecord& record, std::string keyword, const JobPaper& job, Paper& paper,
                  NPIFCommand& command) {
    if (record.integer(RecordKey::pagesize) >= job.PageSizeOptionCount) {
        paper.x = decimal_text(job.JobPageWidth);
        paper.y = decimal_text(job.JobPageLength);
        return;
    }
    if (keyword == kCustomSize) {
        paper.x = hundredths(record.text(RecordKey::width));
        paper.y = hundredths(record.text(RecordKey::length));
    } else if (const auto sheet = media_size(keyword)) {
        paper.x = sheet->x;
        paper.y = sheet->y;
    }
    command.raisesA5 = keyword.find("A5") != std::string::npos;
    command.size = std::move(keyword);
}

/// The paper of a record that has its own. Notes in `command` what the job's lists and flags get of it.
Paper resolve_paper(const SpecialPageRecord& record, const PaperKeywords& keywords, const JobPaper& job,
                    NPIFCommand& command) {
    Paper paper;
    command.color = keywords.color.substr(0, kMaxNPIFKeywordBytes);
    paper.color = media_color_word(*command.color).value_or("");
    command.type = keywords.type.substr(0, kMaxNPIFKeywordBytes);
    paper.type = media_type_word(*command.type).value_or("");
    // The words of coated papers say "COATED", so that only tab stock passes.
    command.raisesTab =
        paper.type.find("TAB") != std::string::npos || paper.type.find("COATING") != std::string::npos;
    resolve_size(record, keywords.size.substr(0, kMaxNPIFKeywordBytes), job, paper, command);
    return paper;
}

bool comes_from_interposer(const SpecialPageRecord& record) {
    return record.is_true(RecordKey::interposer);
}

NPIFCommand interposer_command(std::initializer_list<std::string_view> fields) {
    NPIFCommand command;
    command.text = joined(fields);
    command.raisesInterposer = true;
    return command;
}

} // namespace

NPIFCommand cover_command(const SpecialPageRecord& record, const PaperKeywords& keywords,
                          const JobPaper& job) {
    const auto side = decimal_text(record.integer(RecordKey::page));
    const auto printing = word_at(CoverTypeNPIFComm, record.integer(RecordKey::printingoptions));
    if (comes_from_interposer(record)) {
        return interposer_command({side, kNoPaper, printing, TrayInterposer});
    }
    NPIFCommand command;
    const auto paper = resolve_paper(record, keywords, job, command);
    command.text = joined({side, kPaperFollows, printing, paper.type, paper.color, paper.x, paper.y});
    return command;
}

NPIFCommand insertion_command(const SpecialPageRecord& record, const PaperKeywords& keywords,
                              const JobPaper& job) {
    const auto page = decimal_text(record.integer(RecordKey::page));
    const auto sheets = decimal_text(record.integer(RecordKey::insertquantity));
    if (comes_from_interposer(record)) {
        return interposer_command({kNoPaper, page, sheets, TrayInterposer});
    }
    NPIFCommand command;
    const auto paper = resolve_paper(record, keywords, job, command);
    command.text = joined({kPaperFollows, page, sheets, paper.color, paper.x, paper.y, paper.type});
    return command;
}

NPIFCommand exception_command(const SpecialPageRecord& record, const PaperKeywords& keywords,
                              const JobPaper& job) {
    const auto pages = page_range(record);
    const auto first = decimal_text(pages.first);
    const auto last = decimal_text(pages.last);
    const auto twoSidePrint = record.integer(RecordKey::twoSidePrint);
    const auto sides = twoSidePrint > 0 ? word_at(SidesNPIFComm, twoSidePrint - 1) : std::string_view{};
    if (comes_from_interposer(record)) {
        return interposer_command(
            {kNoPaper, kExceptionConstant, kExceptionConstant, first, last, sides, TrayInterposer});
    }
    NPIFCommand command;
    const auto paper = resolve_paper(record, keywords, job, command);
    command.text = joined({kPaperFollows, kExceptionConstant, kExceptionConstant, first, last, sides,
                           paper.type, paper.color, paper.x, paper.y});
    return command;
}

std::optional<std::vector<std::string>> command_fields(std::string_view stored) {
    const auto command = decode_slash_decimal(stored);
    if (!command) {
        return std::nullopt;
    }
    std::vector<std::string> fields(1);
    for (const char byte : *command) {
        if (byte == ',') {
            fields.emplace_back();
        } else {
            fields.back() += byte;
        }
    }
    return fields;
}

} // namespace specialpages
