// The parts of spreadsheet files, which are archives of XML. Internal to the readers of Spreadsheets.
#pragma once

#include <libxml/xmlreader.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/String.h"

struct zip;

namespace vx::vxtab {

class TArchive {
 public:
  // Raises TFailure if it is none.
  explicit TArchive(const String& Path);
  ~TArchive();
  TArchive(const TArchive&) = delete;
  TArchive& operator=(const TArchive&) = delete;
  bool Has(const std::string& Part) const;
  // The whole part; empty if it is missing. TFailure if it can't be read or is larger than any sheet.
  std::string Read(const std::string& Part) const;

 private:
  ::zip* FZip;
};

// Walks the elements of a part.
class TPart {
 public:
  // Content has to stay as long.
  explicit TPart(std::string_view Content);
  // Goes to the next node; false at the end. TFailure for XML that is none.
  bool Next();
  // Of names their parts behind the colon.
  bool Opens(const char* Name) const;
  bool Closes(const char* Name) const;  // also where an element is empty
  bool IsEmpty() const;
  // The text of a node of text; empty for others.
  std::string_view Text() const;
  // Of an element; empty if it is missing. Name with the prefix that files give it.
  std::string Attribute(const char* Name) const;
  bool HasAttribute(const char* Name) const;

 private:
  struct TFree {
    void operator()(xmlTextReader* Reader) const { xmlFreeTextReader(Reader); }
  };
  bool IsAt(int Kind, const char* Name) const;
  std::unique_ptr<xmlTextReader, TFree> FReader;
};

}  // namespace vx::vxtab
