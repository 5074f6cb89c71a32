// The two tables from an operation number to the generator of its keyword. The rows are those of
// core/keywords.def; nothing else decides what a word compiles to.
#include "compiler/compiler.h"

namespace zoka {

// The tables lie in zeroed memory, of which only the few pages that hold a row are ever touched.

const TCompiler::TProc* TCompiler::ProcTable() {
  static const TProc* const TABLE = [] {
    static TProc table[OPERATION_COUNT];
#define ZOKA_STATEMENT(spelling, operation, generator) \
  table[static_cast<size_t>(TVMCodeCmd::operation)] = &TCompiler::GenProc##generator;
#define ZOKA_BOTH(spelling, operation, statement, function) \
  ZOKA_STATEMENT(spelling, operation, statement)
#include "core/keywords.def"
    return table;
  }();
  return TABLE;
}

const TCompiler::TFunc* TCompiler::FuncTable() {
  static const TFunc* const TABLE = [] {
    static TFunc table[OPERATION_COUNT];
#define ZOKA_FUNCTION(spelling, operation, generator) \
  table[static_cast<size_t>(TVMCodeCmd::operation)] = &TCompiler::GenFunc##generator;
#define ZOKA_BOTH(spelling, operation, statement, function) \
  ZOKA_FUNCTION(spelling, operation, function)
#include "core/keywords.def"
    return table;
  }();
  return TABLE;
}

}  // namespace zoka
