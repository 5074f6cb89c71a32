// TCompileJob: a compilation on a thread of its own, as the compiler recurses deeply. It knows
// nothing of runs.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "common/context.h"
#include "compiler/compiler.h"
#include "core/mid_code.h"

namespace zoka {

/// One compilation at a time. The host's thread, but for Cancel.
class TCompileJob {
 public:
  /// Nothing is owned, and all outlive the job: what is compiled goes to `code`, its compatibility
  /// mode to `mode`, which also gives the preferred one.
  TCompileJob(TEngineContext& context, TMidCode& code, std::atomic<int32_t>& mode);
  /// Cancels.
  ~TCompileJob();
  TCompileJob(const TCompileJob&) = delete;
  TCompileJob& operator=(const TCompileJob&) = delete;

  /// Returns at once; `ended`, if there is one, is the last act of the compiler's thread. Finishes
  /// the compilation before.
  void Start(std::string text, std::function<void()> ended);
  /// Waits for the thread. Cancelled if none was started since the last time.
  TCompileResult Finish();
  /// Ends a compilation under way; its result is then Cancelled. Any thread.
  void Cancel() { mCancel.store(true); }
  /// The fault of the last failed compilation.
  const TException& Fault() const { return mFault; }

 private:
  class TCompileThread;

  TEngineContext& mContext;
  TMidCode& mCode;
  std::atomic<int32_t>& mMode;
  std::atomic<bool> mCancel{false};
  TException mFault;
  std::unique_ptr<TCompileThread> mThread;
};

}  // namespace zoka
