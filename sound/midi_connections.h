// Keeps the connections of the player's producer and the user's list of outputs true to each other:
// what the run view does with the roster. The list itself and the menus belong to the host.
#pragma once

#include <string>
#include <vector>

#include "sound/midi.h"

namespace zoka {

/// What the connections ask of their host. Called on the thread that calls TMidiConnections.
class TMidiConnectionsHost {
 public:
  virtual ~TMidiConnectionsHost() = default;
  /// The names of the outputs that the user wants connected, in their order.
  virtual std::vector<std::string> WantedMidiOuts() = 0;
  /// Replaces that list and saves the preferences.
  virtual void SaveMidiOuts(const std::vector<std::string>& names) = 0;
  /// The menus of outputs: build anew, or mark anew the item of one consumer.
  virtual void RecreateMenuMidiOut() = 0;
  virtual void UpdateMenuMidiOut(int32_t consumerId) = 0;
};

/// The connections of one producer. One thread, the host's.
class TMidiConnections {
 public:
  /// All must outlive it. `disconnectProducer` belongs to no roster; it reaches consumers that the
  /// producer no longer reaches.
  TMidiConnections(TMidiRoster& roster, TMidiLocalProducer& producer,
                   TMidiLocalProducer& disconnectProducer, TMidiConnectionsHost& host);

  /// Connects every consumer whose name is in `names` and disconnects all others.
  void ConnectMidiOuts(const std::vector<std::string>& names);

  /// The opposite: adds connected consumers to `names` and removes those not connected. Names of no
  /// present consumer stay, and "<anonymous>" ones are left alone. True if the list has changed.
  bool AddRemoveExitConnection(std::vector<std::string>* names);

  /// Silences a consumer that was cut off: it must not hang on a note.
  void MuteMidiOut(int32_t consumerId);

  /// Handles a notice of the roster.
  void MidiEvent(const TMidiNotice& notice);

  /// Handles a change of the user's list; `disconnectedId`, if above 0, is a consumer it cut off.
  void PrefMidiOutChanged(int32_t disconnectedId);

 private:
  TMidiRoster& mRoster;
  TMidiLocalProducer& producer;
  TMidiLocalProducer& disconnectProducer;
  TMidiConnectionsHost& mHost;
};

}  // namespace zoka
