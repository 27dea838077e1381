#include "tools/vxtab/LookFiles.h"

#include <algorithm>
#include <utility>

#include "platform/CodePage.h"
#include "platform/Dialogs.h"
#include "platform/SafeFiles.h"
#include "tools/vxtab/Arguments.h"
#include "tools/vxtab/TableFiles.h"

namespace vx::vxtab {

namespace {

// Whether a dialog was shown; all go on to the sink that was there before.
class TDialogWatch {
 public:
  TDialogWatch() : FBefore(SetDialogSink([this](const TDialog& dialog) { return Pass(dialog); })) {}
  ~TDialogWatch() { SetDialogSink(std::move(FBefore)); }
  TDialogWatch(const TDialogWatch&) = delete;
  TDialogWatch& operator=(const TDialogWatch&) = delete;
  bool HasSeenAny() const noexcept { return FHasSeen; }

 private:
  TModalResult Pass(const TDialog& Dialog) {
    FHasSeen = true;
    return FBefore ? FBefore(Dialog) : mrOk;
  }
  bool FHasSeen = false;
  TDialogSink FBefore;
};

}  // namespace

std::unique_ptr<TDecorationList> LoadLook(const std::string& Name) {
  auto look = std::make_unique<TDecorationList>();
  std::string bytes;
  try {
    bytes = ReadBytes(String::FromUtf8(Name));
  } catch (const Exception& e) {
    throw TFailure(e.GetMessage().ToUtf8());
  }
  TDialogWatch watch;
  look->SetCommatext(GetSystemCodePage().Decode(bytes));
  if (watch.HasSeenAny()) throw TFailure(Name + " is no whole look of a table");
  return look;
}

void SaveLook(const TDecorationList& Look, const std::string& Name, TReporter& Reporter) {
  const TCodePage& page = GetSystemCodePage();
  const String text = Look.GetCommatext();
  const std::u16string_view units = text;
  const auto lost = std::count_if(units.begin(), units.end(), [&](char16_t unit) { return !page.CanEncode(unit); });
  try {
    ReplaceFileContent(String::FromUtf8(Name), page.Encode(text));
  } catch (const Exception& e) {
    throw TFailure(e.GetMessage().ToUtf8());
  }
  if (lost == 0) return;
  Reporter.Say("note: " + Name + ": " + std::to_string(lost) + " characters are not in the code page " +
               std::to_string(page.GetNumber()) + " and come back as \"?\"");
}

}  // namespace vx::vxtab
