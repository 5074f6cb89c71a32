// The compiled program's maps and the keyword tables behind them.
#include "core/mid_code.h"

#include <algorithm>
#include <utility>

namespace zoka {
namespace {

struct TKeywordKind {
  std::string_view word;
  TTokenKind kind;
};

constexpr TKeywordKind KEYWORD_KINDS[] = {
#define ZOKA_CONTROL_WORD(word, kind) {word, kind},
#define ZOKA_BOTH(word, ...) {word, ttFuncProc},
#define ZOKA_FUNCTION(word, ...) {word, ttFunc},
#define ZOKA_STATEMENT(word, ...) {word, ttProc},
#include "core/keywords.def"
};

struct TKeywordCmd {
  std::string_view word;
  TVMCodeCmd cmd;
};

constexpr TKeywordCmd KEYWORD_CMDS[] = {
#define ZOKA_BOTH(word, cmd, ...) {word, TVMCodeCmd::cmd},
#define ZOKA_FUNCTION(word, cmd, ...) {word, TVMCodeCmd::cmd},
#define ZOKA_STATEMENT(word, cmd, ...) {word, TVMCodeCmd::cmd},
#include "core/keywords.def"
};

/// Visits the defined entries of a line or label map in ascending order.
template <typename TKey, typename TMap, typename TVisit>
void enumerate_sorted(const TMap& map, const TVisit& visit) {
  std::vector<std::pair<TKey, int32_t>> entries;
  entries.reserve(map.size());
  for (const auto& [key, index] : map) {
    if (index != 0) entries.emplace_back(key, index);
  }
  std::sort(entries.begin(), entries.end());
  for (const auto& [key, index] : entries) visit(key, index);
}

/// Empties a container and gives its memory back.
template <typename T>
void release(T* container) {
  T().swap(*container);
}

}  // namespace

TMidCode::TMidCode() {
  InitTokenKindMap();
  InitFuncProcMap();
}

TMidCode::~TMidCode() {
  FreeProgram();
}

bool TMidCode::Clear() {
  FreeProgram();
  InitTokenKindMap();
  InitFuncProcMap();
  return true;
}

void TMidCode::FreeProgram() {
  release(&mCodes);
  release(&mLineMarks);
  release(&mLineMap);
  release(&mLabelMap);
  release(&mStatementBegins);
  release(&mUserFuncMap);
  release(&mUserFuncs);
  release(&mVarMap);
  // Variables may hold literals, so these go last.
  for (TTextBlock* text : mTexts) TTextBlock::FreeLiteral(text);
  release(&mTexts);
}

void TMidCode::InitTokenKindMap() {
  release(&mTokenKindMap);
  mTokenKindMap.reserve(std::size(KEYWORD_KINDS));
  for (const TKeywordKind& row : KEYWORD_KINDS) {
    if (!row.word.empty()) mTokenKindMap.emplace(row.word, row.kind);
  }
}

void TMidCode::InitFuncProcMap() {
  release(&mFuncProcMap);
  mFuncProcMap.reserve(std::size(KEYWORD_CMDS));
  for (const TKeywordCmd& row : KEYWORD_CMDS) {
    if (!row.word.empty()) mFuncProcMap.emplace(row.word, row.cmd);
  }
}

int32_t TMidCode::FindLine(int32_t line) {
  return mLineMap.try_emplace(line, 0).first->second;
}

int32_t TMidCode::FindLabel(std::string_view label) {
  const auto found = mLabelMap.find(label);
  if (found != mLabelMap.end()) return found->second;
  mLabelMap.emplace(label, 0);
  return 0;
}

void TMidCode::InsertLabel(std::string_view label, int32_t index) {
  mLabelMap.insert_or_assign(std::string(label), index);
}

void TMidCode::EnumerateLines(const std::function<void(int32_t, int32_t)>& visit) const {
  enumerate_sorted<int32_t>(mLineMap, visit);
}

void TMidCode::EnumerateLabels(
    const std::function<void(const std::string&, int32_t)>& visit) const {
  enumerate_sorted<std::string>(mLabelMap, visit);
}

void TMidCode::AddStatementBegin(int32_t index) {
  const auto place = static_cast<size_t>(index);
  if (place >= mStatementBegins.size()) mStatementBegins.resize(place + 1);
  mStatementBegins[place] = true;
}

TTokenKind TMidCode::FindTokenKind(std::string_view word) const {
  const auto found = mTokenKindMap.find(word);
  return found == mTokenKindMap.end() ? ttNone : found->second;
}

void TMidCode::InsertTokenKind(std::string_view word, TTokenKind kind) {
  mTokenKindMap.insert_or_assign(std::string(word), kind);
}

TVMCodeCmd TMidCode::FindFuncProc(std::string_view word) const {
  const auto found = mFuncProcMap.find(word);
  return found == mFuncProcMap.end() ? TVMCodeCmd::Sentinel : found->second;
}

TVarInfo* TMidCode::FindVar(std::string_view suffixedName) {
  const auto found = mVarMap.find(suffixedName);
  return found == mVarMap.end() ? nullptr : &found->second;
}

TVarInfo* TMidCode::InsertVar(std::string_view suffixedName, TTokenKind kind) {
  const auto [entry, inserted] = mVarMap.try_emplace(std::string(suffixedName));
  if (inserted) {
    entry->second.name = entry->first;
    entry->second.CreateDefaultNonArray(kind);
  }
  return &entry->second;
}

void TMidCode::EnumerateVars(const std::function<void(const std::string&, TVarInfo&)>& visit) {
  for (auto& [name, var] : mVarMap) visit(name, var);
}

TUserFuncInfo* TMidCode::FindUserFunc(std::string_view name) {
  const auto found = mUserFuncMap.find(name);
  return found == mUserFuncMap.end() ? nullptr : found->second;
}

TUserFuncInfo* TMidCode::InsertUserFunc(std::string_view name) {
  mUserFuncs.push_back(std::make_unique<TUserFuncInfo>());
  TUserFuncInfo* info = mUserFuncs.back().get();
  info->name = name;
  mUserFuncMap.insert_or_assign(std::string(name), info);
  return info;
}

TTextBlock* TMidCode::AddText(std::string_view text) {
  mTexts.push_back(nullptr);  // first the place, so that a failure loses no block
  return mTexts.back() = TTextBlock::CreateLiteral(text);
}

}  // namespace zoka
