// An item of the filter bar, and the list of them.
//
// Threads: all of it belongs to the thread of its window.
#pragma once

#include <memory>
#include <span>

#include "controls/uVxFilter/FilterTypes.h"
#include "controls/uVxFilter/TVxFilterCore.h"
#include "controls/uVxFilter/TVxFilterForm.h"
#include "platform/Method.h"
#include "platform/TCollection.h"
#include "platform/TRegEx.h"
#include "platform/TextForms.h"
#include "rendering/uDecoration/DecorationTypes.h"

namespace vx {

class TCsvView;
class TImageList;
class TVxFilter;

// The item at index n tests column n. Setters repaint the bar; those of the value tell it of the change, too.
class TVxFilterItem : public TCollectionItem {
 public:
  TVxFilterItem();
  ~TVxFilterItem() override;
  String ClassName() const override { return u"TVxFilterItem"; }

  // --- the test ---
  // Whether a cell and the object beside it pass.
  bool Check(std::u16string_view aValue, TObject* aObject) const { return iFilterCore->Check(aValue, aObject); }
  // What is to be found; several values are a commatext. See TVxFilterText.h for texts. A wrong regular expression
  // raises ERegularExpressionError, and the value stays what it was.
  const String& GetValue() const noexcept { return iValue; }
  void SetValue(const String& aText);
  // The cells of the value; setting none empties it.
  TCells GetValues() const { return ReadCommatext(iValue); }
  void SetValues(std::span<const String> Values) { SetValue(WriteCommatext(Values)); }
  // The expression by which a cell matches aValue: of a value that begins with "=" what follows, as it stands.
  // Otherwise the values, trimmed and escaped, with "|" between; empty ones count for nothing, and if none is left the
  // expression matches all. "[\w\W]*" stands where a value is open: at each end without "!" or, with StrictValues,
  // with "*".
  //
  // It passes more than Check does: nothing binds it to the ends of a cell, so that a cell need only contain what
  // Check wants to be at an end or the whole; and with a "*" inside a value it looks for that character. It also folds
  // some letters that Check tells apart, such as s and U+017F.
  String BuildRegEx(std::u16string_view aValue) const;
  // Of a value that begins with "="; the one before stays when another value is set.
  const TRegEx& GetRegEx() const noexcept { return iRegEx; }
  // The object that ftData looks for; not owned. nullptr passes all.
  TObject* GetData() const noexcept { return iData; }
  void SetData(TObject* Value);

  // --- its kind ---
  TFilterType GetFilterType() const noexcept { return iFilterType; }
  void SetFilterType(TFilterType Value);
  TFilterMultiSelect GetMultiSelect() const noexcept { return iMultiSelect; }
  void SetMultiSelect(TFilterMultiSelect Value);
  bool GetStrictValues() const noexcept { return iStrictValues; }
  void SetStrictValues(bool Value);
  // The column lies in the fixed border, at the left or the right, and is never filtered. SetItem finds it out.
  bool GetIsFixedCol() const noexcept { return iIsFixedCol; }
  void SetIsFixedCol(bool Value);
  // Not owned; has to live as long as it is set. Setting it calls SetItem.
  TCsvView* GetCsvV() const noexcept { return iCsvV; }
  void SetCsvV(TCsvView* Value);
  // Looks at the view and takes the core that the column needs; one of the same class stays.
  void SetItem();
  // A new core of the class that the item needs; nullptr if the present one is of that class.
  [[nodiscard]] std::unique_ptr<TVxFilterCore> GetFilterCore2();
  // Of ftAuto what the column calls for; ftText without a view. ftNone for a fixed column. ftAuto for a column whose
  // values tell looks at them, until there are eight different ones.
  TFilterType GetEffectiveType() const;
  TVxFilterCore& GetFilterCore() const noexcept { return *iFilterCore; }

  // --- its look ---
  // "FilterItem" and its number, counted from 1, at first.
  const String& GetName() const noexcept { return iName; }
  void SetName(const String& Value) { iName = Value; }
  String GetDisplayName() const { return iName; }
  // In pixels of the bar, as Realign found it; 50 wide at first.
  int GetLeft() const noexcept { return iLeft; }
  void SetLeft(int Value);
  int GetWidth() const noexcept { return iWidth; }
  void SetWidth(int Value);
  // Not owned; nullptr: those of the view.
  TImageList* GetImageList() const noexcept { return iImageList; }
  void SetImageList(TImageList* Value);
  // Paints a value in the window and in the bar: Row is a row that has it, counted in all rows of the view. Decoration
  // is a plain one.
  const TCallbackPostDraw& GetOnDrawCol() const noexcept { return iOnDrawCol; }
  void SetOnDrawCol(TCallbackPostDraw Value);
  const TNotifyEvent& GetOnClick() const noexcept { return iOnClick; }
  void SetOnClick(TNotifyEvent Value) noexcept { iOnClick = Value; }
  // The bar; nullptr for none.
  TVxFilter* GetFilter() const noexcept;

  // --- the user ---
  // OnClick, then the window.
  void Click();
  // The window, made at its first use; the item's. Its button switches MultiSelect between fmsYes and fmsNo.
  TVxFilterForm& GetFilterForm();
  const TFilterButton& GetMsBtn() { return GetFilterForm().GetButton(); }
  // As SetValue, for a value that was chosen from a list, which has to be the whole cell; see TVxFilterText.h.
  void PickValue(const String& aText);
  bool GetIsPicked() const noexcept { return FIsPicked; }

 private:
  friend class TVxFilter;
  // Tells once of each regular expression that was given up on a cell.
  void TellStopped();
  void TakeValue(const String& aText, bool IsPicked);
  void Refresh();
  void FormChanged(TObject* Sender);
  void FormKeyPress(TObject* Sender, char16_t& Key);
  void FormButton(TObject* Sender);

  TCsvView* iCsvV = nullptr;
  TObject* iData = nullptr;
  std::unique_ptr<TVxFilterCore> iFilterCore;
  TFilterType iFilterType = ftAuto;
  TImageList* iImageList = nullptr;
  bool iIsFixedCol = false;
  int iLeft = 0;
  String iName;
  TNotifyEvent iOnClick;
  TCallbackPostDraw iOnDrawCol;
  bool iStrictValues = false;
  String iValue;
  int iWidth = 50;
  TFilterMultiSelect iMultiSelect = fmsAuto;
  TRegEx iRegEx;
  std::unique_ptr<TVxFilterForm> iFilterForm;
  bool FIsPicked = false;
  bool FIsToldStopped = false;
};

class TVxFilterItems : public TCollection {
 public:
  // Without a bar for nullptr.
  explicit TVxFilterItems(TVxFilter* Filter = nullptr) noexcept : FFilter(Filter) {}
  String ClassName() const override { return u"TVxFilterItems"; }
  TVxFilterItem& Get(int Index) const { return static_cast<TVxFilterItem&>(GetItem(Index)); }
  // A new item, which is the list's. It follows the bar's view.
  TVxFilterItem& Add() { return Named(TCollection::Add()); }
  TVxFilterItem& Insert(int Index) { return Named(TCollection::Insert(Index)); }
  TVxFilter* GetFilter() const noexcept { return FFilter; }

 protected:
  std::unique_ptr<TCollectionItem> NewItem() override;
  void Update(TCollectionItem* Item) override;

 private:
  TVxFilterItem& Named(TCollectionItem& Item);
  TVxFilter* FFilter;
};

}  // namespace vx
