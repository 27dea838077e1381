#include "objects/uVxTree.h"

#include "objects/uVxClasses/TVxStringList.h"
#include "platform/Collation.h"
#include "tests/support/Test.h"

namespace {

constexpr int kMany = 100000;
const String kBadNode = u"Ungültige Referenzierung auf Node!";

// Trees as "a(12(x))b": nodes of one letter, their children in brackets.
void Build(TVxTree& tree, std::string_view shape) {
  std::vector<TVxTreeNode*> path{nullptr, nullptr};
  for (char sign : shape) {
    if (sign == '(')
      path.push_back(nullptr);
    else if (sign == ')')
      path.pop_back();
    else
      path.back() = tree.AddChild(path[path.size() - 2], String(1, static_cast<char16_t>(sign)));
  }
}
// By the list and the levels alone.
std::string ShapeOf(const TVxTree& tree) {
  std::string shape;
  int level = 0;
  for (TVxTreeNode* node = tree.GetFirstNode(); node; node = node->GetNext()) {
    for (; level < node->GetLevel(); ++level) shape += '(';
    for (; level > node->GetLevel(); --level) shape += ')';
    shape += node->GetText().ToUtf8();
  }
  return shape.append(static_cast<size_t>(level), ')');
}
TVxTreeNode* Find(const TVxTree& tree, char name) {
  TVxTreeNode* node = tree.GetFirstNode();
  while (node && node->GetText() != String(1, static_cast<char16_t>(name))) node = node->GetNext();
  return node;
}

TEST(TVxTree, PutsNodesInPlace) {
  // "tree work tree", "!" where it is refused. A<mode><node> adds N, M<mode><target><node> moves; Delete, Children
  // freed, Sort, aPpend N, m<index><node>; - is no node.
  const std::string cases[] = {
      "a(12)b A2aN a(12N)b", "a(12)b A1bN Na(12)b",      "a(1(x)2) A2xN a(1(x(N))2)",    " A3-N N",
      "a(12)b A3aN a(N12)b", "a(12)b A42N a(1N2)b",      "a(1(xy)2)b M2b1 a(2)b(1(xy))", "ab M2b- !ab",
      "a(12)b A01N a(12N)b", "a(12)b A2-N a(12)bN",      "a(1(xy)2)b M3ba b(a(1(xy)2))", "ab M2aa !ab",
      "a(12)b A12N a(N12)b", "a(12)b A3-N Na(12)b",      "a(1(xy)2)b M2a1 a(21(xy))b",   "ab M4-a !ab",
      "a(12)b A4-N a(12)b",  "a(12)b A0-N !a(12)b",      "a(1(xy)2)b M4b1 a(2)1(xy)b",   "ab M0-a !ab",
      "a(1)b M01a !a(1)b",   "a(12)b A1-N !a(12)b",      "a(1(xy)2)b M2-1 a(2)b1(xy)",   "ab m2a ba",
      "a(1)b M21a !a(1)b",   "a(1(xy)2)b D1 a(2)b",      "a(1(xy)2)b M411 a(1(xy)2)b",   "ab m0b ba",
      "a(12)b Da b",         "b(2(yx)1)a S- ab(12(xy))", "b(2(yx)1)a Sb b(12(xy))a",     "ab m3a !ab",
      "a(1)b D- a(1)b",      "a(12)b Pa a(12)b(N)",      "bBab(2)B(1) S- aB(1)b(2)Bb",   "a m0- !a",
      "a(1)b Ca ab"};
  for (const std::string& cells : cases) {
    const size_t blank = cells.find(' ');
    TVxTree tree;
    Build(tree, cells.substr(0, blank));
    char value = 'v';
    const char work = cells[blank + 1], *at = &cells[blank + 2];
    const bool hasMode = std::strchr("AMm", work);
    const auto mode = static_cast<TNodeAttachMode>(*at - '0');
    if (hasMode) ++at;
    TVxTreeNode *node = Find(tree, *at), *other = Find(tree, at[1]), *added = nullptr;
    constexpr decltype(&TVxTree::AddObject) kAdds[] = {&TVxTree::AddObject, &TVxTree::AddObjectFirst,
                                                       &TVxTree::AddChildObject, &TVxTree::AddChildObjectFirst,
                                                       &TVxTree::InsertObject};
    const std::map<char, std::function<void()>> works = {
        {'A', [&] { added = (tree.*kAdds[mode])(node, u"N", &value); }},
        {'P', [&] { tree.Append(node, u"N"); }},
        {'M', [&] { tree.MoveTo(other, node, mode); }},
        {'m', [&] { tree.Move(node, mode); }},
        {'D', [&] { tree.Delete(node); }},
        {'C', [&] { node->DeleteChildren(); }},
        {'S', [&] { node ? node->AlphaSort() : tree.AlphaSort(); }}};
    const String raised = RaisedBy<Exception>(works.at(work));
    EXPECT_EQ((raised.empty() ? "" : "!") + ShapeOf(tree), cells.substr(cells.rfind(' ') + 1)) << cells;
    const String refused = work == 'm' && node ? u"List index out of bounds (3)" : kBadNode;
    EXPECT_EQ(raised, raised.empty() ? String() : refused) << cells;
    EXPECT_EQ(added ? added->GetData() : &value, &value) << cells;
  }
}

TEST(TVxTree, RefusesWhatIsNotItsOwn) {
  TVxTree tree, other;
  TVxTreeNode loose, *node = tree.AddChild(nullptr, u"a"), *foreign = other.Append(nullptr, u"b");
  using TCalls = std::vector<std::function<void()>>;
  using EBad = EAccessViolation;
  for (const auto& call : TCalls{[&] { tree.AddChild(foreign, u"x"); }, [&] { tree.Append(foreign, u"x"); },
                                 [&] { tree.Delete(foreign); }, [&] { tree.Move(foreign, 0); },
                                 [&] { tree.MoveTo(foreign, node, naAdd); }, [&] { node->SetParent(node); },
                                 [&] { node->MoveTo(foreign, naAddChild); }, [&] { tree.InsertTree(&other, foreign); }})
    EXPECT_EQ(RaisedBy<EBad>(call), kBadNode);
  for (int index : {-1, 0, INT32_MIN, INT32_MAX}) {
    EXPECT_EQ(RaisedBy<EBad>([&] { node->GetItems(index); }), u"Ungültige Referenzierung auf Item!");
    EXPECT_EQ(tree.GetItem(index), index == 0 ? node : nullptr);
  }
  for (const auto& call : TCalls{[&] { loose.GetOwner(); }, [&] { loose.GetNext(); }, [&] { loose.GetIndex(); }})
    EXPECT_EQ(RaisedBy<EBad>(call), u"Parent Zeiger des Treenode ungültig!");
  EXPECT_EQ((TFacts{tree.IndexOf(foreign), tree.IndexOf(nullptr), node->IndexOf(foreign)}), "-1 -1 -1");
  EXPECT_EQ(node->GetOwner(), &tree);
  for (TVxTreeNode* none : {TVxTree().GetFirstNode(), node->GetNextChild(nullptr)}) EXPECT_EQ(none, nullptr);
}

TEST(TVxTree, CopiesAndMerges) {
  // = Assign, i InsertTree into the node i, + and - AssignOn with and without what is missing; image of the first
  const TCases<const char*, const char*, char, const char*, int> cases = {
      {"x(y)", "a(12)b", '=', "a(12)b", 1},
      {"x", "", '=', "", 0},
      {"i(1)j", "a(2)b", 'i', "a(1a(2)b)j", 1},
      {"i(1)", "", 'i', "i(1)", -1},
      {"a(1)b", "b(2)a(13(4))c(5)", '+', "a(13(4))b(2)c(5)", 3},
      {"a", "A", '+', "aA", -1},
      {"a(1)b", "b(2)a(13(4))c(5)", '-', "a(1)b", 3},
      {"aa(1)", "a(1)a(2)d(1)d(2)", '+', "a(12)a(1)d(12)", 3}};
  for (const auto& [before, from, work, after, image] : cases) {
    TVxTree own, other;
    Build(own, before), Build(other, from);
    int count = 0;
    while (auto* node = other.GetItem(count)) node->SetImageIndex(++count), node->SetData(&own);
    if (work == '=')
      own.Assign(&other), own.Assign(&own);
    else if (work == 'i')
      own.InsertTree(&other, Find(own, 'i'));
    else
      own.AssignOn(&other, work == '+');
    own.InsertTree(nullptr, own.GetFirstNode()), own.InsertTree(&other, nullptr), own.AssignOn(nullptr, true);
    EXPECT_EQ(ShapeOf(own), after) << before << work << from;
    if (TVxTreeNode* first = own.GetFirstNode()) {
      EXPECT_EQ(first->GetImageIndex(), image) << before << work << from;
      EXPECT_EQ(first->GetData(), image > 0 ? &own : nullptr) << before << work << from;
    }
  }
  TVxTree tree;
  Build(tree, "a(1)b");
  tree.InsertTree(&tree, Find(tree, 'b')), tree.GetItem(1)->Assign(nullptr);
  EXPECT_EQ(ShapeOf(tree), "a(1)a(a(1)b)");
  tree.Assign(nullptr);
  EXPECT_EQ(tree.GetCount(), 0);
}

// The rules of the tree, with a search through the list for all that is asked.
struct TPlain : TObject {
  String Text;
  TPlain* Parent = nullptr;
  int Image = -1, State = -1;
};
using TPlains = std::vector<TPlain*>;
struct TPlainTree {
  TPlains List;
  std::vector<std::unique_ptr<TPlain>> Owned;
  static int At(const TPlains& l, const TPlain* n) { return int(std::find(l.begin(), l.end(), n) - l.begin()); }
  int Count() const { return static_cast<int>(List.size()); }
  TPlain* Get(int i) const { return i >= 0 && i < Count() ? List[static_cast<size_t>(i)] : nullptr; }
  TPlains Children(const TPlain* n) const {
    TPlains found;
    for (TPlain* c : List) {
      if (c->Parent == n) found.push_back(c);
    }
    return found;
  }
  TPlain* Sibling(const TPlain* n, int step) const {
    for (int i = At(List, n) + step; Get(i); i += step)
      if (Get(i)->Parent == n->Parent) return Get(i);
    return nullptr;
  }
  int NewIndex(const TPlain* n, TNodeAttachMode mode) const {
    if (mode == naAdd || mode == naAddFirst) return NewIndex(n->Parent, mode == naAdd ? naAddChild : naAddChildFirst);
    if (mode != naAddChild) return n ? At(List, n) + (mode == naAddChildFirst) : mode == naInsert ? -1 : 0;
    if (n && List.back()->Parent == n) return Count();
    for (; n; n = n->Parent)
      if (TPlain* next = Sibling(n, 1)) return At(List, next);
    return Count();
  }
  TPlain* New(int index, TPlain* parent, String text) {
    TPlain* n = Owned.emplace_back(std::make_unique<TPlain>()).get();
    n->Text = std::move(text), n->Parent = parent;
    List.insert(List.begin() + index, n);
    return n;
  }
  void Move(TPlain* n, int index) {
    const int old = At(List, n);
    List.erase(List.begin() + old);
    List.insert(List.begin() + index - (index > old), n);
  }
  void MoveTo(TPlain* n, TPlain* target, TNodeAttachMode mode) {
    TPlains children = Children(n);
    Move(n, NewIndex(target, mode));
    n->Parent = mode == naAddChild || mode == naAddChildFirst ? target : target->Parent;
    for (; !children.empty(); children.pop_back()) MoveTo(children.back(), n, naAddChildFirst);
  }
  void Delete(TPlain* n) {
    for (TPlain* c : Children(n)) Delete(c);
    List.erase(List.begin() + At(List, n));
  }
  void Sort(TPlain* n) {
    TVxStringList sorted(false, true, dupAccept, false);
    for (TPlain* c : Children(n)) sorted.AddObject(c->Text, c);
    for (int i = 0; i < sorted.GetCount(); ++i) Sort(static_cast<TPlain*>(sorted.GetObject(i)));
    for (int i = sorted.GetCount(); i-- > 0;) MoveTo(static_cast<TPlain*>(sorted.GetObject(i)), n, naAddChildFirst);
  }
  String Write(const TPlain* n) const {  // nullptr: the tree
    TCells below, cells;
    for (TPlain* c : Children(n)) below.push_back(Write(c));
    if (n) cells = {n->Text, IntToStr(n->Image), IntToStr(n->State)};
    if (!below.empty()) cells.push_back(WriteOffsettext(below));
    return WriteOffsettext(cells);
  }
  void Read(TPlain* n, const String& text) {
    TCells cells = ReadOffsettext(text);
    const size_t last = n ? 3 : 0;
    if (cells.size() < last) return;
    if (n) n->Text = cells[0], n->Image = StrToIntDef(cells[1], -1), n->State = StrToIntDef(cells[2], -1);
    if (cells.size() == last) return;
    for (const String& c : ReadOffsettext(cells[last])) Read(New(NewIndex(n, naAddChild), n, {}), c);
  }
  bool IsBelow(const TPlain* n, const TPlain* top) const {
    while (n && n != top) n = n->Parent;
    return n == top;
  }
};

void ExpectSame(const TVxTree& tree, const TPlainTree& plain, const std::map<TPlain*, TVxTreeNode*>& pairs) {
  auto pair = [&](TPlain* p) { return p ? pairs.at(p) : nullptr; };
  for (int i = 0; i < tree.GetCount(); ++i) {
    TVxTreeNode* node = tree.GetItem(i);
    TPlain *p = plain.Get(i), *next = plain.Get(i + 1);
    int level = 0;
    std::vector<TVxTreeNode*> held, children;
    for (TPlain* c : plain.Children(p)) children.push_back(pair(c));
    for (int c = 0; c < node->GetCount(); ++c) held.push_back(node->GetItems(c));
    for (TPlain* up = p->Parent; up; up = up->Parent) level += node->HasAsParent(pair(up)) ? 1 : 99;
    ASSERT_EQ(held, children) << i;
    ASSERT_EQ((std::array{node, node->GetParent(), node->GetNext(), node->GetPrev(), node->getNextSibling(),
                          node->getPrevSibling(), node->GetFirstChild(), node->GetLastChild()}),
              (std::array{pair(p), pair(p->Parent), pair(next), tree.GetItem(i - 1), pair(plain.Sibling(p, 1)),
                          pair(plain.Sibling(p, -1)), next && next->Parent == p ? pair(next) : nullptr,
                          held.empty() ? nullptr : held.back()}))
        << i;
    ASSERT_EQ(std::tuple(node->GetLevel(), node->GetAbsoluteIndex(), node->GetIndex(),
                         node->IndexOf(node->GetLastChild()), node->GetHasChildren(), node->HasAsParent(node)),
              std::tuple(level, i, plain.At(plain.Children(p->Parent), p), node->GetCount() - 1, !held.empty(), false))
        << i;
    ASSERT_EQ(std::tuple(node->GetText(), node->GetImageIndex(), node->GetStateIndex()),
              std::tuple(p->Text, p->Image, p->State))
        << i;
    for (auto mode : {naAdd, naAddFirst, naAddChild, naAddChildFirst, naInsert})
      ASSERT_EQ(tree.newIndex(node, mode), plain.NewIndex(p, mode)) << int{mode} << " at " << i;
  }
}

int Pick(std::mt19937& random, int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
// Up to two code units of it replaced.
String Changed(std::mt19937& random, String text) {
  const int changes = text.empty() ? 0 : Pick(random, 3);
  for (int i = 0; i < changes; ++i) text.SetUnit(Pick(random, text.size()), u"°1aF|0"[Pick(random, 6)]);
  return text;
}

TEST(TVxTree, AgreesWithASearchThroughItsListInAnyOrder) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    std::mt19937 random(seed);
    TVxTree tree;
    TPlainTree plain;
    std::map<TPlain*, TVxTreeNode*> pairs;
    for (int step = 0; step < 250; ++step) {
      const int count = plain.Count(), work = Pick(random, seed % 2 ? 13 : 9) + (count < 3 ? 20 : 0);
      const int index = Pick(random, count + 1);
      auto any = [&] { return count > 0 && Pick(random, 9) ? plain.Get(Pick(random, count)) : nullptr; };
      TPlain *p = any(), *target = any();
      const auto mode = static_cast<TNodeAttachMode>(Pick(random, 5));
      const String text(1, u"abAB"[Pick(random, 4)]);
      const bool isChild = mode / 2 == 1;
      TVxTreeNode *node = p ? pairs.at(p) : nullptr, *to = target ? pairs.at(target) : nullptr;
      if (work == 0 && p && count > 12)
        pairs.clear(), plain.Delete(p), tree.Delete(node);
      else if (work == 1)
        plain.Sort(p), p ? node->AlphaSort() : tree.AlphaSort();
      else if (work == 2 && p && (target || isChild)) {
        const bool isLoop = plain.IsBelow(isChild ? target : target->Parent, p);
        EXPECT_EQ(RaisedBy<EAccessViolation>([&] { node->MoveTo(to, mode); }), isLoop ? kBadNode : String());
        if (!isLoop) plain.MoveTo(p, target, mode);
      } else if (work == 3) {
        String serial = plain.Write(target);
        ASSERT_EQ(target ? to->GetSerialize() : tree.GetSerialize(), serial);
        serial = count > 20 ? u"1°x" : Changed(random, serial);
        plain.Read(p, serial), p ? node->SetSerialize(serial) : tree.SetSerialize(serial);
      } else if (work == 4) {
        TVxTree copy;
        copy.Assign(&tree);
        EXPECT_EQ(copy.GetSerialize(), tree.GetSerialize());
        EXPECT_EQ(ShapeOf(copy), ShapeOf(tree));
      } else if (work == 9)
        plain.New(count, p, text), tree.Append(node, text);
      else if (work == 10 && p)
        plain.Move(p, index), tree.Move(node, index);
      else if (work == 11 && p && !plain.IsBelow(target, p))
        p->Parent = target, node->SetParent(to);
      else if ((p || isChild) && count < 40) {
        constexpr decltype(&TVxTree::Add) kAdds[] = {&TVxTree::Add, &TVxTree::AddFirst, &TVxTree::AddChild,
                                                     &TVxTree::AddChildFirst, &TVxTree::Insert};
        plain.New(plain.NewIndex(p, mode), isChild ? p : p->Parent, text), (tree.*kAdds[mode])(node, text);
      }
      ASSERT_EQ(tree.GetCount(), plain.Count());
      for (int i = 0; i < plain.Count(); ++i) pairs.emplace(plain.Get(i), tree.GetItem(i));
      ExpectSame(tree, plain, pairs);
      if (HasFatalFailure()) FAIL() << "seed " << seed << " step " << step << " work " << work;
    }
  }
}

