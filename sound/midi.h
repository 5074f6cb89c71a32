// The MIDI layer: a producer whose events carry the time at which they are to sound, consumers that
// sound them, and the roster in which consumers are registered and connected. What kinds of
// consumers there are lies in files of their own.
//
// An event sounds at its stamp or, if that has passed, when it is sent; events of one time in the
// order in which they were sent.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/clock.h"
#include "common/mutex.h"

namespace zoka {

/// Channels of a MIDI connection.
constexpr uint8_t MIDI_CHANNEL_COUNT = 16;

/// Control changes of silence, and all of them in the order in which they are sent.
constexpr uint8_t MIDI_ALL_SOUND_OFF = 0x78;
constexpr uint8_t MIDI_RESET_CONTROLLERS = 0x79;
constexpr uint8_t MIDI_ALL_NOTES_OFF = 0x7B;
constexpr uint8_t MIDI_SILENCE[] = {MIDI_ALL_NOTES_OFF, MIDI_ALL_SOUND_OFF, MIDI_RESET_CONTROLLERS};

/// Status bytes, to be combined with the channel.
constexpr uint8_t MIDI_NOTE_OFF = 0x80;
constexpr uint8_t MIDI_NOTE_ON = 0x90;
constexpr uint8_t MIDI_CONTROL_CHANGE = 0xB0;
constexpr uint8_t MIDI_PROGRAM_CHANGE = 0xC0;
constexpr uint8_t MIDI_SYSEX_START = 0xF0;
constexpr uint8_t MIDI_SYSEX_END = 0xF7;

/// One event: when it sounds, in microseconds of the clock, and its bytes, a system exclusive
/// message with its F0 and F7.
struct TMidiEvent {
  bigtime_t time = 0;
  std::string bytes;
};

/// A byte of a message; 0 behind its end.
inline int midi_byte(const std::string& bytes, size_t index) {
  return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0;
}

/// Takes events. Receive is called on the sending thread, by one thread at a time, in the order of
/// sending; it must be short, must not block and must not call the producer.
class TMidiSink {
 public:
  virtual ~TMidiSink() = default;
  virtual void Receive(const TMidiEvent& event) = 0;
};

/// A consumer of the roster: an instrument that the user can connect. Names need not be unique.
class TMidiConsumer : public TMidiSink {
 public:
  explicit TMidiConsumer(std::string name) : mName(std::move(name)) {}
  /// The roster's number of it, above 0 once registered; never used twice.
  int32_t ID() const { return mId.load(); }
  std::string Name() const;
  /// False once what it stands for is gone.
  bool IsValid() const { return mValid.load(); }

  /// Told when a producer is connected (the first event may follow at once) and disconnected.
  virtual void Connected(int32_t producerId) { (void)producerId; }
  virtual void Disconnected(int32_t producerId) { (void)producerId; }

 private:
  friend class TMidiRoster;
  mutable TMutex mNameLock{TLockRank::Leaf};
  std::string mName;
  std::atomic<int32_t> mId{0};
  std::atomic<bool> mValid{true};
};

/// A consumer that hears nothing.
class TNullConsumer final : public TMidiConsumer {
 public:
  using TMidiConsumer::TMidiConsumer;
  void Receive(const TMidiEvent&) override {}
};

/// A source of events. Stamps are microseconds of the clock; 0 or any time that has passed is "at
/// once". Spray may be called on any thread.
class TMidiLocalProducer {
 public:
  TMidiLocalProducer(TClock& clock, std::string name);
  TMidiLocalProducer(const TMidiLocalProducer&) = delete;
  TMidiLocalProducer& operator=(const TMidiLocalProducer&) = delete;

  int32_t ID() const { return mId; }
  const std::string& Name() const { return mName; }

