#include "qt/NibWidgets.h"

#include "host/HostError.h"
#include "platform/foundation/atomic_file.h"
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
#include <set>
#include <sstream>
#include <utility>
#include <vector>

namespace specialpages::qt {

using platform::NibElement;
using platform::ViewKind;

namespace {

[[noreturn]] void refuse(const std::string& file, const std::string& what) {
    throw host::HostError(host::ErrorCode::other, file, what);
}

/// The element and all below it.
template <class Function>
void for_each_element(const NibElement& element, const Function& function) {
    function(element);
    for (const NibElement& child : element.children) {
        for_each_element(child, function);
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
    explicit Loader(const NibElement& element, const NoPlugins& /*whileItIsMade*/ = NoPlugins()) {
        setLanguageChangeEnabled(false);
        for_each_element(element, [this](const NibElement& each) {
            if (!each.name.empty()) {
                kinds_.emplace(shown_text(each.name), each.kind);
            }
        });
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

bool read(const std::string& xml, pugi::xml_document& document) {
    return static_cast<bool>(
        document.load_buffer(xml.data(), xml.size(), pugi::parse_default | pugi::parse_ws_pcdata));
}

/// The top-level window of the name below the root; null for any other place.
pugi::xml_node window_node(const pugi::xml_node& ui, const std::string& name) {
    return ui.child("widget").find_child_by_attribute("widget", "name", name.c_str());
}

std::string text_of(const pugi::xml_document& document) {
    std::ostringstream source;
    document.save(source, "", pugi::format_raw);
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

} // namespace

NibWidgets::NibWidgets(const std::filesystem::path& file, QWidget& parent) : file_(file.string()) {
    std::string error;
    auto xml = platform::read_file(file, &error, platform::kMaxNibBytes);
    if (!xml) {
        refuse(file_, "expected a nib: " + error);
    }
    xml_ = std::move(*xml);
    load(parent);
}

void NibWidgets::load(QWidget& parent) {
    std::string error;
    auto nib = platform::parse_nib(xml_, &error);
    pugi::xml_document document;
    if (!nib || !read(xml_, document)) {
        refuse(file_, "expected a nib: " + error);
    }
    pugi::xml_node ui = document.child("ui");
    checkNames(*nib, ui);
    // The loader would complain about each window's first tab stop: it orders them all in one chain.
    for (const pugi::xml_node& stop : ui.child("tabstops").children("tabstop")) {
        tabStops_.emplace_back(stop.text().get());
    }
    ui.remove_child("tabstops");
    std::vector<NibElement> windows;
    std::erase_if(nib->children, [&](NibElement& child) {
        const bool putOff = child.kind == ViewKind::window && !child.name.empty() &&
                            ui.child("widget").remove_child(window_node(ui, child.name));
        if (putOff) {
            windows.push_back(std::move(child));
        }
        return putOff;
    });
    root_ = make(text_of(document), *nib, parent);
    orderTabStops(*root_);
    putOff(std::move(windows), *nib);
}

void NibWidgets::checkNames(const NibElement& nib, const pugi::xml_node& ui) const {
    std::set<std::string> names;
    for_each_element(nib, [&](const NibElement& element) { names.insert(element.name); });
    for (const pugi::xml_node& stop : ui.child("tabstops").children("tabstop")) {
        const std::string name = stop.text().get();
        if (!names.contains(name)) {
            refuse(file_, "expected a widget \"" + name + "\" for the tab stop of that name");
        }
    }
    for (const pugi::xpath_node& label : ui.select_nodes("//property[@name='nameFrom']/string")) {
        const std::string name = label.node().text().get();
        if (!name.empty() && !names.contains(name)) {
            refuse(file_, "expected a widget \"" + name + "\", after which others are named");
        }
    }
}

void NibWidgets::putOff(std::vector<NibElement> windows, const NibElement& made) {
    std::set<std::pair<std::string, ViewKind>> tried;
    for_each_element(made, [&](const NibElement& element) {
        if (!element.name.empty()) {
            tried.emplace(element.className, element.kind);
        }
    });
    for (NibElement& each : windows) {
        const auto window = std::make_shared<const NibElement>(std::move(each));
        Loader samples(*window);
        for_each_element(*window, [&](const NibElement& element) {
            if (element.name.empty()) {
                return;
            }
            unmade_.emplace(element.name, window);
            // One of each class for each kind is tried, so that a nib with a wrong one is refused now.
            if (Loader::isOfQt(element.kind) && tried.emplace(element.className, element.kind).second) {
                const std::unique_ptr<QWidget> sample(
                    samples.createWidget(shown_text(element.className), nullptr, shown_text(element.name)));
                checkKind(element, sample.get());
            }
        });
    }
}

QWidget* NibWidgets::make(const std::string& source, const NibElement& element, QWidget& parent) const {
    QByteArray bytes = QByteArray::fromStdString(source);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    Loader loader(element);
    std::unique_ptr<QWidget> top(loader.load(&buffer, &parent));
    if (top == nullptr) {
        refuse(file_, "expected widgets: " + model_text(loader.errorString()));
    }
    std::map<std::string, QWidget*> made;
    for_each_element(element, [&](const NibElement& each) {
        if (!each.name.empty()) {
            const QString name = shown_text(each.name);
            QWidget* const widget = top->objectName() == name ? top.get() : top->findChild<QWidget*>(name);
            checkKind(each, widget);
            made[each.name] = widget;
        }
    });
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
        const auto window = unmade->second;
        pugi::xml_document document;
        read(xml_, document);
        QWidget* const made =
            make(source_of(window_node(document.child("ui"), window->name)), *window, *root_);
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
