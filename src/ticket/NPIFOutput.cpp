#include "ticket/NPIFOutput.h"

#include "platform/foundation/numbers.h"
#include "platform/foundation/preferences.h"
#include "platform/foundation/text.h"
#include "platform/print/PageFormat.h"
#include "platform/print/PrintSettings.h"
#include "ppd/cups_ppd.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_keywords.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/ticket_keys.h"
#include "support/settings_access.h"
#include "support/slash_decimal.h"
#include "ticket/npif_vocabulary.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace specialpages {

namespace {

/// The print type of a mailbox job, as another pane of the dialog writes it.
constexpr std::int32_t kMailboxPrintType = 5;
/// A print type longer than this is not read.
constexpr std::size_t kMaxPrintTypeBytes = 255;

/// Edge of the job's sheet in hundredths of a millimetre from points. Division and truncation come first: 842
/// points give 331 * 90.
std::int32_t job_length(double points) {
    constexpr double kPointsDivisor = 2.54;
    constexpr std::int32_t kUnit = 90;
    constexpr double kLimit = 1.0e6;
    const double scaled = points / kPointsDivisor;
    // A page format from outside may hold anything; what no sheet can have counts as none.
    return scaled > -kLimit && scaled < kLimit ? static_cast<std::int32_t>(scaled) * kUnit : 0;
}

std::int32_t marked_choice(ppd_file_t* ppd, const std::string& key, std::string& keyword) {
    if (const ppd_choice_t* choice = cups_find_marked_choice(ppd, key.c_str())) {
        keyword = std::string_view(choice->choice).substr(0, kMaxChoiceBytes);
    }
    return GetPPDKeyOptionCount(ppd, key.c_str());
}

void copy_word(std::string* target, std::string_view word, std::size_t bufsize) {
    *target = word.substr(0, bufsize == 0 ? 0 : bufsize - 1);
}

} // namespace

/// What tells the three kinds of command apart.
struct NPIFOutput::Kind {
    RecordType type;
    std::string_view countKey;
    std::string_view valueKey;
    NPIFCommand (*command)(const SpecialPageRecord&, const PaperKeywords&, const JobPaper&);
};

bool NPIFOutput::IsJobTypeMailbox() {
    const auto printer = outputPrinter();
    std::string key;
    if (!printer || !CreateKeyWithCurrentPrinter(kPrintTypeReference, *printer, &key)) {
        return true;
    }
    std::string type;
    if (system_version() < kVersionWithoutPreferences) {
        const auto stored = platform::CFPreferencesCopyValue(key, platform::kCFPreferencesAnyApplication,
                                                             platform::kCFPreferencesCurrentUser,
                                                             platform::kCFPreferencesCurrentHost);
        // A value that does not fit cannot be copied, and that alone makes this a mailbox job.
        if (stored && stored->size() > kMaxPrintTypeBytes) {
            return false;
        }
        type = stored.value_or(std::string());
    } else {
        platform::SettingsValue value;
        if (platform::PMPrintSettingsGetValue(outputSettings(), kPrintTypeTicketKey, value) !=
                platform::noErr ||
            !std::holds_alternative<std::string>(value)) {
            return true;
        }
        type = platform::utf8_prefix(std::get<std::string>(value), kMaxPrintTypeBytes);
    }
    return platform::int_value(type) != kMailboxPrintType;
}

bool NPIFOutput::outputNPIFCommand(platform::PrintSettings* settings, bool withParam,
                                   PaperKeywordList& sizeArray, PaperKeywordList& typeArray,
                                   PaperKeywordList& colorArray) {
    const SPSummaryScrollViewCtrl* list = outputRecords();
    if (settings == nullptr || list == nullptr) {
        return true;
    }
    SetIntegerValueToSettings(static_cast<std::int32_t>(list->allItemCount()), settings,
                              kSpecialPageRecordCountTicket, withParam);
    if (list->allItemCount() > 0) {
        getCurrentSystemPrintingSetting();
    }
    insertCoverNPIFCommand(settings, withParam, sizeArray, typeArray, colorArray);
    insertInsertionNPIFCommand(settings, withParam, sizeArray, typeArray, colorArray);
    insertExceptionNPIFCommand(settings, withParam, sizeArray, typeArray, colorArray);
    return true;
}

bool NPIFOutput::setPaperParamToTicket(platform::PrintSettings* settings, bool withParam,
                                       const PaperKeywordList& sizeArray, const PaperKeywordList& typeArray,
                                       const PaperKeywordList& colorArray) {
    if (settings == nullptr) {
        return true;
    }
    platform::PMPrintSettingsSetValue(settings, kPageSizeArrayTicket, sizeArray, withParam);
    platform::PMPrintSettingsSetValue(settings, kMediaTypeArrayTicket, typeArray, withParam);
    return platform::PMPrintSettingsSetValue(settings, kMediaColorArrayTicket, colorArray, withParam) ==
           platform::noErr;
}

bool NPIFOutput::setCStringToTicket(std::string_view text, std::string_view withKey,
                                    platform::PrintSettings* toSettings, bool withParam) {
    return SetValueToSettingsWithTicketKeyAndLock(ticket_text(text), toSettings, withKey, withParam) ==
           platform::noErr;
}