  void SprayNoteOn(uint8_t channel, uint8_t note, uint8_t velocity, bigtime_t stamp);
  void SprayNoteOff(uint8_t channel, uint8_t note, uint8_t velocity, bigtime_t stamp);
  void SprayControlChange(uint8_t channel, uint8_t control, uint8_t value, bigtime_t stamp);
  void SprayProgramChange(uint8_t channel, uint8_t program, bigtime_t stamp);
  /// `data` without F0 and F7.
  void SpraySystemExclusive(std::string_view data, bigtime_t stamp);

  /// Adds a listener that is no consumer of the roster, such as a recorder; it counts as a
  /// connection. Not owned; it must be removed before it goes.
  void AddRecorder(TMidiSink* recorder);
  void RemoveRecorder(TMidiSink* recorder);

  /// The ids of the connected consumers, in the order of connection.
  std::vector<int32_t> Connections();
  bool IsConnected(int32_t consumerId);
  /// Connected consumers and recorders together.
  int32_t CountConnections();

 private:
  friend class TMidiRoster;
  bool Add(std::shared_ptr<TMidiConsumer> consumer);
  bool Remove(int32_t consumerId);
  void Spray(bigtime_t stamp, uint8_t status, uint8_t channel, std::initializer_list<uint8_t> data);
  void Deliver(bigtime_t stamp, std::string bytes);

  TClock& mClock;
  const std::string mName;
  const int32_t mId;
  // Held while an event is handed over: events arrive in order, and none after a disconnection.
  TMutex mDelivery{TLockRank::Variables};
  std::vector<std::shared_ptr<TMidiConsumer>> mConsumers;
  std::vector<TMidiSink*> mRecorders;
};

/// What happened in the roster; the numbers are those of "be:op".
enum class TMidiOp : int32_t {
  Registered = 1,
  Unregistered = 2,
  Connected = 3,
  Disconnected = 4,
  ChangedName = 5
};

/// A notice: which consumer, and for connections which producer (else 0).
struct TMidiNotice {
  TMidiOp op = TMidiOp::Registered;
  int32_t consumer = 0;
  int32_t producer = 0;
  bool operator==(const TMidiNotice&) const = default;
};

/// The consumers there are, and who is connected to whom. Any thread. A notice is given on the
/// thread that caused it, with no lock held. The roster outlives its producers' connections.
class TMidiRoster {
 public:
  using TWatcher = std::function<void(const TMidiNotice&)>;

  /// Adds a consumer and returns its id.
  int32_t Register(std::shared_ptr<TMidiConsumer> consumer);
  /// Removes a consumer: it is no longer valid; connections to it end without a notice of their
  /// own. It can still be found by its id until the notice has been given.
  void Unregister(int32_t id);
  void Rename(int32_t id, const std::string& name);

  /// All valid consumers in the order of registration.
  std::vector<std::shared_ptr<TMidiConsumer>> Consumers();
  /// Null if there is none.
  std::shared_ptr<TMidiConsumer> FindConsumer(int32_t id);

  /// Makes a producer known, so that Unregister can cut its connections.
  void RegisterProducer(TMidiLocalProducer* producer);
  /// Cuts the producer's connections, without notices, and forgets it.
  void UnregisterProducer(TMidiLocalProducer* producer);

  /// Return false, with no notice, if there is nothing to do.
  bool Connect(TMidiLocalProducer& producer, int32_t consumerId);
  bool Disconnect(TMidiLocalProducer& producer, int32_t consumerId);

  /// Sets who is told; one at a time. A notice may still be under way when StopWatching returns, so
  /// the watcher posts to a handler rather than acting itself.
  void StartWatching(TWatcher watcher);
  void StopWatching();

 private:
  void Notify(const TMidiNotice& notice);

  TMutex mLock{TLockRank::Leaf};
  int32_t mLastId = 0;
  std::map<int32_t, std::shared_ptr<TMidiConsumer>> mConsumers;
  std::vector<TMidiLocalProducer*> mProducers;
  std::shared_ptr<TWatcher> mWatcher;
};

/// The name of the player's producer: the application's and " OUT".
std::string midi_out_name();

/// Sends the three control changes of silence on all 16 channels, at once.
void spray_silence(TMidiLocalProducer& producer);

}  // namespace zoka
