// The timed commands that the MML compiler makes and the player plays, and the queue that holds one
// channel's. It knows nothing of MIDI outputs.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace zoka {

/// What an event does when its tick is reached.
enum class TPlayMidiCmd : int32_t {
  NoteOn,         ///< data1: note, data2: velocity
  NoteOff,        ///< data1: note, data2: velocity
  ProgramChange,  ///< data1: GM program, 0 to 127
  TempoChange,    ///< data1: quarter notes a minute
  Nothing         ///< holds the queue open to the end of a note or rest
};

/// One event of a channel. Ordered by tick, and at equal ticks by the order of creation.
struct TPlayData {
  int16_t ch = 0;
  int16_t data1 = 0;
  int16_t data2 = 0;
  int64_t id = 0;
  int64_t tick = 0;
  TPlayMidiCmd cmd = TPlayMidiCmd::Nothing;

  bool operator>(const TPlayData& other) const {
    return tick != other.tick ? tick > other.tick : id > other.id;
  }
};

/// A channel's events: a binary heap with the smallest on top. Not locked.
class TPlayQueue {
 public:
  bool IsEmpty() const { return mHeap.empty(); }
  size_t Count() const { return mHeap.size(); }
  const TPlayData& Top() const { return mHeap.front(); }
  void Clear() { mHeap.clear(); }

  void Push(const TPlayData& data) {
    mHeap.push_back(data);
    std::push_heap(mHeap.begin(), mHeap.end(), std::greater<>());
  }

  TPlayData Pop() {
    std::pop_heap(mHeap.begin(), mHeap.end(), std::greater<>());
    const TPlayData data = mHeap.back();
    mHeap.pop_back();
    return data;
  }

  /// Pops all events of the top's tick and returns the last of them: a burst of switches of the
  /// beep within one tick is one event.
  TPlayData OptimizedBeepQueuePop() {
    TPlayData data = Pop();
    while (!IsEmpty() && Top().tick == data.tick) data = Pop();
    return data;
  }

 private:
  std::vector<TPlayData> mHeap;
};

}  // namespace zoka
