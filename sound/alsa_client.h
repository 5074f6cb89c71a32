// Our client of the ALSA sequencer: one port that other programs see, a queue that keeps our time,
// and the calls that go out through them. It knows nothing of rosters.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "common/clock.h"
#include "common/mutex.h"
#include "sound/alsa_api.h"
#include "sound/midi.h"

namespace zoka {

/// The address of a port: client and port number.
using TAlsaAddress = std::pair<int, int>;

/// A port of another client that takes events.
struct TAlsaPortInfo {
  TAlsaAddress address;
  std::string name;
};

/// The client. Any thread; calls are short and never wait.
class TAlsaClient {
 public:
  /// Null where there is no sequencer: no library, no device. `name` names client and port.
  static std::shared_ptr<TAlsaClient> Open(const TAlsaApi* api, TClock& clock,
                                           const std::string& name);
  ~TAlsaClient();
  TAlsaClient(const TAlsaClient&) = delete;
  TAlsaClient& operator=(const TAlsaClient&) = delete;

  TAlsaAddress Address() const { return {mId, mPort}; }

  /// Schedules an event for its time.
  void Send(TAlsaAddress to, const TMidiEvent& event);
  /// Forgets what is scheduled for a port.
  void RemoveScheduled(TAlsaAddress to);
  /// Silences a port at once.
  void Silence(TAlsaAddress to);

  /// Make and end the connection that other programs see. Nothing happens if it is so already.
  void Subscribe(TAlsaAddress to);
  void Unsubscribe(TAlsaAddress to);
  bool IsSubscribed(TAlsaAddress to);

  /// All ports of others that take events and may be connected.
  std::vector<TAlsaPortInfo> Ports();
  /// One of them; false if there is none, or no such one, at that address.
  bool FindPort(TAlsaAddress address, TAlsaPortInfo* info);

  /// The next notice of the system that is waiting; false if there is none. After `*lost` is set,
  /// notices were dropped: look at everything anew.
  bool NextNotice(snd_seq_event_t* notice, bool* lost);

 private:
  TAlsaClient(const TAlsaApi& api, TClock& clock) : mApi(api), mClock(clock) {}
  bool Prepare(const std::string& name);
  std::string ClientName(int client);
  void PublishCrashEvents();

  const TAlsaApi& mApi;
  TClock& mClock;
  snd_seq_t* mSequencer = nullptr;
  int mId = 0;
  int mPort = 0;
  int mQueue = 0;
  bigtime_t mOrigin = 0;  // the clock's time at the queue's begin
  TMutex mLock{TLockRank::Leaf};
  std::set<TAlsaAddress> mSubscribed;
  // What silences all connected ports, as the kernel takes it; the last one counts.
  std::vector<std::vector<snd_seq_event_t>> mCrashEvents;
};

/// Silences all connected ports at once. For the handler of a crash: calls write(2) and nothing
/// else.
void silence_alsa_in_crash();

}  // namespace zoka
