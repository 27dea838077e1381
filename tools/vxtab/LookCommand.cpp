#include "tools/vxtab/LookCommand.h"

#include <array>
#include <optional>
#include <sstream>
#include <utility>

#include "services/uHandleFile.h"
#include "tools/vxtab/CommandHelpers.h"
#include "tools/vxtab/LookFiles.h"

namespace vx::vxtab {

namespace {

constexpr std::array kTypes = {vftUnknown,  vftShortString, vftString, vftBoolean,  vftInteger, vftFloat, vftDate,
                               vftTime,     vftCommatext,   vftImage,  vftDateTime, vftStatus,  vftHour,  vftCurrency,
                               vftFraction, vftTinyHTML,    vftToggle, vftGrafic,   vftButton};

// The members that the words of an option name, "left,top" for one.
template <typename E, size_t kCount>
Set<E> ReadWords(const char* Option, const std::string& Value, const std::pair<const char*, E> (&Known)[kCount]) {
  Set<E> result;
  std::istringstream words(Value);
  for (std::string word; std::getline(words, word, ',');) {
    bool isKnown = false;
    std::string names;
    for (const auto& [name, member] : Known) {
      names += (names.empty() ? "" : ", ") + std::string(name);
      if (word != name) continue;
      result.Include(member);
      isKnown = true;
    }
    if (!isKnown) throw TUsageError("--" + std::string(Option) + ' ' + Value + ": known are " + names);
  }
  return result;
}

constexpr std::pair<const char*, TAlign> kSides[] = {
    {"left", alLeft}, {"right", alRight}, {"top", alTop}, {"bottom", alBottom}, {"centre", alClient}};
constexpr std::pair<const char*, TFontStyle> kStyles[] = {
    {"bold", fsBold}, {"italic", fsItalic}, {"underlined", fsUnderline}, {"struck", fsStrikeOut}};

// A name such as clYellow, "#RRGGBB" as the web has it, or a number as the library writes it.
TColor ReadColor(const char* Option, const std::string& Value) {
  const bool isWeb = Value.size() == 7 && Value[0] == '#';
  TColor color = 0;
  if (!TryStringToColor(String::FromUtf8(isWeb ? "$" + Value.substr(1) : Value), color)) {
    throw TUsageError("--" + std::string(Option) + ' ' + Value + ": neither a name such as clYellow nor #RRGGBB");
  }
  return isWeb ? (color & 0xFF) << 16 | (color & 0xFF00) | color >> 16 : color;
}

// The options of one call, put into a look.
class TLookChange {
 public:
  TLookChange(const TContext& Context, TDecorationList& Look) : FContext(Context), FArgs(Context.Args), FLook(Look) {}

  void Apply() {
    ChangeTable();
    if (TDecoration* item = FindItem()) ChangeItem(*item);
  }

 private:
  std::optional<std::string> Value(const char* Option) const {
    if (!FArgs.Has(Option)) return {};
    return FArgs.Values(Option).back();
  }
  void ChangeTable() {
    if (const auto text = Value("title")) FLook.SetTitle(String::FromUtf8(*text));
    if (const auto text = Value("subtitle")) FLook.SetSubTitle(String::FromUtf8(*text));
    FLook.SetZebraLines(FArgs.Number("zebra", FLook.GetZebraLines()));
    FLook.SetPrintPageColumns(FArgs.Number("strips", FLook.GetPrintPageColumns()));
    TRect fixed = FLook.GetFixed();
    fixed.Top = FArgs.Number("head", fixed.Top);
    fixed.Bottom = FArgs.Number("foot", fixed.Bottom);
    fixed.Left = FArgs.Number("left", fixed.Left);
    FLook.SetFixed(fixed);
  }
  // The decoration that the call is about, made where there is none; nullptr if it sets nothing of one.
  TDecoration* FindItem() {
    const auto column = Value("col");
    const bool hasRow = FArgs.Has("row");
    if (column && hasRow) throw TUsageError("--col and --row are two regions; take one");
    if (hasRow) {
      const int row = FArgs.Number("row", 0);
      return FLook.GetRange(rtRow, -1, row, -1, row, true);
    }
    if (column) {
      const auto table = Load(FContext);
      const int index = ColumnNamed(FContext, table->Table, FArgs.File(0), String::FromUtf8(*column));
      return FLook.GetRange(rtColumn, index, -1, index, -1, true);
    }
    for (const char* option :
         {"type", "format", "align", "color", "text-color", "style", "size", "width-min", "width-max"}) {
      if (FArgs.Has(option)) return FLook.GetRange(rtAll, -1, -1, -1, -1, true);
    }
    return nullptr;
  }
  void ChangeItem(TDecoration& Item) {
    if (FArgs.Has("type")) Item.SetFieldType(TypeOption(FArgs, kTypes, vftUnknown));
    if (const auto text = Value("format")) Item.SetFormatString(String::FromUtf8(*text));
    if (const auto text = Value("align")) Item.SetAlignSet(ReadWords("align", *text, kSides));
    if (const auto text = Value("color")) Item.SetColor(ReadColor("color", *text));
    Item.SetWidthMin(FArgs.Number("width-min", Item.GetWidthMin()));
    Item.SetWidthMax(FArgs.Number("width-max", Item.GetWidthMax()));
    if (!FArgs.Has("text-color") && !FArgs.Has("style") && !FArgs.Has("size")) return;
    TFont font = Item.GetFont();
    if (const auto text = Value("text-color")) font.Color = ReadColor("text-color", *text);
    if (const auto text = Value("style")) font.Style = ReadWords("style", *text, kStyles);
    font.Size = FArgs.Number("size", font.Size);
    Item.SetFont(font);
  }

  const TContext& FContext;
  const TArguments& FArgs;
  TDecorationList& FLook;
};

}  // namespace

void RunLook(const TContext& Context) {
  const TArguments& args = Context.Args;
  if (args.FileCount() == 1) {
    TellLook(*LoadLook(args.File(0)), Context.Out);
    return;
  }
  const std::string& name = args.File(1);
  auto look = VxFileExists(String::FromUtf8(name)) ? LoadLook(name) : std::make_unique<TDecorationList>();
  TLookChange(Context, *look).Apply();
  SaveLook(*look, name, Context.Reporter);
}

}  // namespace vx::vxtab
