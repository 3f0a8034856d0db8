// The index of a PPD's constraints: which choices of the PPD forbid the choice "option:choice". It is a
// multimap from that text to places of choices in the PPD, compiled once from the PPD's constraint list. It
// holds no text of the forbidding side and owns nothing of the PPD; an entry means something only together
// with the PPD it was made from.
//
// A constraint "*A x *B y" answers a question about B:y and none about A:x; a PPD that wants both directions
// states both. Keys are compared byte for byte, although compiling compares the PPD's names without regard to
// case: an entry whose constraint spells B:y otherwise than the option does is never found. Both are on
// purpose.
#pragma once

#include <cups/ppd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

/// Where one choice stands in a PPD: in its `groups`, that group's `options`, that option's `choices`.
struct x_constraints {
    std::uint16_t groupIndex = 0;
    std::uint16_t optionIndex = 0;
    std::uint16_t choiceIndex = 0;

    friend bool operator==(const x_constraints&, const x_constraints&) = default;
};

/// A place in one number: the group in its lowest 16 bits, then the option, then the choice. What was written
/// in narrow parts and is read as a whole at once stalls the processor, so that places on their way into the
/// index in thousands travel like this.
using PackedPlace = std::uint64_t;
constexpr PackedPlace packed(std::uint64_t group, std::uint64_t option, std::uint64_t choice) {
    return (group & 0xFFFF) | (option & 0xFFFF) << 16 | (choice & 0xFFFF) << 32;
}
constexpr x_constraints unpacked(PackedPlace place) {
    return {static_cast<std::uint16_t>(place), static_cast<std::uint16_t>(place >> 16),
            static_cast<std::uint16_t>(place >> 32)};
}

/// The hash of a key: h = 5 h + byte over its bytes up to the first NUL, taken as signed, in 64 bits that
/// wrap. It decides the order in which a cache file is written, so it is the same on every machine.
struct constraintHash {
    constexpr std::uint64_t operator()(std::string_view key) const {
        std::uint64_t hash = 0;
        for (const char byte : key) {
            if (byte == '\0') {
                break;
            }
            hash = 5 * hash + static_cast<std::uint64_t>(std::int64_t{static_cast<signed char>(byte)});
        }
        return hash;
    }
};

/// The text "option:choice". At the lengths that PPDs allow it stands in the object itself.
class ChoiceKey {
  public:
    ChoiceKey(std::string_view option, std::string_view choice);
    ChoiceKey(const ChoiceKey&) = delete;
    ChoiceKey& operator=(const ChoiceKey&) = delete;
    ~ChoiceKey() = default;

    std::string_view text() const { return text_; }

  private:
    std::array<char, std::size_t{2} * PPD_MAX_NAME> short_text_;
    std::string long_text_;
    std::string_view text_;
};

/// The multimap. Its order is that of entries held in buckets (hash modulo a prime), each a chain: a new key
/// goes to the head of its bucket, a further entry of a key behind the first entry of that key. Before an
/// insertion the buckets grow to the first prime of the list that is not below size + 1; the old buckets are
/// then walked upward and each chain from its head, every entry going to the head of its new bucket. So the
/// order of iteration, bucket by bucket, depends on the insertions alone.
///
/// Nobody but a writer of cache files asks for that order, while every question looks for a key: so the
/// chains are not kept. Keys are found by a hash of our own, which is quicker to compute and tells more names
/// apart; begin() makes the chains from the insertions' history.
///
/// Keys are stored once, and all links are 32 bits wide: at most 4,294,967,294 entries, half as many keys and
/// as many bytes of key text; insertions beyond are dropped.
class ConstraintIndex {
    struct Key;
    struct Node;

  public:
    /// A key in the index. Valid until clear(); growth keeps it.
    enum class KeyId : std::uint32_t {};
    static constexpr KeyId kNoKey{0xFFFFFFFF};

    static constexpr std::size_t kDefaultBuckets = 100;

    /// The bucket count is the first prime of the list at or above the request: 193 for 100.
    explicit ConstraintIndex(std::size_t requested_buckets = kDefaultBuckets);

    struct Entry {
        std::string_view key; ///< valid until the next insertion
        x_constraints value;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    /// Bucket by bucket, each chain from its head. begin() takes time and memory for every key and bucket.
    class const_iterator;
    const_iterator begin() const;
    const_iterator end() const;

