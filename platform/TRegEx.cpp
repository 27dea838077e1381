#include "platform/TRegEx.h"

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

#include <algorithm>
#include <atomic>
#include <mutex>

#include "platform/Format.h"
#include "platform/Scan.h"
#include "platform/Text.h"

namespace vx {

namespace {

// A text up to this length is tried at first without counting steps, held by PCRE2's limit for each of its places.
constexpr size_t kShortText = 1000;
constexpr uint32_t kShortLimit = 2000;
// The steps that a counted try may take: so many, and so many more for each code unit.
constexpr int64_t kSteps = 2'000'000;
constexpr int64_t kStepsPerUnit = 50;
// An expression that has lost so many steps in tries that were given up has only this many for the next ones.
constexpr int64_t kLostSteps = 500'000'000;
constexpr int64_t kStepsWhenLost = 2'000;
// An expression that is too large to be counted is tried on texts up to this length all the same, with a limit
// for each place that falls with the length.
constexpr size_t kLongestUncounted = 64 * 1024;
constexpr size_t kUncountedLimit = 100'000'000;
constexpr uint32_t kHeapKilobytes = 64 * 1024;
constexpr uint32_t kNoLimit = 1'000'000'000;

template <auto FFree>
struct TFree {
  template <typename T>
  void operator()(T* Object) const noexcept {
    FFree(Object);
  }
};
template <typename T>
T* Checked(T* Object) {
  if (Object == nullptr) throw std::bad_alloc();
  return Object;
}
using TCodePtr = std::unique_ptr<pcre2_code_16, TFree<pcre2_code_free_16>>;
using TContextPtr = std::unique_ptr<pcre2_match_context_16, TFree<pcre2_match_context_free_16>>;

// What a thread needs for matching, made at its first match.
struct TScratch {
  TScratch() {
    pcre2_set_match_limit_16(Short.get(), kShortLimit);
    pcre2_set_match_limit_16(Counted.get(), kNoLimit);
    for (const TContextPtr* context : {&Short, &Plain, &Counted}) {
      pcre2_set_depth_limit_16(context->get(), kNoLimit);
      pcre2_set_heap_limit_16(context->get(), kHeapKilobytes);
    }
    pcre2_jit_stack_assign_16(Counted.get(), nullptr, Stack.get());
  }
  std::unique_ptr<pcre2_match_data_16, TFree<pcre2_match_data_free_16>> Data{
      Checked(pcre2_match_data_create_16(1, nullptr))};
  std::unique_ptr<pcre2_jit_stack_16, TFree<pcre2_jit_stack_free_16>> Stack{
      Checked(pcre2_jit_stack_create_16(32 * 1024, size_t{kHeapKilobytes} * 1024, nullptr))};
  TContextPtr Short{Checked(pcre2_match_context_create_16(nullptr))};
  TContextPtr Plain{Checked(pcre2_match_context_create_16(nullptr))};
  TContextPtr Counted{Checked(pcre2_match_context_create_16(nullptr))};
};

TScratch& NewScratch(TScratch*& Place) {
  thread_local TScratch scratch;
  return *(Place = &scratch);
}

// A pointer is asked in less time than whether the value is there.
TScratch& Scratch() {
  static constinit thread_local TScratch* scratch = nullptr;
  return scratch != nullptr ? *scratch : NewScratch(scratch);
}

// Counts the steps of a match, which calls it before each piece of the expression that it tries.
struct TWatch {
  int64_t Left;
  int64_t PerCall;  // what a piece may do without anybody noticing
  size_t At = 0;

