// Texts of tool tips.
#pragma once

#include <QString>
#include <string_view>

namespace specialpages::qt {

/// The text for a tool tip, which says it as it stands: Qt would take what looks like markup for it.
QString literal_tip(const QString& text);
QString literal_tip(std::string_view text);

/// What such a tip says.
QString plain_tip(const QString& tip);

} // namespace specialpages::qt
