#include "cli/DriveSession.h"
#include "cli/drive_fixture.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace specialpages::cli {
namespace {

using host::testing::Calls;
using testing::DriveSessionTest;
using testing::kDone;
using testing::Lines;

TEST_F(DriveSessionTest, MakesNoCallUnasked) {
    EXPECT_EQ(drive({}), Lines{});
    EXPECT_EQ(script_.calls, Calls{});
}

TEST_F(DriveSessionTest, MakesTheHostsCallsAndAnswersTheirResults) {
    EXPECT_EQ(ask(R"({"do":"host","call":"restore"})"),
              R"({"ok":true,"result":true,"window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(ask(R"({"do":"host","call":"willShow"})"),
              R"({"ok":true,"result":null,"window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(ask(R"({"do":"host","call":"shouldHide"})"),
              R"({"ok":true,"result":true,"window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(ask(R"({"do":"host","call":"save"})"),
              R"({"ok":true,"result":true,"window":"pane","alerts":[],"beeps":0})");
    script_.prints = false;
    EXPECT_EQ(ask(R"({"do":"host","call":"shouldPrint"})"),
              R"({"ok":true,"result":false,"window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(ask(R"({"do":"host","call":"panelName"})"),
              R"({"ok":true,"result":"Fake Pane","window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(ask(R"({"do":"host","call":"panelKind"})"),
              R"({"ok":true,"result":"org.example.fake","window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(ask(R"({"do":"host","call":"supportedPPDOptionKeys"})"),
              R"({"ok":true,"result":null,"window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(script_.calls, (Calls{"restore", "willShow", "shouldHide", "save", "shouldPrint", "panelName",
                                    "panelKind", "supportedPPDOptionKeys"}));
}

TEST_F(DriveSessionTest, EchoesAnyIdAlsoOfAnError) {
    EXPECT_EQ(ask(R"({"id":7,"do":"quit"})"), R"({"ok":true,"id":7,"window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(ask(R"({"do":"quit","id":null})"),
              R"({"ok":true,"id":null,"window":"pane","alerts":[],"beeps":0})");
    EXPECT_EQ(ask(R"({"id":{"b":[1.5,"ä"],"a":{}},"do":"nonsense"})"),
              R"({"ok":false,"id":{"b":[1.5,"ä"],"a":{}},"error":"\"do\": unknown request \"nonsense\""})");
}

TEST_F(DriveSessionTest, CountsBeepsAndCollectsAlertsOfOneRequest) {
    EXPECT_EQ(ask(R"({"do":"press","tag":101})"),
              R"({"ok":true,"window":"pane","alerts":["noise"],"beeps":2})");
    EXPECT_EQ(drive({R"({"do":"press","tag":101})", R"({"do":"host","call":"restore"})"})[1],
              R"({"ok":true,"result":true,"window":"pane","alerts":[],"beeps":0})");
}

TEST_F(DriveSessionTest, ADialogIsInFrontWhenItsOpenerIsAnswered) {
    EXPECT_EQ(drive({R"({"id":1,"do":"press","tag":100})", R"({"id":2,"do":"press","tag":200})",
                     R"({"id":3,"do":"press","tag":101})"}),
              (Lines{R"({"ok":true,"id":1,"window":"covers","alerts":["before the covers"],"beeps":0})",
                     R"({"ok":true,"id":2,"window":"pane","alerts":["after the covers"],"beeps":0})",
                     R"({"ok":true,"id":3,"window":"pane","alerts":["noise"],"beeps":2})"}));
}

TEST_F(DriveSessionTest, DialogsNest) {
    EXPECT_EQ(drive({R"({"id":1,"do":"press","tag":100})", R"({"id":2,"do":"press","tag":202})",
                     R"({"id":3,"do":"press","tag":300})", R"({"id":4,"do":"press","tag":202})",
                     R"({"id":5,"do":"press","tag":300})", R"({"id":6,"do":"press","tag":201})"}),
              (Lines{R"({"ok":true,"id":1,"window":"covers","alerts":["before the covers"],"beeps":0})",
                     R"({"ok":true,"id":2,"window":"warning","alerts":[],"beeps":0})",
                     R"({"ok":true,"id":3,"window":"covers","alerts":["warned"],"beeps":0})",
                     R"({"ok":true,"id":4,"window":"warning","alerts":[],"beeps":0})",
                     R"({"ok":true,"id":5,"window":"covers","alerts":["warned"],"beeps":0})",
                     R"({"ok":true,"id":6,"window":"pane","alerts":["after the covers"],"beeps":0})"}));
    EXPECT_EQ(script_.calls, Calls{"covers cancelled"});
}

TEST_F(DriveSessionTest, ARequestThatEndsTwoDialogsIsAnsweredWhenBothAreDone) {
    EXPECT_EQ(drive({R"({"id":1,"do":"press","tag":100})", R"({"id":2,"do":"press","tag":202})",
                     R"({"id":3,"do":"press","tag":301})", R"({"id":4,"do":"host","call":"restore"})"}),
              (Lines{R"({"ok":true,"id":1,"window":"covers","alerts":["before the covers"],"beeps":0})",
                     R"({"ok":true,"id":2,"window":"warning","alerts":[],"beeps":0})",
                     R"({"ok":true,"id":3,"window":"pane","alerts":["warned","after the covers"],"beeps":0})",
                     R"({"ok":true,"id":4,"result":true,"window":"pane","alerts":[],"beeps":0})"}));
}

TEST_F(DriveSessionTest, AHostCallThatRanADialogDoesNotAnswerForTheOneThatEndedIt) {
    script_.onPrint = [this](platform::PDEPluginCallback& /*host*/) {
        dynamic_cast<platform::Button&>(*host_.window().viewWithTag(100)).click();
    };
    EXPECT_EQ(drive({R"({"id":1,"do":"host","call":"shouldPrint"})", R"({"id":2,"do":"press","tag":200})"}),
              (Lines{R"({"ok":true,"id":1,"window":"covers","alerts":["before the covers"],"beeps":0})",
                     R"({"ok":true,"id":2,"window":"pane","alerts":["after the covers"],"beeps":0})"}));
}

TEST_F(DriveSessionTest, QuitInsideDialogsEndsThemThroughTheirCancelButtons) {
    EXPECT_EQ(drive({R"({"do":"press","tag":100})", R"({"do":"press","tag":202})", R"({"id":3,"do":"quit"})",
                     R"({"id":4,"do":"host","call":"restore"})"})
                  .back(),
              R"({"ok":true,"id":3,"window":"pane","alerts":["warned","after the covers"],"beeps":0})");
    EXPECT_EQ(script_.calls, (Calls{"warning cancelled", "covers cancelled"}));
    EXPECT_EQ(platform::Application::shared().modalDepth(), 0U);
}

TEST_F(DriveSessionTest, TheEndOfInputInsideDialogsEndsThemToo) {
    EXPECT_EQ(drive({R"({"do":"press","tag":100})", R"({"do":"press","tag":202})"}).size(), 2U);
    EXPECT_EQ(script_.calls, (Calls{"warning cancelled", "covers cancelled"}));
    EXPECT_EQ(platform::Application::shared().frontWindow(), &host_.window());
}

TEST_F(DriveSessionTest, NothingIsReadAfterQuit) {
    EXPECT_EQ(drive({R"({"do":"quit"})", R"({"do":"host","call":"restore"})"}), Lines{kDone});
    EXPECT_EQ(script_.calls, Calls{});
}

TEST_F(DriveSessionTest, AnOutputThatFailsEndsTheSession) {
    std::istringstream in("{\"do\":\"host\",\"call\":\"restore\"}\n{\"do\":\"host\",\"call\":\"save\"}\n");
    std::ostringstream out;
    out.setstate(std::ios::badbit);
    DriveSession(host_, in, out).run();
    EXPECT_EQ(script_.calls, Calls{"restore"});
}

TEST_F(DriveSessionTest, TheFaceIsTheFormerOneAfterwards) {
    drive({});
    EXPECT_EQ(platform::Application::shared().setFace(nullptr), nullptr);
}

TEST_F(DriveSessionTest, TagsAreLookedUpInTheFrontWindowOnly) {
    EXPECT_EQ(drive({R"({"do":"press","tag":100})", R"({"do":"press","tag":101})"})[1],
              R"({"ok":false,"error":"no view with the tag 101 in the window covers"})");
    EXPECT_EQ(ask(R"({"do":"press","tag":200})"),
              R"({"ok":false,"error":"no view with the tag 200 in the window pane"})");
    // 0 is what a view without a tag has.
    EXPECT_EQ(ask(R"({"do":"press","tag":0})"),
              R"({"ok":false,"error":"no view with the tag 0 in the window pane"})");
}

TEST_F(DriveSessionTest, AViewThatTakesNoEventsAnswersAnErrorAndNothingHappens) {
    EXPECT_EQ(ask(R"({"do":"press","tag":102})"), R"({"ok":false,"error":"button 102: disabled"})");
    EXPECT_EQ(ask(R"({"do":"press","tag":103})"), R"({"ok":false,"error":"button 103: hidden"})");
    EXPECT_EQ(ask(R"({"do":"press","tag":105})"), R"({"ok":false,"error":"button 105: hidden"})");
    EXPECT_EQ(ask(R"({"do":"press","tag":104})"),
              R"({"ok":false,"error":"table 104: expected a button or radio"})");
    EXPECT_EQ(ask(R"({"do":"selectRows","tag":100,"rows":[]})"),
              R"({"ok":false,"error":"button 100: expected a table"})");
    // Alerts of later requests would show an action that ran all the same.
    EXPECT_EQ(ask(R"({"do":"quit"})"), kDone);
}

TEST_F(DriveSessionTest, ARequestThatIsNotUnderstoodDoesNotEndTheProgram) {
    const Lines answers =
        drive({"", "nonsense", "[]", "{}", R"({"do":1})", R"({"do":"nonsense"})", R"({"do":"host"})",
               R"({"do":"host","call":"cancel"})", R"({"do":"press"})", R"({"do":"press","tag":"100"})",
               R"({"do":"selectRows","tag":104})", R"({"do":"mark","option":"PageSize"})",
               R"({"do":"setting","key":"a"})", R"({"do":"setting","key":"","value":"x"})",
               R"({"do":"setting","value":"x"})", R"({"do":"setting","key":"a\u0000","value":"x"})",
               R"({"do":"host","call":"restore"})"});
    ASSERT_EQ(answers.size(), 17U);
    EXPECT_TRUE(answers[0].starts_with(R"({"ok":false,"error":"expected a JSON object: )")) << answers[0];
    EXPECT_TRUE(answers[1].starts_with(R"({"ok":false,"error":"expected a JSON object: )")) << answers[1];
    EXPECT_EQ((Lines{answers.begin() + 2, answers.end()}),
              (Lines{R"({"ok":false,"error":"expected a JSON object, found array"})",
                     R"({"ok":false,"error":"\"do\": expected a text"})",
                     R"({"ok":false,"error":"\"do\": expected a text"})",
                     R"({"ok":false,"error":"\"do\": unknown request \"nonsense\""})",
                     R"({"ok":false,"error":"\"call\": expected a text"})",
                     R"({"ok":false,"error":"\"call\": unknown call \"cancel\""})",
                     R"({"ok":false,"error":"\"tag\": expected an integer of 32 bits"})",
                     R"({"ok":false,"error":"\"tag\": expected an integer of 32 bits"})",
                     R"({"ok":false,"error":"\"rows\": expected an array of row numbers from 0"})",
                     R"({"ok":false,"error":"\"choice\": expected a text"})",
                     R"({"ok":false,"error":"\"value\": expected a text, an array of texts, or null"})",
                     R"({"ok":false,"error":"\"key\": expected a text that is not empty and has no U+0000"})",
                     R"({"ok":false,"error":"\"key\": expected a text"})",
                     R"({"ok":false,"error":"\"key\": expected a text that is not empty and has no U+0000"})",
                     R"({"ok":true,"result":true,"window":"pane","alerts":[],"beeps":0})"}));
    EXPECT_TRUE(host_.settings().entries().empty());
}