  static int Call(pcre2_callout_block_16* Block, void* Data) {
    auto& watch = *static_cast<TWatch*>(Data);
    const size_t at = Block->current_position;
    watch.Left -= watch.PerCall + (at > watch.At ? static_cast<int64_t>(at - watch.At) : 0);
    watch.At = at;
    return watch.Left < 0 ? PCRE2_ERROR_CALLOUT : 0;
  }
};

// The first half of a pair, or either half, without the other one; End if there is none.
const char16_t* FindLoneSurrogate(const char16_t* First, const char16_t* End) {
  auto isHalf = [](char16_t unit, char16_t base) { return (unit & 0xFC00) == base; };
  for (const char16_t* at = First;; at += 2) {
    at = scan::FindSurrogate(at, End);
    if (at == End) return End;
    if (!isHalf(*at, 0xD800) || at + 1 == End || !isHalf(at[1], 0xDC00)) return at;
  }
}

// Text with U+FFFD for each half of a pair that stands alone. Copy holds it where it is another one.
std::u16string_view WholePairs(std::u16string_view Text, String& Copy) {
  const char16_t* end = Text.data() + Text.size();
  const char16_t* found = FindLoneSurrogate(Text.data(), end);
  if (found == end) return Text;
  Copy = Text;
  char16_t* units = Copy.MutableData();
  char16_t* last = units + Text.size();
  for (const char16_t* at = units; (at = FindLoneSurrogate(at, last)) != last; ++at) units[at - units] = 0xFFFD;
  return Copy;
}

uint32_t CompileOptions(TRegExOptions Options) {
  uint32_t result = PCRE2_UTF | PCRE2_UCP | PCRE2_NO_UTF_CHECK | PCRE2_NEVER_BACKSLASH_C;
  for (auto [option, flag] : {std::pair{roIgnoreCase, PCRE2_CASELESS},
                              {roMultiLine, PCRE2_MULTILINE},
                              {roExplicitCapture, PCRE2_NO_AUTO_CAPTURE},
                              {roSingleLine, PCRE2_DOTALL},
                              {roIgnorePatternSpace, PCRE2_EXTENDED}}) {
    if (Options.Has(option)) result |= flag;
  }
  return result;
}

[[noreturn]] void RaiseFault(int Error, size_t Offset) {
  char16_t text[256];
  const int length =
      std::max(pcre2_get_error_message_16(Error, reinterpret_cast<PCRE2_UCHAR16*>(text), std::size(text)), 0);
  const int offset = static_cast<int>(Offset);
  throw ERegularExpressionError(Format(u"Error in regular expression at offset %d: %s",
                                       {offset, String(std::u16string_view(text, static_cast<size_t>(length)))}),
                                offset);
}

TCodePtr Compile(std::u16string_view Pattern, TRegExOptions Options, uint32_t More = 0) {
  String copy;
  const std::u16string_view pattern = WholePairs(Pattern, copy);
  std::unique_ptr<pcre2_compile_context_16, TFree<pcre2_compile_context_free_16>> context(
      Checked(pcre2_compile_context_create_16(nullptr)));
  pcre2_set_newline_16(context.get(), PCRE2_NEWLINE_ANYCRLF);
  int error = 0;
  size_t offset = 0;
  TCodePtr code(pcre2_compile_16(reinterpret_cast<PCRE2_SPTR16>(pattern.empty() ? u"" : pattern.data()), pattern.size(),
                                 CompileOptions(Options) | More, &error, &offset, context.get()));
  if (code == nullptr) RaiseFault(error, offset);
  // An expression that can't be compiled into instructions is matched all the same.
  if (Options.Has(roCompiled)) pcre2_jit_compile_16(code.get(), PCRE2_JIT_COMPLETE);
  return code;
}

bool HasInstructions(const pcre2_code_16* Code) {
  size_t size = 0;
  pcre2_pattern_info_16(Code, PCRE2_INFO_JITSIZE, &size);
  return size > 0;
}

// The largest number behind a "{": so many code units one piece may walk before it fails.
int64_t LargestRepeat(std::u16string_view Pattern) {
  int64_t result = 0;
  for (size_t i = 0; i < Pattern.size(); ++i) {
    if (Pattern[i] != u'{') continue;
    int64_t number = 0;
    while (i + 1 < Pattern.size() && IsDigit(Pattern[i + 1]) && number < 100'000)
      number = 10 * number + Pattern[++i] - u'0';
    result = std::max(result, number);
  }
  return result;
}

}  // namespace

struct TRegEx::TCode {
  TCode(std::u16string_view aPattern, TRegExOptions aOptions)
      : Pattern(aPattern),
        Options(aOptions),
        Code(Compile(aPattern, aOptions)),
        IsCompiled(HasInstructions(Code.get())),
        MatchOptions(aOptions.Has(roNotEmpty) ? PCRE2_NOTEMPTY : 0) {}

  // What PCRE2 gives: not below 0 for a match, PCRE2_ERROR_NOMATCH for none, less for a try that was given up.
  int Match(std::u16string_view Text, uint32_t Limit) const;
  // Whether Text matches, with an eye on the steps that it takes.
  bool MatchWatched(std::u16string_view Text);

  const String Pattern;
  const TRegExOptions Options;
  const TCodePtr Code;
  const bool IsCompiled;
  const uint32_t MatchOptions;
  std::atomic<bool> WasStopped{false};

 private:
  int MatchCounted(const pcre2_code_16* Counted, std::u16string_view Text);
  const pcre2_code_16* GetCounted();

