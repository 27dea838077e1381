#include "tables/Csv/TCsvForm.h"

#include "platform/CodePage.h"
#include "platform/Exceptions.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace vx {

namespace {

bool IsLineEnd(char16_t Unit) { return Unit == u'\r' || Unit == u'\n'; }

[[noreturn]] void Refuse(const char* Why) { throw EArgumentException(String::FromUtf8(Why)); }

}  // namespace

char16_t CsvSeparatorOf(std::u16string_view Path) {
  const String extension = LowerCase(ExtractFileExt(String(Path)));
  if (extension == u".txt") return u';';
  if (extension == u".tab" || extension == u".tsv") return u'\t';
  return extension == u".vxt" ? u'\x1B' : u',';
}

void CheckCsvForm(const TCsvForm& Form) {
  const char16_t separator = Form.Separator;
  if (IsLineEnd(separator)) Refuse("A line end can't be the separator of a table file");
  if (separator >= 0xD800 && separator < 0xE000) Refuse("A surrogate can't be the separator of a table file");
  if (Form.Quote >= 0x80 || IsLineEnd(Form.Quote)) Refuse("The quote of a table file has to be a character of ASCII");
  if (separator != 0 && separator == Form.Quote) Refuse("The separator and the quote of a table file are the same");
  const TCodePage* page = Form.CodePage == 0 ? &GetSystemCodePage() : TCodePage::Find(Form.CodePage);
  if (page == nullptr) Refuse(("Unknown code page " + std::to_string(Form.CodePage)).c_str());
  if (Form.Encoding == ceCodePage && !page->CanEncode(separator)) {
    Refuse("The code page of the table file lacks its separator");
  }
}

}  // namespace vx
