// What machine tests need around a machine: an engine without windows, a program put together by
// hand, and a look at what a run left behind.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "common/context.h"
#include "core/mid_code.h"
#include "run/screen/basic_rsrc.h"
#include "vm/vmachine.h"

namespace zoka {

/// Keeps the alerts that it was asked to show.
class TAlertLog final : public TAlertHost {
 public:
  int ShowAlert(const TAlert& alert, TThread*) override {
    alerts.push_back(alert);
    return 0;
  }
  std::vector<TAlert> alerts;
};

/// Keeps what a machine told its host.
class THostLog final : public TMachineHost {
 public:
  void SendRunRequest(const TMessage& message) override { requests.push_back(message); }
  void FlushOutput() override { ++flushes; }
  void MachineEnded(int32_t exitStatus) override { endStatus = exitStatus; }

  std::vector<TMessage> requests;
  int flushes = 0;
  int32_t endStatus = -1;
};

/// Inputs that a test sets.
class TTestInputs : public TRunInputs {
 public:
  explicit TTestInputs(TClock& clock) : mClock(clock) {}
  bigtime_t SystemTime() override {
    mClock.Poll();
    return mClock.system_time() + timeOffset;
  }
  TLocalTime LocalTime() override { return mClock.local_time(); }
  int32_t Random() override {
    ++randomReads;
    return random;
  }
  void SeedRandom(int32_t seed) override { seeds.push_back(seed); }
  /// The next of `keys`; none left is "", as for a machine that is told to stop.
  std::string PopKey(TThread&) override {
    if (keys.empty()) return {};
    std::string key = keys.front();
    keys.pop_front();
    return key;
  }
  std::string PopKeyWithTimeout(bigtime_t timeout, TThread& machine) override {
    timeouts.push_back(timeout);
    return PopKey(machine);
  }
  bool IsKeyDown(uint8_t code) override { return keysDown.count(code) != 0; }
  int32_t ProducerConnections() override { return connections; }
  bigtime_t SpeedControlInterval() override { return interval; }
  bool RepeatRun() override { return repeats; }

  bigtime_t timeOffset = 0;
  int32_t random = 0;
  int randomReads = 0;
  std::vector<int32_t> seeds;
  std::deque<std::string> keys;
  std::vector<bigtime_t> timeouts;
  std::set<uint8_t> keysDown;
  int32_t connections = 0;
  bigtime_t interval = 20'000;
  bool repeats = false;

 private:
  TClock& mClock;
};

/// An engine, a program and its machine. Programs are built record by record; index 1 is the first.
class TMachineRig {
 public:
  TMachineRig()
      : clock(make_simulated_clock()), catalogue(TLanguage::Keys), inputs(*clock), rsrc(*clock) {
    context.clock = clock.get();
    context.catalogue = &catalogue;
    context.alertHost = &alertLog;
    code.mCodes.emplace_back();  // the sentinel
  }

