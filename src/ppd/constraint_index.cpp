#include "ppd/constraint_index.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace specialpages {

namespace {

constexpr std::array<std::uint64_t, 28> kPrimes = {
    53,        97,        193,       389,       769,        1543,       3079,
    6151,      12289,     24593,     49157,     98317,      196613,     393241,
    786433,    1572869,   3145739,   6291469,   12582917,   25165843,   50331653,
    100663319, 201326611, 402653189, 805306457, 1610612741, 3221225473, 4294967291};

template <typename Word>
std::uint64_t word_at(const char* text) {
    Word word = 0;
    std::memcpy(&word, text, sizeof word);
    return word;
}

/// The whole of a text of less than eight characters; different for different texts of one size.
std::uint64_t short_word(std::string_view text) {
    constexpr std::size_t kHalf = sizeof(std::uint32_t);
    if (text.size() >= kHalf) {
        return word_at<std::uint32_t>(text.data()) << 32 |
               word_at<std::uint32_t>(text.data() + text.size() - kHalf);
    }
    std::uint64_t word = 0;
    for (const char byte : text) {
        word = word << 8 | static_cast<unsigned char>(byte);
    }
    return word;
}

/// The told hash goes byte by byte, and gives many names that differ in digits the same number ("17" and
/// "22"). This one takes eight characters at a time, the last of them perhaps twice.
std::uint32_t mark_of(std::string_view key) {
    constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    std::uint64_t mixed = key.size();
    const auto mix = [&mixed](std::uint64_t word) {
        mixed = (mixed ^ word) * kMultiplier;
        mixed ^= mixed >> 32;
    };
    if (key.size() < kWord) {
        mix(short_word(key));
        return static_cast<std::uint32_t>(mixed);
    }
    const std::size_t last = key.size() - kWord;
    for (std::size_t at = 0; at < last; at += kWord) {
        mix(word_at<std::uint64_t>(key.data() + at));
    }
    mix(word_at<std::uint64_t>(key.data() + last));
    return static_cast<std::uint32_t>(mixed);
}

} // namespace

ChoiceKey::ChoiceKey(std::string_view option, std::string_view choice) {
    const std::size_t size = option.size() + 1 + choice.size();
    char* out = short_text_.data();
    if (size > short_text_.size()) {
        long_text_.resize(size);
        out = long_text_.data();
    }
    text_ = {out, size};
    out = std::copy(option.begin(), option.end(), out);
    *out++ = ':';
    std::copy(choice.begin(), choice.end(), out);
}

std::size_t ConstraintIndex::prime_at_or_above(std::size_t hint) {
    const auto* prime = std::lower_bound(kPrimes.begin(), kPrimes.end(), hint);
    return prime == kPrimes.end() ? kPrimes.back() : *prime;
}

ConstraintIndex::ConstraintIndex(std::size_t requested_buckets)
    : bucket_count_(prime_at_or_above(requested_buckets)), first_bucket_count_(bucket_count_) {}

std::size_t ConstraintIndex::slot_of(std::string_view key, std::uint32_t mark) const {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = mark & mask;; at = (at + 1) & mask) {
        const Slot& slot = slots_[at];
        if (slot.key == kNone || (slot.mark == mark && text_of(keys_[slot.key]) == key)) {
            return at;
        }
    }
}

ConstraintIndex::Places ConstraintIndex::equal_range(std::string_view key) const {
    const std::uint32_t at = slots_[slot_of(key, mark_of(key))].key;
    return at == kNone ? Places() : Places(keys_[at], nodes_.data());
}

std::uint32_t ConstraintIndex::add_key(std::string_view key, Slot& slot, std::uint32_t mark,
                                       x_constraints first) {
    if (key.size() >= kNone - texts_.size() || keys_.size() >= kNone / 2) {
        return kNone;
    }
    const auto number = static_cast<std::uint32_t>(keys_.size());
    slot = {mark, number};
    Key& added = keys_.emplace_back();
    added.text = static_cast<std::uint32_t>(texts_.size());
    added.size = static_cast<std::uint32_t>(key.size());
    added.ends[0] = first;
    texts_ += key;
    ++size_;
    if (2 * keys_.size() > slots_.size()) {
        grow_slots();
    }
    return number;
}

void ConstraintIndex::grow_slots() {
    const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(kSlotGrowth * slots_.size()));
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (slot.key != kNone) {
            std::size_t at = slot.mark & mask;
            while (slots_[at].key != kNone) {
                at = (at + 1) & mask;
            }
            slots_[at] = slot;
        }
    }
}

