// A small window with a page of the bundle's help, its links, and the way back.
#pragma once

#include "qt/WindowTexts.h"

#include <QDialog>
#include <QKeySequence>
#include <memory>
#include <string_view>

class QPushButton;
class QTextBrowser;

namespace specialpages::platform {
class Bundle;
}

namespace specialpages::qt {

class HelpViewer : public QDialog {
  public:
    /// Its buttons speak the language that the bundle (not null) prefers.
    explicit HelpViewer(std::shared_ptr<platform::Bundle> bundle);

    /// Shows the page (a file of the bundle's Help folder) at the anchor (may be empty), over the window of
    /// `asker` or the modal dialog that is in front. False when the bundle has no such page.
    bool showPage(std::string_view book, std::string_view page, std::string_view anchor, QWidget& asker);

    QTextBrowser& browser() { return *browser_; }

  private:
    QPushButton* addButton(const WindowTexts& texts, const WindowText& text, const char* name);
    void addKey(QKeySequence::StandardKey key, QPushButton& button);

    std::shared_ptr<platform::Bundle> bundle_;
    QTextBrowser* browser_;
};

} // namespace specialpages::qt
