// A table that explains the images of another one, for a printout.
#pragma once

#include <memory>

#include "platform/TStrings.h"
#include "tables/uTypeCsv/TTypeCsv.h"

namespace vx {

enum TDecorationOrientation : uint8_t { dorPortrait, dorLandscape };

// Whether there is anything to explain; Legend becomes a new table of it then, and nullptr otherwise. Each image that
// the cells of Table show, by their decorations or as a vftImage, stands there once with its name. Only image lists
// with names (TVxImageList) count; they come in the order of their first use, the images of each by their indexes and
// from a new row on. The lines of Texts, which may be nullptr, follow from a new row on. There are as many columns as
// texts of the average length suggest, below a fixed row with the title "Legende". The table refers to the image lists.
//
// Example:
//   std::unique_ptr<vx::TTypeCsv> legend;
//   if (vx::RenderLegend(visits, vx::dorPortrait, legend, nullptr)) Print(*legend);
bool RenderLegend(const TTypeCsv& Table, TDecorationOrientation Orientation, std::unique_ptr<TTypeCsv>& Legend,
                  const TStrings* Texts);

}  // namespace vx
