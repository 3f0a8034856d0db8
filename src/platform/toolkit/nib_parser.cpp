#include "platform/foundation/atomic_file.h"
#include "platform/foundation/text.h"
#include "platform/toolkit/Nib.h"

#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace specialpages::platform {

namespace {

using KindName = std::pair<std::string_view, ViewKind>;

constexpr std::array kKinds{
    KindName{"view", ViewKind::view},
    KindName{"window", ViewKind::window},
    KindName{"icon", ViewKind::icon},
    KindName{"button", ViewKind::button},
    KindName{"radio", ViewKind::radio},
    KindName{"popup", ViewKind::popup},
    KindName{"textField", ViewKind::textField},
    KindName{"staticText", ViewKind::staticText},
    KindName{"scrollText", ViewKind::scrollText},
    KindName{"stepper", ViewKind::stepper},
    KindName{"table", ViewKind::table},
};

constexpr std::array kClasses{
    KindName{"QWidget", ViewKind::view},
    KindName{"QFrame", ViewKind::view},
    KindName{"QGroupBox", ViewKind::view},
    KindName{"QDialog", ViewKind::window},
    KindName{"QPushButton", ViewKind::button},
    KindName{"QToolButton", ViewKind::button},
    KindName{"QRadioButton", ViewKind::radio},
    KindName{"QComboBox", ViewKind::popup},
    KindName{"QLineEdit", ViewKind::textField},
    KindName{"QLabel", ViewKind::staticText},
    KindName{"QPlainTextEdit", ViewKind::scrollText},
    KindName{"QTextEdit", ViewKind::scrollText},
    KindName{"QTextBrowser", ViewKind::scrollText},
    KindName{"QTableWidget", ViewKind::table},
    KindName{"QTableView", ViewKind::table},
};

template <std::size_t count>
std::optional<ViewKind> kind_named(const std::array<KindName, count>& names, std::string_view name) {
    const auto* const found = std::ranges::find(names, name, &KindName::first);
    return found == names.end() ? std::nullopt : std::optional(found->second);
}

std::string in_quotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

/// All text of an element, whatever comments stand between its pieces.
std::string content(const pugi::xml_node& node) {
    std::string text;
    for (const pugi::xml_node& child : node) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            text += child.value();
        }
    }
    return text;
}

using TextMember = std::pair<std::string_view, std::string NibElement::*>;
using NumberMember = std::pair<std::string_view, std::int32_t NibElement::*>;
using FlagMember = std::pair<std::string_view, bool NibElement::*>;

constexpr std::array kTexts{
    TextMember{"title", &NibElement::title},
    TextMember{"windowTitle", &NibElement::title},
    TextMember{"text", &NibElement::text},
    TextMember{"toolTip", &NibElement::toolTip},
    TextMember{"role", &NibElement::role},
    TextMember{"object", &NibElement::object},
    TextMember{"objectOutlet", &NibElement::objectOutlet},
};

constexpr std::array kNumbers{
    NumberMember{"tag", &NibElement::tag},         NumberMember{"minimum", &NibElement::minimum},
    NumberMember{"maximum", &NibElement::maximum}, NumberMember{"singleStep", &NibElement::singleStep},
    NumberMember{"value", &NibElement::value},
};

constexpr std::array kFlags{
    FlagMember{"enabled", &NibElement::enabled},
    FlagMember{"visible", &NibElement::visible},
};

/// Where a widget stands.
struct Place {
    int depth;     ///< of widgets and layouts, 1 for the root
    int widgets;   ///< widgets above it
    bool inWindow; ///< one of them is a window
};

/// Reads one nib. The first error stays and ends the reading: every step answers whether to go on.
class Reader {
  public:
    explicit Reader(std::string_view xml) : xml_(xml) {}
    bool readDocument(pugi::xml_document& document, NibElement& root);
    const std::string& error() const { return error_; }

  private:
    bool fail(std::ptrdiff_t offset, const std::string& what);
    bool fail(const pugi::xml_node& node, const std::string& what);
    bool readWidget(const pugi::xml_node& node, Place place, NibElement& element);
    bool readKind(const pugi::xml_node& node, NibElement& element);
    bool readProperties(const pugi::xml_node& node, NibElement& element);
    bool readProperty(const pugi::xml_node& property, std::string_view name, NibElement& element);
    bool readItems(const pugi::xml_node& node, NibElement& element);
    bool readTitles(const pugi::xml_node& node, const char* each, std::vector<std::string>& titles);
    bool checkElement(const pugi::xml_node& node, Place place, const NibElement& element);
    bool readChildren(const pugi::xml_node& node, Place place, NibElement& element);
    bool readText(const pugi::xml_node& property, std::string& value);
    bool readTexts(const pugi::xml_node& property, std::vector<std::string>& values);
    bool readFlag(const pugi::xml_node& property, bool& value);
    bool readNumber(const pugi::xml_node& property, std::int32_t& value);
    bool wrongType(const pugi::xml_node& property, const std::string& needed);

