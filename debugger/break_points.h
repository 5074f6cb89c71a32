// TBreakPoints: the lines at which a debugged program stops, with conditions and counts. What a
// condition means is the debugger's matter.
#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "common/mutex.h"

namespace zoka {

/// What a breakpoint asks for beside its line.
struct TBreakRule {
  /// An expression that must not be 0; empty: none.
  std::string condition;
  /// Stops from this pass on, counting those whose condition holds; 1 and less: from the first.
  int32_t count = 1;
  bool operator==(const TBreakRule&) const = default;
};

/// Any thread, but Passes is the machine's.
class TBreakPoints {
 public:
  /// Nothing happens if the line is present.
  void Add(int32_t line);
  /// Takes away the first entry that is not below `line`: for a line without a breakpoint that is
  /// the next higher one, if there is any. That is meant.
  void Remove(int32_t line);
  /// Adds the line if need be and gives it a rule; passes are counted anew.
  void SetRule(int32_t line, const TBreakRule& rule);
  /// Ascending.
  std::vector<int32_t> Lines() const;
  /// One more line besides, which is forgotten at the next stop.
  void SetRunTo(int32_t line);
  void ClearRunTo();

  /// True if the line is a breakpoint; writes its condition, or nothing.
  bool Find(int32_t line, std::string* condition) const;
  /// True if it is the one to run to.
  bool IsRunTo(int32_t line) const;
  /// Counts a pass of a breakpoint whose condition holds; true if the program is to stop.
  bool Passes(int32_t line);

 private:
  struct TEntry {
    TBreakRule rule;
    int32_t passes = 0;
  };
  void AddLocked(int32_t line);
  void NoteUse() { mInUse.store(!fBreakPoints.empty() || mHasRunTo, std::memory_order_release); }

  std::atomic<bool> mInUse{false};  // lets lines pass without the lock while there is nothing
  mutable TMutex mLock{TLockRank::Leaf};
  std::vector<int32_t> fBreakPoints;  // sorted, no duplicates; under mLock, like the rest
  std::map<int32_t, TEntry> mRules;
  bool mHasRunTo = false;
  int32_t mRunTo = 0;
};

}  // namespace zoka
