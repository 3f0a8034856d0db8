// The program's print dialog on queues that the test makes up, and a print system that writes down what it is
// given.
#pragma once

#include "cli/enter_job.h"
#include "host/PaneModule.h"
#include "host/host_fixtures.h"
#include "platform/foundation/Bundle.h"
#include "qt/NextDialog.h"
#include "qt/PrintProgram.h"
#include "qt/TableWidget.h"
#include "qt/document_pages.h"
#include "qt/events.h"
#include "qt/text.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPdfWriter>
#include <QTabWidget>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace specialpages::qt::testing {

/// A document of so many pages; page n is (100 + n) points wide.
inline std::filesystem::path make_pdf(const std::filesystem::path& file, int pages) {
    QPdfWriter writer(shown_text(file.string()));
    QPainter painter;
    for (int page = 1; page <= pages; ++page) {
        writer.setPageSize(QPageSize(QSizeF(100 + page, 400), QPageSize::Point));
        if (page == 1) {
            painter.begin(&writer);
        } else {
            writer.newPage();
        }
        painter.drawText(10, 10, QString::number(page));
    }
    painter.end();
    return file;
}

class PrintProgramTest : public ::testing::Test {
  protected:
    static std::string sample(const std::string& name) {
        return paths::source_dir() + "/examples/ppd/" + name + ".ppd";
    }

    /// The PPD of a printer that has no such pane.
    std::string plainPpd() const {
        std::string ppd = host::testing::small_ppd();
        const std::size_t line = ppd.find("*NVXSpecialPagesSettings");
        ppd.erase(line, ppd.find('\n', line) + 1 - line);
        return folder_.write("plain.ppd", ppd).string();
    }

    /// Queues in the order of their names, then the entry for a file, which is chosen.
    void makeQueue(const std::string& name, const std::string& ppd) { queues_[name] = ppd; }

    void start(PrintOptions options = {}) {
        program_.reset();
        if (options.out == "-") {
            options.out = (folder_.path() / "out.json").string();
        }
        program_ = std::make_unique<PrintProgram>(options, services(), out_, err_);
        dialog().show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog()));
        activate(dialog());
        auto& list = *dialog().findChild<QComboBox*>(QStringLiteral("printers"));
        int place = 0;
        for (const auto& [name, ppd] : queues_) {
            list.insertItem(place++, QString::fromStdString(name));
        }
    }

    PrintDialog& dialog() { return program_->dialog(); }
    PrinterPane& pane() {
        if (dialog().pane() == nullptr) {
            throw std::runtime_error("the printer has no pane");
        }
        return *dialog().pane();
    }
    QTabWidget& tabs() { return *dialog().findChild<QTabWidget*>(); }
    /// The titles of the dialog's tabs.
    std::vector<std::string> titles() {
        std::vector<std::string> all;
        for (int i = 0; i < tabs().count(); ++i) {
            all.push_back(tabs().tabText(i).toStdString());
        }
        return all;
    }
    std::string frontTitle() { return tabs().tabText(tabs().currentIndex()).toStdString(); }
    /// The sentences that the tab says beside its pane.
    std::string sentences() {
        std::string all;
        for (const auto* const label :
             dialog().tab()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
            all += label->text().toStdString();
        }
        return all;
    }

    /// Declares an insert of one sheet after these pages in the pane in front.
    void declare(const std::string& after) {
        cli::enter_job(cli::parse_job(R"({"inserts": [{"after": ")" + after + R"(", "sheets": 1}]})", "job"),
                       "job", pane().host().window());
        settle();
    }
    /// What the first column of the pane's table says, as it is shown.
    std::vector<std::string> shownPages() {
        std::vector<std::string> pages;
        const QAbstractItemModel& rows = *pane().widget().findChild<QTableView*>()->model();
        for (int row = 0; row < rows.rowCount(); ++row) {
            pages.push_back(rows.index(row, 0).data().toString().toStdString());
        }
        return pages;
    }

    void pressPrint() {
        for (const auto* const box : dialog().findChildren<QDialogButtonBox*>()) {
            if (QAbstractButton* const button = box->button(QDialogButtonBox::Ok);
                button != nullptr && button->isVisible()) {
                click(*button);
                settle();
                return;
            }
        }
        ADD_FAILURE() << "the dialog has no button for printing";
    }
    void pressRemember() {
        QWidget& box = *dialog().tab()->rememberBox();
        click(box, QPoint(8, box.height() / 2));
    }
    void printIntoFile(const std::filesystem::path& file) {
        dialog().findChild<QLineEdit*>(QStringLiteral("filename"))->setText(shown_text(file.string()));
    }

    PrintServices services() {
        return {[this](const std::string& queue) {
                    ++asked_[queue];
                    return host::PpdFile(queues_.at(queue));
                },
                [](const std::string& file) { return host::PpdFile(file); },
                [this](const host::DocumentJob& job) -> std::string {
                    if (refusal_) {
                        throw host::HostError(host::ErrorCode::printer, job.queue, *refusal_);
                    }
                    jobs_.push_back(job);
                    return job.queue + "-" + std::to_string(jobs_.size());
                }};
    }

    host::testing::TemporaryFolder folder_;
    host::testing::ScopedVariable configuration_{"XDG_CONFIG_HOME", folder_.path().c_str()};
    host::testing::ScopedVariable state_{"XDG_STATE_HOME", (folder_.path() / "state").c_str()};
    host::testing::ScopedVariable server_{"CUPS_SERVER", (folder_.path() / "no-server").c_str()};
    host::testing::ScopedVariable bundle_{host::kBundleVariable, paths::bundle_dir().c_str()};
    std::map<std::string, std::string> queues_;
    std::map<std::string, int> asked_; ///< how often for each queue's PPD
    std::optional<std::string> refusal_;
    std::vector<host::DocumentJob> jobs_;
    std::ostringstream out_;
    std::ostringstream err_;
    std::unique_ptr<PrintProgram> program_;
};

} // namespace specialpages::qt::testing
