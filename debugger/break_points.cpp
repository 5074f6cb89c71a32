// The sorted lines of the breakpoints, and their rules.
#include "debugger/break_points.h"

#include <algorithm>

namespace zoka {

void TBreakPoints::AddLocked(int32_t line) {
  const auto place = std::lower_bound(fBreakPoints.begin(), fBreakPoints.end(), line);
  if (place == fBreakPoints.end() || *place != line) fBreakPoints.insert(place, line);
  NoteUse();
}

void TBreakPoints::Add(int32_t line) {
  const TLock lock(mLock);
  AddLocked(line);
}

void TBreakPoints::Remove(int32_t line) {
  const TLock lock(mLock);
  const auto place = std::lower_bound(fBreakPoints.begin(), fBreakPoints.end(), line);
  if (place == fBreakPoints.end()) return;
  mRules.erase(*place);
  fBreakPoints.erase(place);
  NoteUse();
}

void TBreakPoints::SetRule(int32_t line, const TBreakRule& rule) {
  const TLock lock(mLock);
  AddLocked(line);
  mRules[line] = {rule, 0};
}

std::vector<int32_t> TBreakPoints::Lines() const {
  const TLock lock(mLock);
  return fBreakPoints;
}

void TBreakPoints::SetRunTo(int32_t line) {
  const TLock lock(mLock);
  mHasRunTo = true;
  mRunTo = line;
  NoteUse();
}

void TBreakPoints::ClearRunTo() {
  const TLock lock(mLock);
  mHasRunTo = false;
  NoteUse();
}

bool TBreakPoints::Find(int32_t line, std::string* condition) const {
  if (!mInUse.load(std::memory_order_acquire)) return false;
  const TLock lock(mLock);
  condition->clear();
  if (!std::binary_search(fBreakPoints.begin(), fBreakPoints.end(), line)) return false;
  const auto rule = mRules.find(line);
  if (rule != mRules.end()) *condition = rule->second.rule.condition;
  return true;
}

bool TBreakPoints::IsRunTo(int32_t line) const {
  if (!mInUse.load(std::memory_order_acquire)) return false;
  const TLock lock(mLock);
  return mHasRunTo && mRunTo == line;
}

bool TBreakPoints::Passes(int32_t line) {
  const TLock lock(mLock);
  const auto rule = mRules.find(line);
  if (rule == mRules.end()) return true;
  TEntry& entry = rule->second;
  if (entry.passes < entry.rule.count) ++entry.passes;
  // A stop for another reason is a pass all the same.
  return entry.passes >= entry.rule.count || (mHasRunTo && mRunTo == line);
}

}  // namespace zoka
