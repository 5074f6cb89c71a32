// TVMachine: runs one compiled program on a thread of its own. Here are the loop, the stacks and
// the jumps; what the operations do stands with their handlers (vm/handlers_*.cpp).
#pragma once

#include <cstdint>
#include <deque>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/context.h"
#include "common/exception.h"
#include "common/thread.h"
#include "core/mid_code.h"
#include "run/screen/basic_rsrc.h"
#include "vm/interrupt_port.h"
#include "vm/machine_host.h"
#include "vm/mouse_state.h"
#include "vm/run_inputs.h"
#include "vm/stack_data.h"
#include "vm/value_stack.h"

namespace zoka {

class TMmlPlayer;
class TVMachine;

/// A handler of an operation; gets the instruction being executed.
using TVMHandler = void (*)(TVMachine&, const TVMCode*);

/// One entry for each of the 65,536 operation numbers; an operation without a handler ends the run
/// with an illegal function call. Made once from core/operations.def.
const TVMHandler* vm_handler_table();

/// One event trap being served.
struct TIrInfo {
  uint32_t mask;
  /// Virtual depth of the stack before the return record was pushed.
  int64_t stackDepth;
};

/// Deepest nesting of DEF FN calls, and most return records or traps; beyond them the run ends with
/// an illegal function call, there being no message for memory.
constexpr int32_t MAX_USER_FUNC_DEPTH = 100000;
constexpr int32_t MAX_RETURN_RECORDS = 1 << 24;

/// What a machine is made of; nothing is owned, everything outlives it.
struct TMachineParts {
  TEngineContext* context = nullptr;
  TMidCode* midCode = nullptr;
  TBasicRsrc* rsrc = nullptr;
  TMmlPlayer* player = nullptr;  // may be null
  TRunInputs* inputs = nullptr;
  TMachineHost* host = nullptr;
};

/// Used once: made suspended, started with Resume, waited for, deleted by the run view. Members are
/// the machine's thread's own but for the port and the mouse; handlers are its only other users.
class TVMachine : public TThread {
 public:
  TVMachine(const char* name, const TMachineParts& parts);
  ~TVMachine() override;

  void Terminate() override;

  /// Before the start: the compatibility mode (2 DISK-BASIC, 3 DOS-BASIC).
  void SetRuntimeCompatiMode(int32_t mode) { mRuntimeCompatiMode = mode; }
  /// Before the start: int32 "LineNum", else string "Label". The jump is made inside Execute, so a
  /// wrong start is an ordinary run-time error. Returns true.
  bool SetStartPos(const TMessage& message);

  /// Shared with other threads; outlives the machine.
  std::shared_ptr<TInterruptPort> Port() const { return mPort; }
  TMouseState& Mouse() { return mMouse; }

  // --- for handlers: values. A pop of an empty stack raises an illegal function call.
  void PushInt(int32_t value);
  void PushFloat(float value);
  void PushDouble(double value);
  void PushBool(bool value);
  /// Takes over the text's count.
  void PushText(TText text);
  /// Copies `text` up to its first NUL.
  void PushString(std::string_view text);
  int32_t PopInt();
  float PopFloat();
  double PopDouble();
  bool PopBool();
  /// A value that is no string reads as the empty text.
  TText PopText();
  /// A value that is no reference raises an illegal function call.
  TVarInfo* PopVar();
  /// Takes the top; the caller releases it.
  TStackData Pop();
  void Drop();
  /// Kind of the top; Gap if the stack is empty.
  TStackKind TopKind() const;
  TValueStack& Stack() { return mStack; }

  // --- for handlers: variables
  /// Pops subscripts and end mark; yields the slot, dimensioning the array if it is none yet.
  int32_t DimSuf(TVarInfo* var);
  /// Pops subscripts and end mark, pushes the value; returns the slot.
  int32_t VarToVal(TVarInfo* var);
  /// Pops a value, a reference and its subscripts, and stores.
  void AssignArray();
  /// Stores a value (which it uses up) in a slot by the variable's kind.
  void StoreSlot(TVarInfo* var, int32_t slot, TStackData value);
  /// Sets `count` variable forms aside, the first variable of the statement on top of the result.
  using TShelter = std::vector<std::vector<TStackData>>;
  TShelter SheltVar(int32_t count);
  /// Assigns text items to sheltered variables, first to first.
  void AssignInputDatas(const std::list<std::string>& items, TShelter* saved);

  // --- for handlers: control
  void ChangePC(const TStackData& target);
  /// Jumps to a code index: execution goes on there after the current handler.
  void JumpTo(int32_t index);
  /// Ends the program: the last instruction becomes the current one.
  void JumpToEnd();
  int32_t PCIndex() const { return static_cast<int32_t>(mPC - mMidCode->mCodes.data()); }
  /// The exception of a run-time error, to be thrown; also makes the text shown at the end.
  TException RuntimeException2(std::string_view key);
  void GenerateErrStrDisplay(std::string_view key);
  void HappenInterrupt(uint32_t mask) { mPort->HappenInterrupt(mask); }

  /// For the debugger: a statement's access to a variable; empty here.
  virtual void RegisterVarAccess(int32_t access, TVarInfo* var, int32_t index);
  virtual void ExeBasicOnGosubGotoGosubInvoked();
  virtual void SendResetVarRqtd(TVarInfo* var);

  int32_t mCurLine = 0;
  int32_t mExitStatus = 0;
  const TVMCode* mPC = nullptr;
  TMidCode* mMidCode;
  int32_t mRuntimeCompatiMode = 2;
  std::vector<std::vector<TStackData>> mUserFuncArgs;
  TValueStack mStack;
  std::vector<TUserFuncInfo*> mUserFuncStack;
  std::string mErrStr;
  const TVMCode* mDataPos = nullptr;
  TBasicRsrc* mRsrc;
  TMmlPlayer* mPlayer;
  TRunInputs* mInputs;
  TMachineHost* mHost;
  TEngineContext& mContext;
  std::vector<TIrInfo> mIrStack;
  TStackData mIrTargets[IR_SLOT_COUNT];
  std::shared_ptr<TInterruptPort> mPort;
  TMouseState mMouse;
  TMemoryBudget mBudget;
  bool mRunRequested = false;

 protected:
  int32_t Execute() override;
  /// The main loop over the given table.
  void RunLoop(const TVMHandler* table);
  void Interrupt();
  void InterruptGeneral(int bit);
  void InterruptVMSleep();
  void InterruptVMTerminate();
  virtual void ExecuteDone();
  void PrintExit();
  void PrintOk();
  void PrintErrStr();

 private:
  void ShowFault(const TException& fault);
  uint32_t mJumpCount = 0;
  TMessage mStart;
};

}  // namespace zoka
