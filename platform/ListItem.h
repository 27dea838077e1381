// An item of a list view.
//
//   TListItem       caption, sub-items, data, selection
//   TListSubItems   the texts of the other columns, with their objects
//
// Example:
//   vx::TListItem item;                       // a list view makes its own by AddItem
//   item.SetCaption(u"Müller");
//   item.SubItems().Add(u"Anna");
//   item.GetSubItems().Get(0);                // u"Anna"
//
// A program's own kind of items may say caption and sub-items by overriding the two.
//
// Threads: all of it belongs to the thread of its window; a program without windows uses it in one thread at a time.
#pragma once

#include <memory>
#include <vector>

#include "platform/TObject.h"
#include "platform/TStrings.h"

namespace vx {

class TListView;

class TListSubItems final : public TStrings {
 public:
  // View, which outlives the list, is told of changes; nullptr for none.
  explicit TListSubItems(TListView* View = nullptr) noexcept : FView(View) {}
  String ClassName() const override { return u"TListSubItems"; }
  String Get(int Index) const override;
  void Put(int Index, const String& Text) override;
  TObject* GetObject(int Index) const override;
  void PutObject(int Index, TObject* Object) override;
  int GetCount() const override { return static_cast<int>(FTexts.size()); }
  void Insert(int Index, const String& Text) override;
  void Delete(int Index) override;
  void Clear() override;

 private:
  size_t Checked(int Index, int Count) const;
  void Changed();

  std::vector<String> FTexts;
  std::vector<TObject*> FObjects;  // as far as any was set
  TListView* FView;
};

class TListItem : public TObject {
 public:
  explicit TListItem(TListView* View = nullptr) noexcept : FView(View), FSubItems(View) {}
  String ClassName() const override { return u"TListItem"; }

  // The text of the first column.
  virtual String GetCaption() const { return FCaption; }
  void SetCaption(const String& Value);
  // The texts of the other columns, with their objects; they stay the item's.
  virtual const TStrings& GetSubItems() const { return FSubItems; }
  TListSubItems& SubItems() noexcept { return FSubItems; }
  // Free for the program; not owned.
  TObject* GetData() const noexcept { return FData; }
  void SetData(TObject* Value) noexcept { FData = Value; }
  bool GetSelected() const noexcept { return FSelected; }
  // In a view without MultiSelect all others are no longer selected then.
  void SetSelected(bool Value);
  // The view that the item is in, and its place there; nullptr and -1 for one of no view.
  TListView* GetView() const noexcept { return FView; }
  int GetIndex() const;

 private:
  friend class TListView;
  String FCaption;
  TListView* FView;
  TObject* FData = nullptr;
  TListSubItems FSubItems;
  mutable int FIndex = -1;  // where it stood when it was asked last
  bool FSelected = false;
};

}  // namespace vx
