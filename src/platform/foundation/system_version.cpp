#include "platform/foundation/system_version.h"

#include <utility>

namespace specialpages::platform {

namespace {

std::function<std::optional<std::string>()>& current_source() {
    static std::function<std::optional<std::string>()> source;
    return source;
}

} // namespace

std::optional<std::string> kernel_release() {
    return current_source() ? current_source()() : std::optional<std::string>(kLinuxKernelRelease);
}

void set_kernel_release_source(std::function<std::optional<std::string>()> source) {
    current_source() = std::move(source);
}

} // namespace specialpages::platform
