// Nibs: Qt Designer's .ui XML, read into models of windows and views. One nib has one root widget, which
// stands for the nib itself; its children are top-level views (any widget) and windows (QDialog).
//
// Of a widget the loader takes: its class (below), objectName (the outlet), title or windowTitle, text,
// enabled, visible (not of a window, which is closed until the program opens it), toolTip, minimum, maximum,
// singleStep, value, the items of a pop-up, the columns of a table, and these dynamic properties:
//   tag                 number: the view's tag
//   kind                string: one of the ViewKind names, in place of what the class stands for
//   role                string: "default" or "cancel", the button of its window that Return or Escape presses
//   object, objectOutlet  strings: a class that the owner instantiates for this view, and the outlet it goes
//   to columnIdentifiers   string list: the identifiers of a table's columns
// Layouts are looked through; spacers, actions and resources are ignored. Classes: QWidget, QFrame and
// QGroupBox are views, QDialog a window, QPushButton and QToolButton buttons, QRadioButton, QComboBox a
// pop-up, QLineEdit a text field, QLabel a static text, QPlainTextEdit, QTextEdit and QTextBrowser scrolling
// texts, QTableWidget and QTableView tables. Any other class without a `kind` is an error, and so are a
// window that is no child of the root, a role that is given to no button or outside a window, and an object
// without its outlet. The file is UTF-8; its document type is passed over and declares no entities.
#pragma once

#include "platform/export.h"
#include "platform/toolkit/View.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
class xml_document;
}

namespace specialpages::platform {

/// An object that a nib instantiates besides its views: a control or a window's controller.
class SPECIALPAGES_PLATFORM_API NibObject {
  public:
    NibObject() = default;
    NibObject(const NibObject&) = delete;
    NibObject& operator=(const NibObject&) = delete;
    virtual ~NibObject();
};

/// Whom a nib is loaded for: knows its outlets by name and makes the objects that the nib asks for.
class SPECIALPAGES_PLATFORM_API NibOwner {
  public:
    virtual ~NibOwner();
    /// Connects the outlet; false when there is none of that name or the view is of the wrong kind.
    virtual bool connectOutlet(std::string_view outlet, View& view) = 0;
    /// Makes an object of that class; null for an unknown class. The nib owns it.
    virtual std::unique_ptr<NibObject> instantiate(std::string_view className) = 0;
    /// Connects the object; false when there is no such outlet or the object is of the wrong class.
    virtual bool connectObject(std::string_view outlet, NibObject& object) = 0;
};

/// A nib as it was read: plain values, no views yet.
struct NibElement {
    ViewKind kind = ViewKind::view;
    std::string name, className;
    std::int32_t tag = 0;
    std::string title, text, toolTip, role, object, objectOutlet;
    bool enabled = true, visible = true;
    std::int32_t minimum = 0, maximum = 100, singleStep = 1, value = 0;
    std::vector<std::string> items; ///< of a pop-up
    std::vector<std::string> columnIdentifiers, columnTitles;
    std::vector<NibElement> children;
};

/// Largest nesting of widgets and layouts that is read, the root being the first, and largest text.
inline constexpr int kMaxNibDepth = 64;
inline constexpr std::size_t kMaxNibBytes = std::size_t{8} * 1024 * 1024;

/// Reads a nib's XML. On failure the optional is empty and `error`, when given, says what was wrong and
/// where.
SPECIALPAGES_PLATFORM_API std::optional<NibElement> parse_nib(std::string_view xml,
                                                              std::string* error = nullptr);

/// A nib's file as it was read, for whoever shows the same nib (View::nib).
struct NibSource {
    std::filesystem::path file;
    NibElement root;
    std::shared_ptr<const pugi::xml_document> xml; ///< what `root` was read from; never null
};

/// Reads the file, at most kMaxNibBytes. On failure the answer is null and `error`, when given, says why and
/// names the file.
SPECIALPAGES_PLATFORM_API std::shared_ptr<const NibSource> read_nib(const std::filesystem::path& file,
                                                                    std::string* error = nullptr);

/// The views and objects that one loading made; it owns the top-level views and all objects. Objects end
/// before views.
class SPECIALPAGES_PLATFORM_API Nib {
  public:
    /// Makes the views of a nib and connects them. Every widget that the owner accepts by its name becomes an
    /// outlet; names that it does not know are no error. Then the objects are made, so that they find all
    /// outlets connected. An `object` that cannot be made or connected is an error, and so is a second
    /// default or cancel button of a window. The root's name is no outlet. On failure the answer is null and
    /// `error`, when given, says why; the owner then holds outlets whose views are gone.
    static std::unique_ptr<Nib> instantiate(const NibElement& root, NibOwner& owner,
                                            std::string* error = nullptr);
    /// Reads the file as read_nib does and instantiates it; its top-level views then know what was read. The
    /// error names the file.
    static std::unique_ptr<Nib> loadNibFile(const std::filesystem::path& file, NibOwner& owner,
                                            std::string* error = nullptr);
    ~Nib();
    Nib(const Nib&) = delete;
    Nib& operator=(const Nib&) = delete;

    const std::vector<std::shared_ptr<View>>& topLevelViews() const { return views_; }

  private:
    class Builder;
    Nib() = default;
    std::vector<std::shared_ptr<View>> views_;
    std::vector<std::unique_ptr<NibObject>> objects_;
};

} // namespace specialpages::platform
