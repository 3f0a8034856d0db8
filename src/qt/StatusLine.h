// A quiet line at the foot of a dialog that says why what the mouse or the keyboard is on cannot be chosen.
// Its room is kept while it says nothing, so that nothing moves.
#pragma once

#include <QLabel>
#include <QString>

namespace specialpages::qt {

class StatusLine : public QLabel {
  public:
    explicit StatusLine(QWidget* parent);

    /// Shows the sentence in one line; one that is too long ends in dots and is whole in the tool tip and for
    /// assistive tools. Empty: nothing is shown.
    void say(const QString& sentence);
    /// What it says, whole.
    const QString& sentence() const { return sentence_; }

    /// A line of text high, and as wide as the dialog happens to be.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void fit();

    QString sentence_;
};

} // namespace specialpages::qt
