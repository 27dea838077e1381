// Which cells of a table a file cannot hold.
//
//   TLostCells   how many, and the first of them
//   TIfLost      what is to come of a file that can't hold all
//   TSaved       whether a file was written, and what it lacks
//
// Example:
//   vx::TSaved saved = vx::SaveWhole(table, u"C:\\Daten\\Kassen.txt", vx::ilRefuse);
//   if (!saved.IsSaved) show(saved.Lost.ToText());  // how many, and the first of them
//
// Threads: any number may look at one table, which nobody changes meanwhile.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/String.h"

namespace vx {

enum TLossReason : uint8_t {
  lrCharacter,  // a character that the encoding lacks; another stands for it
  lrForm        // a text that the form can't tell from another, such as an empty last cell
};

struct TLostCell {
  int Col, Row;  // counted from 0
  TLossReason Reason;
  friend bool operator==(const TLostCell&, const TLostCell&) = default;
};

// In the order of the rows, and of the cells in each.
struct TLostCells {
  static constexpr size_t kMostKept = 100;

  int64_t Count = 0;             // of all
  std::vector<TLostCell> First;  // kMostKept at most

  bool IsEmpty() const noexcept { return Count == 0; }
  void Add(const TLostCell& Cell) {
    ++Count;
    if (First.size() < kMostKept) First.push_back(Cell);
  }
  // For users, in German, up to three places, rows and columns counted from 1; empty if there are none.
  String ToText() const;
};

enum TIfLost : uint8_t {
  ilRefuse,  // nothing is written, what stands on the disk stays
  ilSave     // what fits is written
};

struct TSaved {
  bool IsSaved = false;
  TLostCells Lost;
};

}  // namespace vx
