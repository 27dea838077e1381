// A decorator without a target, and what stands for a table that is sorted.
#pragma once

#include "rendering/uDecoration.h"

namespace vx::test {

struct TSortedPlain : TObject, TSortedTable {
  TPoint GetSortCell() const noexcept override { return Cell; }
  TSortArrow GetSortArrow() const noexcept override { return Arrow; }
  TPoint Cell{-1, -1};
  TSortArrow Arrow = saUp;
};

struct TPlainDecorator : TDecorator {
  bool ColumnClickSelection() const override { return Selects; }
  TObject* GetComponent() const override { return nullptr; }
  void SetComponent(TObject*) override {}
  void Trim() override {}
  bool Selects = false;
};

}  // namespace vx::test
