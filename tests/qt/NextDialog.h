// A helper that presses a button in the next message box, and fails the test when none comes.
#pragma once

#include "qt/events.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <string>

namespace specialpages::qt::testing {

class NextDialog {
  public:
    NextDialog() {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
        timer_.start(0);
    }
    ~NextDialog() {
        if (!came_) {
            ADD_FAILURE() << "no message box came";
        }
    }
    NextDialog(const NextDialog&) = delete;
    NextDialog& operator=(const NextDialog&) = delete;

    bool came() const { return came_; }
    /// What the message box said: its text and what explains it, in one line each.
    const std::string& text() const { return text_; }

  private:
    void look() {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible() || box->windowHandle() == nullptr) {
            return;
        }
        timer_.stop();
        came_ = true;
        text_ = box->text().toStdString();
        if (!box->informativeText().isEmpty()) {
            text_ += "\n" + box->informativeText().toStdString();
        }
        QAbstractButton* button = box->defaultButton();
        if (button == nullptr) {
            button = box->buttons().value(0);
        }
        click(*button);
    }

    QTimer timer_;
    bool came_ = false;
    std::string text_;
};

} // namespace specialpages::qt::testing