    std::string_view xml_;
    std::string path_; ///< names of the widgets down to the one that is read
    std::string error_;
};

bool Reader::fail(std::ptrdiff_t offset, const std::string& what) {
    const auto* const end = xml_.begin() + std::clamp<std::ptrdiff_t>(offset, 0, std::ssize(xml_));
    error_ = "line " + std::to_string(1 + std::count(xml_.begin(), end, '\n')) + ": " + what;
    return false;
}

bool Reader::fail(const pugi::xml_node& node, const std::string& what) {
    return fail(node.offset_debug(), path_.empty() ? what : path_ + ": " + what);
}

bool Reader::readDocument(pugi::xml_document& document, NibElement& root) {
    if (xml_.size() > kMaxNibBytes) {
        error_ = "more than " + std::to_string(kMaxNibBytes) + " bytes";
        return false;
    }
    // The parser below would take a zero byte for the end and leave the rest unread.
    if (const std::size_t zero = xml_.find('\0'); zero != std::string_view::npos) {
        return fail(static_cast<std::ptrdiff_t>(zero), "a zero byte");
    }
    if (!is_valid_utf8(xml_)) {
        error_ = "not UTF-8";
        return false;
    }
    const auto result = document.load_buffer(
        xml_.data(), xml_.size(), pugi::parse_default | pugi::parse_ws_pcdata_single, pugi::encoding_utf8);
    if (!result) {
        return fail(result.offset, result.description());
    }
    const pugi::xml_node ui = document.document_element();
    if (ui.name() != std::string_view("ui")) {
        return fail(ui, "the document is " + in_quotes(ui.name()) + ", not \"ui\"");
    }
    const pugi::xml_node widget = ui.child("widget");
    if (!widget) {
        return fail(ui, "no root widget");
    }
    if (const pugi::xml_node second = widget.next_sibling("widget")) {
        return fail(second, "a second root widget");
    }
    return readWidget(widget, {1, 0, false}, root);
}

bool Reader::readWidget(const pugi::xml_node& node, Place place, NibElement& element) {
    if (place.depth > kMaxNibDepth) {
        return fail(node, "nested deeper than " + std::to_string(kMaxNibDepth));
    }
    element.className = node.attribute("class").value();
    element.name = node.attribute("name").value();
    const std::size_t above = path_.size();
    path_ += (above == 0 ? "" : "/") + (element.name.empty() ? element.className : element.name);
    const bool read =
        readKind(node, element) && readProperties(node, element) && readItems(node, element) &&
        checkElement(node, place, element) &&
        readChildren(node,
                     {place.depth + 1, place.widgets + 1, place.inWindow || element.kind == ViewKind::window},
                     element);
    path_.resize(above);
    return read;
}

bool Reader::readKind(const pugi::xml_node& node, NibElement& element) {
    const pugi::xml_node property = node.find_child_by_attribute("property", "name", "kind");
    std::string name;
    if (property && !readText(property, name)) {
        return false;
    }
    const auto kind = property ? kind_named(kKinds, name) : kind_named(kClasses, element.className);
    if (!kind) {
        return property ? fail(property, "unknown kind " + in_quotes(name))
                        : fail(node, "unknown class " + in_quotes(element.className));
    }
    element.kind = *kind;
    return true;
}

bool Reader::readProperties(const pugi::xml_node& node, NibElement& element) {
    return std::ranges::all_of(node.children("property"), [&](const pugi::xml_node& property) {
        return readProperty(property, property.attribute("name").value(), element);
    });
}

bool Reader::readProperty(const pugi::xml_node& property, std::string_view name, NibElement& element) {
    if (const auto* const text = std::ranges::find(kTexts, name, &TextMember::first); text != kTexts.end()) {
        return readText(property, element.*text->second);
    }
    if (const auto* const number = std::ranges::find(kNumbers, name, &NumberMember::first);
        number != kNumbers.end()) {
        return readNumber(property, element.*number->second);
    }
    if (const auto* const flag = std::ranges::find(kFlags, name, &FlagMember::first); flag != kFlags.end()) {
        return readFlag(property, element.*flag->second);
    }
    return name != "columnIdentifiers" || readTexts(property, element.columnIdentifiers);
}

bool Reader::readItems(const pugi::xml_node& node, NibElement& element) {
    if (element.kind == ViewKind::popup) {
        return readTitles(node, "item", element.items);
    }
    return element.kind != ViewKind::table || readTitles(node, "column", element.columnTitles);
}

