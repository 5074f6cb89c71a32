// TVMachine: runs one compiled program on a thread of its own. Here are the loop, the stacks, the
// jumps and the variables' access; what the operations do stands with their handlers
// (vm/handlers_*.cpp).
#pragma once

#include <cstdint>
#include <cstdlib>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/context.h"
#include "common/exception.h"
#include "common/thread.h"
#include "core/mid_code.h"
#include "run/screen/basic_rsrc.h"
#include "vm/compati_mode.h"
#include "vm/held_output.h"
#include "vm/interrupt_port.h"
#include "vm/machine_host.h"
#include "vm/mouse_state.h"
#include "vm/run_inputs.h"
#include "vm/shelter.h"
#include "vm/stack_data.h"
#include "vm/user_func_args.h"
#include "vm/value_stack.h"

namespace zoka {

class TMmlPlayer;
class TVMachine;

/// A handler of an operation; gets the instruction being executed.
using TVMHandler = void (*)(TVMachine&, const TVMCode*);

/// One entry for each of the 65,536 operation numbers; an operation without a handler ends the run
/// with an illegal function call. Made once from core/operations.def.
const TVMHandler* vm_handler_table();
constexpr int32_t OPERATION_COUNT = 65536;

/// One event trap being served.
struct TIrInfo {
  uint32_t mask;
  /// Virtual depth of the stack before the return record was pushed.
  int64_t stackDepth;
};

/// Deepest nesting of DEF FN calls, and most return records or traps; beyond them the run ends with
/// an illegal function call, there being no message for memory.
constexpr int32_t MAX_USER_FUNC_DEPTH = 100000;
constexpr int64_t MAX_RETURN_RECORDS = 1 << 24;

/// Jumps without a wait or a poll after which the clock is told that the program runs on and on.
constexpr uint64_t LONG_RUN_JUMPS = 65536;

/// Steps of waits that look at something again and again, in microseconds.
constexpr bigtime_t POLL_INTERVAL = 20'000;

/// Message keys that more than one file raises.
constexpr const char ERR_ILL_FUNC_CALL[] = "@Runtime_Err_Ill_Func_Call@";
constexpr const char ERR_TYPE_MISMATCH[] = "@Runtime_Err_Type_Mismatch@";
constexpr const char ERR_BAD_DIMENSION[] = "@Runtime_Err_Bad_Dimension@";
constexpr const char ERR_STOP_BREAK[] = "@Runtime_Err_Stop_Break@";
constexpr const char ERR_UNDEFINED_LINE[] = "@Runtime_Err_Undefined_Line_Number@";
constexpr const char ERR_CANNOT_WRITE[] = "@Runtime_Err_Cannot_Open_File@";
constexpr const char ERR_UNDEFINED_LABEL[] = "@Runtime_Err_Undefined_Label@";

/// The message of RUN, CHAIN and the repeated run.
constexpr const char RUN_REQUEST_CODE[] = "vmrr";

/// What a machine is made of; nothing is owned, everything outlives it.
struct TMachineParts {
  TEngineContext* context = nullptr;
  TMidCode* midCode = nullptr;
  TBasicRsrc* rsrc = nullptr;
  TMmlPlayer* player = nullptr;  // may be null
  TRunInputs* inputs = nullptr;
  TMachineHost* host = nullptr;
  /// Bytes of strings, arrays and stacks that the run may hold; 0: half of what the host has.
  int64_t memoryLimit = 0;
  /// Executes single instructions, never several as one.
  bool plain = false;
};

/// Used once: made suspended, started with Resume, waited for, deleted by the run view. Members are
/// the machine's thread's own but for the port and the mouse; handlers are its only other users.
class TVMachine : public TThread {
 public:
  TVMachine(const char* name, const TMachineParts& parts);
  /// Ends the run if it has not ended.
  ~TVMachine() override;

  /// The forced stop. Any thread.
  void Terminate() override;

  /// Before the start.
  void SetRuntimeCompatiMode(int32_t mode) { mRuntimeCompatiMode = mode; }
  /// Before the start: int32 "LineNum", else string "Label". The jump is made inside Execute, so a
  /// wrong start is an ordinary run-time error. Returns true.
  bool SetStartPos(const TMessage& message);

  /// The fault that ended the run, or null. Once the run has ended.
  const TException* Fault() const { return mFault ? &*mFault : nullptr; }

  /// Shared with other threads; outlives the machine.
  std::shared_ptr<TInterruptPort> Port() const { return mPort; }
  TMouseState& Mouse() { return mMouse; }

