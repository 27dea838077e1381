// Adds up the overtime of each nurse in a table of hours, and what it costs:
//   hours_account stunden.tab 18,50
// The rate is an amount of money an hour. Hours are counted in industry hours, 100 minutes each, so that
// the amounts are exact.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "core/uVxFunctions.h"
#include "core/uVxFunctionsTime.h"
#include "tables/uFileCsv.h"

namespace {

constexpr int kName = 0, kOvertime = 4;

struct TAccount {
  vx::String Name;
  vx::TDateTime Overtime = 0;
};

std::vector<TAccount> AccountsOf(const vx::TFileCsv& Table) {
  std::vector<TAccount> result;
  for (int row = 1; row < Table.GetCount(); ++row) {
    const vx::String name = Table.GetCell(kName, row);
    vx::TDateTime overtime;
    if (!vx::VxStrToHour(Table.GetCell(kOvertime, row), overtime)) {
      std::fprintf(stderr, "row %d: no hours: %s\n", row, Table.GetCell(kOvertime, row).ToUtf8().c_str());
      continue;
    }
    auto account = std::find_if(result.begin(), result.end(), [&](const TAccount& a) { return a.Name == name; });
    if (account == result.end()) account = result.insert(account, {name});
    account->Overtime += overtime;
  }
  return result;
}

void Print(const TAccount& Account, vx::Currency Rate) {
  const int minutes = vx::VxTimeToMinute(vx::DateTimeDefuzzFunc(std::abs(Account.Overtime), true));
  const int industryMinutes = vx::VxMinuteToIndustry(Account.Overtime < 0 ? -minutes : minutes);
  const vx::Currency amount = vx::RoundCurrency(Rate * industryMinutes / 100, 2);
  const vx::String line = vx::Concat({vx::GarantyLength(Account.Name, 16), vx::VxHourMinToStr(Account.Overtime), u"  ",
                                      vx::VxHourToComma(Account.Overtime), u" h  ",
                                      vx::VxCurrToStr(amount, {vx::ctsThousendDivider, vx::ctsSign}, 2)});
  std::printf("%s\n", line.ToUtf8().c_str());
}

}  // namespace

int main(int argc, char** argv) {
  vx::TFileCsv table;
  vx::Currency rate;
  if (argc != 3 || !vx::TryStrToCurr(vx::String::FromUtf8(argv[2]), rate)) return 2;
  if (!table.LoadFromFile(vx::String::FromUtf8(argv[1]))) return 1;
  for (const TAccount& account : AccountsOf(table)) Print(account, rate);
  return 0;
}
