#include "tools/vxtab/SpreadsheetParts.h"

#include <zip.h>

#include <cstring>

#include "platform/Paths.h"
#include "tools/vxtab/Arguments.h"

namespace vx::vxtab {

namespace {

constexpr zip_uint64_t kMostBytes = zip_uint64_t{1} << 30;  // of a part; what is packed may claim any size

const char* Chars(const xmlChar* Text) { return reinterpret_cast<const char*>(Text); }

}  // namespace

TArchive::TArchive(const String& Path) {
  int error = 0;
  FZip = zip_open(ToNativePath(Path).c_str(), ZIP_RDONLY, &error);
  if (FZip == nullptr) {
    throw TFailure(error == ZIP_ER_NOENT ? "there is no such file" : "is no spreadsheet file that can be read");
  }
}

TArchive::~TArchive() { zip_discard(FZip); }

bool TArchive::Has(const std::string& Part) const { return zip_name_locate(FZip, Part.c_str(), 0) >= 0; }

std::string TArchive::Read(const std::string& Part) const {
  std::string content;
  zip_stat_t stat;
  if (zip_stat(FZip, Part.c_str(), 0, &stat) != 0) return content;
  zip_file_t* const file = zip_fopen(FZip, Part.c_str(), 0);
  const bool isReadable = file != nullptr && (stat.valid & ZIP_STAT_SIZE) != 0 && stat.size <= kMostBytes;
  if (isReadable) content.resize(stat.size);
  const zip_int64_t count = isReadable ? zip_fread(file, content.data(), stat.size) : -1;
  if (file != nullptr) zip_fclose(file);
  if (count < 0 || static_cast<zip_uint64_t>(count) != stat.size) throw TFailure("its part " + Part + " can't be read");
  return content;
}

TPart::TPart(std::string_view Content)
    : FReader(xmlReaderForMemory(Content.data(), static_cast<int>(Content.size()), nullptr, nullptr,
                                 XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING)) {
  if (!FReader) throw TFailure("a part of it can't be read");
}

bool TPart::Next() {
  const int result = xmlTextReaderRead(FReader.get());
  if (result < 0) throw TFailure("a part of it is no XML");
  return result == 1;
}

bool TPart::IsAt(int Kind, const char* Name) const {
  return xmlTextReaderNodeType(FReader.get()) == Kind &&
         std::strcmp(Chars(xmlTextReaderConstLocalName(FReader.get())), Name) == 0;
}

bool TPart::Opens(const char* Name) const { return IsAt(XML_READER_TYPE_ELEMENT, Name); }
bool TPart::IsEmpty() const { return xmlTextReaderIsEmptyElement(FReader.get()) == 1; }
bool TPart::Closes(const char* Name) const {
  return IsAt(XML_READER_TYPE_END_ELEMENT, Name) || (Opens(Name) && IsEmpty());
}

std::string_view TPart::Text() const {
  const int kind = xmlTextReaderNodeType(FReader.get());
  const bool isText = kind == XML_READER_TYPE_TEXT || kind == XML_READER_TYPE_CDATA ||
                      kind == XML_READER_TYPE_SIGNIFICANT_WHITESPACE || kind == XML_READER_TYPE_WHITESPACE;
  const xmlChar* const value = isText ? xmlTextReaderConstValue(FReader.get()) : nullptr;
  return value != nullptr ? std::string_view(Chars(value)) : std::string_view();
}

bool TPart::HasAttribute(const char* Name) const {
  xmlChar* const value = xmlTextReaderGetAttribute(FReader.get(), reinterpret_cast<const xmlChar*>(Name));
  xmlFree(value);
  return value != nullptr;
}

std::string TPart::Attribute(const char* Name) const {
  xmlChar* const value = xmlTextReaderGetAttribute(FReader.get(), reinterpret_cast<const xmlChar*>(Name));
  std::string text = value != nullptr ? Chars(value) : "";
  xmlFree(value);
  return text;
}

}  // namespace vx::vxtab