TEST_F(DriveSessionTest, AnOverlongRequestIsSkippedWhole) {
    EXPECT_EQ(
        drive({R"({"do":"quit","x":")" + std::string(kMaxRequestBytes, 'x') + "\"}", R"({"do":"quit"})"}),
        (Lines{R"({"ok":false,"error":"expected a request of at most 1048576 bytes"})", kDone}));
}

TEST_F(DriveSessionTest, SelectsRowsInPlaceOfTheOldSelection) {
    auto& table = dynamic_cast<platform::TableView&>(*host_.window().viewWithTag(104));
    EXPECT_EQ(ask(R"({"do":"selectRows","tag":104,"rows":[0,2]})"), kDone);
    EXPECT_EQ(table.selectedRowIndexes(), (platform::RowSet{0, 2}));
    EXPECT_EQ(ask(R"({"do":"selectRows","tag":104,"rows":[1,1]})"), kDone);
    EXPECT_EQ(table.selectedRowIndexes(), platform::RowSet{1});
    EXPECT_EQ(ask(R"({"do":"selectRows","tag":104,"rows":[0,3]})"),
              R"({"ok":false,"error":"table 104: no row 3, it has 3 rows"})");
    EXPECT_EQ(table.selectedRowIndexes(), platform::RowSet{1});
    EXPECT_EQ(ask(R"({"do":"selectRows","tag":104,"rows":[]})"), kDone);
    EXPECT_TRUE(table.selectedRowIndexes().empty());
}

