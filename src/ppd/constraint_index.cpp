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

/// The told hash gives many names that differ in digits the same number ("17" and "22"), so that chains hold
/// keys of one hash. This one tells them apart without a look at their texts.
std::uint32_t mark_of(std::string_view key) {
    constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
    std::uint64_t mixed = key.size();
    std::uint64_t word = 0;
    for (; key.size() >= sizeof word; key.remove_prefix(sizeof word)) {
        std::memcpy(&word, key.data(), sizeof word);
        mixed = (mixed ^ word) * kMultiplier;
        mixed ^= mixed >> 32;
    }
    for (const char byte : key) {
        mixed = (mixed ^ static_cast<unsigned char>(byte)) * kMultiplier;
    }
    return static_cast<std::uint32_t>(mixed >> 32);
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
    : heads_(prime_at_or_above(requested_buckets), kNone) {}

std::uint32_t ConstraintIndex::find(std::string_view key, std::uint64_t hash, std::uint32_t mark) const {
    std::uint32_t at = heads_[hash % heads_.size()];
    while (at != kNone && (keys_[at].hash != hash || keys_[at].mark != mark || text_of(keys_[at]) != key)) {
        at = keys_[at].next;
    }
    return at;
}

ConstraintIndex::Places ConstraintIndex::equal_range(std::string_view key) const {
    const std::uint32_t at = find(key, constraintHash{}(key), mark_of(key));
    return at == kNone ? Places() : Places(keys_[at], nodes_.data());
}

std::uint32_t ConstraintIndex::add_key(std::string_view key, std::uint64_t hash, std::uint32_t mark,
                                       x_constraints first) {
    if (key.size() >= kNone - texts_.size()) {
        return kNone;
    }
    std::uint32_t& head = heads_[hash % heads_.size()];
    Key& added = keys_.emplace_back();
    added.hash = hash;
    added.mark = mark;
    added.text = static_cast<std::uint32_t>(texts_.size());
    added.size = static_cast<std::uint32_t>(key.size());
    added.next = head;
    added.ends[0] = first;
    texts_.insert(texts_.end(), key.begin(), key.end());
    ++size_;
    return head = static_cast<std::uint32_t>(keys_.size() - 1);
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
    const std::uint64_t hash = constraintHash{}(key);
    const std::uint32_t mark = mark_of(key);
    const std::uint32_t at = find(key, hash, mark);
    if (at == kNone) {
        return KeyId{add_key(key, hash, mark, value)};
    }
    add_behind_first(keys_[at], value);
    return KeyId{at};
}

void ConstraintIndex::rehash(std::size_t buckets) {
    if (buckets <= bucket_count()) {
        return; // the list of primes is at its end
    }
    const std::vector<std::uint32_t> old = std::exchange(heads_, std::vector<std::uint32_t>(buckets, kNone));
    for (std::uint32_t at : old) {
        while (at != kNone) {
            Key& key = keys_[at];
            std::uint32_t& head = heads_[key.hash % buckets];
            const std::uint32_t next = std::exchange(key.next, head);
            head = std::exchange(at, next);
        }
    }
    front_ = 1 - front_;
}

void ConstraintIndex::clear() {
    std::fill(heads_.begin(), heads_.end(), kNone);
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
    return heads_.capacity() * sizeof(std::uint32_t) + keys_.capacity() * sizeof(Key) +
           nodes_.capacity() * sizeof(Node) + texts_.capacity();
}

ConstraintIndex::const_iterator ConstraintIndex::begin() const {
    return const_iterator(*this);
}

ConstraintIndex::const_iterator ConstraintIndex::end() const {
    return {};
}

void ConstraintIndex::const_iterator::enter_bucket(std::size_t bucket) {
    const auto& heads = index_->heads_;
    const auto used = std::find_if(heads.begin() + static_cast<std::ptrdiff_t>(bucket), heads.end(),
                                   [](std::uint32_t key) { return key != kNone; });
    bucket_ = static_cast<std::size_t>(used - heads.begin());
    enter_key(used == heads.end() ? kNone : *used);
}

void ConstraintIndex::const_iterator::enter_key(std::uint32_t key) {
    key_ = key;
    place_ = 0;
    places_ = key == kNone ? std::vector<x_constraints>() : index_->places_in_order(index_->keys_[key]);
}

ConstraintIndex::const_iterator& ConstraintIndex::const_iterator::operator++() {
    if (++place_ == places_.size()) {
        if (const std::uint32_t next = index_->keys_[key_].next; next != kNone) {
            enter_key(next);
        } else {
            enter_bucket(bucket_ + 1);
        }
    }
    return *this;
}

} // namespace specialpages
