// Lists and indexes beside the containers of the standard library and of boost, with a million entries:
// adding in order, at random and all at once, looking up, walking by index, typed cells and sums.
#include <algorithm>
#include <boost/container/flat_map.hpp>
#include <boost/container/flat_set.hpp>
#include <list>
#include <map>
#include <numeric>
#include <random>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "bench/support/Bench.h"
#include "core/uVxFunctions.h"
#include "objects/uVxClasses.h"
#include "objects/uVxContnrs.h"
#include "objects/uVxObjects.h"
#include "platform/Collation.h"
#include "platform/Numbers.h"
#include "platform/Sorting.h"
#include "tables/uFileCsv.h"

namespace vx::bench {
namespace {

constexpr int kCount = 1000000;
constexpr int kRounds = 5;

// What look-ups have to reach.
constexpr TBar kLevel = TBar::AtLeast(1);

std::vector<int> Ascending(int Count, int Step) {
  std::vector<int> result(static_cast<size_t>(Count));
  for (int i = 0; i < Count; ++i) result[static_cast<size_t>(i)] = i * Step;
  return result;
}

template <typename T>
std::vector<T> Shuffled(std::vector<T> Values, unsigned Seed) {
  std::shuffle(Values.begin(), Values.end(), std::mt19937(Seed));
  return Values;
}

// Seconds of both works, in turn; the sums that they return have to be the same.
template <typename TOurs, typename TPeer>
void Compare(std::string_view What, const char* Peer, int Count, TOurs Ours, TPeer PeerWork, TBar Bar = {}) {
  int64_t ours = 0, theirs = 0;
  auto times = Medians(
      kRounds, [&] { return Time([&] { ours = Ours(); }); }, [&] { return Time([&] { theirs = PeerWork(); }); });
  Expect(ours == theirs, What);
  Report(What, times[0], Peer, times[1], Count, Bar);
}

int64_t FoundIn(const std::vector<int>& Sorted, const std::vector<int>& Keys) {
  int64_t sum = 0;
  for (int key : Keys) {
    auto place = std::lower_bound(Sorted.begin(), Sorted.end(), key);
    sum += place != Sorted.end() && *place == key ? place - Sorted.begin() : -1;
  }
  return sum;
}

void MeasureIds(int Count) {
  const std::vector<int> sorted = Ascending(Count, 2), random = Shuffled(sorted, 1);
  const std::vector<int> reverse(sorted.rbegin(), sorted.rend());
  std::vector<int> keys = Shuffled(Ascending(Count, 3), 2);
  auto addOne = [](const std::vector<int>& Ids) {
    TVxIdList list;
    for (int id : Ids) list.Add(id);
    return int64_t{list.GetCount()};
  };
  auto addAll = [](const std::vector<int>& Ids) {
    TVxIdList list;
    list.AddList(Ids);
    return int64_t{list.GetCount()};
  };
  auto inSet = [](const std::vector<int>& Ids) {
    std::set<int> set(Ids.begin(), Ids.end());
    return static_cast<int64_t>(set.size());
  };
  auto inFlatSet = [](const std::vector<int>& Ids) {
    boost::container::flat_set<int> set(Ids.begin(), Ids.end());
    return static_cast<int64_t>(set.size());
  };
  Compare(
      "objects/ids_add_in_order", "set", Count, [&] { return addOne(sorted); }, [&] { return inSet(sorted); });
  Compare(
      "objects/ids_addlist_reverse", "set", Count, [&] { return addAll(reverse); }, [&] { return inSet(reverse); });
  Compare(
      "objects/ids_addlist_random", "set", Count, [&] { return addAll(random); }, [&] { return inSet(random); });
  Compare(
      "objects/ids_addlist_random", "flat_set", Count, [&] { return addAll(random); },
      [&] { return inFlatSet(random); });
  TVxIdList list;
  list.AddList(sorted);
  auto find = [&] {
    int64_t sum = 0;
    for (int key : keys) sum += list.IndexOf(key);
    return sum;
  };
  Compare(
      "objects/ids_find", "lower_bound", Count, find, [&] { return FoundIn(sorted, keys); }, kLevel);
}

void MeasureIdsOneByOne() {
  const int count = 50000;
  const std::vector<int> random = Shuffled(Ascending(count, 2), 3);
  auto ours = [&] {
    TVxIdList list;
    for (int id : random) list.Add(id);
    return int64_t{list.GetCount()};
  };
  auto peer = [&] {
    boost::container::flat_set<int> set;
    for (int id : random) set.insert(id);
    return static_cast<int64_t>(set.size());
  };
  Compare("objects/ids_add_random_50k", "flat_set", count, ours, peer);
}

void MeasureDataIds() {
  TVxDataIdList list;
  boost::container::flat_map<int, TVxDataId*> flat;
  std::unordered_map<int, TVxDataId*> hashed;
  flat.reserve(kCount);
  for (int id = 0; id < kCount; ++id) {
    auto* object = new TVxDataIdHelper;
    object->SetId(id * 2);
    list.Add(object);
    flat.emplace_hint(flat.end(), id * 2, object);
    hashed.emplace(id * 2, object);
  }
  const std::vector<int> keys = Shuffled(Ascending(kCount, 2), 4);
  TVxObjectList shuffled(false);
  for (int key : keys) shuffled.Add(hashed[key]);
  auto addAll = [&] {
    TVxDataIdList copy(false);
    copy.ItemsAdd(shuffled);
    return int64_t{copy.GetCount()};
  };
  auto addToMap = [&] {
    std::map<int, TObject*> copy;
    for (int i = 0; i < kCount; ++i) copy.emplace(keys[static_cast<size_t>(i)], shuffled.GetItem(i));
    return static_cast<int64_t>(copy.size());
  };
  Compare("objects/dataids_itemsadd_random", "map", kCount, addAll, addToMap);
  auto ours = [&] {
    int64_t sum = 0;
    for (int key : keys) sum += list.GetItem(key)->GetId();
    return sum;
  };
  auto walk = [&](const auto& Map) {
    int64_t sum = 0;
    for (int key : keys) sum += Map.find(key)->second->GetId();
    return sum;
  };
  std::vector<TVxDataId*> sorted;
  for (const auto& entry : flat) sorted.push_back(entry.second);
  auto inVector = [&] {
    int64_t sum = 0;
    for (int key : keys) {
      auto isBelow = [](const TVxDataId* Item, int Id) { return Item->GetId() < Id; };
      sum += (*std::lower_bound(sorted.begin(), sorted.end(), key, isBelow))->GetId();
    }
    return sum;
  };
  Compare("objects/dataids_find", "sorted_vector", kCount, ours, inVector, kLevel);
  Compare("objects/dataids_find", "flat_map", kCount, ours, [&] { return walk(flat); });
  Compare("objects/dataids_find", "unordered_map", kCount, ours, [&] { return walk(hashed); });
}

std::vector<String> Keys(int Count) {
  std::vector<String> result;
  for (int i = 0; i < Count; ++i) result.push_back(u"P-" + IntToStr(1000000 + i));
  return result;
}

void MeasureStringIndex(const char* What, bool IsCaseSensitive) {
  const std::vector<String> sorted = Keys(kCount), random = Shuffled(sorted, 5);
  const TVxStringIndexOptions options =
      IsCaseSensitive ? TVxStringIndexOptions() : TVxStringIndexOptions{vxioNotCaseSensitive};
  struct TLess {
    bool IsCaseSensitive;
    bool operator()(const String& A, const String& B) const {
      return IsCaseSensitive ? A < B : AnsiCompareText(A, B) < 0;
    }
  };
  const std::string name = std::string("objects/index_") + What;
  auto add = [&](const std::vector<String>& Texts) {
    TVxStringIndex index(options);
    for (const String& text : Texts) index.Add(text);
    return int64_t{index.GetCount()};
  };
  auto addToMap = [&](const std::vector<String>& Texts) {
    std::map<String, TObject*, TLess> map(TLess{IsCaseSensitive});
    for (const String& text : Texts) map.emplace(text, nullptr);
    return static_cast<int64_t>(map.size());
  };
  Compare(
      name + "_add_in_order", "map", kCount, [&] { return add(sorted); }, [&] { return addToMap(sorted); });
  Compare(
      name + "_add_random", "map", kCount, [&] { return add(random); }, [&] { return addToMap(random); });
  TVxStringIndex index(options);
  for (const String& text : sorted) index.Add(text);
  auto find = [&] {
    int64_t sum = 0;
    for (const String& text : random) sum += index.IndexOf(text);
    return sum;
  };
  auto findInVector = [&] {
    int64_t sum = 0;
    for (const String& text : random) {
      sum += std::lower_bound(sorted.begin(), sorted.end(), text, TLess{IsCaseSensitive}) - sorted.begin();
    }
    return sum;
  };
  Compare(name + "_find_random", "lower_bound", kCount, find, findInVector, kLevel);
  if (!IsCaseSensitive) return;
  std::vector<std::string> bytes, wanted;
  for (const String& text : sorted) bytes.push_back(text.ToUtf8());
  for (const String& text : random) wanted.push_back(text.ToUtf8());
  auto findBytes = [&] {
    int64_t sum = 0;
    for (const std::string& text : wanted) sum += std::lower_bound(bytes.begin(), bytes.end(), text) - bytes.begin();
    return sum;
  };
  Compare(name + "_find_random", "lower_bound_bytes", kCount, find, findBytes, kLevel);
  auto findSame = [&] {
    int64_t sum = 0;
    for (int i = 0; i < kCount; ++i) sum += index.IndexOf(sorted[kCount / 2]);
    return sum;
  };
  auto findSameInVector = [&] {
    int64_t sum = 0;
    for (int i = 0; i < kCount; ++i) {
      sum += std::lower_bound(sorted.begin(), sorted.end(), sorted[kCount / 2]) - sorted.begin();
    }
    return sum;
  };
  Compare(name + "_find_same", "lower_bound", kCount, findSame, findSameInVector, kLevel);
}

// Keys that come at random, while every third one goes again, by key and through the list; the list is asked for its
// count in between.
void MeasureIndexMixed(int Count) {
  const std::vector<String> keys = Shuffled(Keys(Count), 7);
  const auto ours = [&] {
    TVxStringIndex index;
    TVxStringList& csl = index.GetCsl();
    int64_t sum = 0;
    for (size_t i = 0; i < keys.size(); ++i) {
      index.Add(keys[i]);
      if (i % 6 == 2) index.Delete(keys[i / 2]);
      if (i % 6 == 5) csl.Delete(static_cast<int>(i) % csl.GetCount());
      sum += csl.GetCount();
    }
    return sum;
  };
  const auto inMap = [&] {
    std::map<String, TObject*> map;
    int64_t sum = 0;
    for (size_t i = 0; i < keys.size(); ++i) {
      map.emplace(keys[i], nullptr);
      if (i % 6 == 2) map.erase(keys[i / 2]);
      if (i % 6 == 5) map.erase(map.lower_bound(keys[i]));
      sum += static_cast<int64_t>(map.size());
    }
    return sum;
  };
  int64_t counted = 0, inPeer = 0;
  const auto times = Medians(
      3, [&] { return Time([&] { counted = ours(); }); }, [&] { return Time([&] { inPeer = inMap(); }); });
  // What goes by its place and by its key is not the same, so that a few more keys are met again here or there.
  Expect(counted > inPeer / 2 && inPeer > counted / 2, "index_mixed");
  Report("objects/index_mixed", times[0], "map", times[1], Count);
}

void MeasureSort(const char* What, const std::vector<double>& Values) {
  const auto compare = [](double a, double b) { return a < b ? -1 : a > b ? 1 : 0; };
  const FunctionRef<int(double, double)> byRef = compare;
  const auto isBefore = [&](double a, double b) { return byRef(a, b) < 0; };
  const auto ours = [&] { return static_cast<int64_t>(StableSort(Values, isBefore)[Values.size() / 3]); };
  const auto peer = [&] {
    std::vector<double> sorted = Values;
    std::stable_sort(sorted.begin(), sorted.end(), isBefore);
    return static_cast<int64_t>(sorted[Values.size() / 3]);
  };
  Compare(What, "stable_sort", kCount, ours, peer, TBar::AtLeast(1));
}

void MeasureSorts() {
  std::vector<double> values(kCount);
  std::iota(values.begin(), values.end(), 0.0);
  MeasureSort("objects/sort_in_order", values);
  MeasureSort("objects/sort_reverse", {values.rbegin(), values.rend()});
  MeasureSort("objects/sort_random", Shuffled(values, 8));
}

void MeasureDoubles() {
  std::vector<double> values(kCount);
  for (int i = 0; i < kCount; ++i) values[static_cast<size_t>(i)] = i * 0.5;
  const std::vector<double> keys = Shuffled(values, 6);
  TVxDoubleSortList list;
  for (double value : values) list.Add(value);
  auto ours = [&] {
    int64_t sum = 0;
    for (double key : keys) sum += list.IndexOf(key);
    return sum;
  };
  auto peer = [&] {
    int64_t sum = 0;
    for (double key : keys) sum += std::lower_bound(values.begin(), values.end(), key) - values.begin();
    return sum;
  };
  Compare("objects/doubles_find", "lower_bound", kCount, ours, peer, kLevel);
}

void MeasureChain() {
  std::vector<int> values = Ascending(kCount, 1);
  TVxChainList chain;
  std::list<void*> peer;
  for (int& value : values) {
    chain.Add(&value);
    peer.push_back(&value);
  }
  auto ours = [&] {
    int64_t sum = 0;
    for (int i = 0; i < kCount; ++i) sum += *static_cast<int*>(chain.Get(i));
    return sum;
  };
  auto walk = [&] {
    int64_t sum = 0;
    for (void* value : peer) sum += *static_cast<int*>(value);
    return sum;
  };
  Compare("objects/chain_by_index", "list_walk", kCount, ours, walk);
}

void MeasureCopies() {
  TVxObjectList list(false);
  TVxDataIdHelper object;
  std::vector<TObject*> plain;
  for (int i = 0; i < kCount; ++i) {
    list.Add(&object);
    plain.push_back(&object);
  }
  auto ours = [&] {
    TVxObjectList copy(false);
    copy.ItemsAssign(list);
    return int64_t{copy.GetCount()};
  };
  auto peer = [&] {
    std::vector<TObject*> copy;
    for (TObject* item : plain) copy.push_back(item);
    return static_cast<int64_t>(copy.size());
  };
  Compare("objects/list_from_list", "push_back", kCount, ours, peer);
}

void MeasureTable() {
  TFileCsv table;
  std::vector<String> cells;
  for (int i = 0; i < kCount; ++i) {
    String text = IntToStr(i % 1000) + u",25";
    table.Add(new TVxStringList);
    table.GetLines(i)->Add(u"x");
    table.GetLines(i)->Add(text);
    cells.push_back(text);
  }
  auto typed = [&] {
    int64_t sum = 0;
    for (int i = 0; i < kCount; ++i) sum += table.GetCellsAsCurrency(1, i).Units;
    return sum;
  };
  auto plain = [&] {
    int64_t sum = 0;
    for (int i = 0; i < kCount; ++i) sum += StrToCurrDef(table.GetCell(1, i), 0).Units;
    return sum;
  };
  auto bare = [&] {
    int64_t sum = 0;
    for (const String& text : cells) sum += StrToCurrDef(text, 0).Units;
    return sum;
  };
  Compare("objects/typed_cell", "getcell+routine", kCount, typed, plain);
  Compare("objects/typed_cell", "routine_alone", kCount, typed, bare, TBar::AtLeast(1 / 1.3));
  Compare(
      "objects/sum_y", "getcell+routine", kCount, [&] { return table.SumCurrencyY(1, 0, kCount - 1).Units; }, plain);
}

}  // namespace
}  // namespace vx::bench

int main() {
  using namespace vx::bench;
  MeasureIds(kCount);
  MeasureIds(kCount / 10);
  MeasureIdsOneByOne();
  MeasureDataIds();
  MeasureStringIndex("exact", true);
  MeasureStringIndex("folding", false);
  MeasureIndexMixed(kCount / 10);
  MeasureIndexMixed(kCount);
  MeasureSorts();
  MeasureDoubles();
  MeasureChain();
  MeasureCopies();
  MeasureTable();
}
