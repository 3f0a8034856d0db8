#include "qt/document_pages.h"

#include "host/HostError.h"

#include <memory>
#include <qpdf/qpdf-c.h>
#include <string>

namespace specialpages::qt {

namespace {

// The C interface: the headers of the other one do not compile with every compiler of ours.
struct Close {
    void operator()(qpdf_data pdf) const { qpdf_cleanup(&pdf); }
};

} // namespace

int document_pages(const std::filesystem::path& file) {
    const std::unique_ptr<_qpdf_data, Close> pdf(qpdf_init());
    qpdf_silence_errors(pdf.get());
    qpdf_set_suppress_warnings(pdf.get(), QPDF_TRUE);
    const QPDF_ERROR_CODE read = qpdf_read(pdf.get(), file.c_str(), nullptr);
    const int pages = (read & QPDF_ERRORS) != 0 ? -1 : qpdf_get_num_pages(pdf.get());
    if (pages < 0) {
        const qpdf_error error = qpdf_get_error(pdf.get());
        throw host::HostError(
            host::ErrorCode::input, file.string(),
            std::string("expected a PDF document: ") +
                (error == nullptr ? "it has no pages" : qpdf_get_error_full_text(pdf.get(), error)));
    }
    return pages;
}

} // namespace specialpages::qt
