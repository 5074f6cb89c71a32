// TLiveInputs: the inputs of a run that happens now: the engine's clock, the random numbers, the
// key buffer, the host's keyboard and the preferences.
#pragma once

#include "common/context.h"
#include "run/run_host.h"
#include "run/screen/basic_rsrc.h"
#include "sound/midi.h"
#include "vm/run_inputs.h"

namespace zoka {

class TKeyFeeder;

class TLiveInputs final : public TRunInputs {
 public:
  TLiveInputs(TEngineContext& context, TBasicRsrc& rsrc, TRunHost& host,
              TMidiLocalProducer& producer)
      : mContext(context), mRsrc(rsrc), mHost(host), mProducer(producer) {}

  bigtime_t SystemTime() override;
  TLocalTime LocalTime() override;
  int32_t Random() override;
  void SeedRandom(int32_t seed) override;
  std::string PopKey(TThread& machine) override;
  std::string PopKeyWithTimeout(bigtime_t timeout, TThread& machine) override;
  bool IsKeyDown(uint8_t code) override;
  int32_t ProducerConnections() override;
  bigtime_t SpeedControlInterval() override;
  bool RepeatRun() override;

  /// Whose keys may still be on their way; null for a person's.
  void SetKeyFeeder(TKeyFeeder* feeder) { mKeyFeeder = feeder; }

 private:
  TEngineContext& mContext;
  TBasicRsrc& mRsrc;
  TRunHost& mHost;
  TMidiLocalProducer& mProducer;
  TKeyFeeder* mKeyFeeder = nullptr;
};

}  // namespace zoka
