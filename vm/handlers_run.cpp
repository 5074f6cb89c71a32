// RUN, STOP, SLEEP, the clock and the version, and the texts of the function keys.
#include "vm/handler_args.h"
#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

constexpr bigtime_t MICROSECONDS_PER_MILLISECOND = 1000;

}  // namespace

void ExeBasicRunCur(TVMachine& m, const TVMCode* code) {
  m.JumpToEnd();
  if (m.mContext.privacy.quitting.load()) return;
  TMessage message(RUN_REQUEST_CODE);
  if (code->bval()) pop_start(m, &message);
  m.RequestRun(message);
}

void ExeBasicStop(TVMachine& m, const TVMCode*) {
  throw m.RuntimeException2(ERR_STOP_BREAK);
}

void ExeBasicXSleep(TVMachine& m, const TVMCode*) {
  const int32_t milliseconds = m.PopInt();
  if (milliseconds < 0) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  m.Snooze(milliseconds * MICROSECONDS_PER_MILLISECOND);
}

void ExeBasicXSystemtime(TVMachine& m, const TVMCode*) {
  m.PushInt(static_cast<int32_t>(m.SystemTime() / MICROSECONDS_PER_MILLISECOND));
}

void ExeBasicXZokaversionDl(TVMachine& m, const TVMCode*) {
  m.PushString(APP_VERSION);
}

void ExeBasicKey(TVMachine& m, const TVMCode*) {
  const TOwnedData text(m.Pop());
  const int32_t number = m.PopInt();
  if (number < 1 || number > FUNC_KEY_COUNT) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  if (text->kind != TStackKind::String) throw m.RuntimeException2(ERR_TYPE_MISMATCH);
  m.mRsrc->SetFuncKeyStr(number - 1, text->View());
}

}  // namespace zoka
