#include <algorithm>
#include <charconv>
#include <map>
#include <vector>

#include "platform/Text.h"
#include "tools/vxtab/Arguments.h"
#include "tools/vxtab/SheetCells.h"
#include "tools/vxtab/SpreadsheetParts.h"
#include "tools/vxtab/Spreadsheets.h"

namespace vx::vxtab {

namespace {

// Of a sheet; a small file may claim any number.
constexpr size_t kMostCells = 100'000'000, kMostRows = size_t{1} << 20;

struct TSheetPart {
  std::string Name, Part;
};

// Rows that grow to their last cell with a text.
class TSheetRows {
 public:
  void Put(size_t Row, size_t Col, String Text) {
    if (Text.empty()) return;
    FWidth = std::max(FWidth, Col + 1);
    if (Row >= kMostRows || std::max(FRows.size(), Row + 1) * FWidth > kMostCells) {
      throw TFailure("the sheet has too many cells");
    }
    if (Row >= FRows.size()) FRows.resize(Row + 1);
    if (Col >= FRows[Row].size()) FRows[Row].resize(Col + 1);
    FRows[Row][Col] = std::move(Text);
  }
  void AddTo(TFileCsv& Table) {
    for (TCells& row : FRows) {
      row.resize(FWidth);
      Table.AddRow(std::span<const String>(row));
    }
  }

 private:
  std::vector<TCells> FRows;
  size_t FWidth = 0;
};

// "_x000D_" stands for the character of that number.
String Unescaped(const std::string& Bytes) {
  String text = String::FromUtf8(Bytes);
  if (Bytes.find("_x") == Bytes.npos) return text;
  std::u16string result;
  const std::u16string_view view = text;
  for (size_t pos = 0; pos < view.size(); ++pos) {
    unsigned unit = 0;
    const bool isEscape = view.size() - pos >= 7 && view[pos] == u'_' && view[pos + 1] == u'x' && view[pos + 6] == u'_';
    std::string digits;
    for (size_t i = 2; isEscape && i < 6; ++i) digits += view[pos + i] < 0x80 ? static_cast<char>(view[pos + i]) : '?';
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), unit, 16);
    const bool isGood = isEscape && read.ec == std::errc() && read.ptr == digits.data() + digits.size();
    result += isGood ? static_cast<char16_t>(unit) : view[pos];
    if (isGood) pos += 6;
  }
  return String(result);
}

double NumberOf(const std::string& Text, bool& IsGood) {
  double value = 0;
  const auto read = std::from_chars(Text.data(), Text.data() + Text.size(), value);
  IsGood = read.ec == std::errc() && read.ptr == Text.data() + Text.size() && !Text.empty();
  return value;
}

size_t IndexOf(const std::string& Text) { return static_cast<size_t>(std::max(ParseNumber(Text), 0)); }

// The texts within an element, but for the readings of ideographs.
std::string TextsWithin(TPart& Part, const char* Element) {
  std::string text;
  bool isIn = false, isReading = false;
  while (!Part.Closes(Element) && Part.Next()) {
    if (Part.Opens("rPh")) isReading = !Part.IsEmpty();
    if (Part.Opens("t")) isIn = !Part.IsEmpty();
    if (isIn && !isReading) text += Part.Text();
    if (Part.Closes("t")) isIn = false;
    if (Part.Closes("rPh")) isReading = false;
  }
  return text;
}

// --- Office Open XML ---

std::vector<String> SharedTexts(const TArchive& Archive) {
  std::vector<String> texts;
  const std::string content = Archive.Read("xl/sharedStrings.xml");
  if (content.empty()) return texts;
  for (TPart part(content); part.Next();) {
    if (part.Opens("si")) texts.push_back(Unescaped(TextsWithin(part, "si")));
  }
  return texts;
}

// The formats of cells by their numbers.
std::vector<TSheetFormat> CellFormats(const TArchive& Archive) {
  std::map<std::string, TSheetFormat> codes;
  std::vector<TSheetFormat> formats;
  const std::string content = Archive.Read("xl/styles.xml");
  if (content.empty()) return formats;
  bool isOfCells = false;
  for (TPart part(content); part.Next();) {
    if (part.Opens("numFmt")) codes[part.Attribute("numFmtId")] = FormatOfCode(part.Attribute("formatCode"));
    if (part.Opens("cellXfs")) isOfCells = true;
    if (isOfCells && part.Opens("xf")) {
      const std::string number = part.Attribute("numFmtId");
      const auto code = codes.find(number);
      formats.push_back(code != codes.end() ? code->second : FormatOfNumber(IndexOf(number)));
    }
    if (part.Closes("cellXfs")) isOfCells = false;
  }
  return formats;
}

