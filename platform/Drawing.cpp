#include "platform/Drawing.h"

#include <algorithm>
#include <atomic>
#include <mutex>

#include "platform/SafeFiles.h"
#include "platform/TCanvas.h"

namespace vx {

namespace {

constinit std::mutex BackendMutex;
constinit std::shared_ptr<TDrawingBackend> CurrentBackend;

constexpr uint64_t Pack(int X, int Y) noexcept {
  return uint64_t{static_cast<uint32_t>(X)} << 32 | static_cast<uint32_t>(Y);
}
constinit std::atomic<uint64_t> ScreenPixelsPerInch{Pack(96, 96)};
constinit std::atomic<uint64_t> PrinterPixelsPerInch{Pack(600, 600)};

TPoint Unpack(uint64_t Packed) noexcept {
  return {static_cast<int>(Packed >> 32), static_cast<int>(Packed & 0xFFFFFFFF)};
}
void Store(std::atomic<uint64_t>& Place, TPoint Value) noexcept {
  Place = Pack(std::max(Value.X, 1), std::max(Value.Y, 1));
}

std::shared_ptr<TDrawingBackend> Backend() {
  std::lock_guard lock(BackendMutex);
  if (!CurrentBackend) {
    throw EInvalidGraphicOperation(u"Nothing is installed that draws on bitmaps and reads picture files");
  }
  return CurrentBackend;
}

}  // namespace

std::shared_ptr<TDrawingBackend> SetDrawingBackend(std::shared_ptr<TDrawingBackend> Backend) {
  std::lock_guard lock(BackendMutex);
  CurrentBackend.swap(Backend);
  return Backend;
}

std::unique_ptr<TCanvas> NewBitmapCanvas(TBitmap& Bitmap) { return Backend()->NewBitmapCanvas(Bitmap); }
void LoadPictureFile(const String& Filename, TBitmap& Bitmap) { Backend()->LoadPictureFile(Filename, Bitmap); }
std::string EncodePng(const TBitmap& Bitmap) { return Backend()->EncodePng(Bitmap); }
void SavePngFile(const TBitmap& Bitmap, const String& Filename) { ReplaceFileContent(Filename, EncodePng(Bitmap)); }

TPoint GetScreenPixelsPerInch() noexcept { return Unpack(ScreenPixelsPerInch); }
TPoint GetPrinterPixelsPerInch() noexcept { return Unpack(PrinterPixelsPerInch); }
void SetScreenPixelsPerInch(TPoint PixelsPerInch) noexcept { Store(ScreenPixelsPerInch, PixelsPerInch); }
void SetPrinterPixelsPerInch(TPoint PixelsPerInch) noexcept { Store(PrinterPixelsPerInch, PixelsPerInch); }

}  // namespace vx
