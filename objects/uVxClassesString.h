// Templates: texts with placeholders that are searched once and filled many times.
//
//   TVxStringReplacer      a text, cut into constant pieces and placeholders
//   TVxStringReplacePart   a piece; TVxStringReplaceConst and TVxStringReplaceVar within the replacer are its kinds
//   VxStringReplace        replaces once
//
// Example (a form letter):
//   const vx::String holders[] = {u"%Name%", u"%Ort%"};
//   const vx::String meier[] = {u"Meier", u"Bonn"}, schmidt[] = {u"Schmidt", u"Köln"};
//   vx::TVxStringReplacer letter;
//   letter.ReplaceString(u"%Name% aus %Ort%", holders, meier, true).ToString();   // u"Meier aus Bonn"
//   letter.Replace(schmidt).ToString();                                            // u"Schmidt aus Köln"
//
// Filling again searches nothing, and a text is printed with one allocation.
//
// Threads: an object is for one at a time; different objects may be used at once.
//
// Pitfalls:
//   - Search strings that overlap in the text all print: u"abc" with u"ab" and u"bc" for u"1" and u"2" gives u"12".
//     No search string is favoured. Of matches at one place the search string with the higher index prints first.
//   - Replacements are not searched again.
#pragma once

#include <initializer_list>
#include <span>
#include <vector>

#include "platform/TObjectList.h"

namespace vx {

class TVxStringReplacePart : public TObject {
 public:
  TVxStringReplacePart(String Text, int Pos, int HolderLng) noexcept
      : iText(std::move(Text)), iPos(Pos), iHolderLen(HolderLng) {}
  String ClassName() const override { return u"TVxStringReplacePart"; }

  // What this piece prints.
  const String& GetText() const noexcept { return iText; }
  void SetText(const String& Value) noexcept { iText = Value; }
  // Where the match stands in the text that was searched, counted from 1; 0 for a constant.
  int GetPos() const noexcept { return iPos; }
  // The length of the search string; 0 for a constant.
  int GetHolderLng() const noexcept { return iHolderLen; }

 private:
  String iText;
  int iPos;
  int iHolderLen;
};

class TVxStringReplacer : public TObject {
 public:
  // A piece of the text that was searched.
  class TVxStringReplaceConst : public TVxStringReplacePart {
   public:
    explicit TVxStringReplaceConst(String Text) noexcept : TVxStringReplacePart(std::move(Text), 0, 0) {}
    String ClassName() const override { return u"TVxStringReplaceConst"; }
  };
  // A placeholder.
  class TVxStringReplaceVar : public TVxStringReplacePart {
   public:
    TVxStringReplaceVar(String Text, int Pos, int HolderLng, int ArrayIndex) noexcept
        : TVxStringReplacePart(std::move(Text), Pos, HolderLng), iArrayIndex(ArrayIndex) {}
    String ClassName() const override { return u"TVxStringReplaceVar"; }
    // The index of the search string, and so of the replacement, counted from 0.
    int GetArrayIndex() const noexcept { return iArrayIndex; }

   private:
    int iArrayIndex;
  };

  TVxStringReplacer() noexcept = default;
  String ClassName() const override { return u"TVxStringReplacer"; }

  // Cuts Text at all matches of the search strings Holders and puts Replacers in their places; returns this replacer.
  // Holders without a replacement, and empty ones, are not searched for. Matches of one search string do not
  // overlap. Without CaseSensitive letters match by LowerCase of Text.h; what is not replaced keeps its case.
  TVxStringReplacer& ReplaceString(const String& Text, std::span<const String> Holders,
                                   std::span<const String> Replacers, bool CaseSensitive);
  // Puts new replacements in all placeholders; returns this replacer. With fewer than ReplaceString was given nothing
  // changes, those beyond are ignored.
  TVxStringReplacer& Replace(std::span<const String> Replacers);
  // Puts Text in the placeholders of the search string ArrayIndex, if there are any; returns this replacer.
  TVxStringReplacer& ReplaceItemText(int ArrayIndex, const String& Text);
  // The text as it is filled now. 2^31 code units and more raise std::length_error.
  String ToString() const;

  // Set when a placeholder is made; never reset but by SetDirty.
  bool GetDirty() const noexcept { return iDirty; }
  void SetDirty(bool Value) noexcept { iDirty = Value; }
  // The pieces in the order in which they print; they stay the replacer's until the next ReplaceString. Indexes count
  // from 0; one outside raises EListError.
  int GetCount() const noexcept { return iList.GetCount(); }
  TVxStringReplacePart& GetPart(int Index) const { return static_cast<TVxStringReplacePart&>(*iList.Get(Index)); }

 private:
  void Build(const String& Text, std::span<const uint64_t> Matches, std::span<const String> Holders,
             std::span<const String> Replacers);

  TObjectList iList;
  bool iDirty = false;
  int iReplacerArrLength = 0;
  std::vector<TVxStringReplaceVar*> iVars;  // the placeholders among the pieces
};

// Text with all matches of Holders replaced, with regard to case: ReplaceString and ToString.
String VxStringReplace(const String& Text, std::span<const String> Holders, std::span<const String> Replacers);
inline String VxStringReplace(const String& Text, std::initializer_list<String> Holders,
                              std::initializer_list<String> Replacers) {
  return VxStringReplace(Text, std::span(Holders.begin(), Holders.size()),
                         std::span(Replacers.begin(), Replacers.size()));
}

}  // namespace vx
