// What classes can say of themselves: prints the names of three classes in their grammatical cases, the tree
// of all fields that a report could offer, and values that call paths lead to.
//
// A class joins by the line that names it, its parent and its name as text; what it says of itself are
// static members.
#include <cstdio>
#include <vector>

#include "objects/uVxClasses.h"
#include "objects/uVxObjects.h"
#include "platform/DateText.h"

namespace {

// The noun alone and in its four cases, singular and plural.
using TNoun = const char16_t* [2][5];
constexpr TNoun kPatient = {{u"Patient", u"der Patient", u"des Patienten", u"dem Patienten", u"den Patienten"},
                            {u"Patienten", u"die Patienten", u"der Patienten", u"den Patienten", u"die Patienten"}};
constexpr TNoun kVisit = {{u"Besuch", u"der Besuch", u"des Besuches", u"dem Besuch", u"den Besuch"},
                          {u"Besuche", u"die Besuche", u"der Besuche", u"den Besuchen", u"die Besuche"}};

vx::String Declined(const TNoun& Noun, bool Plural, int Fall) { return Noun[Plural][Fall > 4 ? 0 : Fall]; }

// Has a number and a text form: its cells in lighttext.
class TPatient : public vx::TVxClassed<TPatient, vx::TVxDataId, u"TPatient"> {
 public:
  vx::String GetSerialize() const override { return vx::WriteLighttext(std::vector<vx::String>{FName, FTown}); }
  void SetSerialize(const vx::String& Value) override {
    vx::TCells cells = vx::ReadLighttext(Value);
    cells.resize(2);
    FName = cells[0];
    FTown = cells[1];
  }
  static vx::String ClassCaption(const vx::TVxClass&, bool Plural, int Fall) {
    return Declined(kPatient, Plural, Fall);
  }
  static vx::TDataHeads DataHeads(const vx::TVxClass& Self, bool Hierarchy) {
    vx::TDataHeadRecordList heads(u"-2001", u"TPatient", &Class());
    if (Hierarchy) heads.AddRange(TVxDataId::DataHeads(Self, true));
    heads.Add(u"Name", u"vftString");
    heads.Add(u"Ort", u"vftString");
    return heads.getDHRecords();
  }
  vx::String ValueOf(vx::TDateTime DT, const vx::String& Name, const vx::String& Value, bool) override {
    vx::String tail;
    const int field = vx::TValueOfRecord(DT, Name, Value, &Class()).GetValueOfPos(tail);
    return field == 1 ? FName : field == 2 ? FTown : u"";
  }

 private:
  vx::String FName, FTown;
};

class TVisit : public vx::TVxClassed<TVisit, vx::TVxObject, u"TVisit"> {
 public:
  static vx::String ClassCaption(const vx::TVxClass&, bool Plural, int Fall) { return Declined(kVisit, Plural, Fall); }
  static vx::TDataHeads DataHeads(const vx::TVxClass& Self, bool Hierarchy) {
    vx::TDataHeadRecordList heads(u"-2002", u"TVisit", &Class());
    if (Hierarchy) heads.AddRange(TVxObject::DataHeads(Self, true));
    heads.Add(u"Datum", u"vftDate");
    heads.Add(u"Leistung", u"vftString");
    return heads.getDHRecords();
  }
  vx::String Field(int Position) const { return Position == 1 ? vx::DateToStr(Date) : Position == 2 ? Service : u""; }

  vx::TDateTime Date = 0;
  vx::String Service;
};

// Links the other two. Its caption is its parent's, u"Objekt".
class TCarePlan : public vx::TVxClassed<TCarePlan, vx::TVxObject, u"TCarePlan"> {
 public:
  static vx::TDataHeads DataHeads(const vx::TVxClass& Self, bool Hierarchy) {
    vx::TDataHeadRecordList heads(u"-2003", u"TCarePlan", &Class());
    if (Hierarchy) heads.AddRange(TVxObject::DataHeads(Self, true));
    heads.Add(u"Stunden", u"vftHour");
    heads.Add(u"Patient", u"TPatient", &TPatient::Class());
    heads.Add(u"Besuche", u"TVisit", &TVisit::Class());
    return heads.getDHRecords();
  }
  vx::String ValueOf(vx::TDateTime DT, const vx::String& Name, const vx::String& Value, bool Reading) override {
    vx::String tail;
    int index;
    const int field = vx::TValueOfRecord(DT, Name, Value, &Class()).GetValueOfPos(tail);
    if (field == 2) return Patient->ValueOf(DT, tail, Value, Reading);
    if (field != 3) return u"";
    const int position = vx::TValueOfRecord(DT, tail, Value, &TVisit::Class()).GetListValueOfPos(tail, index);
    return static_cast<size_t>(index) < Visits.size() ? Visits[static_cast<size_t>(index)].Field(position) : u"";
  }

  std::unique_ptr<vx::TVxData> Patient;
  std::vector<TVisit> Visits;
};

void PrintLine(std::u16string_view Text) { std::printf("%s\n", vx::String(Text).ToUtf8().c_str()); }

void PrintTree(const vx::TVxParserObject& Node, int Depth) {
  PrintLine(vx::Concat({vx::String(2 * Depth, u' '), Node.GetName(), u" (", Node.GetTyp(), u")"}));
  for (const auto& child : Node.GetData()) {
    if (child->GetName()[0] == u'-') continue;  // the markers are not for users
    const auto* node = dynamic_cast<const vx::TVxParserObject*>(child.get());
    if (node) PrintTree(*node, Depth + 1);
    if (!node) PrintLine(vx::Concat({vx::String(2 * Depth + 2, u' '), child->GetName(), u": ", child->GetTyp()}));
  }
}

}  // namespace

int main() {
  vx::RegisterVxObject(TCarePlan::Class());
  for (const vx::TVxClass* known : {&TPatient::Class(), &TVisit::Class(), &TCarePlan::Class()}) {
    PrintLine(
        vx::Concat({known->ClassName(), u": ", known->ClassCaption(false, 1), u", ", known->ClassCaption(false, 2),
                    u"; ", known->ClassCaption(true, 1), u", mit ", known->ClassCaption(true, 3)}));
  }
  vx::TVxStringList visited;
  PrintTree(*TCarePlan::Class().GetObjectStructur(visited, u"Plan", nullptr, 1, nullptr), 0);

  std::unique_ptr<vx::TVxObject> made = vx::CreateVxObject(u"TCarePlan");
  auto& plan = dynamic_cast<TCarePlan&>(*made);
  plan.Patient = TPatient::Class().Factory(u"Max Meier|Bonn");
  plan.Visits.resize(2);
  plan.Visits[1].Date = vx::StrToDate(u"11.02.2015");
  plan.Visits[1].Service = u"Große Körperpflege";
  for (const char16_t* call : {u"Patient|Name", u"Besuche|[1]|Datum", u"Besuche|[1]|Leistung"}) {
    PrintLine(vx::Concat(
        {call, u" (", vx::getEntryInfo(&TCarePlan::Class(), call), u"): ", plan.ValueOf(0, call, u"", true)}));
  }
  return 0;
}