    /// The entries of one key, in an order that depends on the insertions alone but is not that of iteration.
    /// Valid until the next insertion.
    class Places;
    Places equal_range(std::string_view key) const;

    /// Answers the key's id; kNoKey when the index is full.
    KeyId insert(std::string_view key, x_constraints value);
    /// The same insertion for a key known to be here, without looking for it. kNoKey does nothing.
    void insert(KeyId key, x_constraints value) {
        if (key != kNoKey && size() < kNone) {
            resize(size() + 1);
            add_behind_first(keys_[static_cast<std::uint32_t>(key)], value);
        }
    }

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    /// Number of different keys.
    std::size_t key_count() const { return keys_.size(); }
    std::size_t bucket_count() const { return bucket_count_; }

    /// Makes room for that many entries: grows, as told above, when it exceeds the bucket count.
    void resize(std::size_t entries) {
        if (entries > bucket_count_) {
            grow(prime_at_or_above(entries));
        }
    }
    /// Sets memory aside for that many entries; the buckets stay as they are.
    void reserve(std::size_t entries) { nodes_.reserve(entries); }
    /// Removes all entries. The bucket count stays.
    void clear();
    /// Gives back memory that was set aside for further keys.
    void trim();

    /// Bytes held on the heap.
    std::size_t memory_bytes() const;

    /// The first prime of the list at or above the hint; the last one, 4294967291, for hints above it.
    static std::size_t prime_at_or_above(std::size_t hint);

  private:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    // A growth turns the entries of every key round, for they go one by one to the head of the same bucket.
    // So they are held as a sequence with two ends, read from one end or the other by turns: "behind the
    // first" is behind one end at one time and behind the other at another, and what was put there lies
    // between the ends as two stacks. In reading order from end `front_`: that end, its stack from the top,
    // the other stack from the bottom, the other end.
    struct Key {
        std::uint32_t text;                                ///< offset in texts_
        std::uint32_t size;                                ///< of the text
        std::array<std::uint32_t, 2> stacks{kNone, kNone}; ///< top node of each
        std::array<x_constraints, 2> ends{};
        bool single = true; ///< one entry only, in ends[0]
    };
    /// Where a key is found: at its mark, or behind it in the next free slot.
    struct Slot {
        std::uint32_t mark = 0; ///< tells most keys apart without a look at their texts
        std::uint32_t key = kNone;
    };
    /// The buckets grew to that many when there were that many keys.
    struct Growth {
        std::size_t keys;
        std::size_t buckets;
    };
    struct Node {
        x_constraints value;
        std::uint32_t below; ///< node
    };

    std::string_view text_of(const Key& key) const { return {texts_.data() + key.text, key.size}; }
    std::vector<x_constraints> places_in_order(const Key& key) const;
    /// Key numbers, bucket by bucket, each chain from its head.
    std::vector<std::uint32_t> keys_in_order() const;
    /// The slot that holds the key, or the free one where it belongs.
    std::size_t slot_of(std::string_view key, std::uint32_t mark) const;
    std::uint32_t add_key(std::string_view key, Slot& slot, std::uint32_t mark, x_constraints first);
    static constexpr std::size_t kSlotGrowth = 4;
    void grow_slots();
    void add_behind_first(Key& key, x_constraints value) {
        ++size_;
        if (key.single) {
            key.single = false;
            key.ends[front_] = key.ends[0];
            key.ends[1 - front_] = value;
            return;
        }
        std::uint32_t& top = key.stacks[front_];
        nodes_.push_back({value, top});
        top = static_cast<std::uint32_t>(nodes_.size() - 1);
    }
    void grow(std::size_t buckets);

    static constexpr std::size_t kFirstSlots = 2048;
    std::vector<Slot> slots_ = std::vector<Slot>(kFirstSlots); ///< a power of two, at most half used
    std::vector<Key> keys_;                                    ///< in the order of their insertion
    std::vector<Node> nodes_;                                  ///< the entries between the ends
    std::string texts_;
    std::size_t size_ = 0;
    std::size_t bucket_count_;
    std::size_t first_bucket_count_; ///< before growths_
    std::vector<Growth> growths_;
    std::size_t front_ = 0; ///< the end from which all keys are read now
};

class ConstraintIndex::Places {
  public:
    class const_iterator {
      public:
        using value_type = x_constraints;
        using difference_type = std::ptrdiff_t;
        using iterator_category = std::forward_iterator_tag;
        using pointer = const x_constraints*;
        using reference = const x_constraints&;

