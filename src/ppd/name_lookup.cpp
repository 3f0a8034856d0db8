#include "ppd/name_lookup.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace specialpages {

namespace {

constexpr std::size_t kFewestSlots = 8;
constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
/// Bit 5 of each byte: the one in which ASCII letters of both cases differ.
constexpr std::uint64_t kCaseBits = 0x2020202020202020;

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

bool equal_ignoring_case(std::string_view left, std::string_view right) {
    return left.size() == right.size() &&
           (left == right || std::equal(left.begin(), left.end(), right.begin(),
                                        [](char a, char b) { return lower(a) == lower(b); }));
}

NameTable::NameTable(NameCase name_case, std::size_t expected)
    : name_case_(name_case), slots_(std::bit_ceil(std::max(2 * expected, kFewestSlots))) {}

std::uint64_t NameTable::hash(std::string_view name) const {
    // Setting the case bit makes equal names equal words; that it also brings a few unequal ones together is
    // settled by the comparison.
    const std::uint64_t ignored = name_case_ == NameCase::Ignored ? kCaseBits : 0;
    std::uint64_t mixed = name.size() * kMultiplier;
    while (!name.empty()) {
        std::uint64_t word = 0;
        const std::size_t taken = std::min(name.size(), sizeof word);
        std::memcpy(&word, name.data(), taken);
        mixed = (mixed ^ (word | ignored)) * kMultiplier;
        mixed ^= mixed >> 32;
        name.remove_prefix(taken);
    }
    return mixed;
}

bool NameTable::matches(const Slot& slot, std::string_view name, std::uint64_t hash) const {
    if (slot.hash != hash) {
        return false;
    }
    const std::string_view held(slot.text, slot.length);
    return name_case_ == NameCase::Ignored ? equal_ignoring_case(held, name) : held == name;
}

std::size_t NameTable::place(std::string_view name, std::uint64_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    while (slots_[at].text != nullptr && !matches(slots_[at], name, hash)) {
        at = (at + 1) & mask;
    }
    return at;
}

std::uint32_t NameTable::add(std::string_view name, std::uint32_t number) {
    if (2 * (used_ + 1) > slots_.size()) {
        resize(2 * slots_.size());
    }
    const std::uint64_t name_hash = hash(name);
    Slot& slot = slots_[place(name, name_hash)];
    if (slot.text == nullptr) {
        slot = {name.empty() ? "" : name.data(), static_cast<std::uint32_t>(name.size()), number, name_hash};
        ++used_;
    }
    return slot.number;
}

std::optional<std::uint32_t> NameTable::find(std::string_view name) const {
    const Slot& slot = slots_[place(name, hash(name))];
    return slot.text == nullptr ? std::nullopt : std::optional(slot.number);
}

void NameTable::resize(std::size_t slots) {
    const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots));
    for (const Slot& slot : old) {
        if (slot.text != nullptr) {
            slots_[place({slot.text, slot.length}, slot.hash)] = slot;
        }
    }
}

} // namespace specialpages
