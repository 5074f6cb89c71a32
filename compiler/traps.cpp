// ON for events, and the switches of events (ON, OFF, STOP). ON ERROR, ON COM and ON PEN are
// accepted without code: there are no such traps.
#include "core/traps.h"

#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {
namespace {

/// What stands between ON's event and GOSUB.
enum TTrapForm : int32_t { TRAP_PLAIN, TRAP_EQUAL, TRAP_PARENTHESES };

constexpr const char* STATE_WORDS[] = {"OFF", "STOP", "ON"};  // by state: 0, 1, 2
constexpr int32_t NO_STATE = -1;

int32_t state_of(std::string_view word) {
  for (int32_t state = 0; state < 3; ++state) {
    if (word == STATE_WORDS[state]) return state;
  }
  return NO_STATE;
}

}  // namespace

TToken TCompiler::GenProcOn(const TToken&) {
  const TToken token = Token();
  const bool isWord = token.kind == ttProc || token.kind == ttFuncProc;
  switch (isWord ? mMidCode->FindFuncProc(token.text) : TVMCodeCmd::Sentinel) {
    case TVMCodeCmd::Com:
    case TVMCodeCmd::Error:
    case TVMCodeCmd::Pen:
      return SkipMultiExpr(token);
    case TVMCodeCmd::Help:
      return GenProcOnIrGeneral(token, TRAP_HELP);
    case TVMCodeCmd::Key:
      return GenProcOnIrGeneral(token, TRAP_KEY);
    case TVMCodeCmd::Mouse:
      ++mDosFeatureCount;
      return GenProcOnIrGeneral(token, TRAP_MOUSE);
    case TVMCodeCmd::Play:
      return GenProcOnIrGeneral(token, TRAP_PLAY);
    case TVMCodeCmd::Stop:
      return GenProcOnIrGeneral(token, TRAP_STOP);
    case TVMCodeCmd::TimeDl:
      return GenProcOnIrGeneral(token, TRAP_TIME);
    default:
      return GenProcOnGosubGoto(token);
  }
}

TToken TCompiler::GenProcOnIrGeneral(const TToken&, int32_t number) {
  int32_t form = TRAP_PLAIN;
  TToken token = GenTrapArguments(Token(), number, &form);
  if (!IsWord(token, "GOSUB")) throw CompileException(KEY_SYNTAX_ERR);
  int32_t targets = 0;
  token = GenTargets(Token(), &targets);
  CheckTrapForm(number, form, targets);
  if (number == TRAP_KEY) AddAbbrevs(TRAP_KEY_COUNT - targets);
  AddCodeLong(TVMCodeCmd::SetIrTgt, number);
  return token;
}

TToken TCompiler::GenTrapArguments(const TToken& first, int32_t number, int32_t* form) {
  if (first.kind == ttLpar) {
    *form = TRAP_PARENTHESES;
    return GenTrapInParentheses(number);
  }
  if (first.kind != ttEqual) return first;
  *form = TRAP_EQUAL;
  const TToken token = Token();
  return number == TRAP_MOUSE ? GenNumber(token) : GenString(token, KEY_MISMATCH_ARG);
}

// The machine takes channel and option of ON PLAY, and the number of ON MOUSE, from below the
// target.
TToken TCompiler::GenTrapInParentheses(int32_t number) {
  TToken token = Token();
  if (number == TRAP_MOUSE) {
    CheckRpar(GenNumber(CheckNotRpar(token)));
    return Token();
  }
  int32_t count = 0;
  CheckRpar(GenMultiExpr(token, &count, nullptr));
  if (number == TRAP_PLAY) {
    if (count < 1 || count > 2) throw CompileException(KEY_ILL_FUNC_CALL);
    AddAbbrevs(2 - count);
  }
  return Token();
}

void TCompiler::CheckTrapForm(int32_t number, int32_t form, int32_t targets) {
  bool fits = form == TRAP_PLAIN;
  if (number == TRAP_PLAY) fits = form == TRAP_PARENTHESES;
  if (number == TRAP_TIME) fits = form == TRAP_EQUAL;
  if (number == TRAP_MOUSE) fits = form != TRAP_PLAIN;
  fits = fits && (number == TRAP_KEY ? targets <= TRAP_KEY_COUNT : targets == 1);
  if (!fits) throw CompileException(KEY_ILL_FUNC_CALL);
}

void TCompiler::AddSetIrState(int32_t event, int32_t state) {
  AddCodeLong(TVMCodeCmd::BPushInt, event);
  AddCodeLong(TVMCodeCmd::BPushInt, state);
  AddCode(TVMCodeCmd::SetIrState);
}

TToken TCompiler::GenProcSetIrState(const TToken& first, int32_t number) {
  const int32_t state = first.kind == ttStr ? NO_STATE : state_of(first.text);
  if (state == NO_STATE) throw CompileException(KEY_SYNTAX_ERR);
  AddSetIrState(number, state);
  return Token();
}

TToken TCompiler::GenProcSetIrStateKey(const TToken& first) {
  if (first.kind != ttLpar) {
    const int32_t state = state_of(first.text);
    for (int32_t n = 1; n <= TRAP_KEY_COUNT; ++n) AddSetIrState(TRAP_KEY + n, state);
    return Token();
  }
  TTokenKind kind;
  CheckRpar(GenExpr(Token(), false, &kind));
  const TToken word = Token();
  AddCodeLong(TVMCodeCmd::BPushInt, TRAP_KEY);
  AddCode(TVMCodeCmd::BAddInt);
  // Unlike MOUSE(n), KEY(n) takes any other word for OFF.
  const int32_t state = word.kind == ttStr ? NO_STATE : state_of(word.text);
  AddCodeLong(TVMCodeCmd::BPushInt, state == NO_STATE ? 0 : state);
  AddCode(TVMCodeCmd::SetIrState);
  return Token();
}

TToken TCompiler::GenProcSetIrStateMouse(const TToken& first) {
  if (first.kind != ttLpar) {
    const int32_t state = state_of(first.text);
    for (int32_t n = 1; n <= TRAP_MOUSE_COUNT; ++n) AddSetIrState(TRAP_MOUSE + n, state);
    return Token();
  }
  TTokenKind kind;
  CheckRpar(GenExpr(Token(), false, &kind));
  const TToken word = Token();
  AddCodeLong(TVMCodeCmd::BPushInt, TRAP_MOUSE);
  AddCode(TVMCodeCmd::BAddInt);
  const int32_t state = word.kind == ttStr ? NO_STATE : state_of(word.text);
  if (state == NO_STATE) throw CompileException(KEY_SYNTAX_ERR);
  AddCodeLong(TVMCodeCmd::BPushInt, state);
  AddCode(TVMCodeCmd::SetIrState);
  return Token();
}

TToken TCompiler::GenProcHelp(const TToken&) {
  return GenProcSetIrState(Token(), TRAP_HELP);
}

TToken TCompiler::GenProcTimeDl(const TToken&) {
  return GenProcSetIrState(Token(), TRAP_TIME);
}

TToken TCompiler::GenProcKey(const TToken&) {
  TToken token = Token();
  const bool isSwitch = token.kind != ttStr && state_of(token.text) != NO_STATE;
  if (isSwitch || token.kind == ttLpar) return GenProcSetIrStateKey(token);
  int32_t count = 0;
  token = GenMultiExpr(token, &count, nullptr);
  if (count != 2) throw CompileException(KEY_ILL_FUNC_CALL);
  AddCode(TVMCodeCmd::Key);
  return token;
}

}  // namespace zoka
