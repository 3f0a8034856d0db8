#include "preview/cairo/png_painter.h"

#include "preview/picture_inks.h"

#include <algorithm>
#include <cairo-ft.h>
#include <cairo.h>
#include <cmath>
#include <fontconfig/fontconfig.h>
#include <map>
#include <memory>
#include <numbers>
#include <utility>

namespace specialpages::preview {

namespace {

constexpr double kPixelsOfUnit = 2;

template <auto Destroy>
struct Destroyer {
    template <class Type>
    void operator()(Type* object) const {
        Destroy(object);
    }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroyer<cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Destroyer<cairo_destroy>>;
using Face = std::unique_ptr<cairo_font_face_t, Destroyer<cairo_font_face_destroy>>;
using Pattern = std::unique_ptr<FcPattern, Destroyer<FcPatternDestroy>>;
using CharSet = std::unique_ptr<FcCharSet, Destroyer<FcCharSetDestroy>>;

/// A font that has the text's characters: the best one that there is, since a family alone says nothing of
/// the scripts that it has.
Face face_for(const std::string& text, bool bold) {
    const CharSet characters(FcCharSetCreate());
    const auto* at = reinterpret_cast<const FcChar8*>(text.data());
    int left = static_cast<int>(text.size());
    while (left > 0) {
        FcChar32 character = 0;
        const int bytes = FcUtf8ToUcs4(at, &character, left);
        if (bytes <= 0) {
            break;
        }
        FcCharSetAddChar(characters.get(), character);
        at += bytes;
        left -= bytes;
    }
    const Pattern wanted(FcNameParse(reinterpret_cast<const FcChar8*>("DejaVu Sans,Noto Sans,sans-serif")));
    FcPatternAddCharSet(wanted.get(), FC_CHARSET, characters.get());
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
    return Face(found == nullptr
                    ? cairo_toy_font_face_create("sans-serif", CAIRO_FONT_SLANT_NORMAL,
                                                 bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL)
                    : cairo_ft_font_face_create_for_pattern(found.get()));
}

class Painter {
  public:
    explicit Painter(cairo_t* context) : context_(context) { cairo_set_line_width(context_, 1); }

    void operator()(const PlanRect& rect) {
        const double inset = rect.stroke == Ink::none ? 0 : 0.5;
        outline(rect, inset);
        if (rect.fill != Ink::none) {
            take(rect.fill == Ink::paper ? rect.rgb : ink_rgb(rect.fill));
            cairo_fill_preserve(context_);
        }
        if (rect.stroke != Ink::none) {
            take(ink_rgb(rect.stroke));
            cairo_stroke_preserve(context_);
        }
        cairo_new_path(context_);
    }

    void operator()(const PlanLine& line) {
        const double inset = line.x1 == line.x2 || line.y1 == line.y2 ? 0.5 : 0;
        take(ink_rgb(line.ink));
        cairo_move_to(context_, line.x1 + inset, line.y1 + inset);
        cairo_line_to(context_, line.x2 + inset, line.y2 + inset);
        cairo_stroke(context_);
    }

    void operator()(const PlanText& text) {
        cairo_set_font_face(context_, face(text));
        cairo_set_font_size(context_, text.size);
        take(ink_rgb(text.ink));
        double x = text.x;
        if (text.anchor == Anchor::middle) {
            cairo_text_extents_t extents;
            cairo_text_extents(context_, text.text.c_str(), &extents);
            x -= extents.x_advance / 2;
        }
        cairo_move_to(context_, x, text.y);
        cairo_show_text(context_, text.text.c_str());
        cairo_new_path(context_);
    }

  private:
    void take(std::uint32_t rgb) {
        const auto part = [rgb](unsigned shift) {
            return static_cast<double>((rgb >> shift) & 0xFFU) / 255.0;
        };
        cairo_set_source_rgb(context_, part(16), part(8), part(0));
    }

    void outline(const PlanRect& rect, double inset) {
        const double left = rect.x + inset;
        const double top = rect.y + inset;
        const double right = rect.x + rect.width - inset;
        const double bottom = rect.y + rect.height - inset;
        const double radius =
            std::min({static_cast<double>(rect.radius), (right - left) / 2, (bottom - top) / 2});
        if (radius <= 0) {
            cairo_rectangle(context_, left, top, right - left, bottom - top);
            return;
        }
        constexpr double kQuarter = std::numbers::pi / 2;
        cairo_new_sub_path(context_);
        cairo_arc(context_, right - radius, top + radius, radius, -kQuarter, 0);
        cairo_arc(context_, right - radius, bottom - radius, radius, 0, kQuarter);
        cairo_arc(context_, left + radius, bottom - radius, radius, kQuarter, 2 * kQuarter);
        cairo_arc(context_, left + radius, top + radius, radius, 2 * kQuarter, 3 * kQuarter);
        cairo_close_path(context_);
    }

    /// Numbers share one face; other texts are few.
    cairo_font_face_t* face(const PlanText& text) {
        const bool digits = text.text.find_first_not_of("0123456789") == std::string::npos;
        Face& face = faces_[{digits ? "0123456789" : text.text, text.bold}];
        if (face == nullptr) {
            face = face_for(text.text, text.bold);
        }
        return face.get();
    }

    cairo_t* context_;
    std::map<std::pair<std::string, bool>, Face> faces_;
};

double pixels_of_unit(const StripPlan& plan) {
    const double longest = std::max(plan.width, plan.height);
    const double area = static_cast<double>(plan.width) * plan.height;
    return std::min({kPixelsOfUnit, kMostPngPixelsOfSide / longest, std::sqrt(kMostPngPixels / area)});
}

cairo_status_t append(void* closure, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

std::optional<std::string> png_picture(const StripPlan& plan) {
    if (plan.width <= 0 || plan.height <= 0) {
        return std::nullopt;
    }
    const double scale = pixels_of_unit(plan);
    const auto pixels = [scale](int units) {
        return std::max(static_cast<int>(std::lround(units * scale)), 1);
    };
    const Surface surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels(plan.width), pixels(plan.height)));
    const Context context(cairo_create(surface.get()));
    cairo_scale(context.get(), scale, scale);
    Painter painter(context.get());
    for (const PlanItem& item : plan.items) {
        std::visit(painter, item);
    }
    std::string bytes;
    if (cairo_status(context.get()) != CAIRO_STATUS_SUCCESS ||
        cairo_surface_write_to_png_stream(surface.get(), append, &bytes) != CAIRO_STATUS_SUCCESS) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace specialpages::preview
