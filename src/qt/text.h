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
inline QString literal_label(std::string_view text) {
    return shown_text(text).replace(u'&', QLatin1String("&&"));
}

/// What such a text says: the mark of its letter taken away.
inline QString plain_label(const QString& label) {
    QString plain;
    for (qsizetype i = 0; i < label.size(); ++i) {
        if (label[i] == u'&' && i + 1 < label.size()) {
            ++i;
        }
        plain += label[i];
    }
    return plain;
}

} // namespace specialpages::qt
