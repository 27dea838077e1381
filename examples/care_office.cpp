// A care office: a year of visits is checked, billed and accounted for. Reads patienten.csv, preise.csv and
// einsaetze.csv of a directory, as examples/care_office_data makes them, and leaves there
//   fehler.csv       what was wrong with them, by file and line
//   konten.csv       visits, hours, hours at night and amounts by nurse and month
//   rechnungen.xml   what each patient and the care fund have to pay
//   briefe.txt       the first letters to patients
// Another program, examples/care_office_check.py, recomputes it.
#include <cstdio>
#include <iostream>

#include "core/HourPeriods.h"
#include "core/Money.h"
#include "objects/uVxClassesString.h"
#include "platform/SafeFiles.h"
#include "platform/UserMessages.h"
#include "services/Xml.h"
#include "services/uSharedIni.h"
#include "services/uThreadPool.h"
#include "tables/Csv.h"
#include "tables/Relations.h"

namespace {

using namespace vx;

constexpr char16_t kLetter[] =
    u"Rechnung Nr. %Nummer%\nGuten Tag %Name%,\nfür %Stunden% Stunden Pflege im Jahr 2026 bitten wir um %Betrag% "
    u"Euro.\n\n";
const String kHolders[] = {u"%Nummer%", u"%Name%", u"%Stunden%", u"%Betrag%"};
constexpr int kLetters = 3;

// What a visit comes to, or why it can't be billed.
struct TVisit {
  THourAmount Hours, Night;
  Currency Amount = 0;
  String Fault;
};

class TOffice {
 public:
  explicit TOffice(String Directory) : FDirectory(std::move(Directory)) {
    Load(FPatients, u"patienten.csv");
    Load(FPrices, u"preise.csv");
    Load(FVisits, u"einsaetze.csv");
    FFaults.AddRow({u"Datei", u"Zeile", u"Grund"});
  }

  void Run() {
    CheckPatients();
    BillVisits();
    const bool isSaved = SaveCsv(FFaults, Path(u"fehler.csv"), {.Separator = u';', .HasMark = false}).IsSaved;
    SaveAccounts();
    SendInvoices();
    std::cout << FVisits.GetCount() - 1 << " visits billed, " << FFaults.GetCount() - 1 << " faults"
              << (isSaved ? "\n" : ", which could not be saved\n");
    for (const TVxStringList& fault : FFaults.Rows(1)) {
      std::cout << "  " << fault.Get(0) << ", " << fault.Get(1) << ": " << fault.Get(2) << '\n';
    }
  }

 private:
  String Path(std::u16string_view Name) const { return Concat({FDirectory, u"/", Name}); }
  void Load(THeadCsv& Table, std::u16string_view Name) { (void)LoadCsv(Table, Path(Name)); }
  void Tell(std::u16string_view File, int Row, const String& Reason) {
    FFaults.AddRow({String(File), IntToStr(Row + 1), Reason});
  }

  void CheckPatients() {
    for (int row = 1; row < FPatients.GetCount(); ++row) {
      const auto born = ReadCell<ckDate>(FPatients, u"Geboren", row);
      if (!born) Tell(u"patienten.csv", row, born.GetText());
      const auto level = ReadCell<ckInt>(FPatients, u"Pflegegrad", row);
      if (!level || *level < 1 || *level > 5) Tell(u"patienten.csv", row, u"diesen Pflegegrad gibt es nicht");
    }
    const TKeyIndex byNumber(FPatients, {u"Nummer"});
    for (int key = 0; key < byNumber.GetCount(); ++key) {
      for (int row : byNumber.RowsAt(key).subspan(1)) Tell(u"patienten.csv", row, u"diese Nummer gibt es schon");
    }
  }

  TVisit Bill(int Row, const TKeyIndex& Patients, const TKeyIndex& Services) const {
    const auto cell = [&](const char16_t* name) { return ReadCell<ckText>(FVisits, name, Row).value(); };
    const auto begin = ReadCell<ckDateTime>(FVisits, u"Beginn", Row), end = ReadCell<ckDateTime>(FVisits, u"Ende", Row);
    const auto factor = ReadCell<ckFactor>(FVisits, u"Faktor", Row);
    const int service = Services.Row(cell(u"Leistung"));
    TVisit visit;
    if (!begin || !end || !factor) {
      visit.Fault = (!begin ? begin.GetFault() : !end ? end.GetFault() : factor.GetFault()).GetText();
    } else if (Patients.Rows(cell(u"Patient")).empty()) {
      visit.Fault = u"diesen Patienten gibt es nicht";
    } else if (service < 0) {
      visit.Fault = u"diese Leistung gibt es nicht";
    } else if (*end < *begin) {
      visit.Fault = u"endet, bevor er beginnt";
    }
    if (!visit.Fault.empty()) return visit;
    for (const TPeriodPart& part : SplitPeriod({*begin, *end}, {pcNight})) {
      visit.Hours += part.Elapsed;
      if (part.IsNight) visit.Night += part.Elapsed;
    }
    const Currency rate = Product(ReadCell<ckMoney>(FPrices, u"Stundensatz", service).value(), *factor, 4);
    const TDecimalFactor extra = ReadCell<ckFactor>(FPrices, u"Nachtzuschlag", service).value();
    visit.Amount = Product(rate, visit.Hours) + Product(Product(rate, visit.Night), extra);
    return visit;
  }

