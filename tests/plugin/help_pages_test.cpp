// The help pages of all languages: well-formed, built alike, every link and anchor leads somewhere inside the
// bundle, and what they call a button is what the window calls it.
#include "platform/services/help_viewer.h"
#include "platform/toolkit/Button.h"
#include "plugin/language_files.h"
#include "records/page_list.h"
#include "records/pane_tags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::test {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using Texts = std::vector<std::string>;

const std::string kMainPage = "SpecialPagesMain_Default01.htm";
const std::string kInsertPage = "SpecialPagesInsert_Default01.htm";

/// Calls for the element and all elements in it, in the order of the page.
void each_element(const pugi::xml_node& element, const std::function<void(const pugi::xml_node&)>& call) {
    for (const pugi::xml_node& child : element.children()) {
        if (child.type() == pugi::node_element) {
            call(child);
            each_element(child, call);
        }
    }
}

std::string text_in(const pugi::xml_node& element) {
    std::string text;
    for (const pugi::xml_node& child : element.children()) {
        text += child.type() == pugi::node_element ? text_in(child) : child.value();
    }
    return text;
}

struct HelpPage {
    std::string language, name;
    fs::path file;
    pugi::xml_document document;

    std::string place() const { return language + '/' + name; }
    Texts texts(std::string_view element) const {
        Texts all;
        each_element(document, [&](const pugi::xml_node& each) {
            if (each.name() == element) {
                all.push_back(text_in(each));
            }
        });
        return all;
    }
    Texts attributes(const char* attribute) const {
        Texts all;
        each_element(document, [&](const pugi::xml_node& each) {
            if (each.attribute(attribute)) {
                all.emplace_back(each.attribute(attribute).value());
            }
        });
        return all;
    }
};

fs::path help_folder(const std::string& language) {
    return fs::path(paths::bundle_dir()) / (language + ".lproj") / "Help";
}

/// Every page of every language, read as XML without leniency.
const std::deque<HelpPage>& pages() {
    static const std::deque<HelpPage> all = [] {
        std::deque<HelpPage> read;
        for (const std::string& language : kLanguages) {
            for (const std::string& name : files_in(help_folder(language), ".htm")) {
                HelpPage& page = read.emplace_back();
                page.language = language;
                page.name = name;
                page.file = help_folder(language) / name;
                const auto result = page.document.load_file(
                    page.file.c_str(), pugi::parse_default | pugi::parse_ws_pcdata, pugi::encoding_utf8);
                EXPECT_TRUE(result) << page.place() << ": " << result.description() << " at "
                                    << result.offset;
            }
        }
        return read;
    }();
    return all;
}

const HelpPage& page(const std::string& language, const std::string& name) {
    for (const HelpPage& each : pages()) {
        if (each.language == language && each.name == name) {
            return each;
        }
    }
    static const HelpPage none;
    ADD_FAILURE() << "no page " << language << '/' << name;
    return none;
}

TEST(HelpPages, EveryHelpButtonHasItsPageInEveryLanguage) {
    for (const std::string& language : kLanguages) {
        const Speaking speaking(language);
        for (const char* window :
             {"Main", "Cover", "Insert", "Exception", "Adv", "Custom", "NumInSequence"}) {
            const std::string name = std::string("SpecialPages") + window + "_Default01";
            EXPECT_EQ(built_bundle()->CFBundleCopyResourceURL(name, "htm", "Help"),
                      help_folder(language) / (name + ".htm"));
        }
        EXPECT_EQ(files_in(help_folder(language), ".htm").size(), 7U) << language;
    }
}

TEST(HelpPages, AnUnknownLanguageHasTheEnglishPages) {
    const Speaking speaking("pt_BR.UTF-8");
    EXPECT_EQ(built_bundle()->CFBundleCopyResourceURL("SpecialPagesMain_Default01", "htm", "Help"),
              help_folder("en") / kMainPage);
}

TEST(HelpPages, SayTheirLanguageEncodingAndTitle) {
    for (const HelpPage& each : pages()) {
        EXPECT_TRUE(bytes_of(each.file).starts_with("<!DOCTYPE html>\n")) << each.place();
        EXPECT_STREQ(each.document.child("html").attribute("lang").value(), each.language.c_str());
        const pugi::xml_node head = each.document.child("html").child("head");
        EXPECT_STREQ(head.child("meta").attribute("charset").value(), "utf-8") << each.place();
        EXPECT_NE(each.texts("title"), Texts{""}) << each.place();
        EXPECT_EQ(each.texts("title"), each.texts("h1")) << each.place();
    }
}

