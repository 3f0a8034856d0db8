// The pane in every language: pictures of the covers and inserts dialogs, and no window that shows an English
// text to somebody who reads another language.
#include "dialogs/SPWarningWndEMF.h"
#include "dialogs/custom_size_tags.h"
#include "dialogs/exceptions_tags.h"
#include "dialogs/inserts_fixture.h"
#include "dialogs/tab_stock_tags.h"
#include "paper/advanced_tags.h"
#include "paper/covers_tags.h"
#include "plugin/language_files.h"
#include "testing/text_picture.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace specialpages::test {
namespace {

using platform::Menu;
using platform::View;
using platform::ViewKind;
using platform::Window;
using Texts = std::vector<std::string>;

/// Positions in the paper menus of the sample printer.
constexpr std::int64_t kAdvancedItem = 6;
constexpr std::int64_t kCustomSizeItem = 34;
constexpr std::int64_t kTabStockItem = 37;

void collect_menu(const Menu& menu, Texts& texts) {
    for (std::size_t i = 0; i < menu.numberOfItems(); ++i) {
        const platform::MenuItem& item = *menu.itemAtIndex(static_cast<std::int64_t>(i));
        texts.push_back(item.title());
        texts.push_back(item.toolTip());
        if (item.submenu() != nullptr) {
            collect_menu(*item.submenu(), texts);
        }
    }
}

void collect_table(platform::TableView& table, Texts& texts) {
    for (const platform::TableColumn& column : table.tableColumns()) {
        texts.push_back(column.headerTitle);
    }
    for (std::size_t row = 0; row < table.numberOfRows(); ++row) {
        texts.push_back(table.text(row, 0));
        texts.push_back(table.text(row, 1));
        const std::string setup = table.text(row, 2);
        texts.push_back(setup.substr(0, setup.find(';'))); // the rest is the paper, in the printer's words
    }
}

/// Every text of a view and the views in it: titles, labels, items, columns, tool tips. Windows in it have
/// their own turn.
void collect_texts(View& view, Texts& texts) {
    texts.push_back(view.toolTip());
    if (auto* const window = dynamic_cast<Window*>(&view)) {
        texts.push_back(window->title());
    } else if (auto* const button = dynamic_cast<platform::Button*>(&view)) {
        texts.push_back(button->title());
    } else if (auto* const field = dynamic_cast<platform::TextField*>(&view)) {
        texts.push_back(field->shownText());
    } else if (auto* const popup = dynamic_cast<platform::PopUpButton*>(&view)) {
        collect_menu(popup->menu(), texts);
    } else if (auto* const table = dynamic_cast<platform::TableView*>(&view)) {
        collect_table(*table, texts);
    }
    for (const auto& each : view.subviews()) {
        if (each->kind() != ViewKind::window) {
            collect_texts(*each, texts);
        }
    }
}

Texts texts_of(View& view) {
    Texts texts;
    collect_texts(view, texts);
    return texts;
}

/// One language at a time: each test opens the pane once. The language is given up when the fixture ends.
class LanguageOfThePane : public InsertsDialogTest, public ::testing::WithParamInterface<std::string> {
  protected:
    LanguageOfThePane() : speaking_(GetParam()) {}

    /// Lets the user look at the window that the button opens, and cancels it then.
    void look(View& from, ControlTag button, ControlTag cancelButton, const User& user) {
        face.then([cancelButton, user](Window& shown) {
            user(shown);
            click(shown, cancelButton);
        });
        click(from, button);
    }
    /// The same for a window that an item of a paper menu opens.
    void lookBehind(platform::PopUpButton& menu, const std::vector<std::int64_t>& item,
                    ControlTag cancelButton, const User& user) {
        face.then([cancelButton, user](Window& shown) {
            user(shown);
            click(shown, cancelButton);
        });
        EXPECT_TRUE(menu.pick(item));
    }
    View& panelView() { return *pane->panelView(); }