int Scattered(int i) { return static_cast<int>(int64_t{i} * 48271 % kMany); }

TEST(TVxTree, StandsManyNodes) {
  for (const bool isDeep : {false, true}) {
    TVxTree tree, copy, merged, read;
    TVxTreeNode* node = tree.AddChild(nullptr, u"top");
    int seen = 0, sum = 0;
    for (int i = 1; i < kMany; ++i)
      if (auto* added = tree.AddChild(node, IntToStr(Scattered(i))); isDeep) node = added;
    for (node = tree.GetFirstNode(); node; node = node->GetNext()) {
      seen += node->GetAbsoluteIndex() == seen && node->GetLevel() == (isDeep ? seen : seen > 0);
      sum += (node->GetFirstChild() ? 1 : 0) + (node->getNextSibling() ? 2 : 0) + node->GetIndex() % 2;
    }
    EXPECT_EQ(std::pair(seen, sum), std::pair(kMany, isDeep ? kMany - 1 : 2 * (kMany - 2) + kMany / 2));
    const String text = tree.GetSerialize();
    copy.Assign(&tree), merged.AssignOn(&tree, true), read.SetSerialize(text), tree.AlphaSort();
    for (const TVxTree* same : {&copy, &merged, &read}) EXPECT_TRUE(same->GetSerialize() == text) << same - &copy;
    TVxTreeNode* middle = copy.GetItem(kMany / 2);
    copy.InsertTree(&tree, middle), middle->DeleteChildren();
    for (int i = kMany / 2; i > 0; --i) copy.AddChild(copy.GetItem(i), u"y")->MoveTo(nullptr, naAddChildFirst);
    EXPECT_EQ(copy.GetCount(), (isDeep ? kMany / 2 + 1 : kMany) + kMany / 2);
  }
}

