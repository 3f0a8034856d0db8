#include "ppd/ppd_access.h"
#include "ppd/ppd_builder.h"
#include "ppd/ppd_keywords.h"
#include "preview/glance_fixture.h"
#include "preview/sheet_paper.h"
#include "records/record_builder.h"

#include <gtest/gtest.h>

namespace specialpages::preview {
namespace {

using specialpages::test::cover_front;
using specialpages::test::from_interposer;
using specialpages::test::insert_after;
using specialpages::test::with_paper;

class SheetPaperOf : public test::GlanceTest {
  protected:
    SheetPaper of(const SpecialPageRecord& record) { return paper_of_record(record, ppd.get(), *bundle); }
};

TEST_F(SheetPaperOf, ReadsThePrintersNamesLookAndSize) {
    const SheetPaper paper = of(with_paper(insert_after(1), kA3, kBlue, kThick));
    EXPECT_EQ(paper.text, "A3, Blue, Thick 1");
    EXPECT_EQ(paper.size, "A3");
    EXPECT_EQ(paper.color, "Blue");
    EXPECT_EQ(paper.look, (PaperColor{0xBCD9F2, true}));
    EXPECT_EQ(paper.width, 29704); // 842 by 1191 points
    EXPECT_EQ(paper.length, 42016);
    EXPECT_FALSE(paper.tab);
    EXPECT_FALSE(paper.interposer);
}

TEST_F(SheetPaperOf, AColorOfOnesOwnIsLabelledAndNobodyKnowsHowItLooks) {
    const SheetPaper paper = of(with_paper(insert_after(1), kA4, kOurColor, kPlain));
    EXPECT_EQ(paper.text, "A4, Color:Our Color 1, Plain");
    EXPECT_EQ(paper.color, "Our Color 1");
    EXPECT_FALSE(paper.look.known);
}

TEST_F(SheetPaperOf, TabStockHasATab) {
    EXPECT_TRUE(of(with_paper(insert_after(1), kA4, kWhite, kTab)).tab);
}

TEST_F(SheetPaperOf, ASizeOfOnesOwnIsMeasuredByTheRecord) {
    const SpecialPageRecord record = with_paper(insert_after(1), kCustom, kWhite, kPlain);
    const SheetPaper metric = of(record.with(RecordKey::width, "210.0").with(RecordKey::length, "148.5"));
    EXPECT_EQ(metric.text, "210.0 x 148.5 mm, White, Plain");
    EXPECT_EQ(metric.size, "");
    EXPECT_EQ(metric.width, 21000);
    EXPECT_EQ(metric.length, 14850);
    EXPECT_EQ(of(record.with(RecordKey::longmeasure, "0")).text, "8.27 x 11.69 in., White, Plain");
}

TEST_F(SheetPaperOf, AnAbsurdSizeOfOnesOwnIsBounded) {
    const SheetPaper paper = of(with_paper(insert_after(1), kCustom, 0, 0)
                                    .with(RecordKey::width, "99999999999.0")
                                    .with(RecordKey::length, "-5.0"));
    EXPECT_EQ(paper.width, 100'000'000);
    EXPECT_EQ(paper.length, 0);
    const SheetPaper turned = of(with_paper(insert_after(1), kCustom, 0, 0)
                                     .with(RecordKey::width, "-5.0")
                                     .with(RecordKey::length, "99999999999.0"));
    EXPECT_EQ(turned.width, 0);
    EXPECT_EQ(turned.length, 100'000'000);
}

TEST_F(SheetPaperOf, TheInterposerHasAWordInPlaceOfPaper) {
    const SheetPaper paper = of(from_interposer(with_paper(insert_after(1), kA3, kBlue, kThick)));
    EXPECT_EQ(paper.text, "Interposer (Tray 8)");
    EXPECT_EQ(paper.size, "");
    EXPECT_EQ(paper.color, paper.text);
    EXPECT_FALSE(paper.look.known);
    EXPECT_EQ(paper.width, 0);
    EXPECT_TRUE(paper.interposer);
}

TEST_F(SheetPaperOf, AnIndexBehindTheSizesIsTheSizeOfTheJob) {
    mark("PageSize", "A5");
    const SheetPaper paper = of(with_paper(cover_front(), 34, kBlue, kPlain));
    EXPECT_EQ(paper.text, "A5, Blue, Plain");
    EXPECT_EQ(paper.width, 14817); // 420 points
}

TEST_F(SheetPaperOf, IndexesThatThePrinterDoesNotHaveLeaveTheirPlaceOut) {
    const SheetPaper paper = of(with_paper(insert_after(1), kA4, 99, -1));
    EXPECT_EQ(paper.text, "A4");
    EXPECT_EQ(paper.color, "");
    EXPECT_EQ(paper.look, PaperColor{});
}

TEST_F(SheetPaperOf, TheIndexBehindTheLastOneIsNoChoice) {
    const int colors = GetPPDKeyOptionCount(ppd.get(), "NVMediaColor");
    const int types = GetPPDKeyOptionCount(ppd.get(), kPPDMediaTypeKey);
    EXPECT_EQ(of(with_paper(insert_after(1), kA4, colors, types)).text, "A4");
    EXPECT_EQ(of(with_paper(insert_after(1), kA4, colors, types)).color, "");
    EXPECT_NE(of(with_paper(insert_after(1), kA4, colors - 1, types)).color, "");
}

TEST_F(SheetPaperOf, TheJobHasWhatIsMarked) {
    EXPECT_EQ(paper_of_job(ppd.get(), *bundle).text, "A4, White, Plain");
    mark("PageSize", "A3");
    mark("NVMediaColor", "Pink");
    mark("MediaType", "RecyclePaper");
    const SheetPaper paper = paper_of_job(ppd.get(), *bundle);
    EXPECT_EQ(paper.text, "A3, Pink, Recycled");
    EXPECT_EQ(paper.look.rgb, 0xF9CBDAU);
    EXPECT_EQ(paper.length, 42016);
}

TEST_F(SheetPaperOf, TheJobMayHaveASizeOfItsOwn) {
    mark("PageSize", "Custom.200x300mm");
    const SheetPaper paper = paper_of_job(ppd.get(), *bundle);
    EXPECT_EQ(paper.text, "200.0 x 300.0 mm, White, Plain");
    EXPECT_EQ(paper.width, 20000);
    EXPECT_EQ(paper.length, 30000);
    EXPECT_EQ(of(with_paper(cover_front(), 34, kWhite, kPlain)), paper);
}

TEST(SheetPaperOfAnyPpd, APrinterWithoutPaperOptionsGivesNoNames) {
    specialpages::test::PpdBuilder description;
    description.group("General").option("Duplex", "None").choice("None");
    const auto bundle = platform::Bundle::load(paths::bundle_dir());
    EXPECT_EQ(paper_of_job(description.file(), *bundle), SheetPaper{});
}

TEST(PaperColors, EveryNameOfACommonPaperHasALook) {
    for (const char* keyword : {"White", "Blue", "Buff", "Goldenrod", "Gray", "Green", "Ivory", "Orange",
                                "Pink", "Red", "Yellow", "Clear"}) {
        EXPECT_TRUE(paper_color(keyword).known) << keyword;
    }
    EXPECT_EQ(paper_color("White"), (PaperColor{0xFFFFFF, true}));
    EXPECT_EQ(paper_color("Yellow"), (PaperColor{0xFCF09A, true}));
}

TEST(PaperColors, AnyOtherNameIsWhiteAndUnknown) {
    for (const char* keyword : {"", "white", "Custom1", "Custom5", "Other", "Any", "Blue "}) {
        EXPECT_EQ(paper_color(keyword), (PaperColor{0xFFFFFF, false})) << keyword;
    }
}

} // namespace
} // namespace specialpages::preview
