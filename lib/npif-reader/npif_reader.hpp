// npif_reader.h for C++17: the same answers as string views, ranges and a class that frees itself. Everything
// that a Reader answers lives as long as the Reader.
#ifndef NPIF_READER_HPP
#define NPIF_READER_HPP

#include "npif_reader.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <new>
#include <optional>
#include <string_view>

namespace npif {

/// Empty for a text that is not there.
inline std::string_view view(npif_text text) noexcept {
    return text.bytes == nullptr ? std::string_view() : std::string_view(text.bytes, text.length);
}

/// Null for a text that is not there.
inline std::optional<std::string_view> optional_view(npif_text text) noexcept {
    return text.bytes == nullptr ? std::nullopt : std::optional<std::string_view>(view(text));
}

/// A row of things that a reader answers by number. Element is what `*it` gives.
template <typename Element, typename At>
class Row {
  public:
    class iterator {
      public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Element;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = Element;

        iterator(const Row* row, std::size_t index) noexcept : row_(row), index_(index) {}
        Element operator*() const { return (*row_)[index_]; }
        iterator& operator++() noexcept {
            ++index_;
            return *this;
        }
        iterator operator++(int) noexcept {
            iterator before = *this;
            ++index_;
            return before;
        }
        bool operator==(const iterator& other) const noexcept { return index_ == other.index_; }
        bool operator!=(const iterator& other) const noexcept { return index_ != other.index_; }

      private:
        const Row* row_;
        std::size_t index_;
    };

    Row(std::size_t size, At at) : size_(size), at_(at) {}
    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    /// Precondition: index < size().
    Element operator[](std::size_t index) const { return at_(index); }
    iterator begin() const noexcept { return iterator(this, 0); }
    iterator end() const noexcept { return iterator(this, size_); }

  private:
    std::size_t size_;
    At at_;
};

class Reader {
  public:
    /// The fifth argument of a CUPS filter. std::bad_alloc when memory has run out.
    explicit Reader(std::string_view options)
        : Reader(npif_reader_from_options(options.data(), options.size())) {}
    Reader(const npif_pair* pairs, std::size_t count) : Reader(npif_reader_from_pairs(pairs, count)) {}

    bool ok() const noexcept { return npif_reader_ok(get()); }
    auto problems() const {
        return row<const npif_problem&>(npif_reader_problem_count(get()),
                                        [reader = get()](std::size_t i) -> const npif_problem& {
                                            return *npif_reader_problem(reader, i);
                                        });
    }
    auto commands(npif_kind kind) const {
        return row<const npif_command&>(npif_reader_command_count(get(), kind),
                                        [reader = get(), kind](std::size_t i) -> const npif_command& {
                                            return *npif_reader_command(reader, kind, i);
                                        });
    }
    auto records() const {
        return row<const npif_record&>(
            npif_reader_record_count(get()),
            [reader = get()](std::size_t i) -> const npif_record& { return *npif_reader_record(reader, i); });
    }
    auto papers(npif_list list) const {
        return row<std::string_view>(
            npif_reader_paper_count(get(), list),
            [reader = get(), list](std::size_t i) { return view(npif_reader_paper(reader, list, i)); });
    }
    bool flag(npif_flag flag) const noexcept { return npif_reader_flag(get(), flag); }
    std::optional<std::int32_t> announced() const noexcept {
        const std::int32_t count = npif_reader_announced(get());
        return count < 0 ? std::nullopt : std::optional<std::int32_t>(count);
    }
    /// `name` ends with a zero byte.
    std::optional<std::string_view> option(const char* name) const noexcept {
        return optional_view(npif_reader_option(get(), name));
    }
    /// The reader behind this one, which keeps it.
    const npif_reader* get() const noexcept { return reader_.get(); }

  private:
    struct Free {
        void operator()(npif_reader* reader) const noexcept { npif_reader_free(reader); }
    };

    explicit Reader(npif_reader* reader) : reader_(reader) {
        if (reader == nullptr) {
            throw std::bad_alloc();
        }
    }
    template <typename Element, typename At>
    static Row<Element, At> row(std::size_t size, At at) {
        return Row<Element, At>(size, at);
    }

    std::unique_ptr<npif_reader, Free> reader_;
};

} // namespace npif

#endif
