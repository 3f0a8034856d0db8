#include "cli/SpecialPagesSummary.h"
#include "cli/commands.h"
#include "host/HostError.h"
#include "host/PpdFile.h"
#include "platform/foundation/Bundle.h"
#include "platform/foundation/atomic_file.h"
#include "platform/foundation/log.h"
#include "preview/JobGlance.h"
#include "preview/cairo/png_module.h"
#include "preview/strip_plan.h"
#include "preview/svg_picture.h"

#include <algorithm>
#include <charconv>
#include <dlfcn.h>
#include <filesystem>
#include <limits>

namespace specialpages::cli {

namespace {

using host::ErrorCode;
using host::HostError;

/// The picture's width in units; it grows downwards.
constexpr int kPictureWidth = 1000;
constexpr std::int64_t kMostPages = std::numeric_limits<std::int32_t>::max();

enum class PictureFormat { svg, png };

PictureFormat picture_format(const std::string& file) {
    std::string suffix = std::filesystem::path(file).extension().string();
    std::ranges::transform(suffix, suffix.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    if (suffix == ".svg") {
        return PictureFormat::svg;
    }
    if (suffix == ".png") {
        return PictureFormat::png;
    }
    throw HostError(ErrorCode::usage, "--out",
                    "expected a file that ends in .svg or .png, found \"" + file + "\"");
}

std::int64_t page_count(const std::string& text) {
    std::int64_t pages = -1;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, pages);
    if (text.empty() || text.front() == '-' || error != std::errc() || stop != end || pages > kMostPages) {
        throw HostError(ErrorCode::usage, "--pages",
                        "expected a number of pages from 0 to " + std::to_string(kMostPages) + ", found \"" +
                            text + "\"");
    }
    return pages;
}

std::string png_bytes(const preview::StripPlan& plan) {
    void* const module = ::dlopen(preview::kPngModule, RTLD_NOW | RTLD_LOCAL); // stays loaded
    void* const entry = module == nullptr ? nullptr : ::dlsym(module, preview::kPngEntry);
    if (entry == nullptr) {
        const char* const reason = ::dlerror();
        throw HostError(ErrorCode::other, preview::kPngModule,
                        reason == nullptr ? "cannot be loaded" : std::string("cannot be loaded: ") + reason);
    }
    const auto paint = reinterpret_cast<preview::PaintPng (*)()>(entry)();
    auto bytes = paint(plan);
    if (!bytes) {
        throw HostError(ErrorCode::other, "--out", "the picture cannot be painted");
    }
    return *std::move(bytes);
}

} // namespace

void preview_command(const PreviewOptions& options, Streams streams) {
    const PictureFormat format = picture_format(options.out);
    const std::int64_t pages = page_count(options.pages);
    const auto host = open_pane(options.pane, streams.in);
    const preview::JobGlance glance = preview::glance_of_records(
        summarise(host->settings()).records, host->ppd().get(), pages, *host->module().bundle());
    preview::PlanOptions planned;
    planned.width = kPictureWidth;
    planned.picture = true;
    const preview::StripPlan plan = preview::strip_plan(glance, planned);
    const std::string bytes =
        format == PictureFormat::svg ? preview::svg_picture(plan, glance) : png_bytes(plan);
    const std::string failure = platform::write_file_atomically(options.out, bytes);
    if (!failure.empty()) {
        throw HostError(ErrorCode::other, options.out, failure);
    }
}

} // namespace specialpages::cli
