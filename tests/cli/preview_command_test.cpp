#include "cli/cli_fixtures.h"
#include "host/host_fixtures.h"
#include "testing/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <string>
#include <vector>

namespace specialpages::cli::testing {
namespace {

namespace fs = std::filesystem;
using host::testing::read_bytes;
using host::testing::TemporaryFolder;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string example(const std::string& name) {
    return paths::source_dir() + "/examples/" + name;
}

class PreviewCommand : public ::testing::Test {
  protected:
    Ran preview(const std::string& pages, const fs::path& out, std::vector<std::string> more = {},
                const std::string& settings = example("settings/handbook.json")) {
        std::vector<std::string> arguments{
            "preview", "--ppd", example("ppd/production.ppd"), "--settings", settings, "--out", out.string()};
        arguments.push_back("--pages=" + pages);
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }
    TemporaryFolder folder;
};

unsigned number_at(const std::string& bytes, std::size_t at) {
    unsigned value = 0;
    for (std::size_t i = at; i < at + 4; ++i) {
        value = value << 8U | static_cast<unsigned char>(bytes.at(i));
    }
    return value;
}

TEST_F(PreviewCommand, DrawsTheHandbookAsItWasLookedAt) {
    const fs::path out = folder.path() / "handbook.svg";
    const Ran ran = preview("24", out);
    EXPECT_EQ(ran.exit, 0) << ran.err;
    EXPECT_EQ(ran.out, "");
    const std::string drawn = read_bytes(out);
    const std::string kept = read_bytes(paths::source_dir() + "/tests/cli/golden/handbook-preview.svg");
    if (kept != drawn) {
        const fs::path seen = fs::path(paths::binary_dir()) / "pictures/handbook-preview.svg";
        fs::create_directories(seen.parent_path());
        fs::copy_file(out, seen, fs::copy_options::overwrite_existing);
    }
    EXPECT_EQ(kept, drawn) << "drawn: " << paths::binary_dir() << "/pictures/handbook-preview.svg";
}

TEST_F(PreviewCommand, TheSvgIsTheSameInAnotherLocale) {
    preview("24", folder.path() / "a.svg");
    const char* const set = std::setlocale(LC_ALL, "de_DE.UTF-8");
    preview("24", folder.path() / "b.svg");
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(read_bytes(folder.path() / "a.svg"), read_bytes(folder.path() / "b.svg"))
        << (set == nullptr ? "(without that locale)" : set);
}

TEST_F(PreviewCommand, PaintsAPngOfTwoPixelsAUnit) {
    const fs::path out = folder.path() / "handbook.PNG";
    const Ran ran = preview("24", out);
    ASSERT_EQ(ran.exit, 0) << ran.err;
    const std::string bytes = read_bytes(out);
    EXPECT_THAT(bytes, StartsWith("\x89PNG\r\n\x1A\n"));
    EXPECT_EQ(number_at(bytes, 16), 2000U);
    EXPECT_GT(number_at(bytes, 20), 600U);
    EXPECT_GT(bytes.size(), 10'000U) << "something is painted";
}

TEST_F(PreviewCommand, FollowsTheMarkedChoices) {
    const fs::path out = folder.path() / "two.svg";
    EXPECT_EQ(preview("24", out, {"--mark", "Duplex=DuplexNoTumble"}).exit, 0);
    EXPECT_THAT(read_bytes(out), HasSubstr("2-sided, long edge"));
    EXPECT_THAT(read_bytes(out), HasSubstr("Pages 2 and 3"));
}

TEST_F(PreviewCommand, AMillionPagesAreDrawnAtOnce) {
    const fs::path out = folder.path() / "long.svg";
    EXPECT_EQ(preview("1000000", out).exit, 0);
    EXPECT_THAT(read_bytes(out), HasSubstr("1000000 pages on"));
    EXPECT_LT(fs::file_size(out), 100'000U);
}

TEST_F(PreviewCommand, NoPagesAreDrawnToo) {
    const fs::path out = folder.path() / "none.svg";
    EXPECT_EQ(preview("0", out).exit, 0);
    EXPECT_THAT(read_bytes(out), HasSubstr("0 pages on 2 sheets"));
    EXPECT_THAT(read_bytes(out), HasSubstr("Insert after page 3: the document has only 0 page(s)."));
}

TEST_F(PreviewCommand, RefusesPagesThatAreNoNumber) {
    const fs::path out = folder.path() / "refused.svg";
    for (const char* pages : {"-1", "", "x", "3x", "1.5", " 3", "+3", "2147483648", "99999999999999999999"}) {
        const Ran ran = preview(pages, out);
        EXPECT_EQ(ran.exit, 2) << pages;
        EXPECT_EQ(ran.out, "");
    }
    EXPECT_EQ(preview("-1", out).err,
              "special-pages: --pages: expected a number of pages from 0 to 2147483647, found \"-1\"\n");
    EXPECT_FALSE(fs::exists(out));
}

TEST_F(PreviewCommand, RefusesAnotherEnding) {
    for (const char* name : {"a.pdf", "a", "a.svg.gz", ".svg", "svg"}) {
        const fs::path out = folder.path() / name;
        EXPECT_EQ(preview("3", out).exit, 2) << name;
        EXPECT_FALSE(fs::exists(out));
    }
    EXPECT_EQ(preview("3", "a.pdf").err,
              "special-pages: --out: expected a file that ends in .svg or .png, found \"a.pdf\"\n");
}

TEST_F(PreviewCommand, EveryOptionIsNeeded) {
    EXPECT_EQ(run({"preview"}).exit, 2);
    EXPECT_EQ(run({"preview", "--ppd", example("ppd/production.ppd"), "--settings",
                   example("settings/handbook.json"), "--out", (folder.path() / "a.svg").string()})
                  .exit,
              2);
}

TEST_F(PreviewCommand, DamagedSettingsLeaveTheOldPictureAlone) {
    const fs::path out = folder.write("kept.svg", "before");
    const fs::path settings =
        folder.write("bad.json", R"({"com.norvalen.nb.rtz.printsettings.NPIFCommandTicketCount": "2",
                        "com.norvalen.nb.rtz.printsettings.NPIFCommandTicket_0": "1,3"})");
    const Ran ran = preview("3", out, {}, settings.string());
    EXPECT_EQ(ran.exit, 2);
    EXPECT_THAT(ran.err, HasSubstr("NPIFCommandTicket_0"));
    EXPECT_EQ(read_bytes(out), "before");
    EXPECT_EQ(preview("3", out, {}, (folder.path() / "missing.json").string()).exit, 2);
    EXPECT_EQ(read_bytes(out), "before");
}

TEST_F(PreviewCommand, AFolderThatCannotBeWrittenIsAFailure) {
    const fs::path file = folder.write("file", "");
    const Ran ran = preview("3", file / "a.svg");
    EXPECT_EQ(ran.exit, 1);
    EXPECT_THAT(ran.err, HasSubstr("a.svg"));
}

} // namespace
} // namespace specialpages::cli::testing
