// Filters a table of patients by a filter bar, step by step, as a user would, and prints what is left:
//
//   filter_table TABLE [PICTURE]
//
// With a picture it also draws the bar and its window, as a desktop would show them.
#include <cstdio>

#include "controls/uVxFilter.h"
#include "platform/Drawing.h"
#include "platform/Exceptions.h"
#include "platform/TBitmap.h"
#include "platform/TCanvas.h"
#ifdef VX_HAS_DRAWING
#include "platform/cairo/CairoDrawing.h"
#endif

namespace {

constexpr int kName = 1, kTown = 5, kLevel = 6;
[[maybe_unused]] constexpr int kPictureWidth = 860, kPictureHeight = 90;

// Filters whenever a value changes.
class TPatients : public vx::TObject {
 public:
  explicit TPatients(const char* Path) {
    if (!View.LoadFromFile(vx::String::FromUtf8(Path))) throw vx::EArgumentException(u"there is no such table");
    View.GetDecorations().SetFixed(1, 1, 0, 0);
    for (int col = 0; col < View.FieldCount(); ++col) Bar.GetItems().Add();
    Bar.SetFilter(&View);
    Bar.SetOnChanged(vx::TNotifyEvent::Of<&TPatients::Changed>(*this));
  }
  vx::TVxFilterItem& Item(int Col) { return Bar.GetItems().Get(Col); }
  void Print(const char* What) const {
    std::printf("%s: %d of %d\n", What, View.GetContentCount() - View.GetContentTop(),
                View.GetAllCount() - View.GetContentTop());
    for (int row = View.GetContentTop(); row < View.GetContentCount(); ++row) {
      std::printf("  %s  %s, %s\n", View.GetCell(0, row).ToUtf8().c_str(), View.GetCell(kName, row).ToUtf8().c_str(),
                  View.GetCell(kTown, row).ToUtf8().c_str());
    }
  }

  vx::TCsvView View;
  vx::TVxFilter Bar;

 private:
  void Changed(vx::TObject* /*Sender*/) { Bar.Filter(&View); }
};

void Type(vx::TVxFilterItem& Item, std::u16string_view Keys) {
  Item.Click();
  for (char16_t key : Keys) Item.GetFilterForm().KeyPress(key);
  Item.GetFilterForm().KeyPress(u'\r');
}

#ifdef VX_HAS_DRAWING
void Draw(TPatients& Patients, const char* Path) {
  vx::InstallDrawing();
  constexpr int kWidths[] = {70, 160, 80, 110, 60, 110, 80, 100, 100};
  for (int col = 0; col < Patients.Bar.GetItems().GetCount(); ++col) Patients.Item(col).SetWidth(kWidths[col % 9]);
  Patients.Bar.SetWidth(kPictureWidth);
  vx::TBitmap picture;
  picture.SetPixelFormat(vx::pf24bit);
  picture.SetSize(kPictureWidth, kPictureHeight);
  const auto canvas = vx::NewBitmapCanvas(picture);
  canvas->SetBrush({vx::clBtnFace});
  canvas->FillRect({0, 0, kPictureWidth, kPictureHeight});
  Patients.Bar.SetCanvas(canvas.get());
  Patients.Bar.Paint();
  Patients.Bar.SetCanvas(nullptr);
  vx::TVxFilterForm& form = Patients.Item(kTown).GetFilterForm();
  Patients.Item(kTown).Click();
  // Where the form stands is told in the pixels of the screen; here it is drawn apart.
  vx::TBitmap window;
  window.SetPixelFormat(vx::pf24bit);
  window.SetSize(form.GetWidth(), form.GetHeight());
  const auto ground = vx::NewBitmapCanvas(window);
  form.SetCanvas(ground.get());
  form.Paint();
  form.SetCanvas(nullptr);
  canvas->Draw(form.GetLeft(), form.GetTop() + 2, window);
  vx::SavePngFile(picture, vx::String::FromUtf8(Path));
}
#endif

}  // namespace

int main(int argc, char** argv) try {
  if (argc < 2 || argc > 3) return 2;
  TPatients patients(argv[1]);
  patients.Print("all patients");
  Type(patients.Item(kName), u"e");
  patients.Print("\"e\" in the name");
  vx::TVxFilterItem& town = patients.Item(kTown);
  town.Click();
  town.GetFilterForm().ClickButton();  // several values
  for (int line = 0; line < town.GetFilterForm().GetLineCount(); ++line) {
    if (town.GetFilterForm().GetLine(line).Value == u"Bonn") town.GetFilterForm().ClickLine(line);
  }
  patients.Print("and of Bonn");
  patients.Item(kName).SetValue({});
  patients.Item(kLevel).SetValue(u"=^[45]$");
  patients.Print("of Bonn, with care level 4 or 5");
#ifdef VX_HAS_DRAWING
  if (argc == 3) Draw(patients, argv[2]);
#endif
  patients.Bar.Reset();
  patients.Print("after the reset");
} catch (const vx::Exception& e) {
  std::fprintf(stderr, "%s\n", e.what());
  return 1;
}
