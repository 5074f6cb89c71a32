// The operators of expressions, from assignment down to powers. An expression is compiled while it
// is read: operands first, then the operation, whose type is the one that all operands so far have
// given.
#include <span>

#include "compiler/compiler.h"
#include "compiler/depth.h"
#include "compiler/error_keys.h"

namespace zoka {
namespace {

constexpr char KEY_LOGIC_STRING[] = "@Compile_Err_Cannot_Logic_String@";
constexpr char KEY_MUL_DIV_STRING[] = "@Compile_Err_Cannot_Mul_Div_String@";

/// A binary operator: its token, the integer member of its operations, the error of a string
/// operand (null if strings are fine), and whether the result is never an integer.
struct TOperator {
  TTokenKind token;
  TVMCodeCmd base;
  const char* stringError;
  bool isReal;
};

constexpr TOperator EQV[] = {{ttEqv, TVMCodeCmd::BEqvInt, KEY_LOGIC_STRING, false}};
constexpr TOperator IMP[] = {{ttImp, TVMCodeCmd::BImpInt, KEY_LOGIC_STRING, false}};
constexpr TOperator XOR[] = {{ttXor, TVMCodeCmd::BXorInt, KEY_LOGIC_STRING, false}};
constexpr TOperator OR[] = {{ttOr, TVMCodeCmd::BOrInt, KEY_LOGIC_STRING, false}};
constexpr TOperator AND[] = {{ttAnd, TVMCodeCmd::BAndInt, KEY_LOGIC_STRING, false}};
constexpr TOperator ADD_SUB[] = {
    {ttAdd, TVMCodeCmd::BAddInt, nullptr, false},
    {ttSub, TVMCodeCmd::BSubInt, "@Compile_Err_Cannot_Sub_String@", false}};
constexpr TOperator MOD[] = {{ttMod, TVMCodeCmd::BModInt, KEY_MUL_DIV_STRING, false}};
constexpr TOperator IDIV[] = {{ttIdiv, TVMCodeCmd::BIdivInt, KEY_MUL_DIV_STRING, false}};
constexpr TOperator MUL_DIV[] = {{ttMul, TVMCodeCmd::BMulInt, KEY_MUL_DIV_STRING, false},
                                 {ttDiv, TVMCodeCmd::BDivInt, KEY_MUL_DIV_STRING, true}};
constexpr TOperator HAT[] = {{ttHat, TVMCodeCmd::BPowInt, "@Compile_Err_Cannot_Hat_String@", true}};

const TOperator* find_operator(std::span<const TOperator> operators, TTokenKind token) {
  for (const TOperator& op : operators) {
    if (op.token == token) return &op;
  }
  return nullptr;
}

/// The integer member of a relation's operations; Sentinel for other tokens.
TVMCodeCmd relation_base(TTokenKind token) {
  switch (token) {
    case ttEqual:
      return TVMCodeCmd::BEqualInt;
    case ttNoteq:
      return TVMCodeCmd::BNoteqInt;
    case ttLt:
      return TVMCodeCmd::BLtInt;
    case ttLe:
      return TVMCodeCmd::BLeInt;
    case ttGt:
      return TVMCodeCmd::BGtInt;
    case ttGe:
      return TVMCodeCmd::BGeInt;
    default:
      return TVMCodeCmd::Sentinel;
  }
}

}  // namespace

struct TCompiler::TLevel {
  TOperandGen operand;
  std::span<const TOperator> operators;
  /// A logical operator takes the type of its right operand alone.
  bool isLogical;
};

TToken TCompiler::GenExpr(const TToken& first, bool assign, TTokenKind* kind) {
  const TDepth depth(this);
  TToken token = first;
  bool lvalue = true;
  *kind = ttVoid;
  GenExpr16(&token, &lvalue, assign, kind);
  return token;
}

void TCompiler::GenExpr16(TToken* token, bool* lvalue, bool assign, TTokenKind* kind) {
  GenExpr15(token, lvalue, assign, kind);
  if (token->kind != ttEqual || !assign) return;
  if (!*lvalue) throw CompileException("@Compile_Err_Assign_Unlvalue@");
  TTokenKind rightKind = ttVoid;
  *token = GenExpr(Token(), false, &rightKind);
  *kind = SelectVarType(*kind, rightKind, false);
  if (*kind == ttMismatch) throw CompileException(KEY_MISMATCH_ASSIGN);
  AddCode(TVMCodeCmd::BAssignArray);
  *lvalue = false;
}

void TCompiler::GenLevel(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         TTokenKind* kind, const TLevel& level) {
  (this->*level.operand)(token, lvalue, forceType, assign, kind);
  while (const TOperator* op = find_operator(level.operators, token->kind)) {
    *token = Token();
    if (level.isLogical) *forceType = true;
    (this->*level.operand)(token, lvalue, forceType, assign, kind);
    if (op->stringError != nullptr && *kind == ttStr) throw CompileException(op->stringError);
    if (op->isReal) *kind = SelectVarType(*kind, ttSng, false);
    AddCode(AddOffsetToCode(op->base, *kind));
    *lvalue = false;
  }
}

void TCompiler::GenExpr15(TToken* token, bool* lvalue, bool assign, TTokenKind* kind) {
  bool forceType = false;
  GenLevel(token, lvalue, &forceType, assign, kind, {&TCompiler::GenExpr14, EQV, true});
}

void TCompiler::GenExpr14(TToken* token, bool* lvalue, bool* forceType, bool assign,
                          TTokenKind* kind) {
  GenLevel(token, lvalue, forceType, assign, kind, {&TCompiler::GenExpr13, IMP, true});
}

void TCompiler::GenExpr13(TToken* token, bool* lvalue, bool* forceType, bool assign,
                          TTokenKind* kind) {
  GenLevel(token, lvalue, forceType, assign, kind, {&TCompiler::GenExpr12, XOR, true});
}

void TCompiler::GenExpr12(TToken* token, bool* lvalue, bool* forceType, bool assign,
                          TTokenKind* kind) {
  GenLevel(token, lvalue, forceType, assign, kind, {&TCompiler::GenExpr11, OR, true});
}

void TCompiler::GenExpr11(TToken* token, bool* lvalue, bool* forceType, bool assign,
                          TTokenKind* kind) {
  GenLevel(token, lvalue, forceType, assign, kind, {&TCompiler::GenExpr10, AND, true});
}

void TCompiler::GenExpr10(TToken* token, bool* lvalue, bool* forceType, bool assign,
                          TTokenKind* kind) {
  GenExprNot(token, lvalue, forceType, assign, kind, &TCompiler::GenExpr9, &TCompiler::GenExpr10);
}

void TCompiler::GenExprNot(TToken* token, bool* lvalue, bool* forceType, bool assign,
                           TTokenKind* kind, TOperandGen next, TOperandGen recurse) {
  if (token->kind != ttNot) {
    (this->*next)(token, lvalue, forceType, assign, kind);
    return;
  }
  const TDepth depth(this);
  *token = Token();
  (this->*recurse)(token, lvalue, forceType, assign, kind);
  if (*kind == ttStr) throw CompileException(KEY_LOGIC_STRING);
  AddCode(AddOffsetToCode(TVMCodeCmd::BNotInt, *kind));
  *lvalue = false;
}

// Where an assignment may stand, "=" is never a relation: what stands before it is either a
// variable, or nothing that can be assigned to.
void TCompiler::GenExpr9(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         TTokenKind* kind) {
  GenExpr8(token, lvalue, forceType, assign, kind);
  while (!(token->kind == ttEqual && assign)) {
    const TVMCodeCmd base = relation_base(token->kind);
    if (base == TVMCodeCmd::Sentinel) return;
    *token = Token();
    GenExpr8(token, lvalue, forceType, assign, kind);
    AddCode(AddOffsetToCode(base, *kind));
    *kind = ttInt;
    *lvalue = false;
  }
}

void TCompiler::GenExpr8(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         TTokenKind* kind) {
  GenLevel(token, lvalue, forceType, assign, kind, {&TCompiler::GenExpr7, ADD_SUB, false});
}

void TCompiler::GenExpr7(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         TTokenKind* kind) {
  GenLevel(token, lvalue, forceType, assign, kind, {&TCompiler::GenExpr6, MOD, false});
}

void TCompiler::GenExpr6(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         TTokenKind* kind) {
  GenLevel(token, lvalue, forceType, assign, kind, {&TCompiler::GenExpr5, IDIV, false});
}

void TCompiler::GenExpr5(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         TTokenKind* kind) {
  GenLevel(token, lvalue, forceType, assign, kind, {&TCompiler::GenExpr4, MUL_DIV, false});
}

void TCompiler::GenExpr4(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         TTokenKind* kind) {
  if (token->kind != ttAdd && token->kind != ttSub) {
    GenExpr3(token, lvalue, forceType, assign, kind);
    return;
  }
  const TDepth depth(this);
  const bool isMinus = token->kind == ttSub;
  *token = Token();
  GenExpr4(token, lvalue, forceType, assign, kind);
  if (!isMinus) return;
  if (*kind == ttStr) throw CompileException("@Compile_Err_Cannot_Nega_String@");
  AddCode(AddOffsetToCode(TVMCodeCmd::BNegaInt, *kind));
  *lvalue = false;
}

// A sign is looser than a power, so in 2^-1 the power has no right operand and the sign becomes a
// subtraction; 2^(-1) is the form that works. NOT is taken as an operand.
void TCompiler::GenExpr3(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         TTokenKind* kind) {
  GenLevel(token, lvalue, forceType, assign, kind, {&TCompiler::GenExpr2b, HAT, false});
}

void TCompiler::GenExpr2b(TToken* token, bool* lvalue, bool* forceType, bool assign,
                          TTokenKind* kind) {
  GenExprNot(token, lvalue, forceType, assign, kind, &TCompiler::GenExpr2, &TCompiler::GenExpr10);
}

}  // namespace zoka
