#include "platform/foundation/property_list_check.h"

#include "platform/foundation/numbers.h"
#include "platform/foundation/property_list_limits.h"
#include "platform/foundation/utf8_repair.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <system_error>
#include <vector>

namespace specialpages::platform {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t npos = std::string_view::npos;

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == npos ? std::string_view{}
                         : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool is_container(std::string_view name) {
    return name == "array" || name == "dict";
}

bool is_leaf(std::string_view name) {
    constexpr std::string_view kLeaves[] = {"data", "false", "integer", "key", "real", "string", "true"};
    return std::find(std::begin(kLeaves), std::end(kLeaves), name) != std::end(kLeaves);
}

/// Decimal, with no needless 0 in front: the library would take "010" for 8.
bool is_integer(std::string_view text) {
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    std::int64_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return !digits.empty() && (digits.front() != '0' || digits.size() == 1) && result.ec == std::errc{} &&
           result.ptr == text.data() + text.size();
}

bool is_real(std::string_view text) {
    if (text == "nan" || text == "+infinity" || text == "-infinity") {
        return true;
    }
    text.remove_prefix(text.starts_with('+') || text.starts_with('-') ? 1 : 0);
    if (text.empty() || text.find_first_not_of("0123456789.eE+-") != npos || text.front() == '-') {
        return false;
    }
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc{} && result.ptr == text.data() + text.size();
}

bool is_base64(std::string_view text) {
    std::size_t digits = 0;
    std::size_t padding = 0;
    for (const char c : text) {
        const bool digit = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                           c == '+' || c == '/';
        if (c == '=') {
            ++padding;
        } else if (digit && padding == 0) {
            ++digits;
        } else if (kBlanks.find(c) == npos) {
            return false;
        }
    }
    return padding <= 2 && (digits + padding) % 4 == 0;
}

/// Walks over the elements once, from left to right, with the names of the open ones on a stack.
class Walk {
  public:
    explicit Walk(std::string_view text) : text_(text) {}
    std::string problem();
    std::size_t keys() const { return keys_; }

  private:
    bool fail(std::string_view message);
    bool step();
    bool between_elements();
    bool comment();
    bool prologue(std::string_view opening, std::string_view closing);
    bool tag();
    bool open(std::string_view name, bool selfClosing);
    bool close(std::string_view name);
    bool leaf(std::string_view name, bool selfClosing);
    bool leaf_text(std::string_view name, std::string_view content);
    std::size_t end_of_leaf_text(std::string_view name);
    bool count_value();
    bool rest_starts_with(std::string_view head) const { return text_.substr(next_).starts_with(head); }

