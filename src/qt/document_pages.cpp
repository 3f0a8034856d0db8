#include "qt/document_pages.h"

#include "host/HostError.h"

#include <exception>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>

namespace specialpages::qt {

int document_pages(const std::filesystem::path& file) {
    try {
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.processFile(file.c_str());
        return static_cast<int>(QPDFPageDocumentHelper(pdf).getAllPages().size());
    } catch (const std::exception& error) {
        throw host::HostError(host::ErrorCode::input, file.string(),
                              std::string("expected a PDF document: ") + error.what());
    }
}

} // namespace specialpages::qt
