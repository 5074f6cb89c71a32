// Loops of the bare machine: how long one record takes. The programs are those that the compiler
// makes of the lists named, put together by hand.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "common/context.h"
#include "core/mid_code.h"
#include "run/screen/basic_rsrc.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

using enum TVMCodeCmd;

class TQuietInputs final : public TRunInputs {
 public:
  bigtime_t SystemTime() override { return 0; }
  TLocalTime LocalTime() override { return {}; }
  int32_t Random() override { return 0; }
  void SeedRandom(int32_t) override {}
  std::string PopKey(TThread&) override { return {}; }
  std::string PopKeyWithTimeout(bigtime_t, TThread&) override { return {}; }
  bool IsKeyDown(uint8_t) override { return false; }
  int32_t ProducerConnections() override { return 0; }
  bigtime_t SpeedControlInterval() override { return 0; }
  bool RepeatRun() override { return false; }
};

class TQuietHost final : public TMachineHost {
 public:
  void SendRunRequest(const TMessage&) override {}
  void FlushOutput() override {}
  void MachineEnded(int32_t) override {}
};

/// A program and the engine that runs it again and again.
class TProgram {
 public:
  TProgram() : mClock(make_real_clock()), mRsrc(*mClock) {
    mContext.clock = mClock.get();
    mContext.catalogue = &mCatalogue;
    mCode.mCodes.emplace_back();
  }

  int32_t Next() const { return static_cast<int32_t>(mCode.mCodes.size()); }
  TProgram& Op(TVMCodeCmd cmd) {
    mCode.mCodes.emplace_back(cmd);
    return *this;
  }
  TProgram& Int(int32_t value) {
    mCode.mCodes.push_back(TVMCode(BPushInt).SetLong(value));
    return *this;
  }
  TProgram& Text(const char* text) {
    mCode.mCodes.push_back(TVMCode(BPushString).SetStr(mCode.AddText(text)));
    return *this;
  }
  TProgram& Label(const char* name) {
    mCode.InsertLabel(name, Next());
    return *this;
  }
  TProgram& Line(int32_t number) {
    mCode.InsertLine(number, Next());
    mCode.mCodes.push_back(TVMCode(BLineBegin).SetLong(number));
    return *this;
  }
  TProgram& Return() {
    mCode.mCodes.push_back(TVMCode(BRet).SetBool(true));
    return *this;
  }
  TProgram& Var(TVMCodeCmd cmd, const char* name, TTokenKind kind) {
    mCode.mCodes.push_back(TVMCode(cmd).SetVar(mCode.InsertVar(name, kind)));
    return *this;
  }
  /// FOR with an integer or a variable as its limit: everything in front of the body.
  TProgram& For(const char* var, TTokenKind kind, int32_t limit) {
    Int(-1).Var(BPushVar, var, kind).Int(1).Op(BAssignArray);
    Text("TEST").Op(BJmp);
    Label("LOOP").Int(-1).Var(BPushVar, var, kind);
    Int(-1).Var(BLoadArray, var, kind).Int(1).Op(BAddDouble).Op(BAssignArray);
    return Label("TEST")
        .Text("END")
        .Int(-1)
        .Var(BLoadArray, var, kind)
        .Int(limit)
        .Int(1)
        .Op(BCmpFor)
        .Op(BFJmp);
  }
  TProgram& Next(const char* var, TTokenKind kind) {
    return Int(-1).Var(BLoadArray, var, kind).Text("LOOP").Op(BJmp).Label("END");
  }

  void Run() {
    if (mCode.mCodes.back().Cmd() != BExit) Op(BExit);
    TMachineParts parts;
    parts.context = &mContext;
    parts.midCode = &mCode;
    parts.rsrc = &mRsrc;
    parts.inputs = &mInputs;
    parts.host = &mHost;
    TVMachine machine("Virtual Machine", parts);
    machine.Resume();
    machine.Wait(nullptr);
  }

 private:
  std::unique_ptr<TClock> mClock;
  TCatalogue mCatalogue{TLanguage::Keys};
  TEngineContext mContext;
  TBasicRsrc mRsrc;
  TMidCode mCode;
  TQuietInputs mInputs;
  TQuietHost mHost;
};

constexpr int32_t ROUNDS = 2'000'000;

/// Reports nanoseconds a round and a record.
void run_rounds(benchmark::State& state, TProgram& program, int records) {
  for (auto _ : state) program.Run();
  const double rounds = static_cast<double>(state.iterations()) * ROUNDS;
  state.counters["s/round"] =
      benchmark::Counter(rounds, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
  state.counters["s/record"] = benchmark::Counter(
      rounds * records, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// FOR I=1 TO N:NEXT I
void empty_for(benchmark::State& state) {
  TProgram program;
  program.For("I!", ttSng, ROUNDS).Next("I!", ttSng);
  run_rounds(state, program, 18);
}
BENCHMARK(empty_for)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

/// FOR I=1 TO N:GOSUB 100:NEXT ... 100 RETURN
void gosub(benchmark::State& state) {
  TProgram program;
  program.For("I!", ttSng, ROUNDS).Int(100).Op(BCall).Next("I!", ttSng).Op(BExit);
  program.Line(100).Return();
  run_rounds(state, program, 22);
}
BENCHMARK(gosub)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

/// FOR I%=1 TO N:A(5)=A(5)+I%:NEXT
void array_sum(benchmark::State& state) {
  TProgram program;
  program.For("I%", ttInt, ROUNDS);
  program.Int(-1).Int(5).Var(BPushVar, "A!", ttSng);
  program.Int(-1).Int(5).Var(BLoadArray, "A!", ttSng).Int(-1).Var(BLoadArray, "I%", ttInt);
  program.Op(BAddFloat).Op(BAssignArray).Next("I%", ttInt);
  run_rounds(state, program, 28);
}
BENCHMARK(array_sum)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

}  // namespace
}  // namespace zoka
