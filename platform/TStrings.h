// The protocol of every list of texts.
//
//   TStrings       an ordered list of texts, each with an object pointer beside it
//   TUpdateScope   BeginUpdate and EndUpdate around a block
//
// Indexes count from 0. An index outside the list raises EStringListError with SListIndexError. The
// protocol never frees an object; a derived list may own its objects and then says so.
//
// Example:
//   list.SetTextStr(u"one\r\ntwo\nthree");     // three items
//   list.SetCommaText(u"one,\"two, too\"");    // two items
//   vx::String line = list.GetCommaText();     // u"one,\"two, too\""
//
// Threads: several may read one at once through its const members; who changes it has to be alone with it.
#pragma once

#include <exception>
#include <span>

#include "platform/TObject.h"

namespace vx {

class TStrings : public TObject {
 public:
  String ClassName() const override { return u"TStrings"; }

  virtual String Get(int Index) const = 0;
  virtual void Put(int Index, const String& Text);
  virtual TObject* GetObject(int Index) const;
  virtual void PutObject(int Index, TObject* Object);
  virtual int GetCount() const = 0;
  virtual int GetCapacity() const { return GetCount(); }
  virtual void SetCapacity(int) {}

  // Appends and returns the index of the item.
  virtual int Add(const String& Text);
  virtual int AddObject(const String& Text, TObject* Object);
  // Index may be the count.
  virtual void Insert(int Index, const String& Text) = 0;
  virtual void InsertObject(int Index, const String& Text, TObject* Object);
  virtual void Delete(int Index) = 0;
  virtual void Clear() = 0;
  virtual void Exchange(int A, int B);
  // Takes the item out at From and puts it in so that it stands at To, with its object.
  virtual void Move(int From, int To);
  // The first item equal to Text by CompareStrings, -1 if there is none.
  virtual int IndexOf(std::u16string_view Text) const;
  // Appends all items with their objects.
  virtual void AddStrings(const TStrings& Strings);
  // Makes this list hold the items and objects of Source; Source may be this list.
  virtual void Assign(const TStrings& Source);

  // Changes between the two are one change; pairs may nest.
  void BeginUpdate();
  void EndUpdate();
  int GetUpdateCount() const noexcept { return FUpdateCount; }

  // The items as one text, every one followed by carriage return and line feed.
  virtual String GetTextStr() const;
  // Replaces the items by the lines of Text: a line ends at a carriage return, a line feed or both.
  // What follows the last line end is a line only if it is not empty. A code unit 0 ends the text.
  virtual void SetTextStr(std::u16string_view Text);
  // The text of the list: what GetTextStr gives and SetTextStr takes.
  String GetText() const { return GetTextStr(); }
  void SetText(std::u16string_view Text) { SetTextStr(Text); }
  // The items joined by commas; an item with a code unit from 0 to 32, a double quote or a comma
  // stands in double quotes. One empty item gives two double quotes. Reading takes blanks outside
  // quotes for separators too, as does writing's counterpart Commatext of the lists of texts.
  String GetCommaText() const;
  void SetCommaText(std::u16string_view Text);
  // Same number of items and the same texts, compared by code units.
  bool Equals(const TStrings& Other) const;

 protected:
  TStrings() = default;
  TStrings(const TStrings&) = delete;
  TStrings& operator=(const TStrings&) = delete;

  // The order that IndexOf goes by: AnsiCompareText unless overridden.
  virtual int CompareStrings(std::u16string_view A, std::u16string_view B) const;
  // Called with true when the first BeginUpdate is made and with false at the last EndUpdate. It may raise; the
  // update count is right then, too.
  virtual void SetUpdateState(bool Updating);
  [[noreturn]] static void RaiseListError(std::u16string_view Pattern, int Value);

 private:
  int FUpdateCount = 0;
};

// Keeps a list between BeginUpdate and EndUpdate, also when an error passes. What the list's SetUpdateState raises at
// the end reaches the caller like any other error; if one is on its way already, that one goes on alone.
class TUpdateScope {
 public:
  explicit TUpdateScope(TStrings& Strings) : FStrings(Strings), FErrors(std::uncaught_exceptions()) {
    FStrings.BeginUpdate();
  }
  ~TUpdateScope() noexcept(false);
  TUpdateScope(const TUpdateScope&) = delete;
  TUpdateScope& operator=(const TUpdateScope&) = delete;

 private:
  TStrings& FStrings;
  int FErrors;  // that were on their way at the beginning
};

}  // namespace vx
