#include "platform/TCustomEdit.h"

#include "tests/support/EditContract.h"

namespace vx {
namespace {

TEST(TPlainEdit, KeepsTheContract) {
  TPlainEdit line;
  test::ExpectEditContract(line);
}

}  // namespace
}  // namespace vx
