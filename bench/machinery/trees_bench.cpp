// Trees at three sizes a factor of ten apart. There is no peer: what counts is that the time for a node hardly grows.
#include <cstdlib>
#include <random>

#include "bench/machinery/Topics.h"
#include "bench/support/Bench.h"
#include "objects/uVxTree.h"
#include "platform/Numbers.h"

namespace vx::bench {
namespace {

// How the nodes of a tree hang together.
enum TShape { shBroad, shDeep, shMixed };
constexpr const char* kShapes[] = {"broad", "deep", "mixed"};

void Expect(bool IsGood, const char* What) {
  if (IsGood) return;
  std::printf("FAILED %s\n", What);
  std::_Exit(1);
}

void Build(TVxTree& Tree, TShape Shape, int Count) {
  std::mt19937 random(4711);
  TVxTreeNode* node = nullptr;
  for (int i = 0; i < Count; ++i) {
    TVxTreeNode* parent = Shape == shBroad ? nullptr : node;
    if (Shape == shMixed && parent && random() % 3 != 0) parent = parent->GetParent();
    node = Tree.AddChild(parent, IntToStr(static_cast<int>(random() % 1000000)));
  }
}

void Measure(TShape Shape, int Count) {
  constexpr int kRounds = 3;
  String text;
  const auto times = Medians(
      kRounds,
      [&] {
        TVxTree tree;
        return Time([&] { Build(tree, Shape, Count); });
      },
      [&] {
        TVxTree tree;
        Build(tree, Shape, Count);
        int64_t sum = 0;
        const double seconds = Time([&] {
          for (TVxTreeNode* node = tree.GetFirstNode(); node; node = node->GetNext()) {
            sum += node->GetAbsoluteIndex() + node->GetLevel() + (node->getNextSibling() ? 1 : 0);
          }
        });
        Expect(sum >= int64_t{Count} * (Count - 1) / 2, "walk");
        return seconds;
      },
      [&] {
        TVxTree tree;
        Build(tree, Shape, Count);
        return Time([&] { tree.AlphaSort(); });
      },
      [&] {
        TVxTree tree;
        Build(tree, Shape, Count);
        return Time([&] { text = tree.GetSerialize(); });
      },
      [&] {
        TVxTree tree;
        const double seconds = Time([&] { tree.SetSerialize(text); });
        Expect(tree.GetCount() == Count, "read");
        return seconds;
      });
  const char* const names[] = {"build", "walk", "sort", "write", "read"};
  std::printf("BENCH tree_%s nodes=%d", kShapes[Shape], Count);
  for (size_t i = 0; i < times.size(); ++i) std::printf(" %s=%.0fns", names[i], times[i] * 1e9 / Count);
  std::printf(" a node; text %d units\n", text.size());
  std::fflush(stdout);
}

}  // namespace

void RunTrees() {
  for (TShape shape : {shBroad, shDeep, shMixed}) {
    for (int count : {1000, 10000, 100000}) Measure(shape, count);
  }
}

}  // namespace vx::bench
