// A pane on the sample printer in a window, with the face that tests drive.
#pragma once

#include "cli/cli_fixtures.h"
#include "host/PaneModule.h"
#include "host/host_fixtures.h"
#include "host/settings_file.h"
#include "platform/foundation/Bundle.h"
#include "qt/PrinterPane.h"
#include "qt/QtDriver.h"
#include "qt/events.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QVBoxLayout>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace specialpages::qt::testing {

inline const std::string kSamplePpd = paths::source_dir() + "/examples/ppd/production.ppd";
inline const std::string kHandbook = paths::source_dir() + "/examples/settings/handbook.json";

class QtPaneTest : public ::testing::Test {
  protected:
    /// Opens the pane (not restored a second time) in a window of 600 by 450 and shows it.
    void open(platform::PrintSettings settings = {}, const std::string& ppd = kSamplePpd,
              const std::string& language = "en") {
        PrinterPaneOptions options;
        options.ppd = ppd;
        options.settings = std::move(settings);
        options.language = language;
        pane_ = PrinterPane::open(options, face_);
        ASSERT_NE(pane_, nullptr);
        pane_->widget().activate();
        window_ = std::make_unique<QWidget>();
        auto* const layout = new QVBoxLayout(window_.get());
        layout->addWidget(&pane_->widget());
        window_->resize(600, 450);
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
        activate(*window_);
    }

    ~QtPaneTest() override {
        if (pane_ != nullptr) {
            pane_->widget().setParent(nullptr);
        }
    }

    std::vector<std::string> drive(const std::vector<std::string>& requests) {
        return QtDriver(pane_->widget(), face_).run(requests);
    }

    template <class Widget>
    Widget& widget(const std::string& name) {
        auto* const found = dynamic_cast<Widget*>(pane_->widget().nib().find(name));
        if (found == nullptr) {
            throw std::runtime_error("no such widget: " + name);
        }
        return *found;
    }

    /// Clicks the widget, which opens a dialog, and runs `inside` in it. A dialog that is still open then is
    /// given up.
    void inDialog(const std::string& opener, const std::function<void(QDialog& dialog)>& inside) {
        bool ran = false;
        face_.setRun([&](const std::function<bool()>& stopped) {
            if (!std::exchange(ran, true)) {
                inside(*qobject_cast<QDialog*>(QApplication::activeModalWidget()));
                if (!stopped()) {
                    face_.giveUp();
                }
            }
        });
        click(widget<QWidget>(opener));
        face_.setRun(nullptr);
        EXPECT_TRUE(ran) << opener << " opened no dialog";
    }

    host::testing::TemporaryFolder folder_;
    host::testing::ScopedVariable configuration_{"XDG_CONFIG_HOME", folder_.path().c_str()};
    host::testing::ScopedVariable bundle_{host::kBundleVariable, paths::bundle_dir().c_str()};
    DrivenFace face_;
    std::unique_ptr<PrinterPane> pane_;
    std::unique_ptr<QWidget> window_; // ends first
};

/// What the headless session answers to the same requests.
inline std::vector<std::string> headless(const std::vector<std::string>& arguments,
                                         const std::vector<std::string>& requests) {
    std::vector<std::string> all{"drive"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    std::string input;
    for (const std::string& request : requests) {
        input += request + "\n";
    }
    const auto ran = cli::testing::run(all, input);
    EXPECT_EQ(ran.exit, 0) << ran.err;
    std::vector<std::string> answers;
    std::istringstream lines(ran.out);
    for (std::string line; std::getline(lines, line);) {
        answers.push_back(line);
    }
    return answers;
}

} // namespace specialpages::qt::testing
