// A bundle directory for tests.
#pragma once

#include "platform/foundation/TemporaryDirectory.h"

#include <filesystem>
#include <string>

namespace specialpages::test {

/// Makes a bundle directory with that identifier and nothing else in it.
inline void write_bundle(const std::filesystem::path& directory, const std::string& identifier) {
    platform::testing::write_test_file(directory / "Info.plist",
                                       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                       "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" +
                                           identifier + "</string></dict></plist>\n");
}

} // namespace specialpages::test
