// The strip of sheets beside the table of a pane: it shows what the table's rows stand for, follows their
// selection both ways, and opens for editing what the table would open. The pane knows nothing of it, and it
// has the pane save nothing: the rows say themselves what they are.
#pragma once

#include "host/PrintHost.h"
#include "platform/toolkit/TableView.h"
#include "qt/SheetStrip.h"

#include <QString>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <optional>

namespace specialpages::qt {

class PaneGlance : public QWidget {
  public:
    /// Host and table are borrowed and outlive it.
    PaneGlance(host::PrintHost& host, platform::TableView& table, QWidget* parent = nullptr);
    ~PaneGlance() override;

    /// The first table below the view, depth first; null when there is none.
    static platform::TableView* tableBelow(platform::View& view);

    /// How many pages the document has; empty while nobody knows.
    void setPages(std::optional<std::int64_t> pages);
    /// Brings the strip in line with the host's printer and the table now. Changes of the table's rows lead
    /// here by themselves, once a turn of the event loop; a choice marked in the PPD does not.
    void refresh();

    /// The row of the table in words, with those of the strip. Empty for one that stands for nothing.
    QString rowSentence(std::size_t row);

    SheetStrip& strip() { return *strip_; }

  private:
    void tableChanged(platform::ViewChange change);

    host::PrintHost& host_;
    platform::TableView& table_;
    SheetStrip* strip_;
    QTimer soon_;
    std::optional<std::int64_t> pages_;
    int observer_ = 0;
};

} // namespace specialpages::qt
