#include "ppd/constraint_index.h"

#include <algorithm>
#include <utility>

namespace specialpages {

namespace {

constexpr std::array<std::uint64_t, 28> kPrimes = {
    53,        97,        193,       389,       769,        1543,       3079,
    6151,      12289,     24593,     49157,     98317,      196613,     393241,
    786433,    1572869,   3145739,   6291469,   12582917,   25165843,   50331653,
    100663319, 201326611, 402653189, 805306457, 1610612741, 3221225473, 4294967291};

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

std::uint32_t ConstraintIndex::find(std::string_view key, std::uint64_t hash) const {
    std::uint32_t at = heads_[hash % heads_.size()];
    while (at != kNone && (keys_[at].hash != hash || text_of(keys_[at]) != key)) {
        at = keys_[at].next;
    }
    return at;
}

ConstraintIndex::Places ConstraintIndex::equal_range(std::string_view key) const {
    const std::uint32_t at = find(key, constraintHash{}(key));
    return at == kNone ? Places() : Places(nodes_.data(), keys_[at].first);
}

std::uint32_t ConstraintIndex::add_key(std::string_view key, std::uint64_t hash) {
    if (key.size() >= kNone - texts_.size()) {
        return kNone;
    }
    const auto text = static_cast<std::uint32_t>(texts_.size());
    texts_.insert(texts_.end(), key.begin(), key.end());
    std::uint32_t& head = heads_[hash % heads_.size()];
    keys_.push_back({hash, text, static_cast<std::uint32_t>(key.size()), kNone, head});
    return head = static_cast<std::uint32_t>(keys_.size() - 1);
}

void ConstraintIndex::link(Key& key, x_constraints value) {
    const auto node = static_cast<std::uint32_t>(nodes_.size());
    if (key.first == kNone) {
        nodes_.push_back({value, kNone});
        key.first = node;
    } else {
        nodes_.push_back({value, nodes_[key.first].next});
        nodes_[key.first].next = node;
    }
}

ConstraintIndex::KeyId ConstraintIndex::insert(std::string_view key, x_constraints value) {
    if (nodes_.size() >= kNone) {
        return kNoKey;
    }
    resize(size() + 1);
    const std::uint64_t hash = constraintHash{}(key);
    std::uint32_t at = find(key, hash);
    if (at == kNone) {
        at = add_key(key, hash);
    }
    if (at != kNone) {
        link(keys_[at], value);
    }
    return KeyId{at};
}

void ConstraintIndex::insert(KeyId key, x_constraints value) {
    if (key != kNoKey && nodes_.size() < kNone) {
        resize(size() + 1);
        link(keys_[static_cast<std::uint32_t>(key)], value);
    }
}

void ConstraintIndex::resize(std::size_t entries) {
    if (entries > bucket_count()) {
        const std::size_t buckets = prime_at_or_above(entries);
        if (buckets > bucket_count()) {
            rehash(buckets);
        }
    }
}

void ConstraintIndex::reverse_places(Key& key) {
    std::uint32_t reversed = kNone;
    for (std::uint32_t node = key.first; node != kNone;) {
        const std::uint32_t next = std::exchange(nodes_[node].next, reversed);
        reversed = std::exchange(node, next);
    }
    key.first = reversed;
}

void ConstraintIndex::rehash(std::size_t buckets) {
    const std::vector<std::uint32_t> old = std::exchange(heads_, std::vector<std::uint32_t>(buckets, kNone));
    for (std::uint32_t at : old) {
        while (at != kNone) {
            // Each entry of the key goes to the head, one after the other: they stay together, in reverse.
            Key& key = keys_[at];
            reverse_places(key);
            const std::uint32_t next = std::exchange(key.next, heads_[key.hash % buckets]);
            heads_[key.hash % buckets] = std::exchange(at, next);
        }
    }
}

void ConstraintIndex::clear() {
    std::fill(heads_.begin(), heads_.end(), kNone);
    keys_.clear();
    nodes_.clear();
    texts_.clear();
}

void ConstraintIndex::pack() {
    std::vector<Node> packed;
    packed.reserve(nodes_.size());
    for (Key& key : keys_) {
        std::uint32_t node = std::exchange(key.first, static_cast<std::uint32_t>(packed.size()));
        for (; node != kNone; node = nodes_[node].next) {
            packed.push_back({nodes_[node].value, static_cast<std::uint32_t>(packed.size() + 1)});
        }
        packed.back().next = kNone;
    }
    nodes_ = std::move(packed);
    keys_.shrink_to_fit();
    texts_.shrink_to_fit();
}

std::size_t ConstraintIndex::memory_bytes() const {
    return heads_.capacity() * sizeof(std::uint32_t) + keys_.capacity() * sizeof(Key) +
           nodes_.capacity() * sizeof(Node) + texts_.capacity();
}

ConstraintIndex::const_iterator ConstraintIndex::begin() const {
    const_iterator first;
    first.index_ = this;
    first.enter_bucket(0);
    return first;
}

ConstraintIndex::const_iterator ConstraintIndex::end() const {
    const_iterator last;
    last.index_ = this;
    return last;
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
    node_ = key == kNone ? kNone : index_->keys_[key].first;
}

ConstraintIndex::Entry ConstraintIndex::const_iterator::operator*() const {
    return {index_->text_of(index_->keys_[key_]), index_->nodes_[node_].value};
}

ConstraintIndex::const_iterator& ConstraintIndex::const_iterator::operator++() {
    node_ = index_->nodes_[node_].next;
    if (node_ == kNone) {
        enter_key(index_->keys_[key_].next);
    }
    if (node_ == kNone) {
        enter_bucket(bucket_ + 1);
    }
    return *this;
}

} // namespace specialpages
