// The plan as an SVG file. Texts stay texts, so that they can be found, read aloud and shown in the reader's
// own font; each sheet is a group whose title is its sentence. The same plan gives the same bytes.
#pragma once

#include "preview/strip_plan.h"

#include <string>

namespace specialpages::preview {

/// `glance` is the one from which the plan was made.
std::string svg_picture(const StripPlan& plan, const JobGlance& glance);

} // namespace specialpages::preview
