// The number of pages of a document.
#pragma once

#include <filesystem>

namespace specialpages::qt {

/// Pages of the PDF file. HostError (input) with the file and what is wrong in it.
int document_pages(const std::filesystem::path& file);

} // namespace specialpages::qt
