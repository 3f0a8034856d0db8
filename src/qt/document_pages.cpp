#include "qt/document_pages.h"

#include "host/HostError.h"
#include "platform/foundation/atomic_file.h"

#include <algorithm>
#include <exception>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <string>
#include <string_view>

namespace specialpages::qt {

namespace {

void open(QPDF& pdf, const std::filesystem::path& file) {
    pdf.setSuppressWarnings(true);
    pdf.processFile(file.c_str());
}

/// Takes the document's pages out of it and puts the chosen ones in.
void keep_pages(QPDF& pdf, const std::vector<PageRange>& pages) {
    QPDFPageDocumentHelper document(pdf);
    const std::vector<QPDFPageObjectHelper> all = document.getAllPages();
    for (const QPDFPageObjectHelper& page : all) {
        document.removePage(page);
    }
    const int count = static_cast<int>(all.size());
    for (const PageRange& range : pages) {
        for (int page = std::max(range.first, 1); page <= std::min(range.last, count); ++page) {
            document.addPage(all[static_cast<std::size_t>(page) - 1], false);
        }
    }
}

std::string bytes_of(QPDF& pdf) {
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
}

/// HostError (input) for whatever the PDF library throws.
template <class Call>
auto with_document(const std::filesystem::path& file, Call&& call) {
    try {
        QPDF pdf;
        open(pdf, file);
        return call(pdf);
    } catch (const std::exception& error) {
        throw host::HostError(host::ErrorCode::input, file.string(),
                              std::string("expected a PDF document: ") + error.what());
    }
}

} // namespace

int document_pages(const std::filesystem::path& file) {
    return with_document(
        file, [](QPDF& pdf) { return static_cast<int>(QPDFPageDocumentHelper(pdf).getAllPages().size()); });
}

void write_pages(const std::filesystem::path& document, const std::vector<PageRange>& pages,
                 const std::filesystem::path& file) {
    const std::string bytes = with_document(document, [&](QPDF& pdf) {
        if (!pages.empty()) {
            keep_pages(pdf, pages);
        }
        return bytes_of(pdf);
    });
    if (const std::string failure = platform::write_file_atomically(file, bytes); !failure.empty()) {
        throw host::HostError(host::ErrorCode::other, file.string(), failure);
    }
}

} // namespace specialpages::qt
