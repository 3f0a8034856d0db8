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
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QUiLoader>
#include <sstream>
#include <utility>

namespace specialpages::qt {

using platform::NibElement;
using platform::ViewKind;

namespace {

[[noreturn]] void refuse(const std::string& file, const std::string& what) {
    throw host::HostError(host::ErrorCode::other, file, what);
}

void collect_kinds(const NibElement& element, std::map<QString, ViewKind>& kinds) {
    if (!element.name.empty()) {
        kinds.emplace(shown_text(element.name), element.kind);
    }
    for (const NibElement& child : element.children) {
        collect_kinds(child, kinds);
    }
}

/// Makes a widget by its view's kind where Qt's own class would keep state or behave in ways of its own.
class Loader : public QUiLoader {
  public:
    explicit Loader(std::map<QString, ViewKind> kinds) : kinds_(std::move(kinds)) {
        setLanguageChangeEnabled(false);
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

} // namespace

NibWidgets::NibWidgets(const std::filesystem::path& file, QWidget& parent) : file_(file.string()) {
    std::string error;
    const auto xml = platform::read_file(file, &error, platform::kMaxNibBytes);
    if (!xml) {
        refuse(file_, "expected a nib: " + error);
    }
    load(*xml, parent);
}

void NibWidgets::load(const std::string& xml, QWidget& parent) {
    std::string error;
    const auto nib = platform::parse_nib(xml, &error);
    pugi::xml_document document;
    if (!nib || !document.load_buffer(xml.data(), xml.size(), pugi::parse_default | pugi::parse_ws_pcdata)) {
        refuse(file_, "expected a nib: " + error);
    }
    // The loader would complain about each window's first tab stop: it orders them all in one chain.
    pugi::xml_node ui = document.child("ui");
    for (const pugi::xml_node& stop : ui.child("tabstops").children("tabstop")) {
        tabStops_.emplace_back(stop.text().get());
    }
    ui.remove_child("tabstops");
    std::ostringstream source;
    document.save(source, "", pugi::format_raw);
    QByteArray bytes = QByteArray::fromStdString(source.str());
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);

    std::map<QString, ViewKind> kinds;
    collect_kinds(*nib, kinds);
    Loader loader(std::move(kinds));
    root_ = loader.load(&buffer, &parent);
    if (root_ == nullptr) {
        refuse(file_, "expected widgets: " + model_text(loader.errorString()));
    }
    check(*nib);
    for (const auto& [label, widgets] : namedAfter_) {
        if (find(label) == nullptr) {
            refuse(file_, "expected a widget \"" + label + "\", after which others are named");
        }
    }
    orderTabStops();
    for (auto* const widget : root_->findChildren<QDialog*>()) {
        auto* const dialog = dynamic_cast<DialogWidget*>(widget);
        if (dialog != nullptr && dialog->property("statusLine").toBool()) {
            dialog->addStatusLine();
        }
    }
}

void NibWidgets::check(const NibElement& element) {
    if (!element.name.empty()) {
        const QString name = shown_text(element.name);
        QWidget* const widget = root_->objectName() == name ? root_ : root_->findChild<QWidget*>(name);
        if (!shows(widget, element.kind)) {
            refuse(file_, "expected a widget \"" + element.name + "\" that can show its view, found " +
                              (widget == nullptr ? "none" : widget->metaObject()->className()));
        }
        widgets_[element.name] = widget;
        if (qobject_cast<QAbstractButton*>(widget) != nullptr || qobject_cast<QLabel*>(widget) != nullptr) {
            set_latin_text(*widget, widget->property("text").toString());
        }
        const std::string label = model_text(widget->property("nameFrom").toString());
        if (!label.empty()) {
            namedAfter_[label].push_back(widget);
        }
    }
    for (const NibElement& child : element.children) {
        check(child);
    }
}

void NibWidgets::orderTabStops() const {
    QWidget* before = nullptr;
    for (const std::string& name : tabStops_) {
        QWidget* const stop = find(name);
        if (stop == nullptr) {
            refuse(file_, "expected a widget \"" + name + "\" for the tab stop of that name");
        }
        if (before != nullptr && before->window() == stop->window()) {
            QWidget::setTabOrder(before, stop);
        }
        before = stop;
    }
}

QWidget* NibWidgets::find(const std::string& name) const {
    const auto found = widgets_.find(name);
    return found == widgets_.end() ? nullptr : found->second;
}

const std::vector<QWidget*>& NibWidgets::namedAfter(const std::string& label) const {
    static const std::vector<QWidget*> none;
    const auto found = namedAfter_.find(label);
    return found == namedAfter_.end() ? none : found->second;
}

} // namespace specialpages::qt