struct TLess {
  bool operator()(const String& a, const String& b) const { return AnsiCompareText(a, b) < 0; }
};
struct TMapNode {
  String Text;
  std::map<String, TMapNode, TLess> Below;
  TMapNode& Child(const String& t) { return Below.try_emplace(t, TMapNode{t, {}}).first->second; }
  void Put(const TMapNode& n) { Below.erase(n.Text), Below.emplace(n.Text, n); }
  void Merge(const TMapNode& o) {
    Text = o.Text;
    for (auto& [t, c] : o.Below) Child(c.Text).Merge(c);
  }
  int Count() const {
    int n = 0;
    for (auto& [t, c] : Below) n += 1 + c.Count();
    return n;
  }
  String Write() const {
    if (Text.empty() && Below.empty()) return {};
    TCells cells{WriteLighttext({&Text, 1})};
    for (auto& [t, c] : Below) cells.push_back(c.Write());
    return WriteOffsettext(cells);
  }
  void Read(const String& text) {
    Below.clear(), Text.clear();
    const TCells cells = ReadOffsettext(text);
    if (TCells texts = ReadLighttext(cells.empty() ? String() : cells[0]); !texts.empty()) Text = texts[0];
    for (size_t i = 1; i < cells.size(); ++i) {
      TMapNode c;
      c.Read(cells[i]), Put(c);
    }
  }
};

