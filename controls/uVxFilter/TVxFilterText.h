// The filters of the bar that test texts.
//
// An empty value passes all cells. A value that begins with "=" is a regular expression, without regard to case, for
// the rest of it; see TRegEx. Any other value has to be in the cell, in any case; "*" in it stands for any characters,
// "!" at its beginning or end binds it to that end of the cell:
//
//   value     passes                        value     passes
//   meier     Meier, Obermeierhof           !!        empty cells
//   !meier    Meier, Meierhof               m*r       Meier, Stammer
//   meier!    Meier, Obermeier              !m*r!     Meier
//   !meier!   Meier
//
// The item's StrictValues makes the value what the whole cell has to be, save for "*": meier is Meier, *meier also
// Obermeier; "!" is a character like others then. A value that was chosen from a list counts so, too. With several
// values, which stand in a commatext, one has to match; free text is read so, too, unless fmsNo forbids it: blanks
// part values, and a value with blanks stands in quotes. A cell of commatext is tested as its lines, which CR LF joins.
#pragma once

#include "controls/uVxFilter/TVxFilterCore.h"
#include "controls/uVxFilter/detail/TextTest.h"
#include "platform/TextBuffer.h"

namespace vx {

class TVxFilterText : public TVxFilterCore {
 public:
  using TVxFilterCore::TVxFilterCore;
  String ClassName() const override { return u"TVxFilterText"; }
  // Takes the text at once, but for a regular expression, which only Enter takes.
  void OnChange(TObject* Sender) override;
  bool GetMultiSelect() const override;
  // For one thread at a time.
  bool Check(std::u16string_view aValue, TObject* aObject) const override;
  void DecorateForm(TVxFilterForm& aForm) override;
  void Paint(TCanvas& Canvas, const TRect& Rect) override;
  void Update() override;

  // Cells are commatexts.
  bool GetIsCommatext() const noexcept { return FIsCommatext; }
  void SetIsCommatext(bool Value) noexcept { FIsCommatext = Value; }

 protected:
  virtual bool doStrictValues() const;
  void TakeValue(const TVxFilterForm& aForm) override;

 private:
  bool Matches(std::u16string_view aText) const;

  bool FIsCommatext = false;
  bool FIsRegEx = false;
  detail::TTextTest FTest;
  mutable TTextBuffer FLines;
};

// One of the column's values, or a text.
class TVxFilterCBox : public TVxFilterText {
 public:
  using TVxFilterText::TVxFilterText;
  String ClassName() const override { return u"TVxFilterCBox"; }
  void DecorateForm(TVxFilterForm& aForm) override;
  void Paint(TCanvas& Canvas, const TRect& Rect) override;

 protected:
  bool doStrictValues() const override;
  void TakeValue(const TVxFilterForm& aForm) override;
};

// Several of the column's values.
class TVxFilterCheckCBox : public TVxFilterText {
 public:
  using TVxFilterText::TVxFilterText;
  String ClassName() const override { return u"TVxFilterCheckCBox"; }
  void DecorateForm(TVxFilterForm& aForm) override;
  void Paint(TCanvas& Canvas, const TRect& Rect) override;

 protected:
  bool doStrictValues() const override;
  void TakeValue(const TVxFilterForm& aForm) override;
};

// A text that is typed.
class TVxFilterTextBox : public TVxFilterText {
 public:
  using TVxFilterText::TVxFilterText;
  String ClassName() const override { return u"TVxFilterTextBox"; }
  bool GetMultiSelect() const override;
};

}  // namespace vx
