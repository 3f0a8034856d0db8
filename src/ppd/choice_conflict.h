// Whether a choice of the PPD is forbidden: by what is marked now, or by one other given choice. The index
// says where the forbidding choices stand; the PPD is read at the moment of the question, so that an answer
// follows the marks without any change to the index. Nothing is written, nothing allocated at the lengths
// that PPDs allow.
//
// Names are compared exactly. A null PPD or index forbids nothing, and neither does an entry that points
// outside the PPD: a cache file may be older than the PPD it is read for.
#pragma once

#include "ppd/constraint_index.h"

#include <cups/ppd.h>

#include <cstddef>
#include <iterator>
#include <string_view>

namespace specialpages {

/// A choice of the PPD that forbids another one. Borrowed from the PPD; neither is null.
struct ConflictingChoice {
    const ppd_option_t* option = nullptr;
    const ppd_choice_t* choice = nullptr;
};

/// The choice at that place; both pointers are null when the place lies outside the PPD.
ConflictingChoice choice_at(const ppd_file_t& ppd, x_constraints place);

/// The choices that forbid one key, found while it is walked; places outside the PPD are passed over. Good
/// until the index is changed or the PPD closed.
class ConflictingChoices {
  public:
    class const_iterator {
      public:
        using value_type = ConflictingChoice;
        using difference_type = std::ptrdiff_t;
        using iterator_category = std::input_iterator_tag;
        using pointer = const ConflictingChoice*;
        using reference = const ConflictingChoice&;

        const_iterator() = default;
        reference operator*() const { return current_; }
        pointer operator->() const { return &current_; }
        const_iterator& operator++() {
            ++at_;
            settle();
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
        friend class ConflictingChoices;
        using Place = ConstraintIndex::Places::const_iterator;
        const_iterator(const ppd_file_t* ppd, Place at, Place end) : ppd_(ppd), at_(at), end_(end) {
            settle();
        }
        void settle();

        const ppd_file_t* ppd_ = nullptr;
        Place at_;
        Place end_;
        ConflictingChoice current_;
    };

    ConflictingChoices() = default;
    ConflictingChoices(const ppd_file_t& ppd, ConstraintIndex::Places places) : ppd_(&ppd), places_(places) {}
    const_iterator begin() const { return {ppd_, places_.begin(), places_.end()}; }
    const_iterator end() const { return {ppd_, places_.end(), places_.end()}; }

  private:
    const ppd_file_t* ppd_ = nullptr;
    ConstraintIndex::Places places_;
};

/// The choices that forbid `key` ("option:choice"), in the index's order; one that two constraints name comes
/// twice.
ConflictingChoices conflicting_choices(const ppd_file_t* ppd, const ConstraintIndex* index,
                                       std::string_view key);

/// Whether a choice that is marked now forbids this one.
bool IsPPDChoiceConflicted(const ppd_file_t* ppd, const ConstraintIndex* index, std::string_view option,
                           std::string_view choice);

/// Whether `choice` of `option` is among the choices that forbid `key`, marked or not.
bool isChoiceConflicted(const ppd_file_t* ppd, const ConstraintIndex* index, std::string_view key,
                        std::string_view option, std::string_view choice);

} // namespace specialpages