TEST(HelpPages, UseTheElementsThatEveryViewerKnows) {
    const std::set<std::string> known{"html", "head", "meta",  "title", "link",   "body", "h1",
                                      "h2",   "p",    "table", "tr",    "th",     "td",   "ul",
                                      "li",   "a",    "b",     "i",     "strong", "code", "nav"};
    for (const HelpPage& each : pages()) {
        each_element(each.document, [&](const pugi::xml_node& element) {
            EXPECT_THAT(known, Contains(element.name())) << each.place();
        });
    }
}

/// The blocks of a page in order; words inside of a line may change their places.
Texts blocks(const HelpPage& page) {
    const std::set<std::string> inLine{"a", "b", "i", "strong", "code"};
    Texts names;
    each_element(page.document, [&](const pugi::xml_node& element) {
        if (!inLine.contains(element.name())) {
            names.emplace_back(element.name());
        }
    });
    return names;
}

TEST(HelpPages, AreBuiltAlikeInAllLanguages) {
    for (const HelpPage& each : pages()) {
        const HelpPage& english = page("en", each.name);
        EXPECT_EQ(blocks(each), blocks(english)) << each.place();
        EXPECT_EQ(each.attributes("id"), english.attributes("id")) << each.place();
        EXPECT_THAT(each.attributes("href"), ::testing::UnorderedElementsAreArray(english.attributes("href")))
            << each.place();
    }
}

TEST(HelpPages, ShowTheSameExamplesInAllLanguages) {
    for (const HelpPage& each : pages()) {
        EXPECT_THAT(each.texts("code"),
                    ::testing::UnorderedElementsAreArray(page("en", each.name).texts("code")))
            << each.place();
    }
}

/// Follows the link; the page that it leads to, or an empty path for a file that is no page.
fs::path follow(const HelpPage& from, const std::string& link) {
    const std::string fragment = link.find('#') == std::string::npos ? "" : link.substr(link.find('#') + 1);
    const std::string path = link.substr(0, link.find('#'));
    const fs::path target = path.empty() ? from.file : (from.file.parent_path() / path).lexically_normal();
    EXPECT_TRUE(fs::is_regular_file(target)) << from.place() << " -> " << link;
    EXPECT_TRUE(target.string().starts_with(paths::bundle_dir() + "/")) << from.place() << " -> " << link;
    if (target.extension() != ".htm") {
        EXPECT_EQ(fragment, "") << from.place() << " -> " << link;
        return {};
    }
    EXPECT_EQ(target.parent_path(), from.file.parent_path()) << from.place() << " -> " << link;
    if (!fragment.empty()) {
        EXPECT_THAT(page(from.language, target.filename().string()).attributes("id"), Contains(fragment))
            << from.place() << " -> " << link;
    }
    return target;
}

TEST(HelpPages, EveryLinkAndAnchorLeadsSomewhere) {
    std::size_t links = 0;
    for (const HelpPage& each : pages()) {
        for (const std::string& link : each.attributes("href")) {
            follow(each, link);
            ++links;
        }
        const Texts ids = each.attributes("id");
        EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size()) << each.place();
    }
    EXPECT_GE(links, 8 * pages().size()); // the style sheet and the seven pages
}

TEST(HelpPages, EveryPageIsReachedFromTheFirstOne) {
    for (const std::string& language : kLanguages) {
        std::set<std::string> reached{kMainPage};
        std::deque<std::string> open{kMainPage};
        while (!open.empty()) {
            const HelpPage& from = page(language, open.front());
            open.pop_front();
            for (const std::string& link : from.attributes("href")) {
                const fs::path target = follow(from, link);
                if (!target.empty() && reached.insert(target.filename().string()).second) {
                    open.push_back(target.filename().string());
                }
            }
        }
        EXPECT_EQ(reached.size(), files_in(help_folder(language), ".htm").size()) << language;
    }
}

TEST(HelpPages, EveryPageSaysWhyAnItemIsGrey) {
    for (const HelpPage& each : pages()) {
        if (each.name == kMainPage) {
            EXPECT_THAT(each.attributes("id"), Contains("grey")) << each.place();
        } else {
            EXPECT_THAT(each.attributes("href"), Contains(kMainPage + "#grey")) << each.place();
        }
    }
}