  // --- for handlers: values. A pop of an empty stack raises an illegal function call. Values that
  // were forgotten, and return records, pop like any value of another kind than the one wanted.
  void PushInt(int32_t value) { mStack.Push(TStackData::Of(value)); }
  void PushFloat(float value) { mStack.Push(TStackData::Of(value)); }
  void PushDouble(double value) { mStack.Push(TStackData::Of(value)); }
  void PushBool(bool value) { mStack.Push(TStackData::OfBool(value)); }
  /// Takes over the text's count.
  void PushText(TText text);
  /// Copies `text` up to its first NUL.
  void PushString(std::string_view text) { PushText(TText(text)); }

  int32_t PopInt() {
    if (mStack.HasPlain() && mStack.Top().kind == TStackKind::Int) [[likely]] {
      mStack.Shrink(1);
      return mStack.Top(-1).lval;
    }
    return PopIntSlow();
  }
  float PopFloat();
  double PopDouble();
  bool PopBool();
  /// A value that is no string reads as the empty text.
  TText PopText();
  /// A value that is no reference raises an illegal function call.
  TVarInfo* PopVar();
  /// Takes the top; the caller releases it or hands it on.
  TStackData Pop() {
    if (mStack.HasPlain()) [[likely]] {
      mStack.Shrink(1);
      return mStack.Top(-1);
    }
    return PopEdge();
  }
  void Drop() { Pop().Release(); }
  /// Kind of the top; Gap if the stack is empty.
  TStackKind TopKind() const { return mStack.TopKind(); }
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
  /// The value of a slot; the caller releases it or hands it on.
  TStackData LoadSlot(const TVarInfo* var, int32_t slot) const;
  /// One item of DIM: pops the reference, the sizes and their end mark; returns the variable.
  TVarInfo* DimOneVar();
  /// Sets `count` variable forms aside; TakeForm of the result then begins with the first variable
  /// of the statement.
  TShelter SheltVar(int32_t count);
  /// Moves the next sheltered form back onto the stack and returns its variable (the reference is
  /// on top). Raises an illegal function call when there is none.
  TVarInfo* TakeForm(TShelter* saved);
  /// Assigns text items to sheltered variables, first to first.
  void AssignInputDatas(const std::list<std::string>& items, TShelter* saved);
  void AssignInputData(std::string_view item, TShelter* saved);
  /// The next DATA record at or behind mDataPos; null if there is none.
  const TVMCode* NextData();

  // --- for handlers: control
  /// Jumps to a line (number) or label (string); any other kind does nothing. Raises the errors of
  /// undefined targets. The value stays the caller's.
  void ChangePC(const TStackData& target);
  /// Code index of a target; 0 for a kind that is none. Raises the errors of undefined targets.
  int32_t FindTarget(const TStackData& target);
  /// Pops a target and jumps to it. `code` is the instruction that jumps: it remembers where to.
  void JumpToPopped(const TVMCode* code);
  /// Jumps to the line or label that the instruction, a push of a constant, holds.
  void JumpToConstant(const TVMCode* code) {
    const int32_t index = LookupOf(code).index;
    if (index != 0) [[likely]]
      return JumpTo(index);
    JumpToConstantSlow(code);
  }
  /// Jumps to a code index: execution goes on there after the current handler.
  void JumpTo(int32_t index) {
    mPC = mCodeBase + index - 1;
    if (++mJumps >= mLongRunAt) [[unlikely]]
      RunLong();
  }
  /// Ends the program: the last instruction becomes the current one.
  void JumpToEnd();
  /// The instruction at an index, of the code that this machine runs.
  const TVMCode* CodeAt(int32_t index) const { return mCodeBase + index; }
  /// True if the run executes single instructions.
  bool IsPlain() const { return mPlain; }
  int32_t PCIndex() const { return static_cast<int32_t>(mPC - mCodeBase); }
  /// GOSUB: notes the return to `codeIndex`.
  void PushReturnRecord(int32_t codeIndex);
  /// Jumps taken since the start of the run.
  uint64_t Jumps() const { return mJumps; }
  /// The function that an instruction calls and its first instruction; looked up once.
  TUserFuncInfo* FindUserFunc(const TVMCode* code, int32_t* bodyIndex);