TEST_F(DriveSessionTest, MarksChoicesAndRefusesUnknownOnes) {
    EXPECT_EQ(ask(R"({"do":"mark","option":"PageSize","choice":"A3"})"), kDone);
    EXPECT_EQ(host_.pageFormat()->unadjustedPaperRect.right, 842);
    EXPECT_EQ(ask(R"({"do":"mark","option":"PageSize","choice":"B5"})"),
              R"({"ok":false,"error":"PageSize=B5: expected a choice of this option: A4, A3, Custom"})");
    EXPECT_EQ(ask(R"({"do":"mark","option":"Staple","choice":"Top"})"),
              R"({"ok":false,"error":"Staple: expected an option of small.ppd, which has none so named"})");
    EXPECT_EQ(host_.pageFormat()->unadjustedPaperRect.right, 842);
}

TEST_F(DriveSessionTest, WritesRemovesAndShowsSettings) {
    EXPECT_EQ(
        drive({R"({"do":"setting","key":"z","value":"1"})", R"({"do":"setting","key":"a","value":["x","y"]})",
               R"({"do":"setting","key":"b","value":""})", R"({"do":"setting","key":"z","value":"2"})",
               R"({"do":"setting","key":"b","value":null})", R"({"do":"setting","key":"none","value":null})",
               R"({"do":"settings"})"})
            .back(),
        R"({"ok":true,"result":{"z":"2","a":["x","y"]},"window":"pane","alerts":[],"beeps":0})");
}

