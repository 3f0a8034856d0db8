#include "preview/svg_picture.h"

#include "preview/picture_inks.h"

#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace specialpages::preview {

namespace {

std::string hex_color(std::uint32_t rgb) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) {
        text += kDigits[(rgb >> static_cast<unsigned>(shift)) & 0xFU];
    }
    return text;
}

/// XML has no place for control characters.
std::string plain(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
    return text;
}

/// Half a unit into the pixel, where a line of one unit is sharp.
std::string half(int value) {
    return std::to_string(value) + ".5";
}

void set(pugi::xml_node node, const char* name, const std::string& value) {
    node.append_attribute(name).set_value(value.c_str());
}

class Painter {
  public:
    explicit Painter(pugi::xml_node parent) : parent_(parent) {}

    void operator()(const PlanRect& rect) const {
        if (rect.fill == Ink::none && rect.stroke == Ink::none) {
            return;
        }
        const bool edge = rect.stroke != Ink::none;
        pugi::xml_node node = parent_.append_child("rect");
        set(node, "x", edge ? half(rect.x) : std::to_string(rect.x));
        set(node, "y", edge ? half(rect.y) : std::to_string(rect.y));
        set(node, "width", std::to_string(rect.width - (edge ? 1 : 0)));
        set(node, "height", std::to_string(rect.height - (edge ? 1 : 0)));
        if (rect.radius > 0) {
            set(node, "rx", std::to_string(rect.radius));
        }
        set(node, "fill",
            rect.fill == Ink::none    ? std::string("none")
            : rect.fill == Ink::paper ? hex_color(rect.rgb)
                                      : hex_color(ink_rgb(rect.fill)));
        if (edge) {
            set(node, "stroke", hex_color(ink_rgb(rect.stroke)));
        }
    }

    void operator()(const PlanLine& line) const {
        const bool straight = line.x1 == line.x2 || line.y1 == line.y2;
        const auto at = [straight](int value) {
            return straight ? half(value) : std::to_string(value);
        };
        pugi::xml_node node = parent_.append_child("line");
        set(node, "x1", at(line.x1));
        set(node, "y1", at(line.y1));
        set(node, "x2", at(line.x2));
        set(node, "y2", at(line.y2));
        set(node, "stroke", hex_color(ink_rgb(line.ink)));
    }

    void operator()(const PlanText& text) const {
        pugi::xml_node node = parent_.append_child("text");
        set(node, "x", std::to_string(text.x));
        set(node, "y", std::to_string(text.y));
        set(node, "font-size", std::to_string(text.size));
        if (text.bold) {
            set(node, "font-weight", "bold");
        }
        if (text.anchor == Anchor::middle) {
            set(node, "text-anchor", "middle");
        }
        set(node, "fill", hex_color(ink_rgb(text.ink)));
        node.text().set(plain(text.text).c_str());
    }

  private:
    mutable pugi::xml_node parent_; // a handle: drawing changes what it stands for
};

void paint(pugi::xml_node parent, const StripPlan& plan, std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) {
        std::visit(Painter(parent), plan.items[i]);
    }
}

} // namespace

std::string svg_picture(const StripPlan& plan, const JobGlance& glance) {
    pugi::xml_document document;
    pugi::xml_node svg = document.append_child("svg");
    const std::string width = std::to_string(plan.width);
    const std::string height = std::to_string(plan.height);
    set(svg, "xmlns", "http://www.w3.org/2000/svg");
    set(svg, "width", width);
    set(svg, "height", height);
    set(svg, "viewBox", "0 0 " + width + " " + height);
    set(svg, "font-family", kPictureFonts);
    set(svg, "role", "img");
    svg.append_child("title").text().set(plain(glance.name + ": " + glance.summary).c_str());
    std::size_t next = 0;
    for (std::size_t cell = 0; cell < plan.cells.size(); ++cell) {
        const PlanCell& place = plan.cells[cell];
        paint(svg, plan, next, place.firstItem);
        pugi::xml_node group = svg.append_child("g");
        group.append_child("title").text().set(plain(glance.cells[cell].sentence).c_str());
        next = place.firstItem + place.items;
        paint(group, plan, place.firstItem, next);
    }
    paint(svg, plan, next, plan.items.size());
    std::ostringstream out;
    document.save(out, "  ", pugi::format_indent, pugi::encoding_utf8);
    return out.str();
}

} // namespace specialpages::preview
