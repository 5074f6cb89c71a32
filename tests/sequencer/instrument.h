// Another program's instrument on the system's sequencer, as the tests see it: it has a port that
// takes events and remembers when each one came.
#pragma once

#include <alsa/asoundlib.h>

#include <optional>
#include <vector>

#include "common/clock.h"

namespace zoka_test {

/// An event, and the clock's time at which it came.
struct TArrival {
  snd_seq_event_t event;
  zoka::bigtime_t time = 0;
};

/// A client of the sequencer, named "Piano", with a port "Keys". One thread.
class TInstrument {
 public:
  explicit TInstrument(zoka::TClock& clock);
  ~TInstrument();
  TInstrument(const TInstrument&) = delete;
  TInstrument& operator=(const TInstrument&) = delete;

  bool IsOpen() const { return mSequencer != nullptr; }
  int Client() const { return mClient; }
  int Port() const { return mPort; }

  /// The next event that comes within that many milliseconds; notices of connections are kept
  /// apart.
  std::optional<TArrival> Next(int timeoutMs);
  /// `count` events, or as many as come before one is longer away than `timeoutMs`.
  std::vector<TArrival> Take(size_t count, int timeoutMs);
  /// How many connections to the port the system has told of, and ends of them.
  int Subscribed() const { return mSubscribed; }
  int Unsubscribed() const { return mUnsubscribed; }

  /// Connects and disconnects another client's port with this one, as a patch bay would.
  bool ConnectFrom(int client, int port);
  bool DisconnectFrom(int client, int port);
  /// The number of a client by its name; -1 if there is none.
  int FindClient(const char* name);

 private:
  zoka::TClock& mClock;
  snd_seq_t* mSequencer = nullptr;
  int mClient = -1;
  int mPort = -1;
  int mSubscribed = 0;
  int mUnsubscribed = 0;
};

}  // namespace zoka_test
