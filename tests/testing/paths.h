// Where the tests find the project's files. A generated source holds the folders, so that no test is compiled
// anew because the project lies elsewhere.
#pragma once

#include <string>

namespace paths {

/// The project's folder, without a slash at its end.
const std::string& source_dir();
/// The build tree.
const std::string& binary_dir();
/// The pane's bundle in the build tree.
const std::string& bundle_dir();
/// Whether the build stores passwords with the development keys.
bool development_keys();

} // namespace paths
