// What assistive tools are told of a page of the help.
#pragma once

class QAccessibleInterface;
class QTextBrowser;

namespace specialpages::qt {

/// For a factory of accessible interfaces, whose table owns what it is given.
QAccessibleInterface* describe_page(QTextBrowser& browser);

} // namespace specialpages::qt