  // The table gets three columns more, and loses the visits that can't be billed.
  void BillVisits() {
    const TKeyIndex patients(FPatients, {u"Nummer"}), services(FPrices, {u"Leistung"});
    std::vector<TVisit> bills(static_cast<size_t>(FVisits.GetCount()));
    TThreadPool pool;
    (void)pool.ForEach(1, FVisits.GetCount(),
                       [&](int row) { bills[static_cast<size_t>(row)] = Bill(row, patients, services); });
    const int first = FVisits.FieldCount();
    for (const char16_t* name : {u"Stunden", u"Nacht", u"Betrag"}) FVisits.GetLines(0)->Add(name);
    for (int row = 1; row < FVisits.GetCount(); ++row) {
      const TVisit& bill = bills[static_cast<size_t>(row)];
      if (!bill.Fault.empty()) Tell(u"einsaetze.csv", row, bill.Fault);
      for (const TCellResult& written :
           {GrowCell<ckHours>(FVisits, first, row, bill.Hours), GrowCell<ckHours>(FVisits, first + 1, row, bill.Night),
            GrowCell<ckMoney>(FVisits, first + 2, row, bill.Amount)}) {
        if (!written) Tell(u"einsaetze.csv", row, written.GetText());
      }
    }
    for (int row = FVisits.GetCount() - 1; row > 0; --row) {
      if (!bills[static_cast<size_t>(row)].Fault.empty()) FVisits.Delete(row);
    }
  }

  void SaveAccounts() {
    const TGroups groups(FVisits, {u"Pflegekraft", ByMonth(TRelationColumn(u"Beginn").As(u"Monat"))});
    const auto accounts = groups.ToTable(u"Einsätze");
    AddSums(*accounts, u"Stunden", SumHours(groups, u"Stunden"));
    AddSums(*accounts, u"Nacht", SumHours(groups, u"Nacht"));
    AddSums(*accounts, u"Betrag", SumMoney(groups, u"Betrag"));
    SortRows(*accounts, {{u"Pflegekraft"}, {u"Monat"}});
    (void)SaveCsv(*accounts, Path(u"konten.csv"), {.Separator = u';', .HasMark = false}).IsSaved;
  }

  // Nine parts of ten are the fund's. Invoices get their numbers from settings that all offices share.
  void SendInvoices() {
    const TJoin join = InnerJoin(FVisits, {u"Patient"}, FPatients, {u"Nummer"});
    const TGroups groups(join, {OfRight(u"Nummer"), OfRight(u"Name")});
    const auto hours = SumHours(groups, u"Stunden");
    const auto amounts = SumMoney(groups, u"Betrag");
    TXmlDocument invoices;
    TXmlNode& root = *invoices.SetRoot(u"Rechnungen");
    TVxStringReplacer letter;
    std::string letters;
    String values[std::size(kHolders)];
    letter.ReplaceString(kLetter, kHolders, values, true);
    for (int group = 0, number = FirstNumber(groups.GetCount()); group < groups.GetCount(); ++group, ++number) {
      const auto index = static_cast<size_t>(group);
      const std::vector<Currency> shares = SplitAmount(amounts.Groups[index].Sum, std::vector<int64_t>{9, 1});
      TXmlNode& invoice = *root.Add(u"Rechnung");
      invoice.SetAttribute(u"Nummer", IntToStr(number));
      invoice.Add(u"Patient", groups.Key(group, 1))->SetAttribute(u"Nummer", groups.Key(group));
      invoice.Add(u"Kasse", MoneyToStr(shares[0]));
      invoice.Add(u"Eigenanteil", MoneyToStr(shares[1]));
      if (group >= kLetters) continue;
      const String sum = HourAmountToStr(hours.Groups[index].Sum);
      for (int i = 0; const String& value : {IntToStr(number), groups.Key(group, 1), sum, MoneyToStr(shares[1])}) {
        values[i++] = value;
      }
      letters += letter.Replace(values).ToString().ToUtf8();
    }
    if (const TXmlFault fault = SaveXml(invoices, Path(u"rechnungen.xml"), {}))
      Tell(u"rechnungen.xml", 0, fault.GetText());
    ReplaceFileContent(Path(u"briefe.txt"), letters);
  }

  // The first of so many numbers, which no other office gets.
  int FirstNumber(int Count) const {
    int first = 0;
    TSharedIni ini(Path(u"office.ini"));
    const TIniChange change = ini.Change(u"Rechnungen", u"Nummer", [&](String& text) {
      first = StrToIntDef(text, 0) + 1;
      text = IntToStr(first + Count - 1);
      return true;
    });
    if (change != icStored) throw Exception(u"Es gibt keine Rechnungsnummern.");
    return first;
  }

  String FDirectory;
  THeadCsv FPatients, FPrices, FVisits;
  TFileCsv FFaults;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  try {
    TOffice(String::FromUtf8(argv[1])).Run();
  } catch (const std::exception& error) {
    std::cerr << UserMessage(error) << '\n';
    return 1;
  }
  return 0;
}
