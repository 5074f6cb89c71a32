// Brings the ports of the ALSA sequencer into the roster of MIDI consumers and keeps both true to
// each other, whoever makes a connection. Where there is no sequencer it does nothing.
#pragma once

#include <map>
#include <memory>

#include "sound/alsa_client.h"
#include "sound/midi.h"

namespace zoka {

/// The bridge. Made and deleted on a host's thread; notices of the system are looked for on the
/// clock's. The roster and the producer must outlive it.
class TAlsaSequencer {
 public:
  /// `api` is null where there is no library.
  TAlsaSequencer(TClock& clock, TMidiRoster& roster, TMidiLocalProducer& producer,
                 const TAlsaApi* api = alsa_api());
  /// Unregisters the ports.
  ~TAlsaSequencer();
  TAlsaSequencer(const TAlsaSequencer&) = delete;
  TAlsaSequencer& operator=(const TAlsaSequencer&) = delete;

  /// True if there is a sequencer.
  bool IsOpen() const { return mClient != nullptr; }

 private:
  void LookForNotices();
  void HandleNotice(const snd_seq_event_t& notice);
  void LookAtAll();
  void LookAtPort(TAlsaAddress address);
  void AddPort(const TAlsaPortInfo& info);
  void ForgetPort(TAlsaAddress address);
  void ForgetClient(int client);
  void FollowConnection(TAlsaAddress address);

  TClock& mClock;
  TMidiRoster& mRoster;
  TMidiLocalProducer& mProducer;
  std::shared_ptr<TAlsaClient> mClient;
  std::map<TAlsaAddress, int32_t> mPorts;  // the clock's thread, but for begin and end
  TTimerId mTimer = 0;
};

}  // namespace zoka