        const_iterator() = default;
        reference operator*() const { return *at_; }
        pointer operator->() const { return at_; }
        const_iterator& operator++() {
            if (at_ == key_->ends.data() && !key_->single) {
                at_ = &key_->ends[1];
                return *this;
            }
            while (below_ == kNone && stack_ < key_->stacks.size()) {
                below_ = key_->stacks[stack_++];
            }
            at_ = below_ == kNone ? nullptr : &nodes_[below_].value;
            below_ = below_ == kNone ? kNone : nodes_[below_].below;
            return *this;
        }
        const_iterator operator++(int) {
            const_iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const const_iterator& left, const const_iterator& right) {
            return left.at_ == right.at_;
        }

      private:
        friend class Places;
        const_iterator(const Key& key, const Node* nodes) : at_(key.ends.data()), key_(&key), nodes_(nodes) {}

        const x_constraints* at_ = nullptr;
        const Key* key_ = nullptr;
        const Node* nodes_ = nullptr;
        std::uint32_t below_ = kNone;
        std::size_t stack_ = 0; ///< the next one to enter
    };

    Places() = default;
    const_iterator begin() const {
        return key_ == nullptr ? const_iterator() : const_iterator(*key_, nodes_);
    }
    const_iterator end() const { return {}; }
    bool empty() const { return key_ == nullptr; }

  private:
    friend class ConstraintIndex;
    Places(const Key& key, const Node* nodes) : key_(&key), nodes_(nodes) {}

    const Key* key_ = nullptr;
    const Node* nodes_ = nullptr;
};

class ConstraintIndex::const_iterator {
  public:
    using value_type = Entry;
    using difference_type = std::ptrdiff_t;
    using iterator_category = std::input_iterator_tag;
    using pointer = void;
    using reference = Entry;

    const_iterator() = default;
    Entry operator*() const { return {index_->text_of(index_->keys_[(*keys_)[at_]]), places_[place_]}; }
    const_iterator& operator++();
    const_iterator operator++(int) {
        const_iterator before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const const_iterator& left, const const_iterator& right) {
        return left.at_ == right.at_ && left.place_ == right.place_;
    }

  private:
    friend class ConstraintIndex;
    explicit const_iterator(const ConstraintIndex& index);
    void enter_key(std::size_t at);

    static constexpr std::size_t kEnd = static_cast<std::size_t>(-1);
    const ConstraintIndex* index_ = nullptr;
    std::shared_ptr<const std::vector<std::uint32_t>> keys_; ///< in order
    std::size_t at_ = kEnd;                                  ///< in keys_
    std::vector<x_constraints> places_;                      ///< of the key, in order
    std::size_t place_ = 0;
};

// Compiling. A half of a constraint that names a choice means that choice, whatever it is called. A half
// without one means every choice that does something: not the first of its option (by position alone), and
// not one called None, Off or False. Options are looked for in the order of `groups` and `options`, never in
// sub-groups. Names of options and choices are compared without regard to ASCII case. Whatever is not found
// adds nothing; a choice that stands beyond position 65,535 adds no entry either, which is logged once a run.

/// The four forms of a constraint, by which of its choices are taken as named. Each adds the entries of the
/// constraint at that position of `consts`; nothing for a null argument or a position outside the list.
///
/// Neither is named: every option of each keyword takes part, a keyword that stands in two groups twice.
void xConst2Hash_O1O2(const ppd_file_t* ppd, ConstraintIndex* index, std::int32_t constraintNumber);
/// The first option called option1 that holds choice1; the choices of the first option called option2, each
/// key in the option's own spelling.
void xConst2Hash_O1C1O2(const ppd_file_t* ppd, ConstraintIndex* index, std::int32_t constraintNumber);
/// The choices of the first option called option1; the key is the constraint's own text, unchecked.
void xConst2Hash_O1O2C2(const ppd_file_t* ppd, ConstraintIndex* index, std::int32_t constraintNumber);
/// The first option called option1 that holds choice1; the key is the constraint's own text, unchecked.
void xConst2Hash_O1C1O2C2(const ppd_file_t* ppd, ConstraintIndex* index, std::int32_t constraintNumber);

/// Adds the entries of all constraints of which at least one option stands in the list (exact comparison),
/// each by the form that its empty choices call for. Does nothing when `ppd` or `index` is null.
void compile_constraints(const ppd_file_t* ppd, ConstraintIndex* index,
                         std::span<const std::string> keywordList);

} // namespace specialpages
