// What the window does when its user prints, through a real print server.
#include "host/print_document.h"
#include "testing/PrivateCupsd.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::host {
namespace {

using test::PrivateCupsd;
using testing::error_of;
using ::testing::HasSubstr;

class PrintDocument : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(test::has_cupsd()) << "no cupsd: scripts/setup tests installs it"; }
    DocumentJob job(const std::string& bytes = test::pdf("one page")) const {
        DocumentJob made;
        made.queue = "prod";
        made.document = folder_.write("handbook.pdf", bytes);
        made.settings.setValue("com.norvalen.nb.rtz.printsettings.x", "1,2 3", false);
        made.queueOptions = {{"sides", "two-sided-long-edge"}};
        return made;
    }
    testing::TemporaryFolder folder_;
};

TEST_F(PrintDocument, SendsTheDocumentWithItsSettingsAndTheQueuesOptions) {
    const PrivateCupsd server;
    SubmittedJob submitted = print_document(job());
    EXPECT_EQ(submitted.job.name(), "prod-1");
    EXPECT_EQ(submitted.checked.recordsLeft, 0U);
    ASSERT_TRUE(server.waitFor("job-1"));
    submitted.job.wait();
    EXPECT_EQ(server.options(1).at("com.norvalen.nb.rtz.printsettings.x"), "1,2 3");
    EXPECT_EQ(server.options(1).at("sides"), "two-sided-long-edge");
    EXPECT_EQ(server.written("job-1"), test::pdf("one page"));
}

TEST_F(PrintDocument, RefusesADocumentThatIsNonePrintingNothing) {
    const PrivateCupsd server;
    EXPECT_EQ(error_of([&] { print_document(job("not a PDF")); }).code(), ErrorCode::input);
    EXPECT_EQ(error_of([&] { print_document(job("")); }).code(), ErrorCode::input);
    DocumentJob missing = job();
    missing.document = folder_.path() / "missing.pdf";
    const HostError error = error_of([&] { print_document(missing); });
    EXPECT_EQ(error.code(), ErrorCode::input);
    EXPECT_THAT(error.what(), HasSubstr("missing.pdf: expected a PDF document: No such file"));
    missing.document = folder_.path();
    EXPECT_EQ(error_of([&] { print_document(missing); }).code(), ErrorCode::input);
    EXPECT_EQ(server.jobs(), 0);
}

TEST_F(PrintDocument, RefusesSettingsThatCannotBeSentAndQueuesThatAreNotThere) {
    const PrivateCupsd server;
    DocumentJob unsendable = job();
    unsendable.settings.setValue("com.norvalen.nb.rtz.printsettings.y", "two\nlines", false);
    EXPECT_EQ(error_of([&] { print_document(unsendable); }).code(), ErrorCode::input);
    DocumentJob elsewhere = job();
    elsewhere.queue = "missing";
    EXPECT_EQ(error_of([&] { print_document(elsewhere); }).code(), ErrorCode::printer);
    EXPECT_EQ(server.jobs(), 0);
}

} // namespace
} // namespace specialpages::host
