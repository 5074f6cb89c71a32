// The compiler's thread.
#include "run/compile_job.h"

#include <utility>

#include "common/thread.h"
#include "vm/engine_priority.h"

namespace zoka {

/// Compiles on the stack of an engine thread.
class TCompileJob::TCompileThread final : public TThread {
 public:
  TCompileThread(TCompileJob& job, std::string text, std::function<void()> ended)
      : TThread("Compiler", MACHINE_PRIORITY, *job.mContext.clock, TActorClass::Machine),
        mJob(job),
        mText(std::move(text)),
        mEnded(std::move(ended)) {}

 protected:
  int32_t Execute() override {
    TCompiler compiler(mJob.mContext, &mJob.mCode, &mJob.mCancel);
    int32_t mode = mJob.mMode.load();
    const TCompileResult result = compiler.Compile(mText.c_str(), &mode);
    mJob.mMode.store(mode);
    mJob.mFault = compiler.Fault();
    if (mEnded) mEnded();
    return static_cast<int32_t>(result);
  }

 private:
  TCompileJob& mJob;
  const std::string mText;
  const std::function<void()> mEnded;
};

TCompileJob::TCompileJob(TEngineContext& context, TMidCode& code, std::atomic<int32_t>& mode)
    : mContext(context), mCode(code), mMode(mode) {}

TCompileJob::~TCompileJob() {
  Cancel();
  Finish();
}

void TCompileJob::Start(std::string text, std::function<void()> ended) {
  Finish();
  mCancel.store(false);
  mThread = std::make_unique<TCompileThread>(*this, std::move(text), std::move(ended));
  mThread->Resume();
}

TCompileResult TCompileJob::Finish() {
  if (!mThread) return TCompileResult::Cancelled;
  int32_t result = 0;
  mThread->Wait(&result);
  mThread.reset();
  return static_cast<TCompileResult>(result);
}

}  // namespace zoka
