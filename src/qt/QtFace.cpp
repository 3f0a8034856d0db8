#include "qt/QtFace.h"

#include "platform/toolkit/Window.h"
#include "qt/DialogWidget.h"
#include "qt/WindowWidgets.h"
#include "qt/accessibility.h"
#include "qt/text.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEventLoop>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

namespace specialpages::qt {

namespace {

/// As large as the dialog's texts ask for, those that wrap too, within the screen.
QSize size_for(const QWidget& dialog) {
    const QSize screen = dialog.screen()->availableSize();
    QSize size = dialog.sizeHint().boundedTo(screen);
    const QLayout* const layout = dialog.layout();
    if (layout != nullptr && layout->hasHeightForWidth()) {
        size.setHeight(std::max(size.height(), layout->totalHeightForWidth(size.width())));
    }
    return size.boundedTo(screen);
}

} // namespace

QtFace::QtFace() : before_(platform::Application::shared().setFace(this)) {
    install_accessibility();
}

QtFace::~QtFace() {
    platform::Application::shared().setFace(before_);
}

void QtFace::giveUp() {
    if (!loops_.empty()) {
        loops_.back()->exit(1);
    }
}

void QtFace::runEvents(platform::Window& window, const std::function<bool()>& stopped) {
    const QPointer<DialogWidget> dialog = pane_ == nullptr ? nullptr : pane_->widgetsOf(window);
    if (dialog == nullptr) {
        return;
    }
    const QPointer<QWidget> opener = QApplication::activeModalWidget() != nullptr
                                         ? QApplication::activeModalWidget()
                                         : dialog->parentWidget()->window();
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->resize(size_for(*dialog));
    dialog->standOver(*opener);
    dialog->show();
    dialog->activateWindow();
    pane_->showFocus(window);

    QEventLoop loop;
    loops_.push_back(&loop);
    // Whatever event stopped the run, it is over before the next wait.
    const auto waits = QObject::connect(QAbstractEventDispatcher::instance(),
                                        &QAbstractEventDispatcher::aboutToBlock, &loop, [&] {
                                            if (stopped()) {
                                                loop.quit();
                                            }
                                        });
    if (!stopped()) {
        loop.exec(QEventLoop::DialogExec);
    }
    QObject::disconnect(waits);
    loops_.pop_back();
    if (dialog != nullptr && stopped()) {
        dialog->hide();
    }
    if (opener != nullptr) {
        opener->activateWindow();
    }
}

void QtFace::showAlert(const platform::Alert& alert) {
    const QPointer<QWidget> over = QApplication::activeModalWidget() != nullptr
                                       ? QApplication::activeModalWidget()
                                       : QApplication::activeWindow();
    QMessageBox box(QMessageBox::Warning, QString(), shown_text(alert.messageText), QMessageBox::NoButton,
                    over);
    if (alert.messageText.empty()) {
        box.setText(shown_text(alert.informativeText));
    } else {
        box.setInformativeText(shown_text(alert.informativeText));
    }
    box.setTextFormat(Qt::PlainText);
    auto* const button =
        box.addButton(alert.buttonTitle.empty() ? QMessageBox::tr("OK") : literal_label(alert.buttonTitle),
                      QMessageBox::AcceptRole);
    box.setDefaultButton(button);
    box.setEscapeButton(button);
    box.exec();
    if (over != nullptr) {
        over->activateWindow();
    }
}

void QtFace::beep() {
    QApplication::beep();
}

} // namespace specialpages::qt
