// A table view of Qt's widgets, rendered off-screen, as a peer.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace vx::bench {

class TQtTable {
 public:
  // The texts, as UTF-8, row by row; each cell so many pixels large.
  TQtTable(const std::vector<std::vector<std::string>>& Rows, int CellWidth, int CellHeight);
  ~TQtTable();
  // Seconds for rendering all cells that are on show into a picture, with a delegate that fills the ground and writes
  // the text, cut where it does not fit.
  double Render();

 private:
  struct TImpl;
  std::unique_ptr<TImpl> FImpl;
};

}  // namespace vx::bench
