#include "desktop/QtValues.h"

#include <gtest/gtest.h>

namespace vx {
namespace {

TEST(QtValues, ComeBackAsTheyWere) {
  for (const String& text : {String(), String(u"M\u00fcller"), String(std::u16string_view(u"a\0b", 3)),
                             String(std::u16string(1, char16_t{0xD83D}))}) {
    EXPECT_EQ(FromQt(ToQt(text)), text);
  }
  EXPECT_EQ(ColorToQt(0x563412).name().toStdString(), "#123456");
  EXPECT_EQ(ColorFromQt(ColorToQt(0x563412)), 0x563412u);
  EXPECT_EQ(ColorFromQt(ColorToQt(clBtnFace)), ColorToRGB(clBtnFace));
  EXPECT_EQ(FromQt(ToQt(TRect{-3, 4, 10, 4})), (TRect{-3, 4, 10, 4}));
}

TEST(QtValues, ButtonsAndWhatIsHeldDown) {
  EXPECT_EQ(FromQt(Qt::RightButton), mbRight);
  EXPECT_EQ(FromQt(Qt::ShiftModifier | Qt::ControlModifier, Qt::LeftButton), (TShiftState{ssShift, ssCtrl, ssLeft}));
}

}  // namespace
}  // namespace vx