  /// The exception of a run-time error, to be thrown; also makes the text shown at the end.
  TException RuntimeException2(std::string_view key,
                               std::vector<TException::TArgument> arguments = {});
  /// Makes the text shown at the end of the run: message, " in ", line.
  void GenerateErrStrDisplay(std::string_view key,
                             const std::vector<TException::TArgument>& arguments = {});
  void HappenInterrupt(uint32_t mask) { mPort->HappenInterrupt(mask); }
  /// RUN and CHAIN: the message goes to the host when the main loop has ended. The last one counts.
  void RequestRun(const TMessage& message);

  // --- for handlers: waits and polls. All end when the machine is asked to terminate.
  /// Waits; shows first what was held back.
  void Snooze(bigtime_t span);
  /// To be called by a handler that waits or polls by other ways than these.
  void NoteWait() { mLongRunAt = mJumps + LONG_RUN_JUMPS; }
  bigtime_t SystemTime();
  TLocalTime LocalTime();
  std::string PopKey();
  std::string PopKeyWithTimeout(bigtime_t timeout);
  int32_t ReadMouse(TMouseRead what) { return mInputs->ReadMouse(what, mMouse); }

  /// For the debugger: a statement's access to a variable; empty here.
  virtual void RegisterVarAccess(int32_t access, TVarInfo* var, int32_t index);
  virtual void ExeBasicOnGosubGotoGosubInvoked();
  virtual void SendResetVarRqtd(TVarInfo* var);

  // The state that every instruction touches comes first.
  const TVMCode* mPC = nullptr;
  TValueStack mStack;
  int32_t mCurLine = 0;
  /// A debugger watches the variables: stores take their lock and report.
  bool mWatched = false;
  int32_t mExitStatus = 0;
  TMidCode* mMidCode;
  int32_t mRuntimeCompatiMode = COMPATI_MODE_DISK;
  TUserFuncArgs mUserFuncArgs;
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
  THeldOutput mHeldOutput;
  bool mRunRequested = false;

 protected:
  int32_t Execute() override;
  /// The table that the main loop goes by.
  virtual const TVMHandler* HandlerTable() const { return vm_handler_table(); }
  virtual void ExecuteDone();
  /// Fetches and runs instructions until the end of the code.
  virtual void RunLoop(const TVMHandler* table);
  /// Shows the alert of the run-time error that ended the run.
  virtual void ShowFault(const TException& fault);
  void Interrupt();

 private:
  /// What an instruction's look-up found, beside mCodes: the target's bits, kind and length, and
  /// where it leads. A string is known by its literal's address. Zeroed memory: nothing found yet.
  struct TLookup {
    int64_t bits;
    uint32_t tag;
    int32_t index;
  };
  static constexpr int TAG_LENGTH_BITS = 24;
  struct TFree {
    void operator()(void* memory) const { std::free(memory); }
  };

  void RunProgram();
  void JumpToStart();
  void RunLong();
  [[gnu::noinline, gnu::cold]] void JumpToConstantSlow(const TVMCode* code);
  void UseUnits();
  TStackData PopEdge();
  int32_t PopIntSlow();
  static bool IsMemorable(const TStackData& target);
  static uint32_t LookupTag(const TStackData& target) {
    return static_cast<uint32_t>(target.kind) << TAG_LENGTH_BITS | target.length;
  }
  TLookup& LookupOf(const TVMCode* code) { return mLookups.get()[code - mCodeBase]; }

  int32_t FlatSlot(const TVarInfo* var, const int32_t* subscripts, int32_t count);
  int32_t PopSubscripts(int32_t* subscripts);
  void LayOut(TVarInfo* var, const int32_t* sizes, int32_t count);
  void PushInputNumber(const TVarInfo* var, std::string_view item);
  int32_t ParsePrefixedInt(std::string_view item);

  void InterruptGeneral(int bit);
  void InterruptVMSleep();
  void InterruptVMTerminate();
  void EnterTrap(int bit);

  void PrintExit();
  void PrintOk();
  void PrintErrStr();
  void RepeatRun();

  uint64_t mJumps = 0;
  uint64_t mLongRunAt = LONG_RUN_JUMPS;
  const bool mPlain;
  const TVMCode* mCodeBase;  // of the program's code, or of its copy with units
  std::vector<TVMCode> mCodeWithUnits;
  std::unique_ptr<TLookup, TFree> mLookups;
  std::vector<int32_t> mDataIndices;  // of all DATA records; made by the first READ
  TMessage mStart;
  TMessage mRunRequest;
  std::optional<TException> mFault;
};

}  // namespace zoka
