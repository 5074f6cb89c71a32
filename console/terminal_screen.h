// The simulated text screen as a terminal shows it: what has changed since the last look, in
// control sequences. Pure: snapshots in, bytes out.
#pragma once

#include <string>

#include "run/screen/basic_rsrc.h"

namespace zoka {

/// Remembers what the terminal shows.
class TTerminalScreen {
 public:
  /// Rows and columns that the terminal has; what lies beyond is not shown.
  void SetSize(int32_t rows, int32_t columns);
  /// The terminal shows something else by now: the next update writes all of it.
  void Forget() { mKnown = false; }
  /// Bytes that bring the terminal up to date; empty if it is.
  std::string Update(const TTxtSnapshot& now);
  /// Bytes that leave the cursor on the first line below the text.
  std::string Leave() const;

 private:
  bool RowChanged(const TTxtSnapshot& now, int32_t row) const;
  std::string RowBytes(const TTxtSnapshot& now, int32_t row) const;

  int32_t mRows = 25;
  int32_t mColumns = 80;
  bool mKnown = false;
  TTxtSnapshot mShown;
};

}  // namespace zoka
