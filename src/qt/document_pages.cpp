#include "qt/document_pages.h"

#include "host/HostError.h"
#include "platform/foundation/atomic_file.h"

#include <algorithm>
#include <memory>
#include <qpdf/qpdf-c.h>
#include <string>
#include <string_view>

namespace specialpages::qt {

namespace {

// The C interface: the headers of the other one do not compile with every compiler of ours.
struct Close {
    void operator()(qpdf_data pdf) const { qpdf_cleanup(&pdf); }
};
using Pdf = std::unique_ptr<_qpdf_data, Close>;

/// HostError (input) unless the call went well.
void check(qpdf_data pdf, QPDF_ERROR_CODE code, const std::filesystem::path& file) {
    if ((code & QPDF_ERRORS) == 0) {
        return;
    }
    const qpdf_error error = qpdf_get_error(pdf);
    throw host::HostError(
        host::ErrorCode::input, file.string(),
        std::string("expected a PDF document: ") +
            (error == nullptr ? "it cannot be read" : qpdf_get_error_full_text(pdf, error)));
}

Pdf open_pdf(const std::filesystem::path& file) {
    Pdf pdf(qpdf_init());
    qpdf_silence_errors(pdf.get());
    qpdf_set_suppress_warnings(pdf.get(), QPDF_TRUE);
    check(pdf.get(), qpdf_read(pdf.get(), file.c_str(), nullptr), file);
    return pdf;
}

int count_pages(qpdf_data pdf, const std::filesystem::path& file) {
    const int pages = qpdf_get_num_pages(pdf);
    check(pdf, pages < 0 ? QPDF_ERRORS : QPDF_SUCCESS, file);
    return pages;
}

/// Takes the pages out of the document and puts the chosen ones in.
void keep_pages(qpdf_data pdf, const std::vector<PageRange>& pages, const std::filesystem::path& file) {
    std::vector<qpdf_oh> all;
    for (int page = count_pages(pdf, file); page > 0; --page) {
        all.insert(all.begin(), qpdf_get_page_n(pdf, static_cast<std::size_t>(page) - 1));
        check(pdf, qpdf_remove_page(pdf, all.front()), file);
    }
    const int count = static_cast<int>(all.size());
    for (const PageRange& range : pages) {
        for (int page = std::max(range.first, 1); page <= std::min(range.last, count); ++page) {
            check(pdf, qpdf_add_page(pdf, pdf, all[static_cast<std::size_t>(page) - 1], QPDF_FALSE), file);
        }
    }
}

} // namespace

int document_pages(const std::filesystem::path& file) {
    return count_pages(open_pdf(file).get(), file);
}

void write_pages(const std::filesystem::path& document, const std::vector<PageRange>& pages,
                 const std::filesystem::path& file) {
    const Pdf pdf = open_pdf(document);
    count_pages(pdf.get(), document);
    if (!pages.empty()) {
        keep_pages(pdf.get(), pages, document);
    }
    check(pdf.get(), qpdf_init_write_memory(pdf.get()), document);
    check(pdf.get(), qpdf_write(pdf.get()), document);
    const std::string_view bytes(reinterpret_cast<const char*>(qpdf_get_buffer(pdf.get())),
                                 qpdf_get_buffer_length(pdf.get()));
    if (const std::string failure = platform::write_file_atomically(file, bytes); !failure.empty()) {
        throw host::HostError(host::ErrorCode::other, file.string(), failure);
    }
}

} // namespace specialpages::qt