void NPIFOutput::insertCoverNPIFCommand(platform::PrintSettings* settings, bool withParam,
                                        PaperKeywordList& sizeArray, PaperKeywordList& typeArray,
                                        PaperKeywordList& colorArray) {
    insertCommands({RecordType::cover, kNPIFCoverCountTicket, kNPIFCoverValueTicket, cover_command}, settings,
                   withParam, sizeArray, typeArray, colorArray);
}

void NPIFOutput::insertInsertionNPIFCommand(platform::PrintSettings* settings, bool withParam,
                                            PaperKeywordList& sizeArray, PaperKeywordList& typeArray,
                                            PaperKeywordList& colorArray) {
    insertCommands(
        {RecordType::insert, kNPIFInsertionCountTicket, kNPIFInsertionValueTicket, insertion_command},
        settings, withParam, sizeArray, typeArray, colorArray);
}

void NPIFOutput::insertExceptionNPIFCommand(platform::PrintSettings* settings, bool withParam,
                                            PaperKeywordList& sizeArray, PaperKeywordList& typeArray,
                                            PaperKeywordList& colorArray) {
    insertCommands(
        {RecordType::exception, kNPIFExceptionCountTicket, kNPIFExceptionValueTicket, exception_command},
        settings, withParam, sizeArray, typeArray, colorArray);
}

void NPIFOutput::insertCommands(const Kind& kind, platform::PrintSettings* settings, bool withParam,
                                PaperKeywordList& sizeArray, PaperKeywordList& typeArray,
                                PaperKeywordList& colorArray) {
    ppd_file_t* ppd = outputPPD();
    const SPSummaryScrollViewCtrl* list = outputRecords();
    if (settings == nullptr || ppd == nullptr || list == nullptr) {
        return;
    }
    const auto of_kind = [&kind](const SpecialPageRecord& record) {
        return record.is(kind.type);
    };
    const std::int64_t count = std::ranges::count_if(list->records(), of_kind);
    if (count == 0) {
        SetCStringToTicket(settings, "", kind.countKey, withParam);
        return;
    }
    SetCStringToTicket(settings, platform::decimal_text(count), kind.countKey, withParam);
    const std::string colorKey = FixPPDKeywordAccordingToType(ppd, kPPDMediaColorKey);
    const JobPaper job{PageSizeOptionCount, JobPageWidth, JobPageLength};
    std::int64_t index = 0;
    for (const SpecialPageRecord& record : list->records() | std::views::filter(of_kind)) {
        PaperKeywords paper;
        if (!record.is_true(RecordKey::interposer)) {
            GetValueFromPPDByIndex(ppd, colorKey.c_str(), paper.color, record.integer(RecordKey::pagecolor));
            GetValueFromPPDByIndex(ppd, kPPDMediaTypeKey, paper.type, record.integer(RecordKey::pagetype));
            GetValueFromPPDByIndex(ppd, kPPDPageSizeKey, paper.size, record.integer(RecordKey::pagesize));
        }
        NPIFCommand command = kind.command(record, paper, job);
        hasInterposer = hasInterposer || command.raisesInterposer;
        isMediaTypeTab = isMediaTypeTab || command.raisesTab;
        isMediaSizeA5 = isMediaSizeA5 || command.raisesA5;
        for (auto [keyword, array] :
             {std::pair{&command.size, &sizeArray}, std::pair{&command.type, &typeArray},
              std::pair{&command.color, &colorArray}}) {
            if (*keyword) {
                array->push_back(std::move(**keyword));
            }
        }
        setCStringToTicket(command.text, std::string(kind.valueKey) + platform::decimal_text(index++),
                           settings, withParam);
    }
}

void NPIFOutput::getMediaColorNPIFComm(const char* keyword, std::string* color, std::size_t colorBufsize) {
    const auto word = keyword == nullptr ? std::nullopt : media_color_word(keyword);
    if (word && color != nullptr) {
        copy_word(color, *word, colorBufsize);
    }
}

void NPIFOutput::getMediaTypeNPIFComm(const char* keyword, std::string* type, std::size_t typeBufsize) {
    const auto word = keyword == nullptr ? std::nullopt : media_type_word(keyword);
    if (word && type != nullptr) {
        copy_word(type, *word, typeBufsize);
    }
}

void NPIFOutput::getMediaSizeNPIFComm(const char* keyword, std::string* x, std::size_t xBufsize,
                                      std::string* y, std::size_t yBufsize) {
    const auto size = keyword == nullptr ? std::nullopt : media_size(keyword);
    if (size && x != nullptr && y != nullptr) {
        copy_word(x, size->x, xBufsize);
        copy_word(y, size->y, yBufsize);
    }
}

void NPIFOutput::getCurrentSystemPrintingSetting() {
    ppd_file_t* ppd = outputPPD();
    if (ppd == nullptr) {
        return;
    }
    MediaColorOptionCount =
        marked_choice(ppd, FixPPDKeywordAccordingToType(ppd, kPPDMediaColorKey), mediaColorChoice);
    MediaTypeOptionCount = marked_choice(ppd, kPPDMediaTypeKey, mediaTypeChoice);
    platform::PMRect paper;
    if (platform::PMGetUnadjustedPaperRect(outputPageFormat(), paper) == platform::noErr) {
        JobPageLength = job_length(paper.bottom - paper.top);
        JobPageWidth = job_length(paper.right - paper.left);
    }
    PageSizeOptionCount = GetPPDKeyOptionCount(ppd, kPPDPageSizeKey);
}

} // namespace specialpages
