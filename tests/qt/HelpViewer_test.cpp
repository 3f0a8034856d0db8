#include "platform/foundation/Bundle.h"
#include "qt/HelpViewer.h"
#include "qt/qt_fixture.h"
#include "qt/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPalette>
#include <QPushButton>
#include <QTextBrowser>
#include <QTextDocument>

namespace specialpages::qt::testing {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> words_in(const std::string& language) {
    const auto bundle = platform::Bundle::load(paths::bundle_dir());
    bundle->setPreferredLanguages({language});
    HelpViewer viewer(bundle);
    std::vector<std::string> words;
    for (const char* const name : {"helpBack", "helpForward", "helpClose"}) {
        words.push_back(plain_label(viewer.findChild<QPushButton*>(name)->text()).toStdString());
    }
    words.push_back(viewer.browser().accessibleName().toStdString());
    return words;
}

TEST(HelpViewerTest, SpeaksTheBundlesLanguage) {
    EXPECT_THAT(words_in("en"), ElementsAre("Back", "Forward", "Close", "Help"));
    EXPECT_THAT(words_in("de"), ElementsAre("Zurück", "Vorwärts", "Schließen", "Hilfe"));
    EXPECT_THAT(words_in("fr-CA"), ElementsAre("Précédent", "Suivant", "Fermer", "Aide"));
    EXPECT_THAT(words_in("ja"), ElementsAre("戻る", "進む", "閉じる", "ヘルプ"));
    EXPECT_THAT(words_in("sv"), ElementsAre("Back", "Forward", "Close", "Help"));
}

TEST(HelpViewerTest, ShowsLinksInAColorThatCanBeReadOnThePage) {
    const auto bundle = platform::Bundle::load(paths::bundle_dir());
    const auto link_on = [&](const QColor& base, const QColor& text, const QColor& link) {
        QWidget asker;
        HelpViewer viewer(bundle);
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, text);
        palette.setColor(QPalette::Link, link);
        viewer.setPalette(palette);
        EXPECT_TRUE(viewer.showPage("book", "SpecialPagesMain_Default01.htm", "", asker));
        const QString style = viewer.browser().document()->defaultStyleSheet();
        viewer.close();
        viewer.setParent(nullptr);
        return style.toStdString();
    };
    EXPECT_EQ(link_on(Qt::white, Qt::black, Qt::blue), "a { color: #0000ff; }");
    EXPECT_EQ(link_on(Qt::black, Qt::white, Qt::blue), "a { color: #ffffff; }");
    EXPECT_EQ(link_on(Qt::black, Qt::white, QColor(0x8a, 0xb4, 0xf8)), "a { color: #8ab4f8; }");
}

class HelpViewerInAPane : public QtPaneTest {};

TEST_F(HelpViewerInAPane, GoesBackAndForwardAndCloses) {
    open({}, kSamplePpd, "de");
    click(widget<QWidget>("SPMainHelpButton"));
    HelpViewer* const help = pane_->widget().help();
    ASSERT_NE(help, nullptr);
    ASSERT_TRUE(help->isVisible());
    auto& back = *help->findChild<QPushButton*>("helpBack");
    auto& forward = *help->findChild<QPushButton*>("helpForward");
    EXPECT_EQ(plain_label(back.text()).toStdString(), "Zurück");
    EXPECT_FALSE(back.isEnabled());
    const QUrl first = help->browser().source();
    help->browser().setSource(first.resolved(QUrl("SpecialPagesInsert_Default01.htm")));
    ASSERT_TRUE(back.isEnabled());
    click(back);
    EXPECT_EQ(help->browser().source(), first);
    ASSERT_TRUE(forward.isEnabled());
    click(forward);
    EXPECT_EQ(help->browser().source().fileName(), "SpecialPagesInsert_Default01.htm");
    click(*help->findChild<QPushButton*>("helpClose"));
    EXPECT_FALSE(help->isVisible());
}

} // namespace
} // namespace specialpages::qt::testing