  // The same expression, but one that counts its steps; made when a match first needs it.
  std::once_flag FCountedFlag;
  TCodePtr FCounted;
  int64_t FStepsPerCall = 1;
  bool FHasReferences = false;
  std::atomic<int64_t> FLost{0};
};

int TRegEx::TCode::Match(std::u16string_view Text, uint32_t Limit) const {
  TScratch& scratch = Scratch();
  const auto text = reinterpret_cast<PCRE2_SPTR16>(Text.data());
  pcre2_match_context_16* context = Limit == kShortLimit ? scratch.Short.get() : scratch.Plain.get();
  if (Limit != kShortLimit) pcre2_set_match_limit_16(context, Limit);
  if (IsCompiled)
    return pcre2_jit_match_16(Code.get(), text, Text.size(), 0, MatchOptions, scratch.Data.get(), context);
  return pcre2_match_16(Code.get(), text, Text.size(), 0, MatchOptions | PCRE2_NO_UTF_CHECK, scratch.Data.get(),
                        context);
}

// Null where the calls that count would make it too large.
const pcre2_code_16* TRegEx::TCode::GetCounted() {
  std::call_once(FCountedFlag, [&] {
    try {
      FCounted = Compile(Pattern, Options, PCRE2_AUTO_CALLOUT);
    } catch (const ERegularExpressionError&) {
      return;
    }
    FStepsPerCall = 1 + LargestRepeat(Pattern) / 16;
    uint32_t references = 0;
    pcre2_pattern_info_16(FCounted.get(), PCRE2_INFO_BACKREFMAX, &references);
    FHasReferences = references > 0;
  });
  return FCounted.get();
}

bool TRegEx::TCode::MatchWatched(std::u16string_view Text) {
  const pcre2_code_16* counted = GetCounted();
  int result = PCRE2_ERROR_CALLOUT;
  if (counted != nullptr)
    result = MatchCounted(counted, Text);
  else if (Text.size() <= kLongestUncounted)
    result = Match(Text, static_cast<uint32_t>(kUncountedLimit / (Text.size() + 1)));
  if (result < PCRE2_ERROR_NOMATCH) WasStopped.store(true, std::memory_order_relaxed);
  return result >= 0;
}

int TRegEx::TCode::MatchCounted(const pcre2_code_16* Counted, std::u16string_view Text) {
  const auto size = static_cast<int64_t>(Text.size());
  const bool hasLost = FLost.load(std::memory_order_relaxed) > kLostSteps;
  const int64_t steps = (hasLost ? kStepsWhenLost : kSteps) + kStepsPerUnit * size;
  TWatch watch{steps, FStepsPerCall + (FHasReferences ? size / 16 : 0)};
  TScratch& scratch = Scratch();
  pcre2_set_callout_16(scratch.Counted.get(), &TWatch::Call, &watch);
  const int result = pcre2_match_16(Counted, reinterpret_cast<PCRE2_SPTR16>(Text.data()), Text.size(), 0,
                                    MatchOptions | PCRE2_NO_UTF_CHECK, scratch.Data.get(), scratch.Counted.get());
  if (result < PCRE2_ERROR_NOMATCH) FLost.fetch_add(steps - watch.Left, std::memory_order_relaxed);
  return result;
}

TRegEx::TRegEx(std::u16string_view Pattern, TRegExOptions Options) : FCode(std::make_shared<TCode>(Pattern, Options)) {}

bool TRegEx::IsMatch(std::u16string_view Text) const {
  if (FCode == nullptr) return false;
  String copy;
  const std::u16string_view text = Text.empty() ? std::u16string_view(u"") : WholePairs(Text, copy);
  if (text.size() <= kShortText) {
    const int result = FCode->Match(text, kShortLimit);
    if (result >= PCRE2_ERROR_NOMATCH) return result >= 0;
  }
  return FCode->MatchWatched(text);
}

String TRegEx::Escape(std::u16string_view Text) {
  constexpr std::u16string_view kSpecial = u"\\.[]()?*+{}^$|";
  auto isSpecial = [&](char16_t unit) { return kSpecial.find(unit) != kSpecial.npos; };
  const auto count = static_cast<size_t>(std::count_if(Text.begin(), Text.end(), isSpecial));
  return String::Build(Text.size() + count, [&](char16_t* to) {
    for (char16_t unit : Text) {
      if (isSpecial(unit)) *to++ = u'\\';
      *to++ = unit;
    }
  });
}

String TRegEx::GetPattern() const { return FCode != nullptr ? FCode->Pattern : String(); }
TRegExOptions TRegEx::GetOptions() const noexcept { return FCode != nullptr ? FCode->Options : TRegExOptions(); }
bool TRegEx::GetWasStopped() const noexcept {
  return FCode != nullptr && FCode->WasStopped.load(std::memory_order_relaxed);
}

}  // namespace vx