std::vector<x_constraints> ConstraintIndex::places_in_order(const Key& key) const {
    if (key.single) {
        return {key.ends[0]};
    }
    std::vector<x_constraints> places{key.ends[front_]};
    for (std::uint32_t node = key.stacks[front_]; node != kNone; node = nodes_[node].below) {
        places.push_back(nodes_[node].value);
    }
    const auto other_stack = static_cast<std::ptrdiff_t>(places.size());
    for (std::uint32_t node = key.stacks[1 - front_]; node != kNone; node = nodes_[node].below) {
        places.push_back(nodes_[node].value);
    }
    std::reverse(places.begin() + other_stack, places.end());
    places.push_back(key.ends[1 - front_]);
    return places;
}

ConstraintIndex::KeyId ConstraintIndex::insert(std::string_view key, x_constraints value) {
    if (size() >= kNone) {
        return kNoKey;
    }
    resize(size() + 1);
    const std::uint32_t mark = mark_of(key);
    Slot& slot = slots_[slot_of(key, mark)];
    if (slot.key == kNone) {
        return KeyId{add_key(key, slot, mark, value)};
    }
    add_behind_first(keys_[slot.key], value);
    return KeyId{slot.key};
}

void ConstraintIndex::grow(std::size_t buckets) {
    if (buckets <= bucket_count_) {
        return; // the list of primes is at its end
    }
    bucket_count_ = buckets;
    growths_.push_back({keys_.size(), buckets});
    front_ = 1 - front_;
}

std::vector<std::uint32_t> ConstraintIndex::keys_in_order() const {
    std::vector<std::uint64_t> hashes;
    hashes.reserve(keys_.size());
    for (const Key& key : keys_) {
        hashes.push_back(constraintHash{}(text_of(key)));
    }
    std::vector<std::uint32_t> heads(first_bucket_count_, kNone);
    std::vector<std::uint32_t> next(keys_.size(), kNone);
    const auto put_at_head = [&](std::uint32_t key) {
        next[key] = std::exchange(heads[hashes[key] % heads.size()], key);
    };
    std::uint32_t key = 0;
    for (const Growth& growth : growths_) {
        while (key < growth.keys) {
            put_at_head(key++);
        }
        for (std::uint32_t at : std::exchange(heads, std::vector<std::uint32_t>(growth.buckets, kNone))) {
            while (at != kNone) {
                put_at_head(std::exchange(at, next[at]));
            }
        }
    }
    while (key < keys_.size()) {
        put_at_head(key++);
    }
    std::vector<std::uint32_t> order;
    order.reserve(keys_.size());
    for (const std::uint32_t head : heads) {
        for (std::uint32_t at = head; at != kNone; at = next[at]) {
            order.push_back(at);
        }
    }
    return order;
}

void ConstraintIndex::clear() {
    std::fill(slots_.begin(), slots_.end(), Slot());
    first_bucket_count_ = bucket_count_;
    growths_.clear();
    keys_.clear();
    nodes_.clear();
    texts_.clear();
    size_ = 0;
}

void ConstraintIndex::trim() {
    keys_.shrink_to_fit();
    texts_.shrink_to_fit();
}

std::size_t ConstraintIndex::memory_bytes() const {
    return slots_.capacity() * sizeof(Slot) + keys_.capacity() * sizeof(Key) +
           nodes_.capacity() * sizeof(Node) + growths_.capacity() * sizeof(Growth) + texts_.capacity();
}

ConstraintIndex::const_iterator ConstraintIndex::begin() const {
    return const_iterator(*this);
}

ConstraintIndex::const_iterator ConstraintIndex::end() const {
    return {};
}

ConstraintIndex::const_iterator::const_iterator(const ConstraintIndex& index)
    : index_(&index), keys_(std::make_shared<const std::vector<std::uint32_t>>(index.keys_in_order())) {
    enter_key(0);
}

void ConstraintIndex::const_iterator::enter_key(std::size_t at) {
    place_ = 0;
    if (at >= keys_->size()) {
        at_ = kEnd;
        return;
    }
    at_ = at;
    places_ = index_->places_in_order(index_->keys_[(*keys_)[at]]);
}

ConstraintIndex::const_iterator& ConstraintIndex::const_iterator::operator++() {
    if (++place_ == places_.size()) {
        enter_key(at_ + 1);
    }
    return *this;
}

} // namespace specialpages
