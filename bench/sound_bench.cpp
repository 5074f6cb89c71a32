// The sound layer: how late events are in real time on a busy machine, how fast MML is compiled,
// how fast music is rendered.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "sound/mml_player.h"
#include "sound/synthesizer.h"

namespace {

using namespace zoka;

class TMachine : public TPlayEventTarget {
 public:
  void HappenInterrupt(int32_t) override {}
  bool IsTerminated() const override { return false; }
};

class TTimes : public TMidiSink {
 public:
  void Receive(const TMidiEvent& event) override { times.push_back(event.time); }
  std::vector<bigtime_t> times;
};

/// Threads that never rest, as many as the machine has processors.
class TBusy {
 public:
  TBusy() {
    for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
      mThreads.emplace_back([this] {
        while (!mEnd.load(std::memory_order_relaxed)) benchmark::ClobberMemory();
      });
    }
  }
  ~TBusy() {
    mEnd = true;
    for (std::thread& thread : mThreads) thread.join();
  }

 private:
  std::atomic<bool> mEnd{false};
  std::vector<std::thread> mThreads;
};

/// A player with its output and everything it needs.
struct TRig {
  explicit TRig(std::unique_ptr<TClock> theClock) : clock(std::move(theClock)) {
    producer.AddRecorder(&seen);
    player.SetProducer(&producer);
  }
  TPlayCaller Caller() { return {wake, machine}; }

  std::unique_ptr<TClock> clock;
  std::atomic<int32_t> volume{80};
  std::atomic<int64_t> latency{50000};
  TWake wake{*clock};
  TMachine machine;
  TTimes seen;
  TMidiLocalProducer producer{*clock, midi_out_name()};
  TMmlPlayer player{*clock, {volume, latency}};
};

// Ten seconds of a note every 14,688 microseconds, on and off: 1,360 events. An event is late by as
// much as it was sent behind its stamp.
void BM_Lateness(benchmark::State& state) {
  constexpr int NOTES = 680;
  constexpr bigtime_t NOTE_SPAN = 288 * 51;
  constexpr bigtime_t SOUND_SPAN = 252 * 51;
  const TBusy busy;
  std::vector<bigtime_t> late;
  for (auto _ : state) {
    TRig rig(make_real_clock());
    rig.player.SetMml(1, "T255L64" + std::string(NOTES, 'C'), rig.Caller());
    rig.player.Resume();
    rig.player.Drain(rig.Caller());
    const std::vector<bigtime_t>& times = rig.seen.times;
    for (size_t i = 0; i < times.size(); ++i) {
      const auto note = static_cast<bigtime_t>(i / 2);
      const bigtime_t due = times[0] + note * NOTE_SPAN + (i % 2 ? SOUND_SPAN : 0);
      late.push_back(times[i] - due);
    }
  }
  std::sort(late.begin(), late.end());
  state.counters["p99_us"] = static_cast<double>(late[late.size() * 99 / 100]);
  state.counters["max_us"] = static_cast<double>(late.back());
}
BENCHMARK(BM_Lateness)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_Compile(benchmark::State& state) {
  TRig rig(make_simulated_clock());
  std::string mml;
  for (int i = 0; i < 500; ++i) mml += "O4L8C+4.D16^8E{FGA}4R8V12@5<B->";
  for (auto _ : state) {
    rig.player.SetMml(1, mml, rig.Caller());
    rig.player.Clear();
  }
  state.SetBytesProcessed(static_cast<int64_t>(mml.size()) * state.iterations());
}
BENCHMARK(BM_Compile);

// Seven channels at once; the counter says how many seconds of sound a second of work makes.
void BM_Render(benchmark::State& state) {
  const std::unique_ptr<TSynthesizer> synth = TSynthesizer::Create();
  if (!synth) {
    state.SkipWithError("no synthesiser on this machine");
    return;
  }
  std::vector<float> left(SYNTH_RATE);
  std::vector<float> right(SYNTH_RATE);
  for (auto _ : state) {
    for (char ch = 0; ch < MML_CHANNELS; ++ch) {
      synth->Apply({static_cast<char>(MIDI_NOTE_ON | ch), static_cast<char>(60 + ch), 100});
    }
    synth->Render(left.data(), right.data(), left.size());
  }
  state.counters["realtime"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_Render)->Unit(benchmark::kMillisecond);

}  // namespace
