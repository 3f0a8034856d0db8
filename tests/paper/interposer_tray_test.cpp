#include "paper/interposer_tray.h"
#include "paper/paper_ppd.h"

#include <gtest/gtest.h>

#include <memory>

namespace specialpages::test {
namespace {

std::unique_ptr<PpdBuilder> printer(const char* tray, const char* finisher) {
    auto ppd = std::make_unique<PpdBuilder>();
    ppd->attribute("Manufacturer", "", "NV");
    if (tray != nullptr) {
        ppd->option("NVSeparatorsCoversTray", tray).choices({"True", "False"});
    }
    ppd->option("NVOutputOptions", "None").choices({"None", "FinisherTypeD"});
    for (const char* each : doHideTrayInterposerItemCheckArray) {
        ppd->choice(each);
    }
    if (finisher != nullptr) {
        ppd->mark("NVOutputOptions", finisher);
    }
    return ppd;
}
bool hides(const char* tray, const char* finisher) {
    return doHideTrayInterposerItem(printer(tray, finisher)->file());
}

TEST(InterposerTray, ThePpdsOwnOptionDecidesWhateverTheFinisher) {
    EXPECT_FALSE(hides("True", nullptr));
    EXPECT_FALSE(hides("True", "None"));
    EXPECT_TRUE(hides("False", "FinisherTypeD3Holes"));
}

TEST(InterposerTray, AnotherDefaultLeavesItToTheFinisher) {
    for (const char* tray : {"", "true", "Maybe", static_cast<const char*>(nullptr)}) {
        EXPECT_FALSE(hides(tray, "FinisherTypeD2and4Holes"));
        EXPECT_TRUE(hides(tray, "FinisherTypeD"));
    }
}

TEST(InterposerTray, SixFinishersHaveIt) {
    ASSERT_EQ(doHideTrayInterposerItemCheckArray.size(), 6U);
    for (const char* finisher : doHideTrayInterposerItemCheckArray) {
        EXPECT_FALSE(hides(nullptr, finisher)) << finisher;
    }
}

TEST(InterposerTray, IsHiddenWithoutPpdOrMarkedFinisher) {
    EXPECT_TRUE(doHideTrayInterposerItem(nullptr));
    EXPECT_TRUE(hides(nullptr, nullptr));
    EXPECT_TRUE(hides(nullptr, "None"));
    PpdBuilder empty;
    EXPECT_TRUE(doHideTrayInterposerItem(empty.file()));
}

TEST(InterposerTray, CoilPunchBarsItWhileItIsMarked) {
    PpdBuilder ppd;
    ppd.attribute("Manufacturer", "", "NV")
        .option("NVNumPunchHoles", "CoilPunch", "Punch")
        .choices({"None", "CoilPunch"});
    EXPECT_EQ(named(interposer_conflict(ppd.file())), "") << "the default is no mark";
    ppd.mark("NVNumPunchHoles", "CoilPunch");
    EXPECT_EQ(named(interposer_conflict(ppd.file())), "NVNumPunchHoles:CoilPunch");
    ppd.mark("NVNumPunchHoles", "None");
    EXPECT_EQ(named(interposer_conflict(ppd.file())), "");
    EXPECT_EQ(named(interposer_conflict(nullptr)), "");
}

} // namespace
} // namespace specialpages::test
