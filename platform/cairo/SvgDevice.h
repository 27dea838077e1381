// A surface that writes the elements of an SVG file. Of use to this component only.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/cairo/FaceDevice.h"
#include "platform/cairo/SvgFonts.h"

namespace vx::drawing {

class TSvgDevice final : public TFaceDevice {
 public:
  TSvgDevice(TPoint Size, TPoint PixelsPerInch) : TFaceDevice(PixelsPerInch), FSize(Size) {}

  // The whole file.
  std::string File() const;
  // Each operation that draws raises from here on.
  void Finish() noexcept { FFinished = true; }

  TDeviceKind Kind() const noexcept override { return dkMetafile; }
  TRect Bounds() const noexcept override;
  void SetClip(const TRect* Clip, double Scale) noexcept override;
  void Fill(const TRect& Rect, TColor Color) override;
  void Frame(const TRect& Rect, const TPen& Pen) override;
  void Line(TPoint From, TPoint To, const TPen& Pen) override;
  void Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) override;
  void Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) override;
  void Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) override;
  void Text(const TTextRun& Run) override;

 private:
  // Appends an element; in a group of its own where a clip or a scale holds.
  void Add(const std::string& Element);
  std::string GroupStart();
  // The number of a definition, which is written once.
  int Define(const std::string& Start, const std::string& Rest);

  const TPoint FSize;
  bool FClipped = false;
  TRect FClip;
  double FScale = 1;
  bool FFinished = false;
  std::string FGroup;  // the start of the group that is open, empty for none
  std::map<std::string, int> FDefined;
  std::string FDefinitions;
  std::string FBody;
  TSvgFonts FFonts;
};

}  // namespace vx::drawing