  private:
    Speaking speaking_;
};

TEST_P(LanguageOfThePane, PicturesOfCoversAndInserts) {
    open();
    const std::string begin = "dialogs/golden/language-" + GetParam();
    look(panelView(), specialPagesAddCoversButID, spCoversWndCancelButtonID, [&](Window& covers) {
        EXPECT_TRUE(popup(covers, spCoversWndCoverOptionListID).pick(std::vector<std::int64_t>{4}));
        expect_picture(text_picture(covers), begin + "-covers.txt");
    });
    look(panelView(), specialPagesAddInsertsButID, SPInstWndCancelBtnTagID,
         [&](Window& inserts) { expect_picture(text_picture(inserts), begin + "-inserts.txt"); });
}

TEST_P(LanguageOfThePane, NoWindowShowsAnEnglishText) {
    // All English texts but those that are words of this language, too.
    std::set<std::string> english;
    std::set<std::string> own;
    for (const Translated& each : all_translated()) {
        if (each.language == GetParam()) {
            english.insert(each.english);
            own.insert(each.text);
        }
    }
    std::map<std::string, Texts> windows;
    const auto keep = [&windows](const char* name) {
        return [&windows, name](Window& shown) {
            windows[name] = texts_of(shown);
        };
    };
    open({cover_front(), insert_after(7, 12)});
    windows["pane"] = texts_of(panelView());
    look(panelView(), specialPagesAddCoversButID, spCoversWndCancelButtonID, keep("covers"));
    look(panelView(), specialPagesAddExceptionsButID, spExceptionWndCancelBtnID, [&](Window& exceptions) {
        windows["exceptions"] = texts_of(exceptions);
        lookBehind(popup(exceptions, spExceptionWndPaperPopupBtnID), {kType, kTabStockItem},
                   SPTabMarginCancelButtonID, keep("tab shift"));
    });
    look(panelView(), specialPagesSPDeleteAllButID, spWarningWndCancelButID, keep("warning"));
    look(panelView(), specialPagesAddInsertsButID, SPInstWndCancelBtnTagID, [&](Window& inserts) {
        windows["inserts"] = texts_of(inserts);
        platform::PopUpButton& paper = popup(inserts, SPInstWndSelePaperTagID);
        lookBehind(paper, {kType, kTabStockItem}, SPTabMarginSubCancelButtonID, keep("tabs in sequence"));
        lookBehind(paper, {kAdvancedItem}, spAdvSeleWndCancelButtonID, keep("advanced"));
    });
    // Tab stock and a custom size exclude each other, so that the dialog is opened once for each.
    look(panelView(), specialPagesAddInsertsButID, SPInstWndCancelBtnTagID, [&](Window& inserts) {
        lookBehind(popup(inserts, SPInstWndSelePaperTagID), {kSize, kCustomSizeItem},
                   SPCustomSizeCancelButtonID, keep("custom size"));
    });
    EXPECT_EQ(windows.size(), 9U);
    for (const auto& [name, texts] : windows) {
        EXPECT_GT(texts.size(), 5U) << name;
        for (const std::string& text : texts) {
            EXPECT_FALSE(english.contains(text) && !own.contains(text))
                << GetParam() << ", " << name << ": " << text;
            EXPECT_NE(text, "no translation") << name;
            EXPECT_NE(text, "not found") << name;
        }
    }
}

TEST_P(LanguageOfThePane, ARefusalIsToldInTheReadersWords) {
    const std::string warning = built_bundle()->localizedStringForKey("Warning49", "(missing)", "");
    open();
    look(panelView(), specialPagesAddInsertsButID, SPInstWndCancelBtnTagID, [&](Window& inserts) {
        EXPECT_TRUE(pages(inserts).type("9-7"));
        ok(inserts);
    });
    EXPECT_EQ(warnings(), Brief{warning});
    EXPECT_FALSE(warning.starts_with("A range")) << warning;
}

INSTANTIATE_TEST_SUITE_P(AllButEnglish, LanguageOfThePane, ::testing::ValuesIn(kTranslations),
                         [](const auto& each) { return each.param; });

} // namespace
} // namespace specialpages::test
