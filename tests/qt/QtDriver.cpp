#include "qt/QtDriver.h"

#include "cli/pane_tags.h"
#include "host/HostError.h"
#include "qt/DialogWidget.h"
#include "qt/FieldWidget.h"
#include "qt/NextDialog.h"
#include "qt/PopUpWidget.h"
#include "qt/StepperWidget.h"
#include "qt/TableWidget.h"
#include "qt/events.h"
#include "qt/widget_state.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleOptionSpinBox>
#include <QTextBoundaryFinder>
#include <QTimer>
#include <array>

namespace specialpages::qt::testing {

using cli::DriveRequest;
using cli::RequestError;
using nlohmann::ordered_json;

namespace {

/// More single steps than a script takes.
constexpr int kMostSteps = 20000;

std::string described(QWidget& widget) {
    return class_of(widget) + " " + std::to_string(widget.property("tag").toInt());
}

RequestError unexpected(QWidget& widget, const char* expected) {
    return RequestError(described(widget) + ": expected " + expected);
}

template <class Widget>
Widget& as(QWidget& widget, const char* expected) {
    auto* const cast = dynamic_cast<Widget*>(&widget);
    if (cast == nullptr) {
        throw unexpected(widget, expected);
    }
    return *cast;
}

/// RequestError unless a user could pick the item at the path, as the headless session words it.
void check_path(QWidget& popup, const QMenu& top, const std::vector<std::int32_t>& path) {
    std::string place = described(popup);
    const QMenu* menu = &top;
    for (const std::int32_t position : path) {
        if (menu == nullptr) {
            throw RequestError(place + ": it has no sub-menu");
        }
        const QAction* const item = position < 0 ? nullptr : menu->actions().value(position);
        if (item == nullptr) {
            throw RequestError(place + ": no item " + std::to_string(position) + ", it has " +
                               std::to_string(menu->actions().size()) + " items");
        }
        place += ": item " + std::to_string(position);
        if (!item->isVisible()) {
            throw RequestError(place + ": hidden");
        }
        if (!item->isEnabled()) {
            throw RequestError(place + ": disabled");
        }
        menu = item->menu();
    }
    if (menu != nullptr) {
        throw RequestError(place + ": it opens a sub-menu");
    }
}

std::vector<QString> composed_characters(const QString& text) {
    std::vector<QString> characters;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype begin = 0;
    for (qsizetype end = finder.toNextBoundary(); end > begin; end = finder.toNextBoundary()) {
        characters.push_back(text.mid(begin, end - begin));
        begin = end;
    }
    return characters;
}

void type_character(QWidget& field, const QString& character) {
    const bool oneKey =
        character.size() == 1 && character[0].unicode() >= 0x20 && character[0].unicode() < 0x7F;
    if (oneKey) {
        QTest::keyClick(field.window()->windowHandle(), character[0].toLatin1());
    } else {
        QInputMethodEvent composed;
        composed.setCommitString(character);
        QApplication::sendEvent(&field, &composed);
    }
}

} // namespace

void DrivenFace::runEvents(platform::Window& window, const std::function<bool()>& stopped) {
    QTimer begins; // ends with the run, if the run ends before it begins
    if (run_) {
        begins.setSingleShot(true);
        QObject::connect(&begins, &QTimer::timeout, &begins, [run = run_, &stopped] {
            // Keys come to the active window only.
            QWidget* const dialog = QApplication::activeModalWidget();
            EXPECT_TRUE(QTest::qWaitFor([dialog] { return dialog->isActiveWindow(); }));
            run(stopped);
        });
        begins.start(0);
    }
    QtFace::runEvents(window, stopped);
}

void DrivenFace::showAlert(const platform::Alert& alert) {
    NextDialog box;
    QtFace::showAlert(alert);
    alerts.push_back(box.text());
}

QtDriver::QtDriver(PaneWidget& pane, DrivenFace& face) : pane_(pane), face_(face) {
    face_.setRun([this](const std::function<bool()>& stopped) {
        if (!ended_) {
            answer(); // of the request that opened the window
        }
        readRequests(stopped);
        if (ended_ && !stopped()) {
            face_.giveUp();
        }
    });
}

QtDriver::~QtDriver() {
    face_.setRun(nullptr);
}

std::vector<std::string> QtDriver::run(const std::vector<std::string>& requests) {
    requests_ = &requests;
    next_ = 0;
    ended_ = false;
    answers_.clear();
    readRequests([] { return false; });
    return std::move(answers_);
}

void QtDriver::readRequests(const std::function<bool()>& stopped) {
    while (!ended_ && !stopped()) {
        if (next_ == requests_->size()) {
            if (const auto look = std::exchange(look_, nullptr)) {
                look();
            }
            ended_ = true;
            return;
        }
        handle((*requests_)[next_++]);
        if (platform::Application::shared().modalDepth() == 0 || (!ended_ && !stopped())) {
            answer();
        }
    }
}

void QtDriver::handle(const std::string& line) {
    const std::size_t number = next_;
    pending_.emplace();
    pending_->number = number;
    ordered_json result(ordered_json::value_t::discarded);
    std::optional<std::string> error;
    try {
        const DriveRequest request = DriveRequest::parse(line);
        if (request.id() != nullptr) {
            pending_->id = *request.id();
        }
        result = perform(request);
        settle();
    } catch (const RequestError& refusal) {
        error = refusal.what();
    } catch (const host::HostError& refusal) {
        error = refusal.what();
    }
    if (pending_ && pending_->number == number) {
        pending_->result = std::move(result);
        pending_->error = std::move(error);
    }
}

void QtDriver::answer() {
    if (!pending_) {
        return;
    }
    const Pending done = std::move(*pending_);
    pending_.reset();
    ordered_json line;
    line["ok"] = !done.error;
    if (!done.id.is_discarded()) {
        line["id"] = done.id;
    }
    if (done.error) {
        line["error"] = *done.error;
    } else {
        if (!done.result.is_discarded()) {
            line["result"] = done.result;
        }
        line["window"] = frontWord();
        line["alerts"] = face_.alerts;
        line["beeps"] = face_.beeps;
    }
    face_.alerts.clear();
    face_.beeps = 0;
    answers_.push_back(line.dump(-1, ' ', false, ordered_json::error_handler_t::replace));
}

ordered_json QtDriver::perform(const DriveRequest& request) {
    const ordered_json none(ordered_json::value_t::discarded);
    const std::string& what = request.text("do");
    if (what == "host") {
        return callHost(request.text("call"));
    }
    if (what == "state") {
        const bool inPane = frontWord() == "pane";
        return state_of_window(front(), frontWord(),
                               (inPane ? pane_.windowTitle() : front().windowTitle()).toStdString());
    }
    if (what == "settings") {
        ordered_json object = ordered_json::object();
        for (const auto& entry : pane_.host().settings().entries()) {
            std::visit([&](const auto& value) { object[entry.key] = value; }, entry.value);
        }
        return object;
    }
    if (what == "mark") {
        pane_.host().mark(request.text("option"), request.text("choice"));
    } else if (what == "quit") {
        ended_ = true;
    } else if (what == "press") {
        press(widget(request));
    } else if (what == "choose") {
        choose(widget(request), request);
    } else if (what == "type") {
        type(as<FieldWidget>(widget(request), "a field"), request.typed("text"));
    } else if (what == "step") {
        step(as<StepperWidget>(widget(request), "a stepper"), request.integer("value"));
    } else if (what == "selectRows") {
        selectRows(widget(request), request);
    } else if (what == "doubleClick") {
        doubleClick(widget(request));
    } else {
        throw RequestError("\"do\": unknown request \"" + what + "\"");
    }
    return none;
}

ordered_json QtDriver::callHost(const std::string& call) {
    platform::PrintDialogPanel& panel = *pane_.host().panel();
    if (call == "restore") {
        return panel.restoreValuesAndReturnError(nullptr);
    }
    if (call == "willShow") {
        panel.willShow();
        return nullptr;
    }
    if (call == "shouldHide") {
        return panel.shouldHide();
    }
    if (call == "save") {
        return panel.saveValuesAndReturnError(nullptr);
    }
    if (call == "shouldPrint") {
        return panel.shouldPrint();
    }
    throw RequestError("\"call\": unknown call \"" + call + "\"");
}

void QtDriver::press(QWidget& widget) {
    auto& button = as<QAbstractButton>(widget, "a button or radio");
    // A radio button takes clicks on its ring and text, which stand at its left.
    click(button, qobject_cast<QRadioButton*>(&button) != nullptr ? QPoint(8, button.height() / 2)
                                                                  : button.rect().center());
}

void QtDriver::choose(QWidget& widget, const DriveRequest& request) {
    auto& popup = as<PopUpWidget>(widget, "a popup");
    std::vector<std::int32_t> path;
    if (const auto menu = request.optionalInteger("menu")) {
        path.push_back(*menu);
    }
    path.push_back(request.integer("item"));
    check_path(popup, *std::unique_ptr<QMenu>(popup.makeMenu()), path);
    click(popup);
    QMenu* menu = popup.openMenu();
    if (menu == nullptr) {
        throw RequestError(described(popup) + ": its menu did not open");
    }
    for (std::size_t level = 0; level < path.size(); ++level) {
        QAction& item = *menu->actions().at(path[level]);
        const QPoint at = menu->actionGeometry(&item).center();
        if (level + 1 < path.size()) {
            if (!go_to(*menu, item)) {
                throw RequestError(described(popup) + ": the keyboard did not reach the item");
            }
            QTest::keyClick(menu->windowHandle(), Qt::Key_Right);
            menu = item.menu();
        } else if (menu->rect().contains(at)) {
            QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
        } else {
            go_to(*menu, item);
            QTest::keyClick(menu->windowHandle(), Qt::Key_Return);
        }
    }
}

void QtDriver::leaveField() {
    QWidget& window = front();
    click(window, empty_point(window));
}

void QtDriver::type(QWidget& field, const std::string& text) {
    click(field, QPoint(4, field.height() / 2));
    press_key(field, Qt::Key_A, Qt::ControlModifier);
    if (text.empty()) {
        press_key(field, Qt::Key_Delete);
    }
    for (const QString& character : composed_characters(QString::fromStdString(text))) {
        type_character(field, character);
    }
    leaveField();
}

void QtDriver::step(QWidget& widget, std::int32_t value) {
    auto& stepper = static_cast<StepperWidget&>(widget);
    const std::int32_t held = std::clamp(value, stepper.minimum(), stepper.maximum());
    QStyleOptionSpinBox option;
    option.initFrom(&stepper);
    option.frame = stepper.hasFrame();
    option.subControls = QStyle::SC_All;
    const auto arrow = [&](bool up) {
        return stepper.style()
            ->subControlRect(QStyle::CC_SpinBox, &option, up ? QStyle::SC_SpinBoxUp : QStyle::SC_SpinBoxDown,
                             &stepper)
            .center();
    };
    if (held == stepper.value()) {
        // At an end of the range one step against it, elsewhere one there and back.
        click(stepper, arrow(held != stepper.minimum()));
        if (held != stepper.minimum() && held != stepper.maximum()) {
            click(stepper, arrow(false));
        }
        return;
    }
    for (int i = 0; i < kMostSteps && stepper.value() != held; ++i) {
        click(stepper, arrow(held > stepper.value()));
    }
}

void QtDriver::selectRows(QWidget& widget, const DriveRequest& request) {
    auto& table = as<TableWidget>(widget, "a table");
    const platform::RowSet rows = request.rows("rows");
    const auto count = static_cast<std::size_t>(table.model()->rowCount());
    if (!rows.empty() && *rows.rbegin() >= count) {
        throw RequestError(described(table) + ": no row " + std::to_string(*rows.rbegin()) + ", it has " +
                           std::to_string(count) + " rows");
    }
    const auto click_row = [&](std::size_t row, Qt::KeyboardModifiers modifiers) {
        const QModelIndex cell = table.model()->index(static_cast<int>(row), 0);
        table.scrollTo(cell);
        click(*table.viewport(), table.visualRect(cell).center(), modifiers);
    };
    if (rows.empty()) {
        for (const std::size_t row : table.selectedRowSet()) {
            click_row(row, Qt::ControlModifier);
        }
        return;
    }
    for (const std::size_t row : rows) {
        click_row(row, row == *rows.begin() ? Qt::NoModifier : Qt::ControlModifier);
    }
}

void QtDriver::doubleClick(QWidget& widget) {
    auto& table = as<TableWidget>(widget, "a table");
    const platform::RowSet selected = table.selectedRowSet();
    QPoint at(table.viewport()->width() / 2, table.viewport()->height() - 2);
    if (!selected.empty()) {
        const QModelIndex cell = table.model()->index(static_cast<int>(*selected.begin()), 0);
        table.scrollTo(cell);
        at = table.visualRect(cell).center();
    }
    if (selected.size() == 1) {
        QWidget* const window = table.window();
        QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                           table.viewport()->mapTo(window, at));
        return;
    }
    // A person's first click would change the selection; the second alone is what the request means.
    QMouseEvent second(QEvent::MouseButtonDblClick, at, table.viewport()->mapToGlobal(at), Qt::LeftButton,
                       Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(table.viewport(), &second);
}

QWidget& QtDriver::front() const {
    auto* const dialog = dynamic_cast<DialogWidget*>(QApplication::activeModalWidget());
    return dialog != nullptr ? static_cast<QWidget&>(*dialog) : pane_;
}

std::string QtDriver::frontWord() const {
    QWidget& window = front();
    return &window == &pane_ ? "pane" : std::string(cli::window_word(window.objectName().toStdString()));
}

QWidget& QtDriver::widget(const DriveRequest& request) const {
    const std::int32_t tag = request.integer("tag");
    QWidget* const found = tag == 0 ? nullptr : widget_with_tag(front(), tag);
    if (found == nullptr) {
        throw RequestError("no view with the tag " + std::to_string(tag) + " in the window " + frontWord());
    }
    if (!found->isVisibleTo(&front())) {
        throw RequestError(described(*found) + ": hidden");
    }
    if (!found->isEnabledTo(&front())) {
        throw RequestError(described(*found) + ": disabled");
    }
    return *found;
}

} // namespace specialpages::qt::testing
