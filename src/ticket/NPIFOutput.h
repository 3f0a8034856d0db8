// Writes what the print back-end reads when the pane saves: the number of special pages, one NPIF command a
// record, and the three lists of paper keywords. The panel inherits it and answers its questions; the
// commands themselves are made by the pure functions of npif_command.h. Nothing is reported: a failed write
// is lost and the save goes on.
#pragma once

#include "ticket/npif_command.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct ppd_file_s;

namespace specialpages::platform {
struct PageFormat;
class PrintSettings;
} // namespace specialpages::platform

namespace specialpages {

class SPSummaryScrollViewCtrl;

/// PPD keywords of the paper that the commands use, one a command that has paper of its own.
using PaperKeywordList = std::vector<std::string>;

/// How many bytes a keyword and an NPIF word may have, the terminator included.
inline constexpr std::size_t kNPIFWordBufferSize = 41;

class NPIFOutput {
  public:
    NPIFOutput() = default;
    NPIFOutput(const NPIFOutput&) = delete;
    NPIFOutput& operator=(const NPIFOutput&) = delete;
    virtual ~NPIFOutput() = default;

    /// The opposite of its name, and callers rely on that: false for a mailbox job (print type 5), the one
    /// job that gets no commands; true for every other and whenever the print type cannot be read.
    bool IsJobTypeMailbox();
    /// Record count, then the commands for covers, insertions and exceptions, each with its count. True
    /// always.
    bool outputNPIFCommand(platform::PrintSettings* settings, bool withParam, PaperKeywordList& sizeArray,
                           PaperKeywordList& typeArray, PaperKeywordList& colorArray);
    /// Stores the three arrays, also when they are empty; whether the last write succeeded. True for null
    /// settings.
    bool setPaperParamToTicket(platform::PrintSettings* settings, bool withParam,
                               const PaperKeywordList& sizeArray, const PaperKeywordList& typeArray,
                               const PaperKeywordList& colorArray);
    /// The only way for a command to reach the settings: at most 255 bytes of the text are seen, and one that
    /// begins with "/" or holds an apostrophe, a comma or a backslash goes out in slash-decimal form. True
    /// when the write succeeded.
    bool setCStringToTicket(std::string_view text, std::string_view withKey,
                            platform::PrintSettings* toSettings, bool withParam);
    void insertCoverNPIFCommand(platform::PrintSettings* settings, bool withParam,
                                PaperKeywordList& sizeArray, PaperKeywordList& typeArray,
                                PaperKeywordList& colorArray);
    void insertInsertionNPIFCommand(platform::PrintSettings* settings, bool withParam,
                                    PaperKeywordList& sizeArray, PaperKeywordList& typeArray,
                                    PaperKeywordList& colorArray);
    void insertExceptionNPIFCommand(platform::PrintSettings* settings, bool withParam,
                                    PaperKeywordList& sizeArray, PaperKeywordList& typeArray,
                                    PaperKeywordList& colorArray);

    /// NPIF word for a PPD keyword, at most `bufsize` - 1 bytes of it. On a miss, or for a null argument, the
    /// target stays as it was.
    static void getMediaColorNPIFComm(const char* keyword, std::string* color, std::size_t colorBufsize);
    static void getMediaTypeNPIFComm(const char* keyword, std::string* type, std::size_t typeBufsize);
    static void getMediaSizeNPIFComm(const char* keyword, std::string* x, std::size_t xBufsize,
                                     std::string* y, std::size_t yBufsize);

    /// Refreshes the choice counts, the marked colour and type, and the job's paper from PPD and page format.
    /// A choice that is not marked leaves the text of the last time.
    void getCurrentSystemPrintingSetting();

  protected:
    // What the output asks of the panel.
    virtual ppd_file_s* outputPPD() = 0;
    virtual const SPSummaryScrollViewCtrl* outputRecords() = 0;
    virtual platform::PrintSettings* outputSettings() = 0;
    virtual std::optional<std::string> outputPrinter() = 0;
    virtual const platform::PageFormat* outputPageFormat() = 0;

    std::int32_t MediaColorOptionCount = 0;
    std::int32_t MediaTypeOptionCount = 0;
    std::int32_t PageSizeOptionCount = 0;
    std::string mediaColorChoice;
    std::string mediaTypeChoice;
    /// Declared with the two others and filled by nobody here.
    std::string mediaSizeChoice;
    /// The job's sheet in hundredths of a millimetre, by a formula whose truncation is part of the value.
    std::int32_t JobPageLength = 0;
    std::int32_t JobPageWidth = 0;
    /// Raised by a command whose media type word holds "TAB" or "COATING", whose size keyword holds "A5", or
    /// whose sheet comes from the interposer.
    bool isMediaTypeTab = false;
    bool isMediaSizeA5 = false;
    bool hasInterposer = false;

  private:
    struct Kind;
    void insertCommands(const Kind& kind, platform::PrintSettings* settings, bool withParam,
                        PaperKeywordList& sizeArray, PaperKeywordList& typeArray,
                        PaperKeywordList& colorArray);
};

} // namespace specialpages
