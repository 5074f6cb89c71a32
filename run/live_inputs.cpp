// Reads of a live run, each handed on to whoever knows.
#include "run/live_inputs.h"

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "run/key_feeder.h"

namespace zoka {

bigtime_t TLiveInputs::SystemTime() {
  mContext.clock->Poll();
  return mContext.clock->system_time();
}

TLocalTime TLiveInputs::LocalTime() {
  mContext.clock->Poll();
  return mContext.clock->local_time();
}

int32_t TLiveInputs::Random() {
  return mContext.random.Next();
}

void TLiveInputs::SeedRandom(int32_t seed) {
  mContext.random.Seed(static_cast<uint32_t>(seed));
}

std::string TLiveInputs::PopKey(TThread& machine) {
  return mRsrc.PopFromKeyBuf(&machine);
}

std::string TLiveInputs::PopKeyWithTimeout(bigtime_t timeout, TThread& machine) {
  if (timeout <= 0 && mKeyFeeder != nullptr) mKeyFeeder->Look();
  return mRsrc.PopFromKeyBufWithTimeout(timeout, &machine);
}

bool TLiveInputs::IsKeyDown(uint8_t code) {
  const bool isTyped = mKeyFeeder != nullptr && mKeyFeeder->IsKeyDown(code);
  return isTyped || mHost.KeyStates().test(code);
}

int32_t TLiveInputs::ProducerConnections() {
  return mProducer.CountConnections();
}

bigtime_t TLiveInputs::SpeedControlInterval() {
  return mContext.prefs->SpCI.load();
}

bool TLiveInputs::RepeatRun() {
  return mContext.exitStates->RptR.load();
}

}  // namespace zoka
