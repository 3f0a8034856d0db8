#include "qt/document_pages.h"
#include "qt/print_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qpdf/qpdf-c.h>

namespace specialpages::qt {
namespace {

using host::testing::error_of;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class DocumentPages : public ::testing::Test {
  protected:
    /// The pages of make_pdf that the file holds, told by their widths.
    static std::vector<int> pagesOf(const std::filesystem::path& file) {
        qpdf_data pdf = qpdf_init();
        EXPECT_EQ(qpdf_read(pdf, file.c_str(), nullptr), QPDF_SUCCESS);
        std::vector<int> pages;
        for (int page = 0; page < qpdf_get_num_pages(pdf); ++page) {
            const qpdf_oh box =
                qpdf_oh_get_key(pdf, qpdf_get_page_n(pdf, static_cast<std::size_t>(page)), "/MediaBox");
            const double width = qpdf_oh_get_numeric_value(pdf, qpdf_oh_get_array_item(pdf, box, 2));
            pages.push_back(static_cast<int>(width + 0.5) - 100);
        }
        qpdf_cleanup(&pdf);
        return pages;
    }

    host::testing::TemporaryFolder folder_;
    std::filesystem::path document_ = testing::make_pdf(folder_.path() / "five.pdf", 5);
    std::filesystem::path file_ = folder_.path() / "out.pdf";
};

TEST_F(DocumentPages, AreCounted) {
    EXPECT_EQ(document_pages(document_), 5);
    EXPECT_EQ(document_pages(testing::make_pdf(file_, 1)), 1);
}

TEST_F(DocumentPages, WhatIsNoDocumentIsAnErrorOfInput) {
    for (const std::string bytes : {"", "text", "%PDF-1.4\n"}) {
        const auto file = folder_.write("bad.pdf", bytes);
        const auto error = error_of([&] { document_pages(file); });
        EXPECT_EQ(error.code(), host::ErrorCode::input);
        EXPECT_EQ(error.place(), file.string());
        EXPECT_EQ(error_of([&] { write_pages(file, {}, file_); }).code(), host::ErrorCode::input);
        EXPECT_FALSE(std::filesystem::exists(file_));
    }
    EXPECT_EQ(error_of([&] { document_pages(folder_.path() / "missing.pdf"); }).code(),
              host::ErrorCode::input);
}

TEST_F(DocumentPages, AllOrTheChosenOnesAreWritten) {
    write_pages(document_, {}, file_);
    EXPECT_THAT(pagesOf(file_), ElementsAre(1, 2, 3, 4, 5));
    write_pages(document_, {{2, 3}, {5, 5}}, file_);
    EXPECT_THAT(pagesOf(file_), ElementsAre(2, 3, 5));
    write_pages(document_, {{4, 99}, {0, 1}}, file_);
    EXPECT_THAT(pagesOf(file_), ElementsAre(4, 5, 1));
}

TEST_F(DocumentPages, MayReplaceTheDocumentItself) {
    write_pages(document_, {{2, 2}}, document_);
    EXPECT_THAT(pagesOf(document_), ElementsAre(2));
}

TEST_F(DocumentPages, AFileThatCannotBeWrittenIsAnError) {
    EXPECT_EQ(error_of([&] { write_pages(document_, {}, folder_.path()); }).code(), host::ErrorCode::other);
}

} // namespace
} // namespace specialpages::qt
