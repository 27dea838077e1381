#include "tools/vxtab/Vxtab.h"

#include <iterator>
#include <ostream>
#include <string_view>

#include "platform/CodePage.h"
#include "platform/Dialogs.h"
#include "tools/vxtab/Arguments.h"
#include "tools/vxtab/Commands.h"
#include "tools/vxtab/Reporter.h"

namespace vx::vxtab {

namespace {

constexpr char kHelpEnd[] = R"(
OUT may be IN. The extension of OUT decides its form: .csv comma, .txt semicolon, .vxt ESC, .tab tab,
none: blanks and no quotes; .tsv tabs in UTF-8 for other programs, .jsonl JSON lines, .md Markdown,
.xlsx a spreadsheet. IN may be an .xlsx or .ods file. "-" as a file to read is standard input. Columns
and rows count from 0.
The names of columns stand in row 0, and their case does not matter; of a name that stands twice the first
column is taken.

  --foreign         read a file of another program: only the separator and the line end close a cell;
                    UTF-8 and UTF-16 are recognised. Without it a blank ends a cell that does not stand
                    in quotes, as in the library's own files.
  --separator NAME  with --foreign: comma, semicolon, tab, esc or a character; else it is guessed
  --encoding NAME   with --foreign: utf-8, utf-16, utf-16be or codepage; else it is guessed
  --codepage N      of files that are not UTF-8 or UTF-16: 1252 unless told; with --foreign also 850
                    where the German letters say so
  --sheet NAME      of a spreadsheet file, or its number from 1 on; else the first
  --to-separator NAME, --to-encoding NAME
                    write OUT as other programs read it, with quotes only where needed, in UTF-8 with a
                    byte order mark (utf-8-plain: without) unless told
  --help            this text

A form that cannot hold all cells (no empty ones in .tab and .vxt, no characters outside the code page)
is written all the same; a line "note: ..." on standard error says what comes back differently.

Exit status: 0 done, also with notes; 1 failed, with a message on standard error; 2 wrong usage.
)";

void WriteHelp(std::ostream& Out) {
  Out << "vxtab shows, checks, converts, sorts, merges and searches table files.\n\n";
  for (const TCommand& command : AllCommands()) {
    Out << "  vxtab " << command.Name << ' ' << command.Usage << "\n      ";
    for (std::string_view help = command.Help; !help.empty(); help.remove_prefix(1)) {
      Out << help[0] << (help[0] == '\n' ? "      " : "");
    }
    Out << '\n';
  }
  Out << kHelpEnd;
}

// Sets sink and code page, and puts the previous ones back.
class TSession {
 public:
  explicit TSession(TReporter& Reporter)
      : FCodePage(GetSystemCodePage().GetNumber()), FSink(SetDialogSink([&Reporter](const TDialog& dialog) {
          Reporter.Say("vxtab: " + OneBreak(dialog.Text.ToUtf8()));
          return mrOk;
        })) {}
  ~TSession() {
    SetDialogSink(std::move(FSink));
    SetSystemCodePage(FCodePage);
  }
  TSession(const TSession&) = delete;
  TSession& operator=(const TSession&) = delete;

 private:
  // The lines of a dialog end in a carriage return and a line feed, those of a terminal do not.
  static std::string OneBreak(std::string Text) {
    std::erase(Text, '\r');
    return Text;
  }
  int FCodePage;
  TDialogSink FSink;
};

void SetCodePage(const TArguments& Args) {
  if (!Args.Has("codepage")) return;
  int number = Args.Number("codepage", 0);
  if (!SetSystemCodePage(number)) throw TUsageError("unknown code page " + std::to_string(number));
}

void RunCommand(std::span<const std::string> Words, std::istream& In, std::ostream& Out, TReporter& Reporter,
                const TTerminal& Terminal) {
  for (const TCommand& command : AllCommands()) {
    if (Words[0] != command.Name) continue;
    TArguments args(std::string(command.Usage) + kCommonUsage, Words.subspan(1));
    SetCodePage(args);
    command.Run({args, In, Out, Reporter, Terminal});
    if (!Out.flush()) throw TFailure("standard output can't be written");
    return;
  }
  throw TUsageError(Words[0].starts_with('-') ? "the command has to come first" : "unknown command " + Words[0]);
}

bool AsksForHelp(std::span<const std::string> Words) {
  if (!Words.empty() && Words[0] == "help") return true;
  for (const std::string& word : Words) {
    if (word == "--") return false;
    if (word == "--help" || word == "-h") return true;
  }
  return false;
}

}  // namespace

int RunVxtab(std::span<const std::string> Arguments, std::istream& In, std::ostream& Out, std::ostream& Err,
             const TTerminal& Terminal) {
  TReporter reporter(Err, Terminal.ShowProgress);
  TSession session(reporter);
  try {
    if (AsksForHelp(Arguments)) {
      WriteHelp(Out);
      return Out.flush() ? 0 : 1;
    }
    if (Arguments.empty()) throw TUsageError("a command is missing");
    RunCommand(Arguments, In, Out, reporter, Terminal);
    return 0;
  } catch (const TUsageError& e) {
    reporter.Say("vxtab: " + std::string(e.what()) + "\nTry: vxtab --help");
    return 2;
  } catch (const TFailure& e) {
    if (*e.what() != '\0') reporter.Say("vxtab: " + std::string(e.what()));
  } catch (const std::bad_alloc&) {
    reporter.Say("vxtab: not enough memory");
  } catch (const std::exception& e) {
    reporter.Say("vxtab: " + std::string(e.what()));
  }
  return 1;
}

}  // namespace vx::vxtab