TEST(TVxTextNode, AgreesWithMapsOfTexts) {
  std::mt19937 random(3);
  TVxTextNode tree;
  TMapNode plain;
  for (int step = 0; step < 4000; ++step) {
    const String text(1, u"abcABÄ"[Pick(random, 6)]);
    TVxTextNode* nodes[2];
    TMapNode *maps[2], *above;
    for (int i : {1, 0}) {
      TVxTextNode*& node = nodes[i] = &tree;
      TMapNode*& p = maps[i] = above = &plain;
      TVxStringList path;
      for (int depth = Pick(random, 4); depth > 0 && node->GetCount(); --depth) {
        node = node->GetItems(Pick(random, node->GetCount())), path.Add(node->GetText());
        above = p, p = &p->Child(node->GetText());
      }
      EXPECT_EQ(std::tuple(tree.Exists(path), tree.ValidateNodes(path), node->Level()),
                std::tuple(true, node, path.GetCount()));
    }
    TVxTextNode *node = nodes[0], probe(nullptr, text);
    TMapNode *p = maps[0], other = *maps[1];
    const int work = plain.Count() > 60 ? 7 : Pick(random, 9);
    if (work < 2) {
      EXPECT_EQ((p->Child(text), node->Validate(text)->GetParent()), node);
    } else if (work == 2) {
      node->GetNewItem(text), p->Put({text, {}});
    } else if (work == 3) {
      node->Insert(99, nodes[1]->DuplicateDeep(nullptr).release()), p->Put(other);
    } else if (work < 6 && node != &tree) {
      auto copy = nodes[1]->DuplicateDeep(nullptr);
      other.Text = p->Text, copy->SetText(p->Text);
      if (step % 2) node->AddMerge(*copy);
      node->AddMergeFree(std::move(copy)), p->Merge(other);
    } else if (work < 6) {
      String serial = nodes[1]->GetSerialize();
      EXPECT_EQ(serial, other.Write());
      serial = Changed(random, serial), tree.SetSerialize(serial), plain.Read(serial);
    } else if (work == 6) {
      EXPECT_EQ(node->Remove(&probe) >= 0, p->Below.erase(text) > 0);
    } else if (auto taken = node->NodeToTree()) {
      EXPECT_EQ(std::pair(taken->isRoot(), taken->NodeCount()), std::pair(true, p->Count()));
      above->Below.erase(taken->GetText());
    }
    ASSERT_EQ(std::pair(tree.GetSerialize(), tree.NodeCount()), std::pair(plain.Write(), plain.Count())) << step;
  }
}

