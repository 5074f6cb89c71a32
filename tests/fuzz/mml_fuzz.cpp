// Fuzz target: arbitrary bytes as MML on all channels, played on the simulated clock. Besides
// crashes it looks for notes that are switched on and never off.
#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "common/clock.h"
#include "sound/midi.h"
#include "sound/mml_player.h"

using namespace zoka;

namespace {

// Music longer than this is cut.
constexpr bigtime_t MAX_TIME = 60000000;

/// Counts notes that are on.
class TNoteCounter : public TMidiSink {
 public:
  void Receive(const TMidiEvent& event) override {
    const int status = static_cast<unsigned char>(event.bytes[0]) & 0xF0;
    if (status == MIDI_NOTE_ON) ++mOpen;
    if (status == MIDI_NOTE_OFF) --mOpen;
  }
  int Open() const { return mOpen; }

 private:
  int mOpen = 0;
};

class TNobody : public TPlayEventTarget {
 public:
  void HappenInterrupt(int32_t) override {}
  bool IsTerminated() const override { return terminated; }
  std::atomic<bool> terminated{false};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::unique_ptr<TClock> clock = make_simulated_clock();
  const std::atomic<int32_t> volume{80};
  const std::atomic<int64_t> latency{50000};
  TWake wake(*clock);
  TNobody nobody;
  TNoteCounter counter;
  TMidiLocalProducer producer(*clock, midi_out_name());
  producer.AddRecorder(&counter);
  {
    TMmlPlayer player(*clock, {volume, latency});
    player.SetProducer(&producer);
    clock->EnterThread(clock->PrepareThread(TActorClass::Machine));
    const TTimerId limit = clock->StartTimer(MAX_TIME, false, [&] {
      nobody.terminated = true;
      wake.Signal();
    });
    const std::string text(reinterpret_cast<const char*>(data), size);
    size_t begin = 0;
    for (int16_t ch = MML_CHANNELS - 1; ch > 0 && begin <= size; --ch) {
      const size_t end = std::min(text.find('/', begin), size);
      try {
        player.SetMml(ch, text.substr(begin, end - begin), {wake, nobody});
      } catch (const TMmlError&) {
        // Refused, as it should be.
      }
      begin = end + 1;
    }
    player.Resume();
    player.Drain({wake, nobody});
    clock->CancelTimer(limit);
    player.Clear();
    player.Terminate();
    clock->LeaveThread();
  }
  if (counter.Open() != 0) std::abort();
  return 0;
}
