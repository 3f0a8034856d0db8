#include "qt/NibWidgets.h"

#include "host/HostError.h"
#include "qt/DialogWidget.h"
#include "qt/FieldWidget.h"
#include "qt/IconWidget.h"
#include "qt/PopUpWidget.h"
#include "qt/ScrollTextWidget.h"
#include "qt/StepperWidget.h"
#include "qt/TableWidget.h"
#include "qt/text.h"
#include "qt/window_mnemonics.h"

#include <pugixml.hpp>

#include <QAbstractButton>
#include <QBuffer>
#include <QCoreApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QUiLoader>
#include <algorithm>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

namespace specialpages::qt {

using platform::NibElement;
using platform::ViewKind;

namespace {

[[noreturn]] void refuse(const std::string& file, const std::string& what) {
    throw host::HostError(host::ErrorCode::other, file, what);
}

/// Adds the element and all below it, those that have names.
void add_named(const NibElement& element, NibWidgets::Elements& all) {
    if (!element.name.empty()) {
        all.push_back(&element);
    }
    for (const NibElement& child : element.children) {
        add_named(child, all);
    }
}

/// Qt's loader opens every plugin of Qt Designer that the machine has, which takes longer than all else that
/// it does here, and no class of a nib comes from one.
class NoPlugins {
  public:
    NoPlugins() : before_(QCoreApplication::libraryPaths()) { QCoreApplication::setLibraryPaths({}); }
    NoPlugins(const NoPlugins&) = delete;
    NoPlugins& operator=(const NoPlugins&) = delete;
    ~NoPlugins() { QCoreApplication::setLibraryPaths(before_); }

  private:
    QStringList before_;
};

/// Makes a widget by its view's kind where Qt's own class would keep state or behave in ways of its own.
class Loader : public QUiLoader {
  public:
    explicit Loader(const NibWidgets::Elements& elements, const NoPlugins& /*whileItIsMade*/ = NoPlugins()) {
        setLanguageChangeEnabled(false);
        for (const NibElement* const element : elements) {
            kinds_.emplace(shown_text(element->name), element->kind);
        }
    }

    /// Whether widgets of that kind are of Qt's own classes.
    static bool isOfQt(ViewKind kind) {
        return kind == ViewKind::view || kind == ViewKind::button || kind == ViewKind::radio ||
               kind == ViewKind::staticText;
    }

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        QWidget* const widget = own(name, parent);
        if (widget == nullptr) {
            return QUiLoader::createWidget(className, parent, name);
        }
        widget->setObjectName(name);
        return widget;
    }

  private:
    QWidget* own(const QString& name, QWidget* parent) const {
        const auto found = kinds_.find(name);
        if (found == kinds_.end()) {
            return nullptr;
        }
        switch (found->second) {
        case ViewKind::window:
            return new DialogWidget(parent);
        case ViewKind::icon:
            return new IconWidget(parent);
        case ViewKind::popup:
            return new PopUpWidget(parent);
        case ViewKind::textField:
            return new FieldWidget(parent);
        case ViewKind::stepper:
            return new StepperWidget(parent);
        case ViewKind::table:
            return new TableWidget(parent);
        case ViewKind::scrollText:
            return new ScrollTextWidget(parent);
        case ViewKind::view:
        case ViewKind::button:
        case ViewKind::radio:
        case ViewKind::staticText:
            return nullptr;
        }
        return nullptr;
    }

