// The cache file of a constraint index. A PPD may name a text file that holds its index compiled, in sections
// of which a reader takes one. The file is plain bytes in lines that end with one 0x0A:
//
//     SpecialPagesPDETiger                                  the section's name
//     PageSize:A4@2@0@3@MediaType:Plain@1@5@2@              its entries: key, group, option, choice, each
//     with "@"
//     ...                                                   any number of sections
//     *% Last Edit Date: ...                                the PPD's stamp, without a line end
//
// Entries stand in the index's order of iteration, so that a PPD gives the same bytes on every machine. The
// numbers are positions in the PPD it was written from and trusted: nothing compares the stamp, nor falls
// back to compiling.
#pragma once

#include "ppd/constraint_index.h"

#include <cups/ppd.h>

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

inline const std::string strPrintFeaturePDETiger = "PrintFeaturePDETiger";
inline const std::string strPrintFeaturePDEPanther = "PrintFeaturePDEPanther";
inline const std::string strImageOptionPDETiger = "ImageOptionPDETiger";
inline const std::string strImageOptionPDEPanther = "ImageOptionPDEPanther";

/// What the stamp line of a PPD holds.
inline constexpr std::string_view STRPPDSTAMP = "*% Last Edit Date:";

/// One section to write: its name and the option keywords whose constraints it takes. Both are borrowed. A
/// null list ends an array of sections.
struct x_PDEConstr {
    const std::string* sectionName = nullptr;
    const std::vector<std::string>* keywords = nullptr;
};

/// Reads one section of a cache file, or writes a whole one. Index and PPD are borrowed, and so are the lists
/// that the sections to write point to; null ones are tolerated and have no constraints.
class CQuickXPPD {
  public:
    CQuickXPPD() = default;
    /// A reader of the section of that name into the index.
    CQuickXPPD(ConstraintIndex* index, std::string_view sectionName);
    /// A writer of the sections of an array that a record with a null list ends. The index is scratch: it is
    /// emptied before and after each section. `ppdFileName` is where the PPD lies, for the stamp; without it
    /// there is none.
    CQuickXPPD(ppd_file_t* ppd, ConstraintIndex* index, const x_PDEConstr* sections,
               std::optional<std::string_view> ppdFileName);

    /// Adds the constraints that concern an option of the current section. Answers 0.
    std::int32_t SetXppd(const ppd_file_t* ppd, ConstraintIndex* index) const;

    // The free functions of these names.
    static void xConst2Hash_O1O2(const ppd_file_t* ppd, ConstraintIndex* index,
                                 std::int32_t constraintNumber);
    static void xConst2Hash_O1C1O2(const ppd_file_t* ppd, ConstraintIndex* index,
                                   std::int32_t constraintNumber);
    static void xConst2Hash_O1O2C2(const ppd_file_t* ppd, ConstraintIndex* index,
                                   std::int32_t constraintNumber);
    static void xConst2Hash_O1C1O2C2(const ppd_file_t* ppd, ConstraintIndex* index,
                                     std::int32_t constraintNumber);

    /// Moves the text before the source's first delimiter to the end of the target and takes it and the
    /// delimiter off the source. False, and nothing changed, without a delimiter or for a null argument.
    static bool getoneline(std::string_view* source, std::string* target, char delimiter);

    /// Writes nothing: the place for a head of the file. Answers 0.
    static std::int32_t SetFileHead(std::ostream& stream, const ppd_file_t* ppd);

    /// Writes the first piece of the PPD file that holds STRPPDSTAMP. Pieces end with a carriage return, as
    /// PPD lines are taken to do: in a PPD with other line ends the piece begins with a stray 0x0A or is the
    /// whole file. Nothing is written for a PPD that does not open or holds no stamp. Answers 0.
    std::int32_t SetFileStamp(std::ostream& stream) const;

    /// Writes all sections, each as its name and its cache_data_line, and the stamp.
    friend std::ostream& operator<<(std::ostream& stream, CQuickXPPD& object);

    /// Adds the entries of the first section of the reader's name to the index and stops behind it; nothing
    /// when the section is not there. The name's line must match whole. An entry with an empty key is
    /// dropped, a field that is no number counts as 0, and numbers are cut to 16 bits. A data line that
    /// breaks off in an entry ends there, and the entries before it stay.
    friend std::istream& operator>>(std::istream& stream, CQuickXPPD& object);

  private:
    ConstraintIndex* index = nullptr;
    ppd_file_t* ppd = nullptr;
    std::optional<std::string> sectionName; ///< to read; empty for a writer
    std::optional<std::string> ppdFileName; ///< empty for a reader
    std::vector<std::string> keywordFilter; ///< of the section that is being written
    std::vector<x_PDEConstr> sections;      ///< to write, without the end record
};

/// The data line of a section, without its line end. An entry whose key holds "@" or a line end, or is empty,
/// is left out: the file has no escape for it, and the entries behind it would be read wrong.
std::string cache_data_line(const ConstraintIndex& index);

/// Fills the index from the file that an attribute of the PPD names. The attribute is looked for by the
/// beginning of its name; its value is the path as it stands, a relative one counting from the process's
/// directory. The section is `sectionBase` + "Panther" on a system of version 0x1030 to 0x103F, and + "Tiger"
/// on every other.
///
/// 0 when the file was opened and read, even if it lacks the section. 1, with the index as it was, when there
/// is no such attribute, no index, or the path is not that of a readable plain file.
std::int32_t GetXPPD(ppd_file_t* ppd, ConstraintIndex* index, std::string_view sectionBase,
                     std::string_view attributeName);

} // namespace specialpages
