#include "platform/TPopupMenu.h"

#include <memory>

#include "platform/Hook.h"

namespace vx {

namespace {

THook<TShowPopup>& ShowHook() {
  static THook<TShowPopup>& hook = *new THook<TShowPopup>;
  return hook;
}

}  // namespace

void TMenuItem::Click() {
  if (CanBeTaken() && FOnClick) FOnClick(this);
}

TMenuItem& TPopupMenu::AddItem(const String& Caption, TNotifyEvent OnClick) {
  auto item = std::make_unique<TMenuItem>(Caption);
  item->SetOnClick(OnClick);
  FItems.Add(item.get());
  return *item.release();
}

TMenuItem* TPopupMenu::Popup(int X, int Y) {
  if (FOnPopup) FOnPopup(this);
  const auto show = ShowHook().Get();
  TMenuItem* taken = show ? (*show)(*this, X, Y) : nullptr;
  if (FItems.IndexOf(taken) < 0 || !taken->CanBeTaken()) return nullptr;
  taken->Click();
  return taken;
}

TShowPopup SetShowPopup(TShowPopup Show) { return ShowHook().Exchange(std::move(Show)); }

}  // namespace vx
