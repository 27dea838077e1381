#include "platform/SafeFiles.h"
#include "platform/cairo/CairoDrawing.h"
#include "platform/cairo/SvgDevice.h"

namespace vx {

struct TSvgFile::TImpl {
  TImpl(const String& AFilename, TPoint Size, TPoint PixelsPerInch)
      : Filename(AFilename),
        Device(new drawing::TSvgDevice(Size, PixelsPerInch)),
        Canvas(std::unique_ptr<TCanvasDevice>(Device)) {}

  const String Filename;
  drawing::TSvgDevice* const Device;  // the canvas's
  TCanvas Canvas;
  bool Closed = false;
};

TSvgFile::TSvgFile(const String& Filename, TPoint Size, TPoint PixelsPerInch) {
  if (Size.X < 1 || Size.Y < 1) throw EInvalidGraphicOperation(u"A picture without pixels can't be drawn on");
  FImpl = std::make_unique<TImpl>(Filename, Size, PixelsPerInch);
}
TSvgFile::~TSvgFile() = default;

TCanvas& TSvgFile::GetCanvas() noexcept { return FImpl->Canvas; }

void TSvgFile::Close() {
  if (FImpl->Closed) return;
  FImpl->Device->Finish();
  ReplaceFileContent(FImpl->Filename, FImpl->Device->File());
  FImpl->Closed = true;
}

}  // namespace vx
