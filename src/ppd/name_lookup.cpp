#include "ppd/name_lookup.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace specialpages {

namespace {

constexpr std::size_t kFewestSlots = 8;

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Slots for that many names, a quarter of them free at least.
std::size_t slots_for(std::size_t names) {
    return std::bit_ceil(std::max(names + names / 3 + 1, kFewestSlots));
}

} // namespace

bool equal_ignoring_case(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

Name::Name(const Bytes& bytes) {
    std::memcpy(words_.data(), bytes.data(), sizeof words_);
}

Name Name::exact(std::string_view text) {
    Bytes bytes{};
    text.copy(bytes.data(), kMaxBytes);
    return Name(bytes);
}

Name Name::folded(std::string_view text) {
    Bytes bytes{};
    text.copy(bytes.data(), kMaxBytes);
    std::transform(bytes.begin(), bytes.end(), bytes.begin(), lower);
    return Name(bytes);
}

std::uint64_t Name::hash() const {
    constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
    std::uint64_t mixed = 0;
    for (const std::uint64_t word : words_) {
        if (word == 0) {
            break;
        }
        mixed = (mixed ^ word) * kMultiplier;
        mixed ^= mixed >> 32;
    }
    return mixed;
}

NameTable::NameTable(std::size_t expected) : slots_(slots_for(expected)) {}

std::size_t NameTable::place(const Name& name) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = name.hash() & mask;
    while (slots_[at].used && slots_[at].name != name) {
        at = (at + 1) & mask;
    }
    return at;
}

std::uint32_t NameTable::add(const Name& name, std::uint32_t number) {
    if (slots_for(used_ + 1) > slots_.size()) {
        resize(2 * slots_.size());
    }
    Slot& slot = slots_[place(name)];
    if (!slot.used) {
        slot = {name, number, true};
        ++used_;
    }
    return slot.number;
}

std::optional<std::uint32_t> NameTable::find(const Name& name) const {
    const Slot& slot = slots_[place(name)];
    return slot.used ? std::optional(slot.number) : std::nullopt;
}

void NameTable::resize(std::size_t slots) {
    const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots));
    for (const Slot& slot : old) {
        if (slot.used) {
            slots_[place(slot.name)] = slot;
        }
    }
}

} // namespace specialpages
