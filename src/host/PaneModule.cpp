#include "host/PaneModule.h"

#include "host/HostError.h"
#include "platform/foundation/Bundle.h"

#include <array>
#include <cstdlib>
#include <dlfcn.h>
#include <string>
#include <system_error>
#include <utility>

namespace specialpages::host {

namespace {

constexpr const char* kBundleName = "SpecialPages.bundle";

bool is_bundle(const std::filesystem::path& directory) {
    std::error_code failed;
    return std::filesystem::is_regular_file(directory / "Info.plist", failed);
}

// What dlopen or dlsym said last.
std::string loader_reason() {
    const char* const reason = dlerror();
    return reason == nullptr ? "no reason given" : reason;
}

[[noreturn]] void refuse_bundle(const std::filesystem::path& directory, const std::string& detail) {
    throw HostError(ErrorCode::other, directory.string(), detail);
}

std::shared_ptr<platform::Bundle> load_bundle(const std::filesystem::path& directory) {
    std::string error;
    auto bundle = platform::Bundle::load(directory, &error);
    if (!bundle) {
        refuse_bundle(directory, "expected the bundle of a pane: " + error);
    }
    // The pane's code stays loaded and keeps the bundle with which it was loaded first: a language that is
    // set on another one would not reach it.
    const auto identifier = bundle->bundleIdentifier();
    const auto known = identifier ? platform::Bundle::CFBundleGetBundleWithIdentifier(*identifier) : nullptr;
    const bool sameBundle = known && known->CFBundleCopyBundleURL() == bundle->CFBundleCopyBundleURL();
    return sameBundle ? known : bundle;
}

// The shared object's path; nothing outside the bundle is ever loaded.
std::filesystem::path executable_of(const platform::Bundle& bundle) {
    const auto& directory = bundle.CFBundleCopyBundleURL();
    const auto name = bundle.objectForInfoDictionaryKey("CFBundleExecutable");
    if (!name || name->empty()) {
        refuse_bundle(directory, "expected a CFBundleExecutable in its Info.plist");
    }
    const auto path = bundle.CFBundleCopyResourceURL(*name, "", "");
    if (!path) {
        refuse_bundle(directory, "expected the file " + *name + ", which its Info.plist names as executable");
    }
    return *path;
}

std::unique_ptr<platform::PrintDialogExtension> make_extension(void* library,
                                                               const std::filesystem::path& path) {
    dlerror(); // forgets what went wrong before
    void* const symbol = dlsym(library, platform::kPrintDialogExtensionSymbol);
    if (symbol == nullptr) {
        refuse_bundle(path, std::string("expected the symbol ") + platform::kPrintDialogExtensionSymbol +
                                ": " + loader_reason());
    }
    const auto create = reinterpret_cast<platform::CreatePrintDialogExtensionFunction>(symbol);
    std::unique_ptr<platform::PrintDialogExtension> extension(create());
    if (!extension) {
        refuse_bundle(path, "its factory function made nothing");
    }
    return extension;
}

} // namespace

std::filesystem::path find_bundle(const std::filesystem::path& executable) {
    const char* const named = std::getenv(kBundleVariable);
    if (named != nullptr && *named != '\0') {
        return named;
    }
    const std::filesystem::path above = executable.parent_path().parent_path();
    const std::array<std::filesystem::path, 2> places{
        above / kBundleName, above / SPECIALPAGES_INSTALL_LIBDIR / "special-pages" / kBundleName};
    for (const auto& place : places) {
        if (is_bundle(place)) {
            return place;
        }
    }
    throw HostError(ErrorCode::other, kBundleName,
                    "expected it at " + places[0].string() + " or " + places[1].string() +
                        ", or its path in the environment variable " + kBundleVariable);
}

std::filesystem::path find_bundle() {
    std::error_code failed;
    return find_bundle(std::filesystem::read_symlink("/proc/self/exe", failed));
}

void PaneModule::Unload::operator()(void* library) const {
    dlclose(library);
}

PaneModule::PaneModule(const std::filesystem::path& directory) : bundle_(load_bundle(directory)) {
    const std::filesystem::path path = executable_of(*bundle_);
    library_.reset(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
    if (!library_) {
        refuse_bundle(path, "expected a module that can be loaded: " + loader_reason());
    }
    extension_ = make_extension(library_.get(), path);
}

PaneModule::PaneModule(std::shared_ptr<platform::Bundle> bundle,
                       std::unique_ptr<platform::PrintDialogExtension> extension)
    : bundle_(std::move(bundle)), extension_(std::move(extension)) {}

PaneModule::~PaneModule() = default;
PaneModule::PaneModule(PaneModule&&) noexcept = default;

} // namespace specialpages::host
