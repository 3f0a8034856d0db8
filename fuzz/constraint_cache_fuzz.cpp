// Reads any bytes as a constraint cache file for a small PPD, asks every question about it, and reads back
// what is written of it.
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

/// Whether an entry of the key names that choice of the PPD, found without the index.
bool named(const std::vector<Entry>& entries, std::string_view key, int option, int choice) {
    return std::find(entries.begin(), entries.end(), Entry(key, option / 2, option % 2, choice)) !=
           entries.end();
}

void ask_everything(const SmallPpd& ppd, const ConstraintIndex& index, const std::vector<Entry>& entries,
                    std::string_view key) {
    bool any_marked = false;
    for (int option = 0; option < 4; ++option) {
        for (int choice = 0; choice < 3; ++choice) {
            const ppd_option_t& asked = ppd.options[static_cast<std::size_t>(option)];
            const bool expected = named(entries, key, option, choice);
            any_marked = any_marked || (expected && choice == 1);
            require(isChoiceConflicted(&ppd.file, &index, key, asked.keyword, asked.choices[choice].choice) ==
                    expected);
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
    constexpr std::size_t kAskedEntries = 200;
    static const SmallPpd ppd;
    const std::string file(reinterpret_cast<const char*>(data), size);

    ConstraintIndex index;
    read(file, index);
    const std::vector<Entry> entries = sorted_entries(index);
    require(entries.size() == index.size());
    require(index.size() * kShortestEntry <= size);
    require(index.bucket_count() >= index.size());
    for (const auto& [key, group, option, choice] : entries) {
        require(!key.empty() && key.find_first_of("@\n") == std::string::npos);
    }
    for (std::size_t i = 0; i < std::min(entries.size(), kAskedEntries); ++i) {
        ask_everything(ppd, index, entries, std::get<0>(entries[i]));
    }
    ask_everything(ppd, index, entries, "A:x");

    ConstraintIndex again;
    read(std::string(kSection) + "\n" + cache_data_line(index) + "\n", again);
    require(sorted_entries(again) == entries);
    return 0;
}