bool Reader::readTitles(const pugi::xml_node& node, const char* each, std::vector<std::string>& titles) {
    return std::ranges::all_of(node.children(each), [&](const pugi::xml_node& one) {
        const pugi::xml_node property = one.find_child_by_attribute("property", "name", "text");
        std::string& title = titles.emplace_back();
        return !property || readText(property, title);
    });
}

bool Reader::checkElement(const pugi::xml_node& node, Place place, const NibElement& element) {
    if (place.widgets == 0 && element.kind != ViewKind::view) {
        return fail(node, "the root stands for the nib and must be a view");
    }
    if (element.kind == ViewKind::window && place.widgets != 1) {
        return fail(node, "a window must be a child of the root");
    }
    if (!element.role.empty()) {
        if (element.role != "default" && element.role != "cancel") {
            return fail(node, "unknown role " + in_quotes(element.role));
        }
        if (element.kind != ViewKind::button || !place.inWindow) {
            return fail(node, "a role needs a button in a window");
        }
    }
    if (element.object.empty() != element.objectOutlet.empty()) {
        return fail(node, "object and objectOutlet need each other");
    }
    const auto& identifiers = element.columnIdentifiers;
    const auto& titles = element.columnTitles;
    if (!identifiers.empty() && !titles.empty() && identifiers.size() != titles.size()) {
        return fail(node, std::to_string(identifiers.size()) + " column identifiers for " +
                              std::to_string(titles.size()) + " columns");
    }
    return true;
}

bool Reader::readChildren(const pugi::xml_node& node, Place place, NibElement& element) {
    for (const pugi::xml_node& widget : node.children("widget")) {
        if (!readWidget(widget, place, element.children.emplace_back())) {
            return false;
        }
    }
    for (const pugi::xml_node& layout : node.children("layout")) {
        if (place.depth > kMaxNibDepth) {
            return fail(layout, "nested deeper than " + std::to_string(kMaxNibDepth));
        }
        for (const pugi::xml_node& item : layout.children("item")) {
            if (!readChildren(item, {place.depth + 1, place.widgets, place.inWindow}, element)) {
                return false;
            }
        }
    }
    return true;
}

bool Reader::wrongType(const pugi::xml_node& property, const std::string& needed) {
    return fail(property, "property " + in_quotes(property.attribute("name").value()) + " needs " + needed);
}

bool Reader::readText(const pugi::xml_node& property, std::string& value) {
    const pugi::xml_node text =
        property.child("string") ? property.child("string") : property.child("cstring");
    if (!text) {
        return wrongType(property, "a <string>");
    }
    value = content(text);
    return true;
}

bool Reader::readTexts(const pugi::xml_node& property, std::vector<std::string>& values) {
    const pugi::xml_node list = property.child("stringlist");
    if (!list) {
        return wrongType(property, "a <stringlist>");
    }
    values.clear();
    for (const pugi::xml_node& text : list.children("string")) {
        values.push_back(content(text));
    }
    return true;
}

bool Reader::readFlag(const pugi::xml_node& property, bool& value) {
    const std::string text = content(property.child("bool"));
    if (text != "true" && text != "false") {
        return wrongType(property, "a <bool>");
    }
    value = text == "true";
    return true;
}

bool Reader::readNumber(const pugi::xml_node& property, std::int32_t& value) {
    const std::string text = content(property.child("number"));
    const char* const end = text.data() + text.size();
    const auto [stop, problem] = std::from_chars(text.data(), end, value);
    if (problem != std::errc() || stop != end) {
        return wrongType(property, "a <number> of 32 bits");
    }
    return true;
}

bool read(std::string_view xml, pugi::xml_document& document, NibElement& root, std::string* error) {
    Reader reader(xml);
    const bool good = reader.readDocument(document, root);
    if (!good && error != nullptr) {
        *error = reader.error();
    }
    return good;
}

} // namespace

std::optional<NibElement> parse_nib(std::string_view xml, std::string* error) {
    pugi::xml_document document;
    NibElement root;
    return read(xml, document, root, error) ? std::optional(std::move(root)) : std::nullopt;
}

std::shared_ptr<const NibSource> read_nib(const std::filesystem::path& file, std::string* error) {
    const auto xml = read_file(file, error, kMaxNibBytes);
    if (!xml) {
        return nullptr;
    }
    const auto document = std::make_shared<pugi::xml_document>();
    const auto source = std::make_shared<NibSource>();
    std::string why;
    if (!read(*xml, *document, source->root, &why)) {
        if (error != nullptr) {
            *error = file.string() + ": " + why;
        }
        return nullptr;
    }
    source->file = file;
    source->xml = document;
    return source;
}

} // namespace specialpages::platform
