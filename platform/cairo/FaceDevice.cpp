#include "platform/cairo/FaceDevice.h"

#include "platform/Drawing.h"
#include "platform/cairo/Painter.h"

namespace vx::drawing {

void RaiseClosed() { throw EInvalidGraphicOperation(u"The file is closed and can't be drawn on"); }

void TFaceDevice::SetFont(const TFont& Font) {
  FStyle = Font.Style;
  FFace = TFace::Of(Font);
}

int TFaceDevice::TextWidth(std::u16string_view Text) { return FaceTextWidth(*FFace, Text); }

int TFaceDevice::Advance(char16_t Unit) { return FFace->IsSimple({&Unit, 1}) ? FFace->Advance(Unit) : -1; }

}  // namespace vx::drawing
