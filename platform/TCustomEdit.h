// An editor of one line of text: what a program asks of it, and what it tells.
//
//   TCustomEdit     text, cursor, selection, and what is shown beside the text
//   TEditEvents     keys, changes and focus, told to who looks after the editor
//   TPlainEdit      an editor without a screen, which is typed into by calls
//
// Example:
//   vx::TPlainEdit edit;
//   edit.Enter();
//   edit.Type(u"Pflege");
//   edit.Down(vx::vkLeft);
//   edit.Type(u"\b?");      // \b is the key Backspace
//   edit.GetText();         // u"Pfle?e"
//
// Places are between code units and count from 0, the place before the first one. Places and lengths that lie outside
// the text are held to it.
//
// Threads: all of it belongs to the thread of its window; a program without windows uses it in one thread at a time.
//
// Pitfall: MaxLength holds for what the user types and pastes, not for SetText and SetSelText.
#pragma once

#include <cstdint>

#include "platform/Graphics.h"
#include "platform/Keys.h"
#include "platform/String.h"
#include "platform/TObject.h"

namespace vx {

class TBitmap;

// A widget calls these before it does anything itself.
class TEditEvents {
 public:
  virtual ~TEditEvents() = default;
  // A key went down, one of vkUp and so on. Who sets Key to 0 has dealt with it, and the widget does nothing more.
  virtual void KeyDown(uint16_t& Key, TShiftState Shift) = 0;
  // A character was typed; chBack and so on are characters, too. Key as above.
  virtual void KeyPress(char16_t& Key) = 0;
  // The text has changed, by whom ever.
  virtual void Change() = 0;
  virtual void DoEnter() = 0;
  virtual void DoExit() = 0;
};

// What stands before and behind the text and is no part of it. The images stay the caller's and may be nullptr.
struct TEditSides {
  String PreStr, PostStr;
  const TBitmap* PreImage = nullptr;
  const TBitmap* PostImage = nullptr;
  friend bool operator==(const TEditSides& A, const TEditSides& B) noexcept = default;
};

// Whether the value is a good one, and how it looks if not.
struct TEditStatus {
  bool IsValid = true;
  bool IsShown = true;                  // else the editor looks alike for all values
  TColor InvalidColor = clRed;          // of the text
  const TBitmap* ErrorImage = nullptr;  // beside the text; stays the caller's
  friend bool operator==(const TEditStatus& A, const TEditStatus& B) noexcept = default;
};

class TCustomEdit : public TObject {
 public:
  // Who is told what happens; nullptr for nobody. Stays the caller's.
  virtual void SetEvents(TEditEvents* Events) = 0;

  virtual String GetText() const = 0;
  // The cursor goes to the beginning and nothing is selected.
  virtual void SetText(const String& Text) = 0;
  // Where the selection begins, or the cursor stands if nothing is selected.
  virtual int GetSelStart() const = 0;
  // Puts the cursor there; nothing is selected any more.
  virtual void SetSelStart(int Place) = 0;
  virtual int GetSelLength() const = 0;
  // Selects so many code units from GetSelStart on.
  virtual void SetSelLength(int Length) = 0;
  // Puts Text in the place of the selection, and the cursor behind it.
  virtual void SetSelText(std::u16string_view Text) = 0;
  String GetSelText() const { return GetText().Slice(GetSelStart(), GetSelLength()); }

  // The most code units that may be typed; 0 for any number.
  virtual int GetMaxLength() const = 0;
  virtual void SetMaxLength(int Length) = 0;
  virtual bool GetReadOnly() const = 0;
  virtual void SetReadOnly(bool IsReadOnly) = 0;
  virtual TAlignment GetAlignment() const = 0;
  virtual void SetAlignment(TAlignment Alignment) = 0;
  // Whether the editor stands on a form, so that somebody can hear of changes.
  virtual bool HasForm() const = 0;

  virtual void ShowSides(const TEditSides& Sides) = 0;
  virtual void ShowStatus(const TEditStatus& Status) = 0;
  // A short text beside the editor; an empty one takes it away.
  virtual void ShowHint(const String& Hint) = 0;
};

// Behaves as editors of desktops do; what would be shown can be asked for. Stands on a form unless told otherwise.
class TPlainEdit : public TCustomEdit {
 public:
  TPlainEdit() noexcept = default;
  String ClassName() const override { return u"TPlainEdit"; }

  // What a user does. Enter selects the whole text. Type gives each code unit as a character. Down moves the cursor
  // by vkLeft, vkRight, vkHome and vkEnd, with ssShift selects, and removes by vkDelete. Paste cuts what is too long.
  void Enter();
  void Exit();
  void Type(std::u16string_view Keys);
  void Down(uint16_t Key, TShiftState Shift = {});
  void Paste(std::u16string_view Text);

  const TEditSides& GetSides() const noexcept { return FSides; }
  const TEditStatus& GetStatus() const noexcept { return FStatus; }
  const String& GetHint() const noexcept { return FHint; }
  void SetHasForm(bool HasForm) noexcept { FHasForm = HasForm; }

  void SetEvents(TEditEvents* Events) override { FEvents = Events; }
  String GetText() const override { return FText; }
  void SetText(const String& Text) override;
  int GetSelStart() const override;
  void SetSelStart(int Place) override;
  int GetSelLength() const override;
  void SetSelLength(int Length) override;
  void SetSelText(std::u16string_view Text) override;
  int GetMaxLength() const override { return FMaxLength; }
  void SetMaxLength(int Length) override { FMaxLength = Length; }
  bool GetReadOnly() const override { return FIsReadOnly; }
  void SetReadOnly(bool IsReadOnly) override { FIsReadOnly = IsReadOnly; }
  TAlignment GetAlignment() const override { return FAlignment; }
  void SetAlignment(TAlignment Alignment) override { FAlignment = Alignment; }
  bool HasForm() const override { return FHasForm; }
  void ShowSides(const TEditSides& Sides) override { FSides = Sides; }
  void ShowStatus(const TEditStatus& Status) override { FStatus = Status; }
  void ShowHint(const String& Hint) override { FHint = Hint; }

 private:
  void TypeUnit(char16_t Key);
  void MoveTo(int Place, bool IsSelecting) noexcept;
  void Remove(int Step);
  int Held(int Place) const noexcept;

  TEditEvents* FEvents = nullptr;
  String FText, FHint;
  int FAnchor = 0, FCursor = 0;  // the two ends of the selection
  int FMaxLength = 0;
  bool FIsReadOnly = false, FHasForm = true;
  TAlignment FAlignment = taLeftJustify;
  TEditSides FSides;
  TEditStatus FStatus;
};

}  // namespace vx