    std::map<QString, ViewKind> kinds_;
};

/// Whether the widget can show a view of that kind.
bool shows(QWidget* widget, ViewKind kind) {
    switch (kind) {
    case ViewKind::view:
        return widget != nullptr;
    case ViewKind::window:
        return dynamic_cast<DialogWidget*>(widget) != nullptr;
    case ViewKind::icon:
        return dynamic_cast<IconWidget*>(widget) != nullptr;
    case ViewKind::button:
        return qobject_cast<QAbstractButton*>(widget) != nullptr;
    case ViewKind::radio:
        return qobject_cast<QRadioButton*>(widget) != nullptr;
    case ViewKind::popup:
        return dynamic_cast<PopUpWidget*>(widget) != nullptr;
    case ViewKind::textField:
        return dynamic_cast<FieldWidget*>(widget) != nullptr;
    case ViewKind::staticText:
        return qobject_cast<QLabel*>(widget) != nullptr;
    case ViewKind::scrollText:
        return qobject_cast<QPlainTextEdit*>(widget) != nullptr;
    case ViewKind::stepper:
        return dynamic_cast<StepperWidget*>(widget) != nullptr;
    case ViewKind::table:
        return dynamic_cast<TableWidget*>(widget) != nullptr;
    }
    return false;
}

/// The widgets after which others are named.
class NameSources : public pugi::xml_tree_walker {
  public:
    bool for_each(pugi::xml_node& node) override {
        constexpr std::string_view kProperty = "nameFrom";
        if (node.attribute("name").value() == kProperty) {
            names.emplace_back(node.child("string").text().get());
        }
        return true;
    }

    std::vector<std::string> names;
};

/// The top-level window of the name below the root; null for any other place.
pugi::xml_node window_node(const pugi::xml_node& ui, const std::string& name) {
    return ui.child("widget").find_child_by_attribute("widget", "name", name.c_str());
}

std::string text_of(const pugi::xml_document& document) {
    std::ostringstream source;
    document.save(source, "", pugi::format_raw | pugi::format_no_declaration);
    return source.str();
}

/// A source with this widget alone.
std::string source_of(const pugi::xml_node& widget) {
    pugi::xml_document document;
    pugi::xml_node ui = document.append_child("ui");
    ui.append_attribute("version") = "4.0";
    ui.append_copy(widget);
    return text_of(document);
}

pugi::xml_node append_without_children(pugi::xml_node& to, const pugi::xml_node& from) {
    pugi::xml_node copy = to.append_child(from.name());
    for (const pugi::xml_attribute& attribute : from.attributes()) {
        copy.append_copy(attribute);
    }
    return copy;
}

/// The source without these windows, and without its tab stops: the loader would complain about the first one
/// of each window, since it orders them all in one chain.
std::string source_without(const NibWidgets::Elements& windows, const pugi::xml_node& ui) {
    pugi::xml_document document;
    pugi::xml_node rest = append_without_children(document, ui);
    for (const pugi::xml_node& part : ui.children()) {
        const std::string_view name = part.name();
        if (name == "widget") {
            pugi::xml_node root = append_without_children(rest, part);
            for (const pugi::xml_node& child : part.children()) {
                const bool isWindow =
                    std::any_of(windows.begin(), windows.end(), [&](const NibElement* window) {
                        return child == window_node(ui, window->name);
                    });
                if (!isWindow) {
                    root.append_copy(child);
                }
            }
        } else if (name != "tabstops") {
            rest.append_copy(part);
        }
    }
    return text_of(document);
}

} // namespace

NibWidgets::NibWidgets(std::shared_ptr<const platform::NibSource> nib, QWidget& parent)
    : nib_(std::move(nib)), file_(nib_->file.string()) {
    const pugi::xml_node ui = nib_->xml->child("ui");
    checkNames();
    for (const pugi::xml_node& stop : ui.child("tabstops").children("tabstop")) {
        tabStops_.emplace_back(stop.text().get());
    }
    Elements windows;
    Elements others;
    if (!nib_->root.name.empty()) {
        others.push_back(&nib_->root);
    }
    for (const NibElement& child : nib_->root.children) {
        if (child.kind == ViewKind::window && !child.name.empty() && window_node(ui, child.name)) {
            windows.push_back(&child);
        } else {
            add_named(child, others);
        }
    }
    root_ = make(source_without(windows, ui), others, parent);
    orderTabStops(*root_);
    putOff(windows, others);
}

