#include "objects/uVxObjects.h"

#include "objects/uVxClasses.h"
#include "tests/support/Test.h"

namespace {

TDataHeads Heads(String Marker, const TVxClass& Class, TDataHeads Above, TDataHeads Own) {
  TDataHeadRecordList heads(Marker, Class.ClassName(), &Class);
  return heads.AddRange(Above), heads.AddRange(Own), heads.getDHRecords();
}

int PersonAsked = 0;
struct TPerson : TVxClassed<TPerson, TVxDataIdHelper, u"TPerson"> {
  static TDataHeads DataHeads(const TVxClass& Self, bool Hierarchy) {
    if (++PersonAsked == 100) GetDataHeads(Class(), Hierarchy);
    const TDataHeads own = {{u"Name", u"vftString"}, {u"Geburt", u"vftDate"}, {u"Kinder", u"TPerson", &Class()}};
    return Heads(u"-9001", Class(), Hierarchy ? TVxDataIdHelper::DataHeads(Self, true) : TDataHeads(), own);
  }
  static String ClassCaption(const TVxClass&, bool, int Fall) { return Fall == 0 ? u"Person" : u"die Person"; }
};
// Has no description of its own.
struct TBare : TVxClassed<TBare, TPerson, u"TBare"> {};
struct TNurse : TVxClassed<TNurse, TBare, u"TNurse"> {
  static TDataHeads DataHeads(const TVxClass& Self, bool Hierarchy) {
    const TDataHeads own = {{u"Lohn", u"vftCurrency"}, {u"Chef", u"TPerson", &TPerson::Class()}, {u"Fremd", u"TFremd"}};
    return Heads(u"-9002", Class(), Hierarchy ? TBare::DataHeads(Self, true) : TDataHeads(), own);
  }
  static auto Factory(const TVxClass& Self, const String& Text) { return TBare::Factory(Self, Text + u"0"); }
};
// Lists its nurses.
struct TWard : TVxClassed<TWard, TVxVirtualList, u"TWard"> {
  static TDataHeads DataHeads(const TVxClass&, bool) {
    return {{u"-9003", u"TWard", &Class()}, {u"Nr", u"4"}, {u"Pflege", u"TNurse", &TNurse::Class()}};
  }
};
// Link to each other, a house by a link without a name.
struct TRoom : TVxClassed<TRoom, TVxObject, u"TRoom"> {
  static TDataHeads DataHeads(const TVxClass&, bool);
};
struct THouse : TVxClassed<THouse, TVxObject, u"THouse"> {
  static TDataHeads DataHeads(const TVxClass&, bool) { return {{u"", u"TRoom", &TRoom::Class()}}; }
};
TDataHeads TRoom::DataHeads(const TVxClass&, bool) { return {{u"Haus", u"THouse", &THouse::Class()}}; }
struct TAbstract : TVxClassed<TAbstract, TVxObject, u"TAbstract"> {
  virtual void Act() = 0;
};
struct TRaising : TVxClassed<TRaising, TVxObject, u"TRaising"> {
  TRaising() { throw std::runtime_error("no"); }
};
struct TLiar : TVxClassed<TLiar, TVxObject, u"TLiar"> {
  const TVxClass& ClassType() const override { return TVxObject::Class(); }
};

String NamesOf(const TDataHeads& Heads) {
  String result;
  for (const TDataHeadRecord& head : Heads) result += head.name + u" ";
  return result;
}
// Nodes as name:type[children], leaves as name.
String Drawn(const TVxParserEntryObject& Entry) {
  const auto* node = dynamic_cast<const TVxParserObject*>(&Entry);
  if (!node) return Entry.GetName();
  String result = Concat({Entry.GetName(), u":", Entry.GetTyp(), node->GetIsList() ? u"*[" : u"["});
  for (const auto& child : node->GetData()) result += (&child == &node->GetData()[0] ? u"" : u" ") + Drawn(*child);
  return result + u"]";
}
auto Leaf(const char16_t* Name) { return std::make_unique<TVxParserEntryObject>(nullptr, Name, u"vftDate"); }

TEST(VxClass, AnswersForTheClassThatIsAsked) {
  const TBare bare;
  EXPECT_EQ(bare.ClassName() + u", " + bare.ToString(), u"TBare, object of TBare");
  EXPECT_EQ(&bare.GetNewInstance()->ClassType(), &TBare::Class());
  const TVxClass &self = TBare::Class(), &above = TPerson::Class();
  EXPECT_EQ((TFacts{self.InheritsFrom(above), self.InheritsFrom(self), above.InheritsFrom(self)}), "yes yes no");
  TVXPermissionSet rights{ppRead};
  String text, comment = u"x";
  EXPECT_EQ((TFacts{self.Permission(rights, text, comment), rights.IsEmpty(), text, comment}), "no yes TBare ");
}

TEST(VxClass, CaptionsFollowTheCase) {
  const char16_t* const captions[2][6] = {
      {u"Objekt", u"das Objekt", u"des Objektes", u"dem Objekt", u"das Objekt", u"Objekt"},
      {u"Objekte", u"die Objekte", u"der Objekte", u"den Objekten", u"die Objekte", u"Objekte"}};
  for (int i = -2, fall = -1; i < 20; fall = ++i / 2)
    EXPECT_EQ(TVxObject::Class().ClassCaption(i % 2, fall), captions[i % 2 != 0][std::clamp(fall, 0, 5)]) << fall;
  EXPECT_EQ(TVxObject::ClassCaption(TBare::Class(), true, 5), u"Person") << "the override is asked for 0";
}

TEST(VxData, TextsAndKeys) {
  auto a = TPerson::Class().Factory(u"12"), b = TBare::Class().Factory(u"12"), c = TNurse::Class().Factory(u"-2");
  EXPECT_EQ(TVxObject::Class().Factory(u"1"), nullptr);
  EXPECT_EQ(c->GetSerialize(), u"-20") << "the override is reached through the class";
  EXPECT_TRUE(a->EqualsAll(TPerson::Class().Factory(u"12").get()));
  EXPECT_TRUE(b->EqualsAll(b->Duplicate().get()));
  EXPECT_EQ((TFacts{a->EqualsAll(b.get()), a->EqualsAll(nullptr), b->EqualsAll(a.get())}), "no no no");
  const TVxObject other;
  EXPECT_EQ((TFacts{a->Compare(*b), a->Compare(*c), c->Compare(*a)}), "0 1 -1");
  EXPECT_NE(a->Compare(other), 0);
  EXPECT_EQ(a->Compare(other), -other.Compare(*a));
  EXPECT_EQ((TFacts{(a->Assign(nullptr), a->GetSerialize()), (a->SetSerialize(u"x"), a->GetSerialize())}), "12 0");
}

TEST(DataHeads, AreMadeOnceWithTheAncestorsInside) {
  ClearDataheads(), PersonAsked = 0;
  EXPECT_EQ(NamesOf(GetDataHeads(TNurse::Class(), false)), u"-9002 Lohn Chef Fremd ");
  const TDataHeads& all = GetDataHeads(TNurse::Class(), true);
  EXPECT_EQ(NamesOf(all), u"-9002 -9001 Name Geburt Kinder Lohn Chef Fremd ");
  EXPECT_EQ((TFacts{&GetDataHeads(TNurse::Class(), true) == &all, PersonAsked}), "yes 1");
  EXPECT_EQ((ClearDataheads(), GetDataHeads(TNurse::Class(), true), PersonAsked), 2);
  PersonAsked = 99;  // the class asks itself now
  EXPECT_EQ(NamesOf(GetDataHeads(TPerson::Class(), false)), u"-9001 Name Geburt Kinder ");
}

TEST(CallPath, LeadsToAField) {
  String tail = u"a|b|c", head;
  for (auto want : {u"a,b|c", u"b,c", u"c,", u","})
    EXPECT_EQ((GetSearchString(tail, tail, head), head + u"," + tail), want);
  const TVxClass *self = &TPerson::Class(), *sub = &TNurse::Class();
  const TCases<const TVxClass*, String, String> types = {
      {nullptr, u"Name", u"vftString"},         {self, u"", u"vftString"},         {self, u"Nichts|Geburt", u"vftDate"},
      {self, u"Kinder|[3]|Geburt", u"vftDate"}, {self, u"Kinder|[3]", u"TPerson"}, {sub, u"Lohn|Geburt", u"vftDate"},
      {self, u"Kinder||Kinder", u"TPerson"},    {self, u"-9001", u"TPerson"},      {sub, u"9001|Lohn", u"TPerson"},
      {sub, u"Chef|9002", u"TPerson"}};
  for (const auto& [class_, call, type] : types) EXPECT_EQ(getEntryInfo(class_, call), type) << call;
  const TCases<String, String, int, int> places = {
      {u"Lohn|x|y", u"x|y", 1, -1}, {u"9002", u"", 0, -1},    {u"-9002|", u"", 0, -1},   {u"Name|x", u"x", -1, -1},
      {u"[7]|Chef|x", u"x", 2, 7},  {u"[x]|9002", u"", 0, 0}, {u"[7|Nichts", u"", -1, 0}};
  for (const auto& row : places) {
    const auto& [call, after, position, listPos] = row;
    String rest = u"?";
    const TValueOfRecord request(0, call, u"", sub);
    int at = -1;
    const int found = listPos < 0 ? request.GetValueOfPos(rest) : request.GetListValueOfPos(rest, at);
    EXPECT_EQ(std::tuple(call, rest, found, at), row);
  }
  EXPECT_EQ(TValueOfRecord(0, u"Lohn", u"", nullptr).GetValueOfPos(tail), -1);
}

TEST(Registry, MakesObjectsByNameAndTestsThem) {
  vx::uVxObjects::FreeBuffersForLeakPrevention();
  EXPECT_EQ(TestVxObjects(u""), u"");
  EXPECT_EQ((TFacts{!GetVxObjectClass(u"TPerson"), !CreateVxObject(u"TPerson")}), "yes yes");
  RegisterVxObject(TPerson::Class()), RegisterVxObject(TAbstract::Class());
  RegisterVxObject(TLiar::Class()), RegisterVxObject(TRaising::Class());
  EXPECT_EQ((TFacts{CreateVxObject(u"TPerson")->ClassName(), !GetVxObjectClass(u"tperson")}), "TPerson yes");
  const test::TTempDir dir;
  const String text = TestVxObjects(dir.Path("report.txt"));
  EXPECT_EQ(text,
            u"TAbstract OK\r\nTLiar ERROR CLASSTYPE\r\nTPerson OK\r\nTRaising ERROR CREATE\r\n"
            u"TVxDataIdHelper OK\r\nTVxObject OK");
  EXPECT_EQ(test::GetText(dir.Path("report.txt")), text.ToUtf8() + "\r\n");
}

TEST(ObjectCounter, CountsByTheClassThatAnObjectIsOf) {
  vx::uVxObjects::FreeBuffersForLeakPrevention();
  auto early = std::make_unique<TBare>();
  DoCountObjects = true;
  {
    const TPerson a, b(a);
    EXPECT_THROW(TRaising(), std::runtime_error);
    EXPECT_EQ((TFacts{VxObjectCounter().at(u"TPerson"), VxObjectCounter().at(u"TVxDataId")}), "2 0");
  }
  early = nullptr, DoCountObjects = false;
  for (const auto& [name, count] : VxObjectCounter()) EXPECT_EQ(count, name == u"TBare" ? -1 : 0) << name.ToUtf8();
}

TEST(ObjectStructure, WalksLinksToTheDepthAsked) {
  const String fields = u"-9001:TPerson[+] Name Geburt ", shut = u"TPerson[+]";
  const String child = u"Kinder:TPerson[" + fields;
  const String person = u"TPerson[" + fields + u"Kinder:" + shut + u"]", ward = u"W:TWard*[-9003:TWard[+] Nr Pflege:";
  const String marker = u"-9002:TNurse[+] ", lohn = u"Lohn Chef:", end = u" Fremd:TFremd[+]]";
  const String open = ward + u"TNurse[" + marker + fields + u"Kinder:";
  using TAsked = const TVxClass*;
  TAsked base = &TVxObject::Class(), one = &TPerson::Class(), sub = &TNurse::Class(), wards = &TWard::Class();
  const TCases<TAsked, String, TAsked, int, TAsked, String> rows = {
      {&TRoom::Class(), u"", nullptr, 0, nullptr, u":TRoom[Haus:THouse[:TRoom[Haus:THouse[+]]]]"},
      {&TRoom::Class(), u"Haus", nullptr, 0, nullptr, u"Haus:TRoom[Haus:THouse[:TRoom[+]]]"},
      {one, u"P", nullptr, -1, nullptr, u"P:" + person},
      {one, u"a\u00FFP", base, 0, nullptr, u"P:TPerson[" + fields + u"Kinder:" + person + u"]"},
      {one, u"Kinder", nullptr, 1, nullptr, child + child + u"Kinder:" + person + u"]]"},
      {sub, u"", nullptr, -1, one, u":TNurse[" + marker + lohn + shut + end},
      {sub, u"", nullptr, -1, base, u":TNurse[" + fields + u"Kinder:" + shut + u" " + marker + lohn + shut + end},
      {sub, u"", nullptr, -1, sub, u":TNurse[]"},
      {wards, u"W", nullptr, -1, nullptr, ward + u"TNurse[+]]"},
      {wards, u"W", one, 0, nullptr, open + person + u" " + lohn + person + end + u"]"},
      {wards, u"W", sub, 0, nullptr, open + shut + u" " + lohn + shut + end + u"]"}};
  for (const auto& row : rows) {
    const auto& [self, name, ownType, depth, deepest, text] = row;
    TVxStringList visited;
    const auto tree = self->GetObjectStructur(visited, name, ownType, depth, deepest);
    EXPECT_EQ(std::tuple(tree->GetParentClass(), name, tree->GetOwnType(), depth, deepest, Drawn(*tree)), row);
    EXPECT_EQ(tree->GetSize(), tree->GetPropertyList()->GetCount());
    EXPECT_EQ(self->GetObjectStructur(visited, name, nullptr, depth, deepest)->GetName(), u"LeerOBJ");
  }
}

TEST(ObjectStructure, ListsCopiesAndCompares) {
  TVxParserObject outer(nullptr, u"Out", u"T"), copy, other;
  auto* node = new TVxParserObject(&TPerson::Class(), u"In", u"T");
  outer.Add(std::unique_ptr<TVxParserEntryObject>(node));
  EXPECT_EQ((TFacts{node->Add(Leaf(u"Leaf")), outer.Add(Leaf(u"Last")), outer.Add(nullptr)}), "yes yes no");
  node->SetIsList(true), node->SetIsBridge(true);
  const auto list = outer.GetPropertyList();
  EXPECT_EQ(list->GetText() + outer.GetShortPropertyList()->GetText(), u"-<>-|[] In|Leaf\r\nLastIn\r\nLast");
  EXPECT_EQ(list->GetObject(0), node->GetData()[0].get());
  for (TVxParserObject* target : {&copy, &outer, static_cast<TVxParserObject*>(nullptr)}) outer.Assignto(target);
  EXPECT_EQ(Drawn(copy), Drawn(outer));
  EXPECT_EQ((TFacts{copy.GetData()[0]->Equals(node), node->Equals(copy.GetData()[0].get()), outer.Equals(&copy)}),
            "yes yes yes");
  EXPECT_EQ((TFacts{other.Add(Leaf(u"a")), other.Add(Leaf(u"b"))}), "yes yes");
  outer.TVxParserEntryObject::Assignto(&other);
  EXPECT_TRUE(outer.Equals(&other)) << "children are not compared";
  other.SetIsBridge(true);
  EXPECT_EQ((TFacts{outer.Equals(&other), outer.Equals(nullptr)}), "no no");
  EXPECT_EQ((node->Assignto(&outer), Drawn(outer)), u"In:T*[Leaf]") << "from a node that is in it";
}

}  // namespace
