// TMidiOutputs: the instruments that the window application's music can go to, and which of them
// the user wants. The menu that shows them is elsewhere.
#pragma once

#include <QObject>

#include "common/context.h"
#include "common/handler.h"
#include "sound/alsa_sequencer.h"
#include "sound/midi.h"
#include "sound/midi_connections.h"
#include "sound/synth_consumer.h"

namespace zoka {

/// Holds the roster with the built-in synthesiser and the system's instruments, and keeps what is
/// connected and TPrefs::CoMO true to each other. The application is told by rmmc that there are
/// other outputs, by ummr that one was connected or cut off. Window thread; the producer outlives
/// it.
class TMidiOutputs final : private TMidiConnectionsHost {
 public:
  /// `app` gets the messages. On the very first start the synthesiser is connected, and that is
  /// saved.
  TMidiOutputs(TEngineContext& context, THandlerRegistry& registry, THandlerId app,
               TMidiLocalProducer& producer, bool firstStart);
  ~TMidiOutputs() override;
  TMidiOutputs(const TMidiOutputs&) = delete;
  TMidiOutputs& operator=(const TMidiOutputs&) = delete;

  TMidiRoster& Roster() { return mRoster; }
  /// The user's list has changed (pmoc).
  void PrefMidiOutChanged(const TMessage& message);

 private:
  std::vector<std::string> WantedMidiOuts() override;
  void SaveMidiOuts(const std::vector<std::string>& names) override;
  void RecreateMenuMidiOut() override;
  void UpdateMenuMidiOut(int32_t consumerId) override;

  TEngineContext& mContext;
  THandlerRegistry& mRegistry;
  THandlerId mApp;
  TMidiLocalProducer& mProducer;
  TMidiLocalProducer mDisconnectProducer;
  TMidiRoster mRoster;
  TMidiConnections mConnections;
  std::unique_ptr<TAlsaSequencer> mSequencer;
  QObject mQueue;  // notices of other threads, posted to the window thread, end with it
};

}  // namespace zoka
