// The pages of a PDF document: how many there are, and some of them in a file of their own.
#pragma once

#include <filesystem>
#include <vector>

namespace specialpages::qt {

/// Pages of the PDF file. HostError (input) with the file and what is wrong in it.
int document_pages(const std::filesystem::path& file);

/// Pages from 1 on, both ends among them.
struct PageRange {
    int first = 0;
    int last = 0;
};

/// Writes the document, or only these pages of it (each range in its turn, what lies beyond the document left
/// out), into another file, whole or not at all; it may be the document's own. HostError: input as above,
/// other when the file cannot be written.
void write_pages(const std::filesystem::path& document, const std::vector<PageRange>& pages,
                 const std::filesystem::path& file);

} // namespace specialpages::qt