std::vector<TSheetPart> SheetsOf(const TArchive& Archive) {
  std::map<std::string, std::string> targets;
  const std::string relations = Archive.Read("xl/_rels/workbook.xml.rels");
  const std::string book = Archive.Read("xl/workbook.xml");
  if (relations.empty() || book.empty()) throw TFailure("is no spreadsheet file that can be read");
  for (TPart part(relations); part.Next();) {
    if (part.Opens("Relationship")) targets[part.Attribute("Id")] = part.Attribute("Target");
  }
  std::vector<TSheetPart> sheets;
  for (TPart part(book); part.Next();) {
    if (!part.Opens("sheet")) continue;
    const std::string target = targets[part.Attribute("r:id")];
    sheets.push_back({part.Attribute("name"), target.starts_with('/') ? target.substr(1) : "xl/" + target});
  }
  return sheets;
}

class TSheetReader {
 public:
  explicit TSheetReader(const TArchive& Archive) : FTexts(SharedTexts(Archive)), FFormats(CellFormats(Archive)) {}

  void Read(const std::string& Content, TSheetRows& Rows) const {
    size_t row = 0, col = 0;
    for (TPart part(Content); part.Next();) {
      if (part.Opens("row")) {
        const size_t told = IndexOf(part.Attribute("r"));
        row = told > 0 ? told : row + 1;
        col = 0;
      } else if (part.Opens("c")) {
        const std::string place = part.Attribute("r");
        col = place.empty() ? col + 1 : ColumnOf(place);
        String text = CellText(part);
        if (row == 0 || col == 0) throw TFailure("a cell of the sheet has no place");
        Rows.Put(row - 1, col - 1, std::move(text));
      }
    }
  }

 private:
  // Counted from 1; 0 if there is none.
  static size_t ColumnOf(const std::string& Place) {
    constexpr size_t kMost = 16384;
    size_t col = 0;
    for (char letter : Place) {
      if (letter < 'A' || letter > 'Z') break;
      col = col * 26 + static_cast<size_t>(letter - 'A') + 1;
      if (col > kMost) return 0;
    }
    return col;
  }
  String CellText(TPart& Part) const {
    const std::string type = Part.Attribute("t");
    const size_t style = IndexOf(Part.Attribute("s"));
    std::string value, inlined;
    for (bool isValue = false; !Part.Closes("c") && Part.Next();) {
      if (Part.Opens("is")) inlined = TextsWithin(Part, "is");
      if (Part.Opens("v")) isValue = !Part.IsEmpty();
      if (isValue) value += Part.Text();
      if (Part.Closes("v")) isValue = false;
    }
    if (type == "inlineStr") return Unescaped(inlined);
    if (type == "s") {
      const size_t index = IndexOf(value);
      return index < FTexts.size() ? FTexts[index] : String();
    }
    bool isNumber = false;
    const double number = NumberOf(value, isNumber);
    if (!isNumber || (!type.empty() && type != "n")) return Unescaped(value);
    return TextOfValue(number, style < FFormats.size() ? FFormats[style] : sfNumber);
  }

  std::vector<String> FTexts;
  std::vector<TSheetFormat> FFormats;
};

// --- Open Document ---

// "2026-12-24T13:45:00" and "PT13H45M00S" as the library writes such values; else the text itself.
String OpenDate(const std::string& Value) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0;
  double second = 0;
  const int count = std::sscanf(Value.c_str(), "%4d-%2d-%2dT%2d:%2d:%lf", &year, &month, &day, &hour, &minute, &second);
  char text[64];
  if (count == 3) {
    std::snprintf(text, sizeof text, "%02d.%02d.%04d", day, month, year);
  } else if (count == 6) {
    std::snprintf(text, sizeof text, "%02d.%02d.%04d %02d:%02d:%02.0f", day, month, year, hour, minute, second);
  } else {
    return String::FromUtf8(Value);
  }
  return String::FromUtf8(text);
}
String OpenTime(const std::string& Value) {
  int hour = 0, minute = 0;
  double second = 0;
  if (std::sscanf(Value.c_str(), "PT%dH%dM%lfS", &hour, &minute, &second) != 3) return String::FromUtf8(Value);
  char text[64];
  std::snprintf(text, sizeof text, "%02d:%02d:%02.0f", hour, minute, second);
  return String::FromUtf8(text);
}

