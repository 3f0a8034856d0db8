#include "ppd/name_lookup.h"

#include <algorithm>
#include <bit>

namespace specialpages {

namespace {

constexpr std::size_t kFewestSlots = 8;

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The eight characters of a word, those of A-Z turned into a-z.
constexpr std::uint64_t lower_eight(std::uint64_t word) {
    constexpr std::uint64_t kEach = 0x0101010101010101;
    constexpr std::uint64_t kTop = 0x80 * kEach;
    const std::uint64_t low = word & ~kTop;
    const std::uint64_t from_a = low + (0x80 - 'A') * kEach; // top bit of a byte: not below 'A'
    const std::uint64_t past_z = low + (0x7F - 'Z') * kEach; // top bit of a byte: above 'Z'
    const std::uint64_t upper = (from_a ^ past_z) & ~word & kTop;
    return word | upper >> 2;
}
static_assert(lower_eight(0x405A6D41FFC15B7A) == 0x407A6D61FFC15B7A);

/// Slots for that many names, half of them free at least.
std::size_t slots_for(std::size_t names) {
    return std::bit_ceil(std::max(2 * names, kFewestSlots));
}

} // namespace

bool equal_ignoring_case(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

Name::Name(std::string_view text) {
    std::array<char, sizeof words_> bytes{};
    text.copy(bytes.data(), kMaxBytes);
    for (std::size_t i = 0; i < words_.size(); ++i) {
        words_[i] = word_at(bytes.data() + i * sizeof(std::uint64_t));
    }
}

bool Name::equals_ignoring_case(const Name& other) const {
    std::size_t i = 0;
    while (i + 1 < words_.size() && lower_eight(words_[i]) == lower_eight(other.words_[i]) &&
           words_[i] != 0) {
        ++i;
    }
    return lower_eight(words_[i]) == lower_eight(other.words_[i]);
}

NameTable::NameTable(NameCase name_case, std::size_t expected)
    : name_case_(name_case), slots_(slots_for(expected)) {
    entries_.reserve(expected);
}

std::uint32_t NameTable::add(const Name& name, std::uint32_t number) {
    if (slots_for(entries_.size() + 1) > slots_.size()) {
        resize(2 * slots_.size());
    }
    const std::uint64_t hash = name.hash();
    Slot& slot = slots_[place(name, hash).slot];
    if (slot.entry == kFree) {
        slot = {upper_half(hash), static_cast<std::uint32_t>(entries_.size())};
        const auto& words = name.words_;
        std::uint32_t tail = kNoTail;
        if (words[2] != 0) {
            tail = static_cast<std::uint32_t>(tails_.size());
            tails_.push_back({words[2], words[3], words[4], words[5]});
        }
        entries_.push_back({{words[0], words[1]}, tail, number});
    }
    return entries_[slot.entry].number;
}

Name NameTable::name_of(const Entry& entry) const {
    Name name;
    const auto rest = std::copy(entry.head.begin(), entry.head.end(), name.words_.begin());
    if (entry.tail != kNoTail) {
        std::copy(tails_[entry.tail].begin(), tails_[entry.tail].end(), rest);
    }
    return name;
}

void NameTable::resize(std::size_t slots) {
    slots_.assign(slots, Slot());
    std::uint32_t number = 0;
    for (const Entry& entry : entries_) {
        const Name name = name_of(entry);
        const std::uint64_t hash = name.hash();
        slots_[place(name, hash).slot] = {upper_half(hash), number++};
    }
}

} // namespace specialpages
