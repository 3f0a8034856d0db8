#include "host/PaneModule.h"
#include "host/fake_pane.h"
#include "host/host_fixtures.h"
#include "testing/paths.h"

#include <cups/cups.h>
#include <gtest/gtest.h>

#include <dlfcn.h>
#include <string>

namespace specialpages::host {
namespace {

using testing::error_of;
using testing::kFakeInfo;
using testing::ScopedVariable;
using testing::TemporaryFolder;

std::string info_with(const std::string& entries) {
    return "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>";
}

std::string info_with_executable(const std::string& name) {
    return info_with("<key>CFBundleExecutable</key><string>" + name + "</string>");
}

TEST(FindBundle, TheEnvironmentVariableWinsEvenWhenNothingIsThere) {
    const ScopedVariable variable(kBundleVariable, "/no/such.bundle");
    EXPECT_EQ(find_bundle("/usr/bin/special-pages"), "/no/such.bundle");
}

TEST(FindBundle, ABuildTreeHasItBesideTheFolderOfTheProgram) {
    const ScopedVariable variable(kBundleVariable, nullptr);
    const TemporaryFolder folder;
    folder.write("SpecialPages.bundle/Info.plist", kFakeInfo);
    EXPECT_EQ(find_bundle(folder.path() / "bin/special-pages"), folder.path() / "SpecialPages.bundle");
}

TEST(FindBundle, AnInstallationHasItInTheLibraryFolder) {
    const ScopedVariable variable(kBundleVariable, "");
    const TemporaryFolder folder;
    const std::string error = error_of([&] { find_bundle(folder.path() / "bin/special-pages"); }).detail();
    // The place of an installation depends on how the project was configured; the message names it.
    const std::string head = "expected it at " + (folder.path() / "SpecialPages.bundle").string() + " or ";
    ASSERT_TRUE(error.starts_with(head)) << error;
    const std::string place = error.substr(head.size(), error.find(',') - head.size());
    EXPECT_TRUE(place.ends_with("/special-pages/SpecialPages.bundle")) << place;
    std::filesystem::create_directories(place);
    std::ofstream(std::filesystem::path(place) / "Info.plist") << kFakeInfo;
    EXPECT_EQ(find_bundle(folder.path() / "bin/special-pages"), place);
}

TEST(FindBundle, WithoutOneTheErrorNamesEveryWay) {
    const ScopedVariable variable(kBundleVariable, nullptr);
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path() / "SpecialPages.bundle"); // no Info.plist: no bundle
    const HostError error = error_of([&] { find_bundle(folder.path() / "bin/special-pages"); });
    EXPECT_EQ(error.code(), ErrorCode::other);
    EXPECT_EQ(error.place(), "SpecialPages.bundle");
    EXPECT_NE(error.detail().find("environment variable SPECIAL_PAGES_BUNDLE"), std::string::npos);
}

TEST(FindBundle, TheTestsOwnBuildTreeHasOne) {
    const ScopedVariable variable(kBundleVariable, nullptr);
    EXPECT_EQ(find_bundle(), paths::bundle_dir());
}

TEST(PaneModule, ABundleThatIsNoneIsRefused) {
    const TemporaryFolder folder;
    folder.write("broken/Info.plist", "nonsense");
    for (const auto& directory : {folder.path() / "none", folder.path(), folder.path() / "broken"}) {
        const HostError error = error_of([&] { PaneModule module(directory); });
        EXPECT_EQ(error.code(), ErrorCode::other);
        EXPECT_EQ(error.place(), directory.string());
        EXPECT_TRUE(error.detail().starts_with("expected the bundle of a pane: ")) << error.detail();
    }
}

TEST(PaneModule, AnInfoWithoutExecutableIsRefused) {
    const TemporaryFolder folder;
    for (const std::string& info : {std::string(kFakeInfo), info_with_executable("")}) {
        folder.write("Info.plist", info);
        EXPECT_EQ(error_of([&] { PaneModule module(folder.path()); }).detail(),
                  "expected a CFBundleExecutable in its Info.plist");
    }
}

TEST(PaneModule, NothingOutsideTheBundleIsLoaded) {
    const TemporaryFolder folder;
    folder.write("outside.so", "");
    for (const std::string name : {"none.so", "../outside.so", "/lib/x86_64-linux-gnu/libc.so.6"}) {
        folder.write("bundle/Info.plist", info_with_executable(name));
        EXPECT_EQ(error_of([&] { PaneModule module(folder.path() / "bundle"); }).detail(),
                  "expected the file " + name + ", which its Info.plist names as executable");
    }
}

TEST(PaneModule, AFileThatIsNoModuleIsRefusedWithTheLoadersReason) {
    const TemporaryFolder folder;
    folder.write("Info.plist", info_with_executable("text.so"));
    folder.write("text.so", "this is no shared object, and long enough to be read as one all the same");
    const HostError error = error_of([&] { PaneModule module(folder.path()); });
    EXPECT_EQ(error.code(), ErrorCode::other);
    EXPECT_EQ(error.place(), (folder.path() / "text.so").string());
    EXPECT_NE(error.detail().find("invalid ELF header"), std::string::npos) << error.detail();
}

TEST(PaneModule, AModuleWithoutTheFactoryFunctionIsRefused) {
    // A shared object that is there wherever this program runs, and harmless to load once more.
    Dl_info info{};
    ASSERT_NE(dladdr(reinterpret_cast<void*>(&cupsUser), &info), 0);
    const TemporaryFolder folder;
    folder.write("Info.plist", info_with_executable("other.so"));
    std::filesystem::copy_file(std::filesystem::canonical(info.dli_fname), folder.path() / "other.so");
    const HostError error = error_of([&] { PaneModule module(folder.path()); });
    EXPECT_EQ(error.place(), (folder.path() / "other.so").string());
    EXPECT_TRUE(error.detail().starts_with("expected the symbol CreatePrintDialogExtension: "))
        << error.detail();
}

TEST(PaneModule, ASecondOneOfTheSameBundleSharesIt) {
    // What is set on the second one's bundle has to reach the code that the first one loaded.
    const PaneModule first(paths::bundle_dir());
    const PaneModule second(paths::bundle_dir() + "/");
    EXPECT_EQ(second.bundle(), first.bundle());
}

TEST(PaneModule, TheFactoryEndsWithTheModule) {
    const TemporaryFolder folder;
    testing::FakePaneScript script;
    {
        PaneModule first = testing::fake_module(script, folder);
        const PaneModule second = std::move(first);
        EXPECT_EQ(script.calls, testing::Calls{});
        EXPECT_EQ(second.bundle()->bundleIdentifier(), "org.example.fake");
    }
    EXPECT_EQ(script.calls, testing::Calls{"~extension"});
}

} // namespace
} // namespace specialpages::host
