// Adds up the overtime of each nurse in a table of hours, and what it costs:
//   hours_account stunden.tab 18,50
// The rate is an amount of money an hour. Hours are whole minutes and each amount is rounded once, so both are exact.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "core/HourAmount.h"
#include "core/Money.h"
#include "core/uVxFunctions.h"
#include "tables/uFileCsv.h"

namespace {

constexpr int kName = 0, kOvertime = 4;

struct TAccount {
  vx::String Name;
  vx::THourAmount Overtime;
};

std::vector<TAccount> AccountsOf(const vx::TFileCsv& Table) {
  std::vector<TAccount> result;
  for (int row = 1; row < Table.GetCount(); ++row) {
    const vx::String name = Table.GetCell(kName, row);
    vx::THourAmount overtime;
    vx::TTextFault fault;
    if (!vx::TryStrToHourAmount(Table.GetCell(kOvertime, row), overtime, fault)) {
      std::fprintf(stderr, "row %d: no hours: %s\n", row, fault.GetText().ToUtf8().c_str());
      continue;
    }
    auto account = std::find_if(result.begin(), result.end(), [&](const TAccount& a) { return a.Name == name; });
    if (account == result.end()) account = result.insert(account, {name, {}});
    account->Overtime += overtime;
  }
  return result;
}

void Print(const TAccount& Account, vx::Currency Rate) {
  const vx::Currency amount = vx::Product(Rate, Account.Overtime);
  const vx::String line =
      vx::Concat({vx::GarantyLength(Account.Name, 16), vx::HourAmountToStr(Account.Overtime, {vx::hofTwoDigits}), u"  ",
                  vx::HourAmountToIndustryStr(Account.Overtime), u" h  ",
                  vx::VxCurrToStr(amount, {vx::ctsThousendDivider, vx::ctsSign}, 2)});
  std::printf("%s\n", line.ToUtf8().c_str());
}

}  // namespace

int main(int argc, char** argv) {
  vx::TFileCsv table;
  vx::Currency rate;
  if (argc != 3 || !vx::TryStrToMoney(vx::String::FromUtf8(argv[2]), rate)) return 2;
  if (!table.LoadFromFile(vx::String::FromUtf8(argv[1]))) return 1;
  for (const TAccount& account : AccountsOf(table)) Print(account, rate);
  return 0;
}
