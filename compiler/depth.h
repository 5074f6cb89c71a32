// TCompiler::TDepth: counts the nesting of the constructs that the compiler's own stack follows. It
// is no limit of the language, only the compiler's guard against overrunning its stack.
#pragma once

#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {

/// Lives as long as one nested construct (a block, an IF, a parenthesis) is being compiled.
class TCompiler::TDepth {
 public:
  /// Raises a syntax error at a nesting beyond MAX_COMPILER_DEPTH.
  explicit TDepth(TCompiler* compiler) : mCompiler(compiler) {
    if (mCompiler->mDepth >= MAX_COMPILER_DEPTH) {
      throw mCompiler->CompileException(KEY_SYNTAX_ERR);
    }
    ++mCompiler->mDepth;
  }
  ~TDepth() { --mCompiler->mDepth; }
  TDepth(const TDepth&) = delete;
  TDepth& operator=(const TDepth&) = delete;

 private:
  TCompiler* mCompiler;
};

}  // namespace zoka
