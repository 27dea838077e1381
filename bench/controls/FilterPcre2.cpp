#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

#include "bench/controls/FilterPeers.h"
#include "bench/support/Bench.h"

namespace vx::bench {

struct TPcre2Expression::TImpl {
  pcre2_code_16* Code;
  pcre2_match_data_16* Data;
};

TPcre2Expression::TPcre2Expression(std::u16string_view Pattern) : FImpl(std::make_unique<TImpl>()) {
  int error;
  PCRE2_SIZE offset;
  FImpl->Code = pcre2_compile_16(reinterpret_cast<PCRE2_SPTR16>(Pattern.data()), Pattern.size(),
                                 PCRE2_UTF | PCRE2_UCP | PCRE2_CASELESS, &error, &offset, nullptr);
  Expect(FImpl->Code != nullptr && pcre2_jit_compile_16(FImpl->Code, PCRE2_JIT_COMPLETE) == 0, "PCRE2's expression");
  FImpl->Data = pcre2_match_data_create_16(1, nullptr);
}

TPcre2Expression::~TPcre2Expression() {
  pcre2_match_data_free_16(FImpl->Data);
  pcre2_code_free_16(FImpl->Code);
}

// As any text is matched: PCRE2 looks whether it is whole UTF-16, as we do.
bool TPcre2Expression::IsMatch(std::u16string_view Text) const {
  return pcre2_match_16(FImpl->Code, reinterpret_cast<PCRE2_SPTR16>(Text.data()), Text.size(), 0, 0, FImpl->Data,
                        nullptr) >= 0;
}

bool TPcre2Expression::IsMatchOfWhole(std::u16string_view Text) const {
  return pcre2_jit_match_16(FImpl->Code, reinterpret_cast<PCRE2_SPTR16>(Text.data()), Text.size(), 0, 0, FImpl->Data,
                            nullptr) >= 0;
}

}  // namespace vx::bench