void NibWidgets::checkNames() const {
    Elements all;
    add_named(nib_->root, all);
    std::set<std::string_view> names;
    for (const NibElement* const element : all) {
        names.insert(element->name);
    }
    const pugi::xml_node ui = nib_->xml->child("ui");
    for (const pugi::xml_node& stop : ui.child("tabstops").children("tabstop")) {
        const std::string name = stop.text().get();
        if (!names.contains(name)) {
            refuse(file_, "expected a widget \"" + name + "\" for the tab stop of that name");
        }
    }
    NameSources sources;
    ui.child("widget").traverse(sources);
    for (const std::string& name : sources.names) {
        if (!name.empty() && !names.contains(name)) {
            refuse(file_, "expected a widget \"" + name + "\", after which others are named");
        }
    }
}

void NibWidgets::putOff(const Elements& windows, const Elements& made) {
    std::set<std::pair<std::string_view, ViewKind>> tried;
    for (const NibElement* const element : made) {
        tried.emplace(element->className, element->kind);
    }
    Loader samples({});
    for (const NibElement* const window : windows) {
        Elements below;
        add_named(*window, below);
        for (const NibElement* const element : below) {
            unmade_.emplace(element->name, window);
            // One of each class for each kind is tried, so that a nib with a wrong one is refused now.
            if (Loader::isOfQt(element->kind) && tried.emplace(element->className, element->kind).second) {
                const std::unique_ptr<QWidget> sample(
                    samples.createWidget(shown_text(element->className), nullptr, shown_text(element->name)));
                checkKind(*element, sample.get());
            }
        }
    }
}

QWidget* NibWidgets::make(const std::string& source, const Elements& elements, QWidget& parent) const {
    QByteArray bytes = QByteArray::fromStdString(source);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    Loader loader(elements);
    std::unique_ptr<QWidget> top(loader.load(&buffer, &parent));
    if (top == nullptr) {
        refuse(file_, "expected widgets: " + model_text(loader.errorString()));
    }
    std::map<std::string, QWidget*> made;
    for (const NibElement* const element : elements) {
        const QString name = shown_text(element->name);
        QWidget* const widget = top->objectName() == name ? top.get() : top->findChild<QWidget*>(name);
        checkKind(*element, widget);
        made[element->name] = widget;
    }
    for (const auto& [name, widget] : made) {
        widgets_[name] = widget;
        if (qobject_cast<QAbstractButton*>(widget) != nullptr || qobject_cast<QLabel*>(widget) != nullptr) {
            set_latin_text(*widget, widget->property("text").toString());
        }
        if (auto* const dialog = dynamic_cast<DialogWidget*>(widget);
            dialog != nullptr && dialog->property("statusLine").toBool()) {
            dialog->addStatusLine();
        }
        if (const std::string label = model_text(widget->property("nameFrom").toString()); !label.empty()) {
            namedAfter_[label].push_back(widget);
        }
    }
    return top.release();
}

void NibWidgets::checkKind(const NibElement& element, QWidget* widget) const {
    if (!shows(widget, element.kind)) {
        refuse(file_, "expected a widget \"" + element.name + "\" that can show its view, found " +
                          (widget == nullptr ? "none" : widget->metaObject()->className()));
    }
}

void NibWidgets::orderTabStops(const QWidget& window) const {
    QWidget* before = nullptr;
    for (const std::string& name : tabStops_) {
        const auto stop = widgets_.find(name);
        if (stop == widgets_.end() || stop->second->window() != window.window()) {
            continue;
        }
        if (before != nullptr) {
            QWidget::setTabOrder(before, stop->second);
        }
        before = stop->second;
    }
}

QWidget* NibWidgets::find(const std::string& name) const {
    if (const auto unmade = unmade_.find(name); unmade != unmade_.end()) {
        const NibElement* const window = unmade->second;
        Elements elements;
        add_named(*window, elements);
        QWidget* const made =
            make(source_of(window_node(nib_->xml->child("ui"), window->name)), elements, *root_);
        std::erase_if(unmade_, [&](const auto& entry) { return entry.second == window; });
        orderTabStops(*made);
    }
    const auto found = widgets_.find(name);
    return found == widgets_.end() ? nullptr : found->second;
}

const std::vector<QWidget*>& NibWidgets::namedAfter(const std::string& label) const {
    static const std::vector<QWidget*> none;
    const auto found = namedAfter_.find(label);
    return found == namedAfter_.end() ? none : found->second;
}

} // namespace specialpages::qt
