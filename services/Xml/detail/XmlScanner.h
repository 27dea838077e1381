// Goes through an XML text piece by piece and checks that it is well-formed. Internal to Xml.
#pragma once

#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "services/Xml/TXmlReader.h"
#include "services/Xml/detail/XmlInput.h"

namespace vx::detail {

// What views of names and texts stand in.
struct TXmlTexts {
  std::unique_ptr<char16_t[]> Units;
  std::deque<std::u16string> Others;  // which had no room there
};

class TXmlScanner {
 public:
  TXmlScanner(TXmlInput Input, const TXmlLimits& Limits);
  TXmlScanner(const TXmlScanner&) = delete;
  TXmlScanner& operator=(const TXmlScanner&) = delete;

  // Goes to the next piece; false at the end and at a fault.
  bool Next();
  bool Skip();
  // All views stand as long as the texts.
  TXmlTexts TakeTexts() { return std::move(FTexts); }

  // The present piece, see TXmlReader.
  TXmlPiece Piece = xpNone;
  bool IsEmptyTag = false;
  int Depth = 0;
  std::u16string_view Name, Text;
  std::vector<TXmlReadAttribute> Attributes;
  int64_t Line = 1, Column = 1;
  TXmlFault Fault;
  TXmlForm Form;

 private:
  struct TEntity {
    std::u16string_view Text;  // numbers resolved, other references as they stand
    bool IsExternal = false;
    bool IsOpen = false;  // while it is expanded
  };
  struct TDeclaredAttribute {
    std::u16string_view Name, Default;
    bool IsPlain = true;  // its blanks stand as they are
    bool HasDefault = false;
  };
  // A text that is put together where it stands, or beside it as soon as it needs more room.
  class TPieces;

  // --- places and faults ---
  void GoTo(const char16_t* Pos) noexcept;
  void Mark() noexcept;
  // Always false. At is where it went wrong.
  bool Fail(TXmlFaultKind Kind, const char16_t* At, std::u16string_view Detail = {});
  bool Expect(char16_t Unit);

  // --- steps; all stand at the beginning of what they take, and give false at a fault ---
  bool SkipBlanks() noexcept;
  bool StandsAt(std::u16string_view Word) const noexcept;
  bool TakeName(std::u16string_view& Taken);
  bool TakeLiteral(std::u16string_view& Value);
  bool TakeDeclaration();
  bool TakeDeclared(std::u16string_view Word, std::u16string_view& Value);
  bool TakeEncoding();
  bool TakeOutside();
  bool TakeInside();
  bool TakeStart();
  bool TakeAttribute();
  bool TakeValue(std::u16string_view& Value);
  bool TakeEnd();
  void PutEnd();
  bool TakeText();
  bool TakeCData();
  bool TakeComment();
  bool TakeInstruction();
  // --- references ---
  bool TakeReference(TPieces& Pieces, bool InValue);
  bool TakeNumber(char32_t& Character);
  bool Expand(std::u16string_view Literal, std::u16string_view Entity, bool InValue, const char16_t* At,
              std::u16string& Expanded);
  bool ExpandNext(std::u16string_view& Rest, std::u16string_view Entity, bool InValue, const char16_t* At,
                  std::u16string& Expanded, TEntity*& Opened);
  bool FindEntity(std::u16string_view EntityName, const char16_t* At, TEntity*& Entity);
  // --- the document type ---
  bool TakeDoctype();
  bool TakeExternalId(bool NeedsSystem);
  bool TakeSubset();
  bool TakeEntity();
  bool TakeEntityText(std::u16string_view& Value);
  bool TakeAttributeList();
  bool TakeDeclaredAttribute(TDeclaredAttribute& Attribute);
  bool TakeAttributeType(bool& IsPlain);
  bool TakeDefault(TDeclaredAttribute& Attribute);
  bool SkipMarkup(std::u16string_view Word);
  bool PassBlanks();
  void AddDeclared();
  std::u16string_view KeepText(std::u16string Kept) { return FTexts.Others.emplace_back(std::move(Kept)); }

  TXmlTexts FTexts;
  char16_t* FPos;
  char16_t* FEnd;
  const char16_t* FSeen;  // up to there lines are counted
  int64_t FLine = 1, FColumn = 1;
  TXmlInput FInput;  // without its units
  TXmlLimits FLimits;
  std::vector<std::u16string_view> FOpen;  // names
  std::set<std::u16string_view> FNames;    // of many attributes
  std::map<std::u16string_view, TEntity> FEntities;
  std::map<std::u16string_view, std::vector<TDeclaredAttribute>> FDeclared;      // by the names of elements
  std::set<std::pair<std::u16string_view, std::u16string_view>> FDeclaredNames;  // of elements and attributes
  int64_t FExpanded = 0;
  bool FIsBegun = false, FIsDone = false, FHasRoot = false, FHasDoctype = false, FEndsEmpty = false;
};

class TXmlScanner::TPieces {
 public:
  TPieces(char16_t* First, TXmlTexts& Texts) noexcept : FFirst(First), FOut(First), FKept(First), FTexts(Texts) {}
  // All from what was taken last up to there belongs to the text.
  void KeepUpTo(char16_t* Pos) {
    const auto count = static_cast<size_t>(Pos - FKept);
    if (FOther != nullptr) {
      FOther->append(FKept, count);
    } else {
      if (FOut != FKept) std::char_traits<char16_t>::move(FOut, FKept, count);
      FOut += count;
    }
    FKept = Pos;
  }
  // More stands for what goes up to Next.
  void Put(std::u16string_view More, char16_t* Next) {
    if (FOther == nullptr && More.size() > static_cast<size_t>(Next - FOut)) {
      FOther = &FTexts.Others.emplace_back(FFirst, FOut);
    }
    if (FOther != nullptr) {
      FOther->append(More);
    } else {
      FOut = std::copy(More.begin(), More.end(), FOut);
    }
    FKept = Next;
  }
  // Up to there.
  std::u16string_view Finish(char16_t* Pos) {
    KeepUpTo(Pos);
    return FOther != nullptr ? std::u16string_view(*FOther)
                             : std::u16string_view(FFirst, static_cast<size_t>(FOut - FFirst));
  }

 private:
  char16_t* FFirst;
  char16_t* FOut;
  char16_t* FKept;
  TXmlTexts& FTexts;
  std::u16string* FOther = nullptr;
};

}  // namespace vx::detail