TEST_F(DriveSessionTest, SettingsOfAnEmptyJobAreAnEmptyObject) {
    EXPECT_EQ(ask(R"({"do":"settings"})"),
              R"({"ok":true,"result":{},"window":"pane","alerts":[],"beeps":0})");
}

TEST_F(DriveSessionTest, TextThatIsNotUtf8IsShownAndNotLetThrough) {
    host_.settings().setValue("a", std::string("\xFF"), false);
    EXPECT_EQ(
        ask(R"({"do":"settings"})"),
        "{\"ok\":true,\"result\":{\"a\":\"\xEF\xBF\xBD\"},\"window\":\"pane\",\"alerts\":[],\"beeps\":0}");
}

TEST_F(DriveSessionTest, StateListsEveryViewWithATagInAscendingOrder) {
    const auto shown = state();
    EXPECT_EQ(shown.at("window"), "pane");
    EXPECT_EQ(shown.at("title"), "Fake Pane");
    Lines tags;
    for (const auto& [tag, view] : shown.at("views").items()) {
        tags.push_back(tag);
    }
    EXPECT_EQ(tags, (Lines{"100", "101", "102", "103", "104", "105", "106", "107", "108", "109", "110", "111",
                           "112"}));
}

TEST_F(DriveSessionTest, StateShowsEachKindOfView) {
    const auto views = state(R"({"do":"selectRows","tag":104,"rows":[1]})").at("views");
    const auto view = [&](const char* tag) {
        return views.at(tag).dump();
    };
    // Of two views with one tag it is the first, as for every request.
    EXPECT_EQ(view("100"), R"({"class":"button","enabled":true,"hidden":false,"title":"Covers","value":0})");
    EXPECT_EQ(view("102"),
              R"({"class":"button","enabled":false,"hidden":false,"title":"Disabled","value":0})");
    EXPECT_EQ(view("103"), R"({"class":"button","enabled":true,"hidden":true,"title":"Hidden","value":0})");
    EXPECT_EQ(view("105"),
              R"({"class":"button","enabled":true,"hidden":true,"title":"In a hidden group","value":0})");
    EXPECT_EQ(view("104"),
              R"({"class":"table","enabled":true,"hidden":false,"columns":["Page","Type","Setup"],)"
              R"("rows":[["page0","type0","setup0"],["page1","type1","setup1"],)"
              R"(["page2","type2","setup2"]],"selected":[1]})");
    EXPECT_EQ(view("106"), R"({"class":"radio","enabled":true,"hidden":false,"title":"Radio","value":0})");
    EXPECT_EQ(
        view("107"),
        R"({"class":"popup","enabled":true,"hidden":false,"value":0,"items":[)"
        R"({"title":"First","enabled":true,"hidden":false,"tag":7},)"
        R"({"title":"Second","enabled":false,"hidden":false,"tag":0,"reason":"No duplex on transparencies"},)"
        R"({"title":"Third","enabled":true,"hidden":true,"tag":0,"menu":[)"
        R"({"title":"A4","enabled":true,"hidden":false,"tag":0,"state":"on"}]}]})");
    EXPECT_EQ(view("108"), R"({"class":"field","enabled":true,"hidden":false,"text":"3,7-9"})");
    EXPECT_EQ(view("109"), R"({"class":"static","enabled":true,"hidden":false,"text":"Static"})");
    EXPECT_EQ(view("110"), R"({"class":"text","enabled":true,"hidden":false,"text":"Scroll"})");
    EXPECT_EQ(view("111"),
              R"({"class":"stepper","enabled":true,"hidden":false,"value":4,"min":1,"max":99.5})");
    EXPECT_EQ(view("112"), R"({"class":"icon","enabled":true,"hidden":false})");
}

TEST_F(DriveSessionTest, StateIsThatOfTheDialogInFront) {
    const auto shown = state(R"({"do":"press","tag":100})");
    EXPECT_EQ(shown.at("window"), "covers");
    EXPECT_EQ(shown.at("title"), "Covers");
    EXPECT_EQ(shown.at("views").size(), 3U);
    EXPECT_TRUE(shown.at("views").contains("201"));
}

TEST_F(DriveSessionTest, ARadioGoesOnWhenItIsPressed) {
    const auto views = state(R"({"do":"press","tag":106})").at("views");
    EXPECT_EQ(views.at("106").at("value"), 1);
}

} // namespace
} // namespace specialpages::cli
