// Menus that come up at the mouse, without a screen.
//
//   TMenuItem                   an entry: caption, hint, what it does
//   TPopupMenu                  the entries; Popup offers them
//   TShowPopup, SetShowPopup    who shows menus: a desktop, or a script in tests
//
// Example:
//   vx::TPopupMenu menu;
//   menu.AddItem(u"nach Tag");
//   menu.AddItem(u"nach Monat");
//   auto before = vx::SetShowPopup([](vx::TPopupMenu& shown, int, int) { return &shown.GetItems(1); });
//   vx::TMenuItem* taken = menu.Popup(100, 200);
//   taken->GetCaption();                                 // u"nach Monat"
//   vx::SetShowPopup(before);
//
// Threads: all of it belongs to the thread of its window; a program without windows uses it in one thread at a time.
//
// Pitfall: unless a program sets it, nobody shows menus, and nothing is taken.
#pragma once

#include <functional>

#include "platform/Method.h"
#include "platform/TObjectList.h"

namespace vx {

class TMenuItem : public TObject {
 public:
  explicit TMenuItem(String Caption = {}) noexcept : FCaption(std::move(Caption)) {}
  String ClassName() const override { return u"TMenuItem"; }

  // "-" is a line between entries.
  const String& GetCaption() const noexcept { return FCaption; }
  void SetCaption(const String& Value) { FCaption = Value; }
  const String& GetHint() const noexcept { return FHint; }
  void SetHint(const String& Value) { FHint = Value; }
  bool GetEnabled() const noexcept { return FEnabled; }
  void SetEnabled(bool Value) noexcept { FEnabled = Value; }
  bool GetVisible() const noexcept { return FVisible; }
  void SetVisible(bool Value) noexcept { FVisible = Value; }
  bool GetChecked() const noexcept { return FChecked; }
  void SetChecked(bool Value) noexcept { FChecked = Value; }
  // Free for the program.
  int64_t GetTag() const noexcept { return FTag; }
  void SetTag(int64_t Value) noexcept { FTag = Value; }
  const TNotifyEvent& GetOnClick() const noexcept { return FOnClick; }
  void SetOnClick(TNotifyEvent Value) noexcept { FOnClick = Value; }
  // Can be taken: enabled, visible and no line.
  bool CanBeTaken() const noexcept { return FEnabled && FVisible && FCaption != u"-"; }
  // Calls OnClick, if it can be taken.
  void Click();

 private:
  String FCaption, FHint;
  bool FEnabled = true, FVisible = true, FChecked = false;
  int64_t FTag = 0;
  TNotifyEvent FOnClick;
};

class TPopupMenu : public TObject {
 public:
  String ClassName() const override { return u"TPopupMenu"; }

  // The menu's own; an index outside raises EListError.
  int GetCount() const noexcept { return FItems.GetCount(); }
  TMenuItem& GetItems(int Index) const { return *FItems.Get(Index); }
  TMenuItem& AddItem(const String& Caption, TNotifyEvent OnClick = {});
  void Delete(int Index) { FItems.Delete(Index); }
  void Clear() { FItems.Clear(); }

  // Calls OnPopup, lets the user choose at that place of the screen, and calls OnClick of the entry taken, which is
  // the result. nullptr if none was taken, also where nobody shows menus, or for what is no entry of this menu or can't
  // be taken.
  TMenuItem* Popup(int X, int Y);
  const TNotifyEvent& GetOnPopup() const noexcept { return FOnPopup; }
  void SetOnPopup(TNotifyEvent Value) noexcept { FOnPopup = Value; }

 private:
  TObjectListOf<TMenuItem> FItems;
  TNotifyEvent FOnPopup;
};

// Shows the menu at a place of the screen and returns the entry that the user took; nullptr for none. It does not call
// OnClick.
using TShowPopup = std::function<TMenuItem*(TPopupMenu& Menu, int X, int Y)>;
// Returns what was set before; an empty function takes the service away again.
TShowPopup SetShowPopup(TShowPopup Show);

}  // namespace vx