TEST(TVxTextNode, KeepsItsRules) {
  TScriptedDialogs dialogs;
  TVxTextNode root(nullptr, u"a"), target;
  TObject plain;
  for (const char16_t* text : {u"b", u"d", u"C", u"ä"}) root.Add(new TVxTextNode(nullptr, text));
  const TCases<String, int, bool> places = {{u"", 0, false},   {u"Ä", 0, true}, {u"aa", 1, false}, {u"B", 1, true},
                                            {u"bb", 2, false}, {u"c", 2, true}, {u"D", 3, true},   {u"e", 4, false}};
  for (const auto& [text, place, found] : places) {
    int index = -7;
    EXPECT_EQ(root.Find(text, index), found) << text;
    EXPECT_EQ(std::pair(index, root.IndexOf(text)), std::pair(place, found ? index : -1)) << text;
  }
  TVxTextNode* node = root.GetNewItem(u"B");
  EXPECT_EQ(std::pair(root.GetCount(), root.GetItems(1)), std::pair(4, node));
  EXPECT_EQ(node->Validate(u"c")->TextToRoot(u"\\"), u"a\\B\\c");
  auto shared = root.DuplicateVirtual();
  EXPECT_EQ((std::array{shared->GetItems(1), node->GetParent()}), (std::array{node, &root}));
  EXPECT_FALSE(shared->GetOwnsObjects());
  shared->Exchange(0, 1), root.Move(0, 1);
  ASSERT_EQ(dialogs.Shown.size(), 2u);
  EXPECT_EQ(root.GetItems(1), node);
  EXPECT_EQ(dialogs.Shown[0].Text, u"Die Funktion \"TVxTextNode.Exchange\" wir nicht unterstützt.");
  EXPECT_EQ(dialogs.Shown[1].Text, u"Die Funktion \"TVxTextNode.Move\" wir nicht unterstützt.");
  for (TObject* bad : std::initializer_list<TObject*>{nullptr, &root, &plain})
    EXPECT_EQ(RaisedBy<EAccessViolation>([&] { root.Add(bad); }), kBadNode);
  target.AddMergeFree(std::move(shared));
  EXPECT_EQ(target.GetSerialize(), root.GetSerialize());
  auto taken = node->NodeToTree();
  EXPECT_EQ(root.NodeToTree(), nullptr);
  EXPECT_EQ(std::pair(taken.get(), root.GetCount()), std::pair(node, 3));
  EXPECT_EQ(RaisedBy<EAccessViolation>([&] { node->GetItems(0)->AddMergeFree(std::move(taken)); }), kBadNode);
  node->GetItems(0)->AddMerge(*node), node->AddMerge(*node);  // its child takes its text
  EXPECT_EQ(node->GetSerialize(), u"1°B8°1°B3°1°c");
  root.Init();
  EXPECT_EQ((TFacts{root.isEmpty(), root.GetSerialize(), root.GetLightText()}), "yes  ");
}

