// Reading the printer's PPD. The PPD is parsed and owned by libcups and the host; it is borrowed here and
// never opened, closed or marked. Nothing logs or raises: each function has a "not found" answer of its own,
// and they differ on purpose (-1, 0, or one past the end).
#pragma once

#include <cups/ppd.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace specialpages {

/// Longest choice keyword, in bytes (the PPD format's own limit).
inline constexpr std::size_t kMaxChoiceBytes = 40;

// Options. `key` is an option keyword; a null `ppd` counts as an option that is not there.

bool CheckPPDKeyIsExist(ppd_file_t* ppd, const char* key);
/// Number of choices; 0 when the option is missing.
std::int32_t GetPPDKeyOptionCount(ppd_file_t* ppd, const char* key);
/// Writes the keyword of the choice into `out`, at most kMaxChoiceBytes of it. `out` stays as it was for a
/// missing option, a negative index, or one at or past the number of choices.
void GetValueFromPPDByIndex(ppd_file_t* ppd, const char* key, std::string& out, std::int32_t index);
/// Index of the first choice with exactly that keyword; 0 when there is none, the same as a match on the
/// first.
std::int32_t GetIndexFromPPDByKeyword(const ppd_option_t* option, const char* choice);
/// Index of the first choice with exactly that keyword; the number of choices, one past the last, when there
/// is none; 0 when the option is missing or has no choices.
std::int32_t GetChoiceIndex(ppd_file_t* ppd, const char* key, const char* choice);
/// Index in `table` of the option's default choice; -1 when the option or the entry is missing.
std::int32_t GetValueFromPPD(ppd_file_t* ppd, const char* key, std::span<const std::string> table);
/// `out` becomes the option's default choice, null when the option is missing. Answers 0 always.
std::int32_t GetUIDefaultFromPPD(ppd_file_t* ppd, const char* key, std::optional<std::string>& out);
/// Index of the option's default choice; -1 when there is none.
std::int32_t GetUIDefaultValueFromPPD(ppd_file_t* ppd, const char* key);
/// `out` becomes the option's text as UTF-8, read in the PPD's encoding; null when the option is missing or
/// its text is ill-formed. Answers 0 always.
std::int32_t GetUITitleFromPPD(ppd_file_t* ppd, const char* key, std::optional<std::string>& out);
/// Index within `option` of the choice that is marked for `key`; without a marked choice, of the option's
/// default; -1 when neither is in `option`.
std::int32_t GetIndexOfMarkedOptionWithKey(ppd_option_t* option, ppd_file_t* ppd, const char* key);

// Attributes. A name matches every attribute whose name begins with it, and the first such attribute in file
// order is taken: callers rely on that.

/// Null when there is none. `spec` is ignored.
ppd_attr_t* ppdFindAttr_ALT(ppd_file_t* ppd, const char* name, const char* spec = nullptr);
/// As above, but the attribute's spec must begin with `spec` too.
ppd_attr_t* ppdFindAttr_ALT_SPEC(ppd_file_t* ppd, const char* name, const char* spec);
bool CDFKeyExist(ppd_file_t* ppd, const char* name);
/// 1 when the attribute has a value that begins with `prefix`, else 0.
std::int32_t CheckIfPPDKeywordSupported(ppd_file_t* ppd, const char* name, const char* prefix);

// Numbers inside words.

/// The ASCII digits among the bytes, joined and read as one number ("4-ab1c2" gives 412), saturating at 32
/// bits; 0 when there is none.
std::int32_t getIntFromString(std::string_view bytes);
/// getIntFromString of the option's default choice; -1 when the option is missing.
std::int32_t GetPWMiniIntValueFromPPD(ppd_file_t* ppd, const char* key);
/// The first number in the attribute's value, a 0 counting as found ("PW8" gives 8); -1 for a missing
/// attribute, an empty value, or one without a number.
std::int32_t GetSorlundPWMiniIntValueFromPPD(ppd_file_t* ppd, const char* name);
/// getIntFromString of the first three bytes of the attribute's value ("1024" gives 102); 0 for a missing
/// attribute.
std::int32_t GetMBMaxNumberFromPPD(ppd_file_t* ppd, const char* name);

// Keywords and encodings.

/// The vendor-prefix rule: in a PPD whose *Manufacturer is exactly "NV", a keyword that begins with "NV" in
/// any case begins with "NV" in the answer; all else stays as it is. At most 99 bytes are kept.
std::string FixPPDKeywordAccordingToType(ppd_file_t* ppd, std::string_view keyword);

/// Text encodings that a PPD may name, with the numbers by which the system knows them.
enum class PPDEncoding : std::uint32_t {
    MacRoman = 0,
    MacJapanese = 1,
    ISOLatin1 = 513,
    WindowsLatin1 = 1280,
    UTF8 = 0x08000100
};
/// By exact comparison with the PPD's encoding name; MacRoman for a null PPD, a null name and every unknown
/// one.
PPDEncoding GetCFStringEncodingFromPPD(const ppd_file_t* ppd);
/// The name of the ICU converter for an encoding.
const char* converter_name(PPDEncoding encoding);

// Small helpers.

/// Index of the first pair equal to (key, value); -1 when there is none.
std::int32_t FindPPDKeyPairsMatch(std::span<const std::pair<std::string, std::string>> pairs,
                                  std::string_view key, std::string_view value);
/// Appends the text unless it is there.
void AddNoRepeatStrToArray(std::vector<std::string>* array, std::optional<std::string_view> text);
/// The text before (`which` 0) or after (1) the first "-"; null when there is none.
std::optional<std::string> GetAppResourceNameNS(std::optional<std::string_view> text, std::int32_t which);

/// The keywords of all options of the PPD's top-level groups, in file order; sub-groups are not visited.
std::vector<std::string> option_keywords(const ppd_file_t* ppd);

/// The process-wide list of option keywords of the current PPD. The panel's supportedPPDOptionKeys refills
/// it.
std::vector<std::string>& nxPPDKeywordList();

} // namespace specialpages
