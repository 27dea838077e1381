// How an item of the filter bar tests and shows: the base, and the kinds without a value.
//
// Threads: all of it belongs to the thread of its window.
#pragma once

#include <string_view>

#include "platform/Graphics.h"
#include "platform/TObject.h"

namespace vx {

class TCanvas;
class TVxFilterForm;
class TVxFilterItem;

class TVxFilterCore : public TObject {
 public:
  // Parent owns the core.
  explicit TVxFilterCore(TVxFilterItem& aParent) noexcept : Parent(aParent) {}
  TVxFilterCore(const TVxFilterCore&) = delete;
  TVxFilterCore& operator=(const TVxFilterCore&) = delete;
  String ClassName() const override { return u"TVxFilterCore"; }

  // The user has changed text, choice or checks of the item's window, which is Sender.
  virtual void OnChange(TObject* Sender);
  // A key typed there; 0 keeps it from the text. Enter takes what the window holds and closes it, Escape closes it.
  virtual void OnKeyPress(TObject* Sender, char16_t& Key);
  // Whether several values can be chosen.
  virtual bool GetMultiSelect() const { return false; }
  // Whether a cell and the object beside it pass.
  virtual bool Check(std::u16string_view aValue, TObject* aObject) const = 0;
  // The user has clicked the item: fills its window and shows it.
  virtual void Click();
  // Makes the window what this kind needs.
  virtual void DecorateForm(TVxFilterForm& aForm) = 0;
  // The item as the bar shows it.
  virtual void Paint(TCanvas& Canvas, const TRect& Rect) = 0;
  // Prepares the tests; called after each change of the item.
  virtual void Update() {}

  TVxFilterItem& GetParent() const noexcept { return Parent; }
  // Whether every cell passes, so that none need be asked; as the last Update found it.
  bool GetPassesAll() const noexcept { return FPassesAll; }

 protected:
  // What the window holds becomes the item's value.
  virtual void TakeValue(const TVxFilterForm& /*aForm*/) {}

  TVxFilterItem& Parent;
  bool FPassesAll = false;
};

// Every row passes, and a click does nothing.
class TVxFilterNone : public TVxFilterCore {
 public:
  explicit TVxFilterNone(TVxFilterItem& aParent) noexcept : TVxFilterCore(aParent) { FPassesAll = true; }
  String ClassName() const override { return u"TVxFilterNone"; }
  bool Check(std::u16string_view /*aValue*/, TObject* /*aObject*/) const override { return true; }
  void Click() override {}
  void DecorateForm(TVxFilterForm& /*aForm*/) override {}
  void Paint(TCanvas& /*Canvas*/, const TRect& /*Rect*/) override {}
};

// Rows with the item's object beside their cell pass; without such an object all do.
class TVxFilterData : public TVxFilterCore {
 public:
  using TVxFilterCore::TVxFilterCore;
  String ClassName() const override { return u"TVxFilterData"; }
  bool Check(std::u16string_view aValue, TObject* aObject) const override;
  void Click() override {}
  void DecorateForm(TVxFilterForm& /*aForm*/) override {}
  void Paint(TCanvas& Canvas, const TRect& Rect) override;
  void Update() override;
};

}  // namespace vx
