#include "qt/tips.h"

#include "qt/text.h"

#include <QTextDocument>
#include <QTextDocumentFragment>

namespace specialpages::qt {

QString literal_tip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

QString literal_tip(std::string_view text) {
    return literal_tip(shown_text(text));
}

QString plain_tip(const QString& tip) {
    return Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
}

} // namespace specialpages::qt
