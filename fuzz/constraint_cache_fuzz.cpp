// Reads any bytes as a constraint cache file for a small PPD, asks every question about it, and reads back
// what is written of it.
#include "platform/foundation/numbers.h"
#include "ppd/CQuickXPPD.h"
#include "ppd/choice_conflict.h"
#include "ppd/constraint_index.h"
#include "ppd/name_lookup.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace {

using namespace specialpages;

constexpr std::string_view kSection = "S";

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Two groups of two options of three choices: "A".."D" with "x", "y", "z". The middle choices are marked.
struct SmallPpd {
    SmallPpd() {
        for (std::size_t i = 0; i < options.size(); ++i) {
            options[i].keyword[0] = static_cast<char>('A' + i);
            options[i].num_choices = static_cast<int>(choices[i].size());
            options[i].choices = choices[i].data();
            for (std::size_t j = 0; j < choices[i].size(); ++j) {
                choices[i][j].choice[0] = static_cast<char>('x' + j);
            }
            choices[i][1].marked = 1;
        }
        for (std::size_t i = 0; i < groups.size(); ++i) {
            groups[i].num_options = 2;
            groups[i].options = &options[2 * i];
        }
        file.num_groups = static_cast<int>(groups.size());
        file.groups = groups.data();
    }

    std::array<std::array<ppd_choice_t, 3>, 4> choices{};
    std::array<ppd_option_t, 4> options{};
    std::array<ppd_group_t, 2> groups{};
    ppd_file_t file{};
};

using Entry = std::tuple<std::string, int, int, int>;

std::vector<Entry> sorted_entries(const ConstraintIndex& index) {
    std::vector<Entry> entries;
    for (const auto& [key, place] : index) {
        entries.emplace_back(key, place.groupIndex, place.optionIndex, place.choiceIndex);
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

void read(const std::string& file, ConstraintIndex& index) {
    CQuickXPPD reader(&index, kSection);
    std::istringstream stream(file);
    stream >> reader;
}

/// What the section holds by the description of the format: field by field, without a look ahead.
std::vector<Entry> entries_field_by_field(const std::string& file) {
    std::istringstream stream(file);
    std::string line;
    while (std::getline(stream, line) && line != kSection) {
    }
    std::vector<Entry> entries;
    if (!std::getline(stream, line)) {
        return entries;
    }
    std::string_view source = line;
    std::array<std::string, 4> fields;
    const auto take = [&source](std::string& field) {
        field.clear();
        return CQuickXPPD::getoneline(&source, &field, '@');
    };
    const auto position = [](const std::string& field) {
        return static_cast<std::uint16_t>(platform::int_value(field));
    };
    while (std::all_of(fields.begin(), fields.end(), take)) {
        if (!fields[0].empty()) {
            entries.emplace_back(fields[0], position(fields[1]), position(fields[2]), position(fields[3]));
        }
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

/// Asks about every choice of the PPD, and about the marks; `begin` to `end` are the key's entries.
void ask_everything(const SmallPpd& ppd, const ConstraintIndex& index, std::string_view key,
                    std::vector<Entry>::const_iterator begin, std::vector<Entry>::const_iterator end) {
    std::array<std::array<bool, 3>, 4> expected{};
    bool any_marked = false;
    for (auto entry = begin; entry != end; ++entry) {
        const auto& [text, group, option, choice] = *entry;
        if (group < 2 && option < 2 && choice < 3) {
            expected[static_cast<std::size_t>(2 * group + option)][static_cast<std::size_t>(choice)] = true;
            any_marked = any_marked || choice == 1;
        }
    }
    for (std::size_t option = 0; option < expected.size(); ++option) {
        for (std::size_t choice = 0; choice < expected[option].size(); ++choice) {
            require(isChoiceConflicted(&ppd.file, &index, key, ppd.options[option].keyword,
                                       ppd.choices[option][choice].choice) == expected[option][choice]);
        }
    }
    if (const std::size_t colon = key.find(':'); colon != std::string_view::npos) {
        require(IsPPDChoiceConflicted(&ppd.file, &index, key.substr(0, colon), key.substr(colon + 1)) ==
                any_marked);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kShortestEntry = 5; // a key of one byte and four separators
    static const SmallPpd ppd;
    const std::string file(reinterpret_cast<const char*>(data), size);

    ConstraintIndex index;
    read(file, index);
    const std::vector<Entry> entries = sorted_entries(index);
    require(entries.size() == index.size());
    require(entries == entries_field_by_field(file));
    require(index.size() * kShortestEntry <= size);
    require(index.bucket_count() >= index.size());
    for (const auto& [key, group, option, choice] : entries) {
        require(!key.empty() && key.find_first_of("@\n") == std::string::npos);
    }
    for (auto begin = entries.begin(); begin != entries.end();) {
        const std::string& key = std::get<0>(*begin);
        const auto end = std::find_if(begin, entries.end(),
                                      [&key](const Entry& each) { return std::get<0>(each) != key; });
        ask_everything(ppd, index, key, begin, end);
        begin = end;
    }
    require(index.equal_range("no such key@").empty());

    ConstraintIndex again;
    read(std::string(kSection) + "\n" + cache_data_line(index) + "\n", again);
    require(sorted_entries(again) == entries);
    return 0;
}