/// A label as a sentence names it: without the mark at its end.
std::string bare(std::string text) {
    for (const std::string_view mark : {"…", "：", "\u00A0:", ":"}) {
        if (text.ends_with(mark)) {
            text.resize(text.size() - mark.size());
            break;
        }
    }
    return text;
}

TEST(HelpPages, NameButtonsAndChoicesAsTheWindowsDo) {
    for (const std::string& language : kLanguages) {
        std::set<std::string> labels;
        for (const auto& [key, text] : entries_of(language, "Localizable.strings")) {
            labels.insert(bare(text));
        }
        for (const HelpPage& each : pages()) {
            if (each.language != language) {
                continue;
            }
            for (const std::string& named : each.texts("b")) {
                EXPECT_THAT(labels, Contains(named)) << each.place();
            }
        }
    }
}

TEST(HelpPages, PunctuationIsThatOfTheLanguage) {
    for (const HelpPage& each : pages()) {
        const std::string text = text_in(each.document.child("html").child("body"));
        const auto times = [&text](std::string_view part) {
            std::size_t found = 0;
            for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
                ++found;
            }
            return found;
        };
        if (each.language == "fr") {
            EXPECT_EQ(times(":"), times("\u00A0:")) << each.place();
            EXPECT_EQ(times(";"), times("\u202F;")) << each.place();
            EXPECT_EQ(times("?"), times("\u202F?")) << each.place();
            EXPECT_EQ(times("'"), 0U) << each.place();
        } else if (each.language == "ja") {
            EXPECT_EQ(times("?") + times(":") + times("("), 0U) << each.place();
            EXPECT_GT(times("。"), 0U) << each.place();
        } else if (each.language == "de") {
            EXPECT_EQ(times("'") + times("\""), 0U) << each.place();
        }
    }
}

/// What the pane makes of an example of the inserts' page.
std::int32_t code_of_inserts(const std::string& text) {
    InsertPages kept;
    return ValidatePageList(text, false, InsertPageLimit{}, kept);
}

TEST(HelpPages, PageListsInTheTableAreAcceptedAndThoseBelowItRefused) {
    // The table is what every reader tries first; the paragraph after it lists what is refused.
    const pugi::xml_node body = page("en", kInsertPage).document.child("html").child("body");
    const pugi::xml_node heading = body.find_child_by_attribute("h2", "id", "pages");
    const pugi::xml_node table = heading.next_sibling("table");
    std::size_t accepted = 0;
    for (const pugi::xml_node& row : table.children("tr")) {
        if (const pugi::xml_node code = row.child("td").child("code")) {
            EXPECT_EQ(code_of_inserts(text_in(code)), kPageListValid) << text_in(code);
            ++accepted;
        }
    }
    EXPECT_EQ(accepted, 7U);
    std::size_t refused = 0;
    for (const pugi::xml_node& code : table.next_sibling("p").children("code")) {
        InsertPageLimit adding;
        adding.status = 1;
        InsertPages kept;
        EXPECT_NE(ValidatePageList(text_in(code), false, adding, kept), kPageListValid) << text_in(code);
        ++refused;
    }
    EXPECT_EQ(refused, 4U);
}

class HelpButton : public PaneTest {};

TEST_F(HelpButton, OpensThePageOfTheBookInTheReadersLanguage) {
    const std::map<std::string, std::string> books{{"en", "Special Pages Help"},
                                                   {"de", "Hilfe zu Sonderseiten"},
                                                   {"fr", "Aide des pages spéciales"},
                                                   {"ja", "特殊ページのヘルプ"}};
    Texts asked;
    const auto before = platform::setHelpOpener(
        [&asked](std::string_view book, std::string_view name, std::string_view anchor) {
            asked = {std::string(book), std::string(name), std::string(anchor)};
            return platform::noErr;
        });
    for (const auto& [language, book] : books) {
        const Speaking speaking(language);
        const auto pane = makePane();
        pane->restoreValuesAndReturnError(nullptr);
        auto* const help = dynamic_cast<platform::Button*>(pane->panelView()->viewWithTag(115));
        ASSERT_NE(help, nullptr);
        EXPECT_TRUE(help->click());
        EXPECT_EQ(asked, (Texts{book, kMainPage, ""}));
    }
    platform::setHelpOpener(before);
}

} // namespace
} // namespace specialpages::test
