// Text pictures: what the toolkit believes a window shows, one view after the other, and their comparison
// with pictures that were looked at and kept (golden files).
//
// A line begins with the view's state: ">" has the keyboard, "-" disabled, "h" hidden, "." neither. Then come
// its tag and what it shows: [button], [[default button]], [cancel button] esc, (o) radio, <pop-up v>,
// "text field", |scrolling text|, {icon FILE}, 3 (1..99 by 1) for a stepper. Items of pop-ups stand below it
// where they are not plain: "-" disabled with the reason, "h" hidden, "*" checked; an item of a sub-menu
// after its path.
#pragma once

#include "platform/foundation/atomic_file.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/IconView.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/Stepper.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>

namespace specialpages::test {

class TextPicture {
  public:
    explicit TextPicture(platform::Window& window) : window_(window) {}

    std::string draw() {
        out_ << "== " << window_.title() << " ==\n";
        std::map<std::int32_t, platform::View*> views;
        collect(window_, views);
        for (const auto& [tag, view] : views) {
            drawView(*view);
        }
        return out_.str();
    }

  private:
    static void collect(platform::View& view, std::map<std::int32_t, platform::View*>& views) {
        for (const auto& each : view.subviews()) {
            if (each->tag() != 0) {
                views.emplace(each->tag(), each.get());
            }
            if (each->kind() != platform::ViewKind::window) {
                collect(*each, views);
            }
        }
    }

    char state(const platform::View& view) const {
        if (!view.isVisible()) {
            return 'h';
        }
        if (window_.firstResponder() == &view) {
            return '>';
        }
        return view.isEnabled() ? '.' : '-';
    }

    void drawView(platform::View& view) {
        out_ << state(view) << ' ' << view.tag() << ' ';
        switch (view.kind()) {
        case platform::ViewKind::button:
            drawButton(dynamic_cast<platform::Button&>(view));
            break;
        case platform::ViewKind::radio: {
            const auto& radio = dynamic_cast<platform::Button&>(view);
            out_ << (radio.intValue() != 0 ? "(o) " : "( ) ") << radio.title() << '\n';
            break;
        }
        case platform::ViewKind::popup:
            drawPopUp(dynamic_cast<platform::PopUpButton&>(view));
            break;
        case platform::ViewKind::textField:
            out_ << '"' << dynamic_cast<platform::TextField&>(view).shownText() << "\"\n";
            break;
        case platform::ViewKind::staticText:
            drawText(dynamic_cast<platform::TextField&>(view), "");
            break;
        case platform::ViewKind::scrollText:
            drawText(dynamic_cast<platform::TextField&>(view), "|");
            break;
        case platform::ViewKind::stepper: {
            const auto& stepper = dynamic_cast<platform::Stepper&>(view);
            out_ << stepper.intValue() << " (" << stepper.minValue() << ".." << stepper.maxValue() << " by "
                 << stepper.increment() << ")\n";
            break;
        }
        case platform::ViewKind::table:
            drawTable(dynamic_cast<platform::TableView&>(view));
            break;
        case platform::ViewKind::icon:
            out_ << "{icon " << dynamic_cast<platform::IconView&>(view).image().filename().string() << "}\n";
            break;
        case platform::ViewKind::view:
        case platform::ViewKind::window:
            out_ << "view\n";
            break;
        }
    }

    void drawButton(const platform::Button& button) {
        const bool isDefault = window_.defaultButton() == &button;
        out_ << (isDefault ? "[[" : "[") << button.title() << (isDefault ? "]]" : "]")
             << (window_.cancelButton() == &button ? " esc" : "") << '\n';
    }

    /// A greyed text says so: it cannot be told from its enabled flag.
    void drawText(const platform::TextField& field, const char* edge) {
        std::string text = field.shownText();
        const bool grey = field.textColor() != platform::TextColor::controlTextColor;
        for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 3)) {
            text.replace(at, 1, " / ");
        }
        out_ << edge << text << edge << (grey ? " (grey)" : "") << '\n';
    }

    void drawPopUp(const platform::PopUpButton& popup) {
        out_ << '<' << popup.titleOfSelectedItem() << " v>\n";
        drawItems(popup.menu(), "");
    }

    void drawItems(const platform::Menu& menu, const std::string& path) {
        for (std::size_t i = 0; i < menu.numberOfItems(); ++i) {
            const platform::MenuItem& item = *menu.itemAtIndex(static_cast<std::int64_t>(i));
            if (item.state() || item.isHidden() || !item.isEnabled()) {
                out_ << "       "
                     << (item.isHidden()    ? "h"
                         : item.isEnabled() ? " "
                                            : "-")
                     << (item.state() ? '*' : ' ') << ' ' << path << item.title()
                     << (item.isEnabled() || item.toolTip().empty() ? "" : ": " + item.toolTip()) << '\n';
            }
            if (item.submenu() != nullptr && item.isEnabled() && !item.isHidden()) {
                drawItems(*item.submenu(), path + item.title() + " > ");
            }
        }
    }

    void drawTable(platform::TableView& table) {
        out_ << "table\n";
        for (std::size_t row = 0; row < table.numberOfRows(); ++row) {
            out_ << "       " << (table.selectedRowIndexes().contains(row) ? "# " : "  ");
            for (std::size_t column = 0; column < table.tableColumns().size(); ++column) {
                out_ << (column == 0 ? "" : " | ") << table.text(row, column);
            }
            out_ << '\n';
        }
    }

    platform::Window& window_;
    std::ostringstream out_;
};

inline std::string text_picture(platform::Window& window) {
    return TextPicture(window).draw();
}

/// Compares with the kept picture `tests/NAME`. One that differs is written to the build folder, so that it
/// can be looked at beside the kept one.
inline void expect_picture(const std::string& actual, const std::string& name) {
    const auto kept = platform::read_file(std::filesystem::path(paths::source_dir()) / "tests" / name);
    const std::filesystem::path drawn = std::filesystem::path(paths::binary_dir()) / "pictures" / name;
    if (kept != actual) {
        std::filesystem::create_directories(drawn.parent_path());
        platform::write_file_atomically(drawn, actual);
    }
    EXPECT_EQ(kept.value_or("(no such picture)"), actual) << "drawn: " << drawn.string();
}

} // namespace specialpages::test
