// Picture files through gdk-pixbuf. Of use to this component only.
#pragma once

#include <string>

#include "platform/TBitmap.h"

namespace vx::drawing {

// See TDrawingBackend.
void LoadPicture(const String& Filename, TBitmap& Bitmap);
std::string PngOf(const TBitmap& Bitmap);

}  // namespace vx::drawing