  // --- the program
  int32_t Next() const { return static_cast<int32_t>(code.mCodes.size()); }
  TMachineRig& Op(TVMCodeCmd cmd) {
    code.mCodes.emplace_back(cmd);
    return *this;
  }
  TMachineRig& OpLong(TVMCodeCmd cmd, int32_t value) {
    code.mCodes.push_back(TVMCode(cmd).SetLong(value));
    return *this;
  }
  TMachineRig& OpBool(TVMCodeCmd cmd, bool value) {
    code.mCodes.push_back(TVMCode(cmd).SetBool(value));
    return *this;
  }
  TMachineRig& OpText(TVMCodeCmd cmd, std::string_view text) {
    code.mCodes.push_back(TVMCode(cmd).SetStr(code.AddText(text)));
    return *this;
  }
  TMachineRig& Int(int32_t value) { return OpLong(TVMCodeCmd::BPushInt, value); }
  TMachineRig& Float(float value) {
    code.mCodes.push_back(TVMCode(TVMCodeCmd::BPushFloat).SetFloat(value));
    return *this;
  }
  TMachineRig& Double(double value) {
    code.mCodes.push_back(TVMCode(TVMCodeCmd::BPushDouble).SetDouble(value));
    return *this;
  }
  TMachineRig& Text(std::string_view text) { return OpText(TVMCodeCmd::BPushString, text); }
  TMachineRig& Abbrev() { return Op(TVMCodeCmd::BPushAbbrev); }
  TMachineRig& Special() { return OpLong(TVMCodeCmd::BPushSpecial, 0); }
  /// Begins a BASIC line.
  TMachineRig& Line(int32_t number) {
    code.InsertLine(number, Next());
    code.AddStatementBegin(Next());
    return OpLong(TVMCodeCmd::BLineBegin, number);
  }
  TMachineRig& Label(std::string_view name) {
    code.InsertLabel(name, Next());
    return *this;
  }
  /// The name's last character is its type.
  TVarInfo* Var(const std::string& name) {
    TTokenKind kind = ttSng;
    if (name.back() == '%') kind = ttInt;
    if (name.back() == '#') kind = ttDbl;
    if (name.back() == '$') kind = ttStr;
    return code.InsertVar(name, kind);
  }
  /// A plain variable's form without the value.
  TMachineRig& Ref(const std::string& name, const std::vector<int32_t>& subscripts = {}) {
    Int(-1);
    for (int32_t subscript : subscripts) Int(subscript);
    code.mCodes.push_back(TVMCode(TVMCodeCmd::BPushVar).SetVar(Var(name)));
    return *this;
  }
  TMachineRig& Load(const std::string& name, const std::vector<int32_t>& subscripts = {}) {
    Int(-1);
    for (int32_t subscript : subscripts) Int(subscript);
    code.mCodes.push_back(TVMCode(TVMCodeCmd::BLoadArray).SetVar(Var(name)));
    return *this;
  }
  TMachineRig& Assign() { return Op(TVMCodeCmd::BAssignArray); }
  TMachineRig& Let(const std::string& name, int32_t value) { return Ref(name).Int(value).Assign(); }
  TMachineRig& Goto(int32_t line) { return Int(line).Op(TVMCodeCmd::BJmp); }
  TMachineRig& Gosub(int32_t line) { return Int(line).Op(TVMCodeCmd::BCall); }
  TMachineRig& Return() { return OpBool(TVMCodeCmd::BRet, true); }

  // --- the run
  /// The machine, made on first use: the program must be complete but for BExit.
  TVMachine& Machine() {
    if (machine) return *machine;
    Op(TVMCodeCmd::BExit);
    TMachineParts parts;
    parts.context = &context;
    parts.midCode = &code;
    parts.rsrc = &rsrc;
    parts.inputs = otherInputs != nullptr ? otherInputs : &inputs;
    parts.host = &host;
    parts.memoryLimit = memoryLimit;
    machine = std::make_unique<TVMachine>("Virtual Machine", parts);
    return *machine;
  }
  /// Runs to the end; returns the exit status.
  int32_t Run() {
    int32_t result = -1;
    Machine().Resume();
    machine->Wait(&result);
    return result;
  }
  /// Runs a program that must fail; returns the alert's key, or "" if there was no alert.
  std::string RunToFault() {
    EXPECT_EQ(Run(), 1);
    return FaultKey();
  }
  std::string FaultKey() const {
    if (alertLog.alerts.empty()) return {};
    const std::string& text = alertLog.alerts.back().text;
    const size_t begin = text.find('@');
    return begin == std::string::npos ? text
                                      : text.substr(begin, text.find('@', begin + 1) - begin + 1);
  }
  /// What the run left on the stack, the top last.
  std::vector<TStackData> Values() {
    std::vector<TStackData> values;
    bool empty = false;
    for (;;) {
      const TStackData value = Machine().Stack().PopSlow(&empty);
      if (empty) break;
      values.insert(values.begin(), value);
      taken.push_back(value);
    }
    return values;
  }
  /// The only value that the run left.
  TStackData Value() {
    const std::vector<TStackData> values = Values();
    EXPECT_EQ(values.size(), 1u);
    return values.empty() ? TStackData() : values.back();
  }
  std::string TextOf(const TStackData& value) const {
    EXPECT_EQ(value.kind, TStackKind::String);
    return value.kind == TStackKind::String ? std::string(value.View()) : std::string();
  }
  std::string Screen() const { return rsrc.ScreenText().substr(0, rsrc.ScreenText().find("\n\n")); }

  ~TMachineRig() {
    for (TStackData& value : taken) value.Release();
  }

  std::unique_ptr<TClock> clock;
  TCatalogue catalogue;
  TEngineContext context;
  TAlertLog alertLog;
  THostLog host;
  TTestInputs inputs;
  TRunInputs* otherInputs = nullptr;  // in place of `inputs`
  TBasicRsrc rsrc;
  TMidCode code;
  int64_t memoryLimit = 64 << 20;
  std::vector<TStackData> taken;
  std::unique_ptr<TVMachine> machine;
};

}  // namespace zoka
