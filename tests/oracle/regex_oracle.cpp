// Compares regular expressions with PCRE2's own test program, as an independent oracle:
//   regex_oracle <directory for two files>
// Random expressions, many of them wrong, on random texts: the faults with text and position, and what matches. Exit
// status 1 for any difference; 77 where the program is missing.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "platform/TRegEx.h"

namespace {

using namespace vx;

constexpr int kExpressions = 1000;
constexpr int kTextsEach = 8;

std::vector<std::string> Words(const std::string& Text) {
  std::istringstream words(Text);
  return {std::istream_iterator<std::string>(words), {}};
}

class TGenerator {
 public:
  // Of pieces that meet each other often, now and then one that is wrong at its place.
  std::string Expression() {
    static const auto kPieces = Words(
        R"(a b ab \x{e4} \x{c4} \x{1f600} . \w \W \d \s \b \B ^ $ \A \z \R \X \. [ab] [^a] [\w\W]* [a-c\x{e4}-\x{fc}])"
        R"( [[:upper:]] \p{Lu} \p{L} \P{Ll} (?i) (?=b) (?!a) (?<=a) (?<!b) \1 (?1) (?>a+) (a)?(?(1)b|c) \Qa.b\E)"
        R"( (?s). (?m)^)");
    static const auto kRepeats = Words("* + ? {2} {1,2} *? ++ {0}");
    static const auto kWrong = Words(R"(( ) [ [b-a] * \p{Xy} \C (?<n \2 (?<=a*) \x{d800} (?P)");
    const auto any = [&](const auto& words) { return words[static_cast<size_t>(Below(words.size()))]; };
    std::string result;
    int open = 0;
    for (int count = Below(7) + 1; count > 0; --count) {
      if (Below(60) == 0) result += any(kWrong);
      const int kind = Below(10);
      if (kind < 2) {
        result += kind == 0 ? "(" : "(?:";
        ++open;
      } else if (kind == 2 && open > 0) {
        result += ')';
        --open;
      } else if (kind == 3 && !result.empty()) {
        result += '|';
      } else if (kind > 3) {
        result += any(kPieces);
      }
      if (Below(4) == 0) result += any(kRepeats);
    }
    return result + std::string(static_cast<size_t>(open), ')');
  }
  std::u32string Text() {
    static const char32_t kUnits[] = U"abcABC.0 \r\nä\u00C4_-ß\u0301\u2028\U0001F600";
    std::u32string result;
    for (int count = Below(9); count > 0; --count) result += kUnits[Below(std::size(kUnits) - 1)];
    return result;
  }
  int Below(size_t Limit) { return static_cast<int>(FRandom() % Limit); }

 private:
  std::mt19937 FRandom{20261123};
};

struct TCase {
  std::string Expression;
  TRegExOptions Options;
  std::string Modifiers;
  std::vector<std::u32string> Texts;
};

String ToUtf16(const std::u32string& Text) {
  String result;
  for (char32_t unit : Text) {
    if (unit >= 0x10000) result += static_cast<char16_t>(0xD7C0 + (unit >> 10));
    result += static_cast<char16_t>(unit >= 0x10000 ? 0xDC00 + (unit & 0x3FF) : unit);
  }
  return result;
}

std::vector<TCase> MakeCases() {
  TGenerator generator;
  std::vector<TCase> cases;
  for (int i = 0; i < kExpressions; ++i) {
    TCase made{generator.Expression(), {}, "", {}};
    for (auto [option, name] : {std::pair{roIgnoreCase, ",caseless"},
                                {roMultiLine, ",multiline"},
                                {roSingleLine, ",dotall"},
                                {roExplicitCapture, ",no_auto_capture"},
                                {roCompiled, ",jit"}}) {
      if (generator.Below(option == roIgnoreCase || option == roCompiled ? 2 : 6) > 0) continue;
      made.Options.Include(option);
      made.Modifiers += name;
    }
    for (int text = 0; text < kTextsEach; ++text) made.Texts.push_back(generator.Text());
    cases.push_back(std::move(made));
  }
  return cases;
}

void WriteQuestions(const std::vector<TCase>& Cases, const std::string& Filename) {
  std::ofstream file(Filename);
  for (const TCase& each : Cases) {
    file << '/' << each.Expression << "/utf,ucp,newline=anycrlf,never_backslash_c" << each.Modifiers << '\n';
    for (const std::u32string& text : each.Texts) {
      file << "    ";
      for (char32_t unit : text) file << "\\x{" << std::hex << static_cast<uint32_t>(unit) << std::dec << '}';
      file << "\\=no_jit\n";
    }
    file << '\n';
  }
}

// What the program says of each expression: its fault, or a "1" or "0" for each text.
std::vector<std::string> ReadAnswers(const std::string& Filename) {
  std::vector<std::string> answers;
  std::ifstream file(Filename);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("/")) {
      answers.emplace_back();
    } else if (answers.empty()) {
      continue;
    } else if (const size_t at = line.find(" at offset "); line.starts_with("Failed: ") && at != line.npos) {
      answers.back() = "Error in regular expression" + line.substr(at);
    } else if (line.starts_with(" 0: ") || line == " 0:") {
      answers.back() += '1';
    } else if (line.starts_with("No match")) {
      answers.back() += '0';
    } else if (line.starts_with("Failed: error -")) {
      answers.back() += '?';
    }
  }
  return answers;
}

std::string Ours(const TCase& Case) {
  try {
    const TRegEx regex(String::FromUtf8(Case.Expression), Case.Options);
    std::string result;
    for (const std::u32string& text : Case.Texts)
      result += regex.IsMatch(ToUtf16(text)) ? '1' : regex.GetWasStopped() ? '?' : '0';
    return result;
  } catch (const ERegularExpressionError& e) {
    return e.what();
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  if (std::system("command -v pcre2test >/dev/null") != 0) return 77;
  const std::string questions = std::string(argv[1]) + "/regex_questions.txt";
  const std::string file = std::string(argv[1]) + "/regex_answers.txt";
  const std::vector<TCase> cases = MakeCases();
  WriteQuestions(cases, questions);
  if (std::system(("pcre2test -q -16 '" + questions + "' '" + file + "'").c_str()) != 0) std::puts("pcre2test failed");
  const std::vector<std::string> answers = ReadAnswers(file);
  int differences = 0, faults = 0, matches = 0;
  for (size_t i = 0; i < cases.size(); ++i) {
    const std::string ours = Ours(cases[i]);
    const std::string theirs = i < answers.size() ? answers[i] : "no answer";
    faults += ours.starts_with("Error");
    matches += static_cast<int>(std::count(ours.begin(), ours.end(), '1'));
    if (ours == theirs) continue;
    ++differences;
    std::printf("/%s/%s\n  ours   %s\n  theirs %s\n", cases[i].Expression.c_str(), cases[i].Modifiers.c_str(),
                ours.c_str(), theirs.c_str());
  }
  std::printf("%zu expressions, %d of them wrong, %zu texts, %d matches: %d differences\n", cases.size(), faults,
              cases.size() * kTextsEach, matches, differences);
  return differences == 0 ? 0 : 1;
}
