// What the fuzz targets that run programs share: an engine on a simulated clock without windows,
// bounded in time and memory. It checks nothing by itself.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <deque>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "common/alert.h"
#include "editor/list_document.h"
#include "run/key_feeder.h"
#include "run/run_view.h"
#include "tests/support/test_engine.h"

namespace zoka {

/// Ends the process if a rule does not hold, for the fuzzer to see.
inline void require(bool holds) {
  if (!holds) std::abort();
}

/// Simulated time after which a run is stopped. A program that only jumps comes to it with its
/// first long run of jumps, one that polls after as many polls as fit in.
constexpr bigtime_t FUZZ_RUN_TIME = 500'000;
/// What a run's strings, arrays and stacks may hold, in bytes.
constexpr int64_t FUZZ_MEMORY = 32 << 20;

/// Takes values off the front of an input; at its end they are 0.
class TFuzzInput {
 public:
  TFuzzInput(const uint8_t* data, size_t size) : mData(data), mSize(size) {}

  bool IsEmpty() const { return mSize == 0; }
  uint8_t Byte() {
    if (mSize == 0) return 0;
    --mSize;
    return *mData++;
  }
  /// An element of a table.
  template <typename T, size_t N>
  const T& OneOf(const T (&table)[N]) {
    return table[Byte() % N];
  }
  /// A number as the language writes it, often one at or past a limit.
  std::string Number() {
    constexpr const char* ODD_NUMBERS[] = {
        "-1",    "0",          "255",           "256", "32767", "-32769",
        "65536", "2147483647", "-2147483647-1", "1.5", "-.5",   "1.5D+300"};
    const size_t choice = Byte();
    if (choice < std::size(ODD_NUMBERS)) return ODD_NUMBERS[choice];
    return std::to_string(choice % 2 == 0 ? choice / 8 : Byte());
  }
  /// A text literal of at most `most` bytes: any but those that end it or the list.
  std::string Literal(int most) {
    std::string text;
    for (int length = Byte() % (most + 1); length > 0 && !IsEmpty(); --length) {
      const char c = static_cast<char>(Byte());
      if (c != '\0' && c != '"' && c != '\n') text += c;
    }
    return "\"" + text + "\"";
  }

 private:
  const uint8_t* mData;
  size_t mSize;
};

/// An engine for one input. The calling thread is the host's.
class TFuzzEngine : private TTestEngine {
 public:
  TFuzzEngine() {
    context.alertHost = &mAlerts;
    mView = std::make_unique<TRunView>(context, mHost);
    mView->SetMemoryLimit(FUZZ_MEMORY);
    mDocument = std::make_unique<TListDocument>(context, *mView, mText, mDocumentHost);
    mFeeder = std::make_unique<TKeyFeeder>(*clock, *mView);
    mView->SetKeyFeeder(mFeeder.get());
    mLimit = clock->StartTimer(FUZZ_RUN_TIME, true, [this] { mView->ForceStop(); });
  }
  ~TFuzzEngine() {
    clock->CancelTimer(mLimit);
    mView->QuitBasic();
  }
  TFuzzEngine(const TFuzzEngine&) = delete;
  TFuzzEngine& operator=(const TFuzzEngine&) = delete;

  /// The mode that lists are compiled and run for: COMPAT_DISK or COMPAT_DOS.
  void SetCompatMode(int32_t mode) { prefs.CmpM.store(mode); }

  /// Keys that are typed while the list runs; what waits for more is stopped.
  void Type(std::deque<TFeedItem> keys) {
    mFeeder->Add(std::move(keys));
    mFeeder->Finish();
  }

  /// Loads the bytes as a list, compiles it and runs it to its end, or as far as the bounds allow.
  /// False if it did not come to a run.
  bool RunList(std::string bytes, int32_t encoding) {
    if (!mDocument->OpenBytes(std::move(bytes), encoding, "fuzz")) return false;
    if (mDocument->RunBasic(TMessage("run")) != TRunOutcome::Started) return false;
    mView->WaitForEnd();
    return true;
  }

  /// Compiles the bytes up to their first NUL as they are, whatever their encoding, and runs them.
  bool RunBytes(const std::string& bytes) {
    if (mView->CompileBasic(bytes.c_str()) != TCompileResult::Runnable) return false;
    mView->ReadyBasic();
    mView->RunBasic(TMessage("run"));
    mView->WaitForEnd();
    return true;
  }

  TRunView& View() { return *mView; }

 private:
  /// Nobody answers alerts.
  class TSilence final : public TAlertHost {
   public:
    int ShowAlert(const TAlert&, TThread*) override { return 0; }
  };

  TSilence mAlerts;
  TRunHost mHost;
  std::unique_ptr<TRunView> mView;
  TStringText mText;
  TDocumentHost mDocumentHost;
  std::unique_ptr<TListDocument> mDocument;
  std::unique_ptr<TKeyFeeder> mFeeder;
  TTimerId mLimit = 0;
};

}  // namespace zoka
