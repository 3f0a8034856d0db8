#include "qt/PaneGlance.h"

#include "host/PaneModule.h"
#include "preview/JobGlance.h"
#include "qt/text.h"

#include <QVBoxLayout>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::qt {

namespace {
/// As the nib's.
constexpr int kPaneMargin = 12;
} // namespace

PaneGlance::PaneGlance(host::PrintHost& host, platform::TableView& table, QWidget* parent)
    : QWidget(parent), host_(host), table_(table), strip_(new SheetStrip(this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPaneMargin, 0, kPaneMargin, 0);
    layout->addWidget(strip_);
    soon_.setSingleShot(true);
    soon_.setInterval(0);
    connect(&soon_, &QTimer::timeout, this, &PaneGlance::refresh);
    connect(strip_, &SheetStrip::rowsSelected, this, [this](const Rows& rows) {
        table_.userSelects(rows);
        // What the table made of it: it may have refused, or have taken another row along.
        strip_->setSelectedRows(table_.selectedRowIndexes());
    });
    connect(strip_, &SheetStrip::editRequested, this, [this] { table_.doubleClick(); });
    observer_ =
        table_.addObserver([this](platform::View&, platform::ViewChange change) { tableChanged(change); });
    refresh();
}

PaneGlance::~PaneGlance() {
    table_.removeObserver(observer_);
}

platform::TableView* PaneGlance::tableBelow(platform::View& view) {
    if (auto* const table = dynamic_cast<platform::TableView*>(&view)) {
        return table;
    }
    for (const auto& each : view.subviews()) {
        if (platform::TableView* const table = tableBelow(*each)) {
            return table;
        }
    }
    return nullptr;
}

void PaneGlance::setPages(std::optional<std::int64_t> pages) {
    if (pages_ != pages) {
        pages_ = pages;
        refresh();
    }
}

QString PaneGlance::rowSentence(std::size_t row) {
    return shown_text(preview::sentence_of_row(table_.representedObject(row).value_or(std::string()),
                                               host_.ppd().get(), *host_.module().bundle()));
}

void PaneGlance::tableChanged(platform::ViewChange change) {
    if (change == platform::ViewChange::rows) {
        soon_.start(); // a dialog's OK reloads the table more than once
    } else if (change == platform::ViewChange::selection && !soon_.isActive()) {
        strip_->setSelectedRows(table_.selectedRowIndexes());
    }
}

void PaneGlance::refresh() {
    soon_.stop();
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < table_.numberOfRows(); ++row) {
        rows.push_back(table_.representedObject(row).value_or(std::string()));
    }
    strip_->setGlance(preview::glance_of_rows(rows, host_.ppd().get(), pages_, *host_.module().bundle()));
    strip_->setSelectedRows(table_.selectedRowIndexes());
}

} // namespace specialpages::qt
