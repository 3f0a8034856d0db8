// The texts of the read-only views beside a paper menu, and the reason that a disabled item shows.
#pragma once

#include "paper/paper_choice.h"
#include "ppd/choice_conflict.h"

#include <cups/ppd.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages {

/// The key shown when nothing about the paper is changed.
inline constexpr const char* kNoChangeInformationKey = "No Change Infomation";
/// The format of the reason: the option's text, then the choice's.
inline constexpr const char* kConflictToolTipKey = "Item Conflict Tool Tip";

/// The paper of the job, one line each for size, color and type; the last has no line end. `options` are
/// those of `keys`. Empty optional when an option is missing or has neither a marked choice nor its default.
///
/// A size without a mark has no line; a color or type without one shows the choice of the line before it,
/// since one variable carries the text on. With no line before it, it has none either.
std::optional<std::string> job_setting_text(ppd_file_t* ppd, const PaperOptionKeys& keys,
                                            const std::array<ppd_option_t*, 3>& options);

/// The PPD's text of each of the three options, by part; empty for one that is not there.
std::array<std::optional<std::string>, 3> paper_labels(ppd_file_t* ppd, const PaperOptionKeys& keys);

/// A label and a title; a line stands for it when both are there.
struct PaperLine {
    std::optional<std::string> label;
    std::optional<std::string> title;
};
/// The lines "label: title", each with a line end; empty when none stands.
std::string page_setting_text(const std::array<PaperLine, 3>& lines);

/// The format with its first two "%@" replaced by the texts, as they stand. Without the second one nothing is
/// shown of the second text.
std::string format_two_texts(std::string_view format, std::string_view first, std::string_view second);

/// Which choice forbids an item, in the PPD's own words. Empty when both pointers are null.
std::string conflict_text(std::string_view format, const ConflictingChoice& reason);

} // namespace specialpages
