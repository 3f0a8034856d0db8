#include "qt/StatusLine.h"

#include "qt/tips.h"

#include <QResizeEvent>

namespace specialpages::qt {

StatusLine::StatusLine(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    hide();
}

void StatusLine::say(const QString& sentence) {
    if (sentence == sentence_) {
        return;
    }
    sentence_ = sentence;
    setAccessibleName(sentence);
    fit();
    setVisible(!sentence.isEmpty());
}

QSize StatusLine::sizeHint() const {
    return {0, fontMetrics().height()};
}

void StatusLine::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    fit();
}

void StatusLine::fit() {
    const QString fitting = fontMetrics().elidedText(sentence_, Qt::ElideRight, contentsRect().width());
    setText(fitting);
    setToolTip(fitting == sentence_ ? QString() : literal_tip(sentence_));
}

} // namespace specialpages::qt
