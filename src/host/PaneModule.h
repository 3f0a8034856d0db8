// A pane's module: the bundle, the shared object in it, and the factory that the object makes. A host knows
// nothing else of a pane.
#pragma once

#include "platform/print/print_dialog_extension.h"

#include <filesystem>
#include <memory>

namespace specialpages::platform {
class Bundle;
}

namespace specialpages::host {

/// The environment variable that names the bundle to load.
inline constexpr const char* kBundleVariable = "SPECIAL_PAGES_BUNDLE";

/// Where the bundle is: what the environment variable says when it is set and not empty (whether or not
/// something is there); else, beside the folder of the program `executable`, "../SpecialPages.bundle" (a
/// build tree) or the place of an installation. HostError (other) naming all places when none holds a bundle.
std::filesystem::path find_bundle(const std::filesystem::path& executable);
/// The same for this process's program.
std::filesystem::path find_bundle();

/// Owns the factory and keeps its code loaded; it must outlive all panels of the factory.
class PaneModule {
  public:
    /// Loads the bundle at `directory`, the shared object that its CFBundleExecutable names, and makes the
    /// factory. HostError (other) with the bundle and what was missing or wrong in it.
    explicit PaneModule(const std::filesystem::path& directory);
    /// A factory that is there already; nothing is loaded.
    PaneModule(std::shared_ptr<platform::Bundle> bundle,
               std::unique_ptr<platform::PrintDialogExtension> extension);
    ~PaneModule();
    PaneModule(PaneModule&&) noexcept;
    PaneModule& operator=(PaneModule&&) = delete;

    const std::shared_ptr<platform::Bundle>& bundle() const { return bundle_; }
    platform::PrintDialogExtension& extension() { return *extension_; }

  private:
    struct Unload {
        void operator()(void* library) const;
    };
    std::shared_ptr<platform::Bundle> bundle_;
    std::unique_ptr<void, Unload> library_;
    std::unique_ptr<platform::PrintDialogExtension> extension_; // ends before its code
};

} // namespace specialpages::host
