// Two small operations that show how reports nest, for who learns or tries the unit.
#pragma once

namespace vx {

// A report whose arguments report, and actions within an action. Each ends in one dialog unless an interrupt is set.
void TestErrorHandling();
void TestBeginEndAction();

}  // namespace vx
