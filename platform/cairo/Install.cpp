#include "platform/cairo/BitmapDevice.h"
#include "platform/cairo/CairoDrawing.h"
#include "platform/cairo/Face.h"
#include "platform/cairo/PictureFiles.h"
#include "platform/cairo/Shaping.h"

namespace vx {

namespace {

class TCairoBackend final : public TDrawingBackend {
 public:
  std::unique_ptr<TCanvas> NewBitmapCanvas(TBitmap& Bitmap) override {
    return std::make_unique<TCanvas>(std::make_unique<drawing::TBitmapDevice>(Bitmap));
  }
  void LoadPictureFile(const String& Filename, TBitmap& Bitmap) override { drawing::LoadPicture(Filename, Bitmap); }
  std::string EncodePng(const TBitmap& Bitmap) override { return drawing::PngOf(Bitmap); }
};

}  // namespace

void InstallDrawing() { SetDrawingBackend(std::make_shared<TCairoBackend>()); }

void CairoDrawing::FreeBuffersForLeakPrevention() noexcept {
  drawing::FreeShapedTexts();
  drawing::TFace::FreeUnused();
}

}  // namespace vx