    std::string_view text_;
    std::size_t next_ = 0;
    std::vector<std::string_view> open_; ///< "plist" first
    bool seen_plist_ = false;
    bool seen_value_ = false;
    std::size_t keys_ = 0;
    std::string problem_;
};

std::string Walk::problem() {
    while (problem_.empty() && next_ < text_.size()) {
        if (!step()) {
            return problem_;
        }
    }
    if (!open_.empty()) {
        fail("element \"" + std::string(open_.back()) + "\" is not closed");
    } else if (!seen_value_) {
        fail("no property list");
    }
    return problem_;
}

bool Walk::fail(std::string_view message) {
    problem_ = "line " + decimal_text(line_at(text_, next_)) + ": " + std::string(message);
    return false;
}

bool Walk::step() {
    if (text_[next_] != '<') {
        return between_elements();
    }
    if (rest_starts_with("<!--")) {
        return comment();
    }
    if (rest_starts_with("<?")) {
        return prologue("<?", "?>");
    }
    if (rest_starts_with("<!")) {
        return prologue("<!DOCTYPE", ">");
    }
    return tag();
}

bool Walk::between_elements() {
    const std::size_t end = std::min(text_.find('<', next_), text_.size());
    const std::size_t other = text_.find_first_not_of(kBlanks, next_);
    if (other < end) {
        next_ = other;
        return fail("text outside of a value");
    }
    next_ = end;
    return true;
}

bool Walk::comment() {
    const std::size_t end = text_.find("--", next_ + 4);
    // "<!-->" and "--" inside are no XML, and two readers may see different ends of such a comment.
    if (end == npos || !text_.substr(end).starts_with("-->") || text_[next_ + 4] == '>') {
        return fail("malformed comment");
    }
    next_ = end + 3;
    return true;
}

bool Walk::prologue(std::string_view opening, std::string_view closing) {
    const std::size_t end = text_.find(closing, next_ + opening.size());
    if (seen_plist_ || !rest_starts_with(opening) || end == npos) {
        return fail("malformed declaration");
    }
    const std::string_view inside = text_.substr(next_ + opening.size(), end - next_ - opening.size());
    if (inside.empty() || inside.find_first_of("<>[") != npos ||
        std::count(inside.begin(), inside.end(), '"') % 2 != 0) {
        return fail("malformed declaration");
    }
    next_ = end + closing.size();
    return true;
}

bool Walk::tag() {
    const std::size_t end = text_.find('>', next_);
    if (end == npos) {
        return fail("tag without end");
    }
    std::string_view inside = text_.substr(next_ + 1, end - next_ - 1);
    const bool closing = inside.starts_with('/');
    inside.remove_prefix(closing ? 1 : 0);
    const bool selfClosing = inside.ends_with('/');
    inside.remove_suffix(selfClosing ? 1 : 0);
    const std::string_view name = inside.substr(0, inside.find_first_of(kBlanks));
    const std::string_view attributes = trimmed(inside.substr(name.size()));
    const bool plain = attributes.find_first_of("<'") == npos &&
                       std::count(attributes.begin(), attributes.end(), '"') % 2 == 0;
    if ((closing && selfClosing) || !plain || (!attributes.empty() && (closing || name != "plist"))) {
        return fail("malformed tag");
    }
    if (closing) {
        return close(name) && ((next_ = end + 1) != 0);
    }
    if (is_leaf(name)) {
        if (!count_value()) {
            return false;
        }
        next_ = end + 1;
        return leaf(name, selfClosing);
    }
    return open(name, selfClosing) && ((next_ = end + 1) != 0);
}

bool Walk::count_value() {
    if (open_.empty()) {
        return fail("value outside of \"plist\"");
    }
    if (open_.size() == 1 && seen_value_) {
        return fail("more than one value");
    }
    seen_value_ = true;
    return true;
}

bool Walk::open(std::string_view name, bool selfClosing) {
    if (name == "plist") {
        if (seen_plist_ || selfClosing) {
            return fail("misplaced \"plist\"");
        }
        seen_plist_ = true;
    } else if (!is_container(name)) {
        return fail("unknown element \"" + repaired_utf8(name.substr(0, 40)) + "\"");
    } else if (!count_value()) {
        return false;
    }
    if (open_.size() > static_cast<std::size_t>(kMaxPropertyListDepth)) {
        return fail("nested deeper than " + decimal_text(kMaxPropertyListDepth) + " levels");
    }
    if (!selfClosing) {
        open_.push_back(name);
    }
    return true;
}

bool Walk::close(std::string_view name) {
    if (open_.empty() || open_.back() != name) {
        return fail("unexpected end of \"" + repaired_utf8(name.substr(0, 40)) + "\"");
    }
    open_.pop_back();
    return true;
}

bool Walk::leaf(std::string_view name, bool selfClosing) {
    keys_ += name == "key" ? 1 : 0;
    if (selfClosing) {
        return leaf_text(name, {});
    }
    const std::size_t end = end_of_leaf_text(name);
    if (end == npos) {
        return false;
    }
    const std::string_view content = text_.substr(next_, end - next_);
    if (!leaf_text(name, content)) {
        return false;
    }
    next_ = text_.find('>', end) + 1;
    return true;
}

/// Where the closing tag of the element begins whose text begins at `next_`; npos after a failure.
std::size_t Walk::end_of_leaf_text(std::string_view name) {
    constexpr std::string_view kCData = "<![CDATA[";
    for (std::size_t at = text_.find('<', next_); at != npos; at = text_.find('<', at)) {
        const std::string_view rest = text_.substr(at);
        if (rest.starts_with("</") && rest.substr(2).starts_with(name)) {
            const std::string_view after = rest.substr(2 + name.size());
            const std::size_t end = after.find_first_not_of(kBlanks);
            if (end != npos && after[end] == '>') {
                return at;
            }
        }
        if (!rest.starts_with(kCData) || (name != "string" && name != "key")) {
            break;
        }
        at = text_.find("]]>", at + kCData.size());
    }
    fail("element \"" + std::string(name) + "\" is not closed");
    return npos;
}

bool Walk::leaf_text(std::string_view name, std::string_view content) {
    if (name == "integer" && !is_integer(trimmed(content))) {
        return fail("no 64-bit decimal integer");
    }
    if (name == "real" && !is_real(trimmed(content))) {
        return fail("no decimal number");
    }
    if (name == "data" && !is_base64(content)) {
        return fail("no Base64 data");
    }
    if ((name == "true" || name == "false") && !content.empty()) {
        return fail("text outside of a value");
    }
    return true;
}

} // namespace

std::string check_property_list_text(std::string_view bytes, std::size_t* keys) {
    if (bytes.size() > kMaxPropertyListBytes) {
        return "larger than " + decimal_text(std::int64_t{kMaxPropertyListBytes}) + " bytes";
    }
    if (bytes.starts_with("\xEF\xBB\xBF") || bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE")) {
        return "line 1: byte-order mark";
    }
    if (const int line = line_of_ill_formed_utf8(bytes); line != 0) {
        return "line " + decimal_text(line) + ": not UTF-8";
    }
    if (const std::size_t zero = bytes.find('\0'); zero != npos) {
        return "line " + decimal_text(line_at(bytes, zero)) + ": zero byte";
    }
    Walk walk(bytes);
    std::string problem = walk.problem();
    if (keys != nullptr) {
        *keys = walk.keys();
    }
    return problem;
}

} // namespace specialpages::platform
