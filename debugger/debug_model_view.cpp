// What the model answers to a view that paints.
#include "common/catalogue.h"
#include "debugger/debug_model.h"
#include "debugger/expression.h"

namespace zoka {
namespace {

constexpr const char CURRENT_KEY[] = "[Current] %Num%";
constexpr const char LINE_PLACEHOLDER[] = "%Num%";

}  // namespace

bool TDebugModel::HasDebugger() const {
  const TLock lock(mLock);
  return fDebugger != nullptr;
}

TDebugRunMode TDebugModel::RunMode() const {
  const TLock lock(mLock);
  return fRunMode;
}

size_t TDebugModel::SrcLineCount() const {
  const TLock lock(mLock);
  return mSrcCode.Count();
}

TSrcCodeItem TDebugModel::SrcLine(size_t index) const {
  const TLock lock(mLock);
  return index < mSrcCode.Count() ? mSrcCode.Item(index) : TSrcCodeItem();
}

std::optional<size_t> TDebugModel::FindSrcLine(int32_t line) const {
  const TLock lock(mLock);
  return mSrcCode.Find(line);
}

std::vector<size_t> TDebugModel::BreakPointItems() const {
  const TLock lock(mLock);
  std::vector<size_t> items;
  for (size_t i = 0; i < mSrcCode.Count(); ++i) {
    if (mSrcCode.Item(i).breakPoint) items.push_back(i);
  }
  return items;
}

size_t TDebugModel::CallStackCount() const {
  const TLock lock(mLock);
  return mCalls.size() + 1;
}

std::string TDebugModel::CurLineText() const {
  switch (mEnd) {
    case TEnd::Running:
      return replace_placeholder(mContext.catalogue->GetString(CURRENT_KEY), LINE_PLACEHOLDER,
                                 mSrcCode.Line(mCurLine));
    case TEnd::Done:
      return mContext.catalogue->GetString("[Done]");
    case TEnd::Killed:
      return mContext.catalogue->GetString("[Killed]");
    default:
      return {};
  }
}

std::string TDebugModel::CallStackText(size_t index) const {
  const TLock lock(mLock);
  if (index < mCalls.size()) return mSrcCode.Line(mCalls[index]);
  return index == mCalls.size() ? CurLineText() : std::string();
}

int32_t TDebugModel::CallStackLine(size_t index) const {
  const TLock lock(mLock);
  return index < mCalls.size() ? mCalls[index] : mCurLine;
}

int32_t TDebugModel::CurLine() const {
  const TLock lock(mLock);
  return mCurLine;
}

size_t TDebugModel::VarCount() const {
  const TLock lock(mLock);
  return mVars.Count();
}

int32_t TDebugModel::VarChildCount(size_t item) const {
  const TLock lock(mLock);
  return item < mVars.Count() ? mVars.ChildCount(item) : 0;
}

bool TDebugModel::IsVarExpanded(size_t item) const {
  const TLock lock(mLock);
  return item < mVars.Count() && mVars.IsExpanded(item);
}

TVarRow TDebugModel::VarRow(size_t item) {
  const TLock lock(mLock);
  return item < mVars.Count() ? mVars.Row(item) : TVarRow();
}

TVarRow TDebugModel::VarChildRow(size_t item, int32_t child) {
  const TLock lock(mLock);
  return item < mVars.Count() ? mVars.ChildRow(item, child, Stands()) : TVarRow();
}

std::optional<std::string> TDebugModel::ValueOf(std::string_view expression) {
  const TLock lock(mLock);
  if (mProgram == nullptr) return std::nullopt;
  const std::optional<TExprValue> value = evaluate_expression(expression, *mProgram);
  if (!value) return std::nullopt;
  if (value->IsText()) return value->text;
  if (value->kind == ttInt) return std::to_string(static_cast<int32_t>(value->number));
  return shown_number(value->number);
}

}  // namespace zoka
