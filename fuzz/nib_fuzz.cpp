// Reads any bytes as a nib. One that is accepted is instantiated for an owner who takes everything; then
// every view must hang together with its neighbours.

#include "platform/toolkit/Nib.h"
#include "platform/toolkit/Window.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace platform = specialpages::platform;

namespace {

void check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

class Owner : public platform::NibOwner {
  public:
    bool connectOutlet(std::string_view outlet, platform::View& view) override {
        check(!outlet.empty() && view.name() == outlet);
        return true;
    }
    std::unique_ptr<platform::NibObject> instantiate(std::string_view className) override {
        check(!className.empty());
        return std::make_unique<platform::NibObject>();
    }
    bool connectObject(std::string_view outlet, platform::NibObject& /*object*/) override {
        check(!outlet.empty());
        return true;
    }
};

std::size_t count(const platform::NibElement& element) {
    std::size_t elements = 1;
    for (const auto& child : element.children) {
        elements += count(child);
    }
    return elements;
}

/// Checks the view and all below it; answers how many they are.
std::size_t walk(platform::View& view, platform::View* superview, platform::Window* window, int depth) {
    check(depth <= platform::kMaxNibDepth);
    check(view.superview() == superview);
    if (view.kind() == platform::ViewKind::window) {
        check(superview == nullptr);
        window = dynamic_cast<platform::Window*>(&view);
        check(window != nullptr && !window->isOpen());
    }
    check(view.window() == window);
    check(view.viewWithTag(view.tag()) != nullptr);
    std::size_t views = 1;
    for (const auto& subview : view.subviews()) {
        views += walk(*subview, &view, window, depth + 1);
    }
    return views;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string error;
    const auto root = platform::parse_nib({reinterpret_cast<const char*>(data), size}, &error);
    check(root.has_value() == error.empty());
    if (!root) {
        return 0;
    }
    Owner owner;
    const auto nib = platform::Nib::instantiate(*root, owner, &error);
    check((nib != nullptr) == error.empty());
    if (nib == nullptr) {
        return 0;
    }
    std::size_t views = 1;
    for (const auto& view : nib->topLevelViews()) {
        views += walk(*view, nullptr, nullptr, 2);
    }
    check(views == count(*root));
    return 0;
}