TEST(TTreeViewNode, CarriesItsFieldsInItsTexts) {
  TTreeViewNode node(nullptr, u"a"), tree, read;
  node.SetImageIndex(1), node.SetOverlayIndex(2), node.SetSelectedIndex(3), node.SetStateIndex(4), node.SetData(&node);
  const TCases<String, String> cases = {
      {u"b", u"b|ÿTTreeViewNode|1|2|3|4"},
      {u"b|more|ÿTTreeViewNode|5|x", u"b|ÿTTreeViewNode|5|-1|3|4"},
      {u"", u""},
      {u"ÿTTreeViewNode|5", u"ÿTTreeViewNode|ÿTTreeViewNode|1|2|3|4"},
      {u"|ÿTTreeViewNode|-1|-1|-1|-1", u""},
      {u"b|ÿTTreeViewNode|9|8|ÿTTreeViewNode|7|6|5|4|3", u"b|ÿTTreeViewNode|7|6|5|4"}};
  for (const auto& [text, back] : cases) {
    auto copy = node.Duplicate(nullptr);
    copy->SetLightText(text);
    EXPECT_EQ(copy->GetLightText(), back);
  }
  tree.Validate(u"x")->AddMerge(node), read.SetSerialize(tree.GetSerialize());
  EXPECT_EQ(read.GetSerialize(), tree.GetSerialize());
  EXPECT_FALSE(read.isEmpty());
  EXPECT_EQ(static_cast<TTreeViewNode*>(tree.GetItems(0))->GetData(), &node);
  node.Assign(TVxTextNode(nullptr, u"p"));
  EXPECT_EQ(node.GetData(), nullptr);
  EXPECT_EQ(node.GetLightText(), u"p|ÿTTreeViewNode|-1|-1|-1|-1");
  TVxStringList marks;
  marks.SetLighttext(u"m|m|x|m");
  int index = 4;
  for (int place : {3, 1, 1}) {
    EXPECT_EQ(TVxTextNode::FindClassname(marks, u"m", index), place);
    EXPECT_EQ(index, place);
  }
}

