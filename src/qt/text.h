// Texts between the model (UTF-8) and widgets.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace specialpages::qt {

inline QString shown_text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string model_text(const QString& text) {
    return text.toStdString();
}

/// The text for a button, label or menu item, in which "&" marks the letter that reaches it: every "&" of the
/// text itself is doubled.
inline QString literal_label(QString text) {
    return text.replace(u'&', QLatin1String("&&"));
}
inline QString literal_label(std::string_view text) {
    return literal_label(shown_text(text));
}

/// What such a text says: the mark of its letter taken away, and with it a letter that was added in brackets
/// ("(&A)"), since a text of its own never has its mark there.
inline QString plain_label(const QString& label) {
    QString plain;
    for (qsizetype i = 0; i < label.size(); ++i) {
        const bool added = i + 3 < label.size() && label[i] == u'(' && label[i + 1] == u'&' &&
                           label[i + 2] != u'&' && label[i + 3] == u')';
        if (added) {
            i += 3;
            continue;
        }
        if (label[i] == u'&' && i + 1 < label.size()) {
            ++i;
        }
        plain += label[i];
    }
    return plain;
}

} // namespace specialpages::qt
