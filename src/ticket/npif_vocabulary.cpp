#include "ticket/npif_vocabulary.h"

#include <algorithm>

namespace specialpages {

constexpr std::array<NPIFWord, 18> MediaColorNPIFComm{{
    {"White", "white"},
    {"Blue", "blue"},
    {"Buff", "buff"},
    {"Goldenrod", "goldenrod"},
    {"Gray", "gray"},
    {"Green", "green"},
    {"Ivory", "ivory"},
    {"Orange", "orange"},
    {"Pink", "pink"},
    {"Red", "red"},
    {"Yellow", "yellow"},
    {"Clear", "no-color"},
    {"Custom1", "custom_1"},
    {"Custom2", "custom_2"},
    {"Custom3", "custom_3"},
    {"Custom4", "custom_4"},
    {"Custom5", "custom_5"},
    {"Other", "other"},
}};

// Words such as "USEDS1" and "THICK1S" are irregular and go out as they are.
constexpr std::array<NPIFWord, 46> MediaTypeNPIFComm{{
    {"Stationary", "NORMAL"},
    {"StationaryS1", "NORMALS1"},
    {"StationaryBack", "NORMALREV"},
    {"StationaryBackS1", "USEDS1"},
    {"FinePaper", "HIGHQUALITY"},
    {"FinePaperS1", "FINES1"},
    {"RecyclePaper", "RECYCLE"},
    {"RecyclePaperS1", "RECYCLES1"},
    {"ThickPaper", "THICK"},
    {"ThickPaperS1", "THICK1S"},
    {"ThickPaper2", "SUPERTHICK"},
    {"ThickPaper2S1", "SUPERTHICKS1"},
    {"ThickPaper3", "THICK3"},
    {"ThickPaper3S1", "THICK3S1"},
    {"ThickPaper4", "THICK4"},
    {"ThickPaper4S1", "THICK4S1"},
    {"PrePrintedPaper", "PREPRINTED"},
    {"PrePrintedPlainPaperS1", "PREPRINTEDS1"},
    {"PrePrintedThinPaper", "PREPRINTEDTHIN"},
    {"PrePrintedThickPaper1", "PREPRINTEDTHICK1"},
    {"PrePrintedThickPaper1S1", "PREPRINTEDTHICK1S1"},
    {"PrePrintedThickPaper2", "PREPRINTEDTHICK2"},
    {"PrePrintedThickPaper2S1", "PREPRINTEDTHICK2S1"},
    {"PrePrintedThickPaper3", "PREPRINTEDTHICK3"},
    {"PrePrintedThickPaper3S1", "PREPRINTEDTHICK3S1"},
    {"PrePrintedThickPaper4", "PREPRINTEDTHICK4"},
    {"PrePrintedThickPaper4S1", "PREPRINTEDTHICK4S1"},
    {"PrePrintedPlainPaperS1", "PREPRINTED_S1"},
    {"CoatingPaper1", "COATEDPAPER"},
    {"CoatingPaper1A", "COATEDPAPERA"},
    {"CoatingPaper1B", "COATEDPAPERB"},
    {"CoatingPaper2", "COATEDPAPER2"},
    {"CoatingPaper3", "COATEDPAPER3"},
    {"CoatingPaper4", "COATEDPAPER4"},
    {"LabelPaper1", "LABELPAPER1"},
    {"LabelPaper2", "LABELPAPER2"},
    {"Transparency", "TRANSPARENCY"},
    {"TabbedPaper1", "TABTHICK1"},
    {"TabbedPaper2", "TABTHICK2"},
    {"ThinPaper", "THIN"},
    {"PrepunchedPaper", "PREPUNCHED"},
    {"CustomSizedPaper1", "USER1"},
    {"CustomSizedPaper2", "USER2"},
    {"CustomSizedPaper3", "USER3"},
    {"CustomSizedPaper4", "USER4"},
    {"CustomSizedPaper5", "USER5"},
}};

constexpr std::array<NPIFSheet, 48> MediaSizeNPIFComm{{
    {"A3", "29700", "42000"},
    {"B4", "25700", "36400"},
    {"A4", "21000", "29700"},
    {"B5", "18200", "25700"},
    {"A5", "14800", "21000"},
    {"B6", "12800", "18200"},
    {"A6", "10500", "14800"},
    {"SRA3", "32000", "45000"},
    {"8x10", "20320", "25400"},
    {"9x11", "22860", "27940"},
    {"Legal", "21590", "35560"},
    {"Letter", "21590", "27940"},
    {"Tabloid", "27940", "43180"},
    {"Statement", "13970", "21590"},
    {"Executive", "18420", "26670"},
    {"TabloidExtra", "30480", "45720"},
    {"FanFoldGermanLegal", "21590", "33020"},
    {"DoublePostcardRotated", "14800", "20000"},
    {"NV4x6", "10160", "15240"},
    {"NV5x7", "12700", "17780"},
    {"NV11x15", "27940", "38100"},
    {"NV13x18", "33020", "45720"},
    {"NV13x19", "33020", "48260"},
    {"NV8-KAI", "26700", "38800"},
    {"NV16-KAI", "19400", "26700"},
    {"NV846x124", "21500", "31500"},
    {"NV889x122", "22600", "31000"},
    {"NV122x170", "31000", "43200"},
    {"NV126x192", "32000", "48800"},
    {"NVA4Cover", "22300", "29700"},
    {"NVPostcard", "10000", "14800"},
    {"NV8-KAI-GCO", "27000", "39000"},
    {"NV16-KAI-GCO", "19500", "27000"},
    {"NR4x6", "10160", "15240"},
    {"NR5x7", "12700", "17780"},
    {"NR11x15", "27940", "38100"},
    {"NR13x18", "33020", "45720"},
    {"NR13x19", "33020", "48260"},
    {"NR8-KAI", "26700", "38800"},
    {"NR16-KAI", "19400", "26700"},
    {"NR846x124", "21500", "31500"},
    {"NR889x122", "22600", "31000"},
    {"NR122x170", "31000", "43200"},
    {"NR126x192", "32000", "48800"},
    {"NRA4Cover", "22300", "29700"},
    {"NRPostcard", "10000", "14800"},
    {"NR8-KAI-GCO", "27000", "39000"},
    {"NR16-KAI-GCO", "19500", "27000"},
}};

namespace {

/// A row left out of an initializer would be an empty one at the table's end.
constexpr bool is_full(const auto& table) {
    return std::all_of(table.begin(), table.end(), [](const auto& row) { return !row.keyword.empty(); });
}
static_assert(MediaColorNPIFComm.size() == 18 && is_full(MediaColorNPIFComm));
static_assert(MediaTypeNPIFComm.size() == 46 && is_full(MediaTypeNPIFComm));
static_assert(MediaSizeNPIFComm.size() == 48 && is_full(MediaSizeNPIFComm));

/// The first row of that keyword; null when there is none.
const auto* find_row(const auto& table, std::string_view keyword) {
    const auto row = std::find_if(table.begin(), table.end(),
                                  [keyword](const auto& candidate) { return candidate.keyword == keyword; });
    return row == table.end() ? nullptr : &*row;
}

} // namespace

std::optional<std::string_view> media_color_word(std::string_view keyword) {
    const auto* row = find_row(MediaColorNPIFComm, keyword);
    return row != nullptr ? std::optional{row->word} : std::nullopt;
}

std::optional<std::string_view> media_type_word(std::string_view keyword) {
    const auto* row = find_row(MediaTypeNPIFComm, keyword);
    return row != nullptr ? std::optional{row->word} : std::nullopt;
}

std::optional<SheetSize> media_size(std::string_view keyword) {
    const auto* row = find_row(MediaSizeNPIFComm, keyword);
    return row != nullptr ? std::optional{SheetSize{row->x, row->y}} : std::nullopt;
}

} // namespace specialpages