TEST(TVxTextNode, StandsManyNodes) {
  TVxTextNode broad, deep, merged, *node = &deep;
  std::u16string nested, wide(u"0");
  TVxTree tree;
  for (int i = 0; i < kMany; ++i) broad.Validate(IntToStr(Scattered(i))), node = node->Validate(u"x");
  EXPECT_EQ((TFacts{broad.GetCount(), node->Level(), node->TextToRoot(u"").size()}), "100000 100000 100000");
  for (TVxTextNode* from : {&broad, &deep}) {
    const String text = from->GetSerialize();
    TVxTextNode read;
    read.SetSerialize(text);
    auto copy = from->DuplicateDeep(nullptr);
    for (TVxTextNode* same : {&read, copy.get()}) EXPECT_TRUE(same->GetSerialize() == text) << text.size();
    copy->AddMergeFree(read.DuplicateDeep(nullptr)), merged.AddMerge(read), merged.AddMergeFree(std::move(copy));
  }
  EXPECT_EQ(merged.NodeCount(), 2 * kMany);
  for (int i = 0; i < 2 * kMany; ++i) nested += u"FFFFFFFF°", wide += u"°";
  for (const std::u16string& hostile : {nested, wide, u"FFFFFFFF°1°a2°-1°-1" + nested, u"F°" + wide}) {
    TVxTree again;
    TVxTextNode read;
    deep.SetSerialize(hostile), tree.SetSerialize(hostile);
    again.SetSerialize(tree.GetSerialize()), read.SetSerialize(deep.GetSerialize());
    EXPECT_TRUE(again.GetSerialize() == tree.GetSerialize()) << hostile.size();
    EXPECT_TRUE(read.GetSerialize() == deep.GetSerialize()) << hostile.size();
  }
}

}  // namespace
