// Statements that are accepted without code, whatever their arguments: those of direct mode, and
// those of devices that this machine does not have. And the two words that are always refused.
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {

TToken TCompiler::GenProcMissing(const TToken&) {
  throw CompileException(KEY_SYNTAX_ERR);
}

TToken TCompiler::GenProcBase(const TToken&) {
  throw CompileException(KEY_SYNTAX_ERR);
}

#define ZOKA_IGNORED(name)                         \
  TToken TCompiler::GenProc##name(const TToken&) { \
    return SkipMultiExpr(Token());                 \
  }
ZOKA_IGNORED(Auto)
ZOKA_IGNORED(Bload)
ZOKA_IGNORED(Bsave)
ZOKA_IGNORED(Clear)
ZOKA_IGNORED(Cmd)
ZOKA_IGNORED(Com)
ZOKA_IGNORED(Common)
ZOKA_IGNORED(Cont)
ZOKA_IGNORED(Copy)
ZOKA_IGNORED(Delete)
ZOKA_IGNORED(Draw)
ZOKA_IGNORED(DskoDl)
ZOKA_IGNORED(Edit)
ZOKA_IGNORED(Erase)
ZOKA_IGNORED(Error)
ZOKA_IGNORED(Field)
ZOKA_IGNORED(Kill)
ZOKA_IGNORED(Kpload)
ZOKA_IGNORED(Lfiles)
ZOKA_IGNORED(List)
ZOKA_IGNORED(Llist)
ZOKA_IGNORED(Load)
ZOKA_IGNORED(Lprint)
ZOKA_IGNORED(Lset)
ZOKA_IGNORED(Merge)
ZOKA_IGNORED(Mon)
ZOKA_IGNORED(Name)
ZOKA_IGNORED(New)
ZOKA_IGNORED(Out)
ZOKA_IGNORED(Pen)
ZOKA_IGNORED(Poke)
ZOKA_IGNORED(Renum)
ZOKA_IGNORED(Resume)
ZOKA_IGNORED(Rset)
ZOKA_IGNORED(Save)
ZOKA_IGNORED(Set)
ZOKA_IGNORED(Term)
ZOKA_IGNORED(Troff)
ZOKA_IGNORED(Tron)
ZOKA_IGNORED(View)
ZOKA_IGNORED(Voice)
ZOKA_IGNORED(Wait)
ZOKA_IGNORED(Window)
#undef ZOKA_IGNORED

TToken TCompiler::GenProcRem(const TToken&) {
  return SkipComment();
}

}  // namespace zoka
