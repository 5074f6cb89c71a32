// Compiles lists for tests and shows what came out: the records as `zoka code` lists them, the
// fault, the alert, the mode.
#pragma once

#include <pthread.h>

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/alert.h"
#include "common/thread.h"
#include "compiler/compiler.h"
#include "core/code_listing.h"
#include "core/mid_code.h"
#include "tests/support/test_engine.h"

namespace zoka::test {

/// Keeps the alerts that it is asked to show.
class TAlertRecorder : public TAlertHost {
 public:
  int ShowAlert(const TAlert& alert, TThread*) override {
    alerts.push_back(alert);
    return 0;
  }
  std::vector<TAlert> alerts;
};

/// Runs `fn` on a thread with the stack of an engine's thread.
inline void run_on_engine_stack(std::function<void()> fn) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, ENGINE_STACK_BYTES);
  pthread_t thread;
  const auto body = [](void* argument) -> void* {
    (*static_cast<std::function<void()>*>(argument))();
    return nullptr;
  };
  pthread_create(&thread, &attributes, body, &fn);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

/// An engine's surroundings and one image.
class TCompiling : public TTestEngine {
 public:
  TCompiling() { context.alertHost = &recorder; }

  /// Compiles into the emptied image.
  TCompileResult Compile(const std::string& source) {
    code.Clear();
    recorder.alerts.clear();
    run_on_engine_stack([&] {
      TCompiler compiler(context, &code, &cancel);
      result = compiler.Compile(source.c_str(), &mode);
      fault = compiler.Fault();
    });
    return result;
  }

  TAlertRecorder recorder;
  TMidCode code;
  std::atomic<bool> cancel{false};
  TCompileResult result = TCompileResult::Empty;
  int32_t mode = 0;
  TException fault;
};

/// The listing of a compiled list; of a refused one, its error key.
inline std::string listing_of(const std::string& source) {
  TCompiling compiling;
  if (compiling.Compile(source) == TCompileResult::Failed) return compiling.fault.key;
  return code_listing(compiling.code);
}

/// The records of a listing without index and number, joined by "; ".
inline std::string records_in(const std::string& listing) {
  std::string records;
  for (size_t begin = 0, end; (end = listing.find('\n', begin)) != std::string::npos;
       begin = end + 1) {
    const std::string_view line(listing.data() + begin, end - begin);
    const size_t number = line.find(' ');
    const size_t name = line.find(' ', number + 1);
    if (!records.empty()) records += "; ";
    records += line.substr(name + 1);
  }
  return records;
}

/// The records of the statements of line 10, between "BLineBegin 10" and "BExit"; or the error key.
inline std::string code_of(const std::string& statements) {
  const std::string listing = listing_of("10 " + statements + "\n");
  if (listing.starts_with('@')) return listing;
  constexpr std::string_view HEAD = "-; BLineBegin 10; ";
  constexpr std::string_view TAIL = "; BExit";
  const std::string records = records_in(listing);
  if (records.size() < HEAD.size() + TAIL.size()) return "";
  return records.substr(HEAD.size(), records.size() - HEAD.size() - TAIL.size());
}

/// The error key of a list, and the line that its alert names: "KEY in LINE"; or "compiles".
inline std::string fault_of(const std::string& source) {
  TCompiling compiling;
  if (compiling.Compile(source) != TCompileResult::Failed) return "compiles";
  return compiling.fault.key + " in " + compiling.fault.lineText;
}

}  // namespace zoka::test
