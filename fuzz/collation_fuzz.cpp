// The order of texts and of their keys: three cells.
#include <vector>

#include "fuzz/support/Input.h"
#include "platform/Collation.h"
#include "platform/Text.h"

namespace vx::fuzz {
namespace {

int Sign(int Value) { return (Value > 0) - (Value < 0); }

template <typename TCompareTexts>
void CheckOrder(const String (&Texts)[3], TCompareTexts Compare) {
  int order[3][3];
  for (int i = 0; i < 3; ++i) {
    for (int k = 0; k < 3; ++k) order[i][k] = Sign(Compare(Texts[i], Texts[k]));
  }
  for (int i = 0; i < 3; ++i) {
    Check(order[i][i] == 0, "a text stands with itself");
    for (int k = 0; k < 3; ++k) {
      Check(order[i][k] == -order[k][i], "the order has two directions");
      int m = 3 - i - k;
      if (i == k || m == i || m == k) continue;
      if (order[i][k] <= 0 && order[k][m] <= 0) Check(order[i][m] <= 0, "the order is transitive");
      if (order[i][k] == 0 && order[k][m] == 0) Check(order[i][m] == 0, "equality is transitive");
      if (order[i][k] < 0 && order[k][m] <= 0) Check(order[i][m] < 0, "equal texts stand at one place");
    }
  }
}

struct TKeyed {
  explicit TKeyed(const String& Text) : Whole(AppendCollationKey(Text, Key)) {}
  std::vector<uint8_t> Key;
  bool Whole;
};

void CheckKeys(const TKeyed& A, const TKeyed& B, int ByText) {
  const int byKey = (A.Key > B.Key) - (A.Key < B.Key);
  Check(byKey == Sign(ByText) || (byKey == 0 && !(A.Whole && B.Whole)), "keys stand as the texts");
  std::vector<uint8_t> a = A.Key, b = B.Key;
  a.resize(A.Key.size() + B.Key.size());
  b.resize(a.size());
  Check((a > b) - (a < b) == byKey, "padded keys stand alike");
}

}  // namespace

FUZZ(Input) {
  String texts[3];
  for (String& text : texts) text = Input.Text();
  CheckOrder(texts, AnsiCompareStr);
  CheckOrder(texts, AnsiCompareText);
  for (const String& a : texts) {
    for (const String& b : texts) {
      int byText = AnsiCompareText(a, b);
      Check((AnsiCompareStr(a, b) == 0) == (a == b), "equal with regard to case: the same units");
      Check((byText == 0) == (LowerCase(a) == LowerCase(b)), "equal without regard to case: one lower case form");
      Check(byText == 0 || Sign(AnsiCompareStr(a, b)) == Sign(byText), "the case only tells equal texts apart");
      Check(AnsiSameText(a, b) == (byText == 0), "same text");
      CheckKeys(TKeyed(a), TKeyed(b), byText);
    }
  }
}

}  // namespace vx::fuzz
