// Rules of the source tree itself: which floor may include which, and no circle of files.
#include "testing/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace specialpages::test {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;

/// The folders that each folder of src/ may include.
const std::map<std::string, std::set<std::string>>& allowed() {
    static const std::map<std::string, std::set<std::string>> floors = [] {
        std::map<std::string, std::set<std::string>> below;
        std::set<std::string> lower;
        for (const char* floor :
             {"platform", "support", "ppd", "controls", "records", "ticket", "paper", "dialogs", "plugin"}) {
            lower.insert(floor);
            below[floor] = lower;
        }
        below["preview"] = {"platform", "support", "ppd",   "controls",
                            "records",  "ticket",  "paper", "preview"};
        below["host"] = {"platform", "host"};
        below["cli"] = {"platform", "support", "ppd", "records", "ticket", "preview", "host", "cli"};
        below["qt"] = {"platform", "preview", "host", "qt"};
        return below;
    }();
    return floors;
}

/// The project's own includes of every file below src/, as paths from src/.
const std::map<std::string, std::vector<std::string>>& includes() {
    static const std::map<std::string, std::vector<std::string>> all = [] {
        const fs::path src = fs::path(paths::source_dir()) / "src";
        const std::regex line(R"re(^\s*#\s*include\s+"([^"]+)")re");
        std::map<std::string, std::vector<std::string>> found;
        for (const auto& entry : fs::recursive_directory_iterator(src)) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".h" && extension != ".cpp") {
                continue;
            }
            std::vector<std::string>& targets = found[fs::relative(entry.path(), src).generic_string()];
            std::ifstream file(entry.path());
            for (std::string text; std::getline(file, text);) {
                std::smatch match;
                if (std::regex_search(text, match, line)) {
                    targets.push_back(match[1]);
                }
            }
        }
        return found;
    }();
    return all;
}

std::string folder(const std::string& file) {
    return file.substr(0, file.find('/'));
}

TEST(House, EveryFolderHasItsFloor) {
    for (const auto& [file, targets] : includes()) {
        EXPECT_TRUE(allowed().contains(folder(file))) << file;
    }
    EXPECT_GT(includes().size(), 80U) << "the walk has to find the sources";
}

TEST(House, IncludesRunDownOnly) {
    std::vector<std::string> wrong;
    for (const auto& [file, targets] : includes()) {
        for (const std::string& target : targets) {
            const auto floor = allowed().find(folder(file));
            if (floor == allowed().end() || !floor->second.contains(folder(target))) {
                wrong.push_back(file + " includes " + target);
            }
        }
    }
    EXPECT_THAT(wrong, IsEmpty());
}

TEST(House, OnlyThreeFilesCallLibcupsPpdFunctions) {
    const std::regex call(
        R"(\b(ppd(OpenFile|MarkDefaults|MarkOption|FindOption|FindChoice|FindMarkedChoice|Conflicts|Close|LastError|ErrorString|PageSize|PageWidth|PageLength)|cups(GetPPD3|MarkOptions))\s*\()");
    std::set<std::string> callers;
    for (const auto& [file, targets] : includes()) {
        std::ifstream in(fs::path(paths::source_dir()) / "src" / file);
        for (std::string text; std::getline(in, text);) {
            if (std::regex_search(text.substr(0, text.find("//")), call)) {
                callers.insert(file);
            }
        }
    }
    EXPECT_EQ(callers, (std::set<std::string>{"host/PpdFile.cpp", "host/queue_ppd.cpp", "ppd/cups_ppd.cpp"}));
}

TEST(House, NoCircleOfFiles) {
    // A source and its header are one room.
    const auto room = [](const std::string& file) {
        return file.substr(0, file.rfind('.'));
    };
    std::map<std::string, std::set<std::string>> arrows;
    for (const auto& [file, targets] : includes()) {
        for (const std::string& target : targets) {
            if (room(file) != room(target)) {
                arrows[room(file)].insert(room(target));
            }
        }
    }
    enum class Visit { open, done };
    std::map<std::string, Visit> visits;
    std::vector<std::string> circles;
    std::function<void(const std::string&)> visit = [&](const std::string& at) {
        visits[at] = Visit::open;
        for (const std::string& next : arrows[at]) {
            const auto seen = visits.find(next);
            if (seen == visits.end()) {
                visit(next);
            } else if (seen->second == Visit::open) {
                circles.push_back(at + " leads back to " + next);
            }
        }
        visits[at] = Visit::done;
    };
    std::vector<std::string> rooms;
    for (const auto& [from, to] : arrows) {
        rooms.push_back(from);
    }
    for (const std::string& from : rooms) {
        if (!visits.contains(from)) {
            visit(from);
        }
    }
    EXPECT_THAT(circles, IsEmpty());
}

} // namespace
} // namespace specialpages::test
