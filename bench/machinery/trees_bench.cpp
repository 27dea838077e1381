// Trees at three sizes a factor of ten apart. There is no peer: what counts is that the time for a node hardly grows.
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "bench/machinery/Topics.h"
#include "bench/support/Bench.h"
#include "objects/uVxTree.h"
#include "platform/Numbers.h"

namespace vx::bench {
namespace {

// How the nodes of a tree hang together.
enum TShape { shBroad, shDeep, shMixed };
constexpr const char* kShapes[] = {"broad", "deep", "mixed"};

void Build(TVxTree& Tree, TShape Shape, int Count) {
  std::mt19937 random(4711);
  TVxTreeNode* node = nullptr;
  for (int i = 0; i < Count; ++i) {
    TVxTreeNode* parent = Shape == shBroad ? nullptr : node;
    if (Shape == shMixed && parent && random() % 3 != 0) parent = parent->GetParent();
    node = Tree.AddChild(parent, IntToStr(static_cast<int>(random() % 1000000)));
  }
}

constexpr const char* kWorks[] = {"build", "walk", "sort", "write", "read"};

// The nanoseconds a node of each of the works.
std::vector<double> Measure(TShape Shape, int Count) {
  constexpr int kRounds = 3;
  String text;
  std::vector<double> times = Medians(
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
  std::printf("BENCH machinery/tree_%s nodes=%d", kShapes[Shape], Count);
  for (size_t i = 0; i < times.size(); ++i) std::printf(" %s=%.0fns", kWorks[i], times[i] *= 1e9 / Count);
  std::printf(" a node; text %d units\n", text.size());
  std::fflush(stdout);
  return times;
}

}  // namespace

void RunTrees() {
  // The logarithm, by which a node of many may cost more, and as much again for the caches that they leave.
  const TBar bar = TBar::AtMost(2 * std::log(100000.0) / std::log(1000.0));
  for (TShape shape : {shBroad, shDeep, shMixed}) {
    const std::vector<double> few = Measure(shape, 1000);
    Measure(shape, 10000);
    const std::vector<double> many = Measure(shape, 100000);
    for (size_t i = 0; i < few.size(); ++i) {
      const std::string what = std::string("machinery/tree_") + kShapes[shape] + "_" + kWorks[i];
      ReportGrowth(what, "at_100k", many[i], "at_1k", few[i], "ns", bar);
    }
  }
}

}  // namespace vx::bench
