// What the tests of the compiler share: a list is compiled to one line of text, which rows compare.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <span>
#include <string>

#include "app/settings/prefs.h"
#include "common/catalogue.h"
#include "common/context.h"
#include "common/thread.h"
#include "compiler/compiler.h"
#include "core/code_listing.h"

// Pieces of expected code.
#define INT(n) "BPushInt " #n
#define SEP " / "
#define OMIT "BPushAbbrev"
#define STR(text) "BPushString \"" text "\""
#define LOAD(name) "BPushInt -1 / BLoadArray var:" name
#define REF(name) "BPushInt -1 / BPushVar var:" name
#define JMP(label) "BPushString \"" label "\" / BJmp"

namespace zoka {

constexpr char SYNTAX[] = "@Compile_Err_Syntax_Err@";
constexpr char ILL_CALL[] = "@Compile_Err_Ill_Func_Call@";
constexpr char MISSING[] = "@Compile_Err_Missing_Operand@";
constexpr char TOO_MANY[] = "@Compile_Err_Too_Many_Operand@";
constexpr char MISMATCH[] = "@Compile_Err_Type_Mismatch_Arg@";
constexpr char ASSIGN_MISMATCH[] = "@Compile_Err_Type_Mismatch_Assign@";
constexpr char UNLVALUE[] = "@Compile_Err_Assign_Unlvalue@";
constexpr char NO_COMMA[] = "@Compile_Err_No_Comma@";
constexpr char NO_EQUAL[] = "@Compile_Err_No_Equal@";
constexpr char NO_LPAR[] = "@Compile_Err_No_LPar@";
constexpr char NO_RPAR[] = "@Compile_Err_No_RPar@";
constexpr char NO_MINUS[] = "@Compile_Err_No_Minus@";
constexpr char NO_SEMICOLON[] = "@Compile_Err_No_Semi_Colon@";
constexpr char DIRECT[] = "@Compile_Err_Direct_Statement@";

/// One compilation in a context of its own, so that internal labels count from "@L0".
struct TCompilation {
  explicit TCompilation(const std::string& text) {
    context.catalogue = &catalogue;
    context.prefs = &prefs;
    TCompiler compiler(context, &code);
    result = compiler.Compile(text.c_str(), &mode);
    key = compiler.Fault().key;
    line = compiler.Fault().lineText;
  }

  TCatalogue catalogue{TLanguage::Keys};
  TPrefs prefs;
  TEngineContext context;
  TMidCode code;
  TCompileResult result;
  std::string key;
  std::string line;  // the fault's, as the list spells it
  int32_t mode = 0;
};

/// A record without its index and number. The two operations of ON share a handler's name.
inline std::string record_words(const TVMCode& code) {
  if (code.Cmd() == TVMCodeCmd::OnGosub) return "OnGosub " + std::to_string(code.lval());
  if (code.Cmd() == TVMCodeCmd::OnGoto) return "OnGoto " + std::to_string(code.lval());
  const std::string text = code_record_text(0, code);
  return text.substr(text.find(' ', text.find(' ') + 1) + 1);
}

/// The code of a compiled list between the first line's begin and the exit, records separated by
/// " / ", internal labels as "@L0:" where they stand.
inline std::string code_words(const TMidCode& code) {
  std::multimap<int32_t, std::string> labels;
  code.EnumerateLabels([&labels](const std::string& name, int32_t index) {
    if (name[0] == '@') labels.emplace(index, name + ":");
  });
  std::string words;
  const auto add = [&words](const std::string& word) {
    if (!words.empty()) words += SEP;
    words += word;
  };
  const auto last = static_cast<int32_t>(code.mCodes.size()) - 1;
  for (int32_t i = 2; i <= last; ++i) {
    for (auto [label, end] = labels.equal_range(i); label != end; ++label) add(label->second);
    if (i < last) add(record_words(code.mCodes[static_cast<size_t>(i)]));
  }
  return words;
}

/// "10 " and `statement` compiled: the code, or the key of the fault.
inline std::string compiled(const std::string& statement) {
  const TCompilation compilation("10 " + statement);
  return compilation.result == TCompileResult::Failed ? compilation.key
                                                      : code_words(compilation.code);
}

/// Compiles on a thread with the stack that engine threads have, as deep nesting needs.
class TCompileThread : public TThread {
 public:
  TCompileThread(TClock& clock, const std::string& statement)
      : TThread("compiler test", 15, clock, TActorClass::Machine), mStatement(statement) {}
  const std::string& Code() const { return mCode; }

 private:
  int32_t Execute() override {
    mCode = compiled(mStatement);
    return 0;
  }

  std::string mStatement;
  std::string mCode;
};

inline std::string compiled_on_thread(const std::string& statement) {
  const std::unique_ptr<TClock> clock = make_real_clock();
  TCompileThread thread(*clock, statement);
  thread.Resume();
  int32_t result = 0;
  thread.Wait(&result);
  return thread.Code();
}

struct TCompileRow {
  const char* statement;
  const char* expected;
};

inline void check_rows(std::span<const TCompileRow> rows) {
  for (const TCompileRow& row : rows) {
    EXPECT_EQ(compiled(row.statement), row.expected) << row.statement;
  }
}

}  // namespace zoka
