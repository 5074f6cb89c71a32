// TMidCode: the compiled program: its code, its lines, labels, variables and functions, and the
// keyword tables. The compiler fills it while no machine exists; a machine then changes only
// variables (and leaves a 0 entry for each line or label that it missed).
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/mutex.h"
#include "core/token.h"
#include "core/var_info.h"
#include "core/vm_code.h"

namespace zoka {

class TMidCode {
 public:
  TMidCode();
  ~TMidCode();
  TMidCode(const TMidCode&) = delete;
  TMidCode& operator=(const TMidCode&) = delete;

  /// Empties the program and rebuilds the keyword tables. No machine may exist. Returns true.
  bool Clear();

  /// The program. Index 0 is a sentinel, execution starts at 1, the last record is BExit. Frozen
  /// while a machine exists: machines point into it.
  std::vector<TVMCode> mCodes;
  /// Beside mCodes: for each BLineBegin record in order, its code index and its physical line
  /// (0-based) in the compiled text.
  struct TLineMark {
    int32_t codeIndex;
    int32_t physicalLine;
  };
  std::vector<TLineMark> mLineMarks;

  /// Code index of a line or label; 0 means undefined, and a miss leaves a 0 entry behind.
  int32_t FindLine(int32_t line);
  int32_t FindLabel(std::string_view label);
  void InsertLine(int32_t line, int32_t index) { mLineMap[line] = index; }
  void InsertLabel(std::string_view label, int32_t index);
  /// Lines and labels in ascending order, misses skipped.
  void EnumerateLines(const std::function<void(int32_t line, int32_t index)>& visit) const;
  void EnumerateLabels(const std::function<void(const std::string&, int32_t index)>& visit) const;

  /// Statement begins: one bit an index.
  void AddStatementBegin(int32_t index);
  bool IsStatementBegin(int32_t index) const {
    return static_cast<size_t>(index) < mStatementBegins.size() && mStatementBegins[index];
  }

  /// Keyword tables. A word that is not there is ttNone. The tokeniser enters each identifier.
  TTokenKind FindTokenKind(std::string_view word) const;
  void InsertTokenKind(std::string_view word, TTokenKind kind);
  /// The operation of a keyword, Sentinel (0) if it is none.
  TVMCodeCmd FindFuncProc(std::string_view word) const;

  /// Variables: records never move while the code exists. Find yields null for a miss.
  TVarInfo* FindVar(std::string_view suffixedName);
  /// A plain variable of that kind; a record that is there already is returned as it is.
  TVarInfo* InsertVar(std::string_view suffixedName, TTokenKind kind);
  void EnumerateVars(const std::function<void(const std::string&, TVarInfo&)>& visit);
  /// Held while a debug view copies values, and by stores while a debugger runs the program.
  TMutex& VariablesLock() { return mVariablesLock; }

  /// DEF FN by name: the later one wins. Records never move while the code exists; an earlier
  /// record of the same name is kept until Clear, but no longer found.
  TUserFuncInfo* FindUserFunc(std::string_view name);
  TUserFuncInfo* InsertUserFunc(std::string_view name);

  /// A literal for a record's operand; freed by Clear, after the variables that may hold it.
  TTextBlock* AddText(std::string_view text);

 private:
  void FreeProgram();
  void InitTokenKindMap();
  void InitFuncProcMap();

  struct THash {
    using is_transparent = void;
    size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  };
  template <typename T>
  using TWordMap = std::unordered_map<std::string, T, THash, std::equal_to<>>;

  std::unordered_map<int32_t, int32_t> mLineMap;
  TWordMap<int32_t> mLabelMap;
  TWordMap<TTokenKind> mTokenKindMap;
  TWordMap<TVMCodeCmd> mFuncProcMap;
  std::map<std::string, TVarInfo, std::less<>> mVarMap;
  TWordMap<TUserFuncInfo*> mUserFuncMap;
  std::vector<std::unique_ptr<TUserFuncInfo>> mUserFuncs;
  std::vector<bool> mStatementBegins;
  std::vector<TTextBlock*> mTexts;
  TMutex mVariablesLock{TLockRank::Variables};
};

}  // namespace zoka