// The paragraphs of a cell with line feeds between, without notes; Part stands on the cell then.
std::string Paragraphs(TPart& Part) {
  std::string text;
  bool isFirst = true, isIn = false;
  int notes = 0;
  const auto isCellEnd = [&] { return Part.Closes("table-cell") || Part.Closes("covered-table-cell"); };
  while (!isCellEnd() && Part.Next()) {
    if (Part.Opens("annotation") && !Part.IsEmpty()) ++notes;
    if (notes == 0) {
      if (Part.Opens("p")) {
        if (!isFirst) text += '\n';
        isFirst = false;
        isIn = !Part.IsEmpty();
      }
      if (Part.Opens("s"))
        text.append(Part.HasAttribute("text:c") ? IndexOf(Part.Attribute("text:c")) % 65536 : 1, ' ');
      if (Part.Opens("tab")) text += '\t';
      if (Part.Opens("line-break")) text += '\n';
      if (isIn) text += Part.Text();
      if (Part.Closes("p")) isIn = false;
    }
    if (Part.Closes("annotation") && !Part.IsEmpty()) --notes;
  }
  return text;
}

String OpenCell(TPart& Part) {
  const std::string type = Part.Attribute("office:value-type");
  const std::string value = Part.Attribute("office:value"), truth = Part.Attribute("office:boolean-value");
  const std::string date = Part.Attribute("office:date-value"), time = Part.Attribute("office:time-value");
  const bool hasText = Part.HasAttribute("office:string-value");
  const std::string told = Part.Attribute("office:string-value");
  const std::string text = Paragraphs(Part);
  bool isNumber = false;
  const double number = NumberOf(value, isNumber);
  if (isNumber && (type == "float" || type == "percentage" || type == "currency")) return TextOfValue(number, sfNumber);
  if (type == "boolean") return truth == "true" ? u"1" : u"0";
  if (type == "date") return OpenDate(date);
  if (type == "time") return OpenTime(time);
  return String::FromUtf8(hasText ? told : text);
}

void ReadOpenSheet(TPart& Part, TSheetRows& Rows) {
  size_t row = 0, col = 0, rowTimes = 1;
  std::vector<std::pair<size_t, String>> cells;
  while (!Part.Closes("table") && Part.Next()) {
    if (Part.Opens("table-row")) {
      rowTimes = std::max<size_t>(IndexOf(Part.Attribute("table:number-rows-repeated")), 1);
      col = 0;
      cells.clear();
    }
    if (Part.Opens("table-cell") || Part.Opens("covered-table-cell")) {
      const size_t times = std::max<size_t>(IndexOf(Part.Attribute("table:number-columns-repeated")), 1);
      const String text = OpenCell(Part);
      for (size_t i = 0; !text.empty() && i < times; ++i) {
        if (cells.size() == kMostCells) throw TFailure("the sheet has too many cells");
        cells.emplace_back(col + i, text);
      }
      col += times;
    }
    if (!Part.Closes("table-row")) continue;
    for (size_t i = 0; !cells.empty() && i < rowTimes; ++i) {
      for (const auto& [at, text] : cells) Rows.Put(row + i, at, text);
    }
    row += rowTimes;
  }
}

std::vector<TSheetPart> OpenSheetsOf(const std::string& Content) {
  std::vector<TSheetPart> sheets;
  for (TPart part(Content); part.Next();) {
    if (part.Opens("table")) sheets.push_back({part.Attribute("table:name"), {}});
  }
  return sheets;
}

// --- both ---

size_t Choose(const std::vector<TSheetPart>& Sheets, const std::string& Name) {
  std::string names;
  for (size_t i = 0; i < Sheets.size(); ++i) {
    if (Name.empty() || Sheets[i].Name == Name) return i;
    names += (i > 0 ? ", " : "") + Sheets[i].Name;
  }
  if (const size_t number = IndexOf(Name); number > 0 && number <= Sheets.size()) return number - 1;
  throw TFailure(Sheets.empty() ? "there is no sheet" : "there is no sheet '" + Name + "'; there are " + names);
}

}  // namespace

std::vector<std::string> ReadSpreadsheet(const String& Path, const std::string& Sheet, TFileCsv& Table) {
  const TArchive archive(Path);
  TSheetRows rows;
  std::vector<TSheetPart> sheets;
  if (archive.Has("xl/workbook.xml")) {
    sheets = SheetsOf(archive);
    TSheetReader(archive).Read(archive.Read(sheets[Choose(sheets, Sheet)].Part), rows);
  } else {
    const std::string content = archive.Read("content.xml");
    if (content.empty()) throw TFailure("is no spreadsheet file that can be read");
    sheets = OpenSheetsOf(content);
    TPart part(content);
    for (size_t left = Choose(sheets, Sheet) + 1; left > 0 && part.Next();) left -= part.Opens("table");
    ReadOpenSheet(part, rows);
  }
  rows.AddTo(Table);
  std::vector<std::string> names;
  for (const TSheetPart& sheet : sheets) names.push_back(sheet.Name);
  return names;
}

}  // namespace vx::vxtab
