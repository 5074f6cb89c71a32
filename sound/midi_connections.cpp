// The connections between the player's producer and the user's instruments.
#include "sound/midi_connections.h"

#include <algorithm>

namespace zoka {

namespace {

constexpr char ANONYMOUS[] = "<anonymous>";

bool contains(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

TMidiConnections::TMidiConnections(TMidiRoster& roster, TMidiLocalProducer& output,
                                   TMidiLocalProducer& muting, TMidiConnectionsHost& host)
    : mRoster(roster), producer(output), disconnectProducer(muting), mHost(host) {}

void TMidiConnections::ConnectMidiOuts(const std::vector<std::string>& names) {
  for (const auto& consumer : mRoster.Consumers()) {
    if (contains(names, consumer->Name())) {
      mRoster.Connect(producer, consumer->ID());
    } else {
      mRoster.Disconnect(producer, consumer->ID());
    }
  }
}

bool TMidiConnections::AddRemoveExitConnection(std::vector<std::string>* names) {
  const std::vector<std::string> before = *names;
  for (const auto& consumer : mRoster.Consumers()) {
    const std::string name = consumer->Name();
    if (name == ANONYMOUS) continue;
    if (!producer.IsConnected(consumer->ID())) {
      std::erase(*names, name);
    } else if (!contains(*names, name)) {
      names->push_back(name);
    }
  }
  return *names != before;
}

void TMidiConnections::MuteMidiOut(int32_t consumerId) {
  const std::shared_ptr<TMidiConsumer> consumer = mRoster.FindConsumer(consumerId);
  if (!consumer || !consumer->IsValid()) return;
  if (!mRoster.Connect(disconnectProducer, consumerId)) return;
  spray_silence(disconnectProducer);
  mRoster.Disconnect(disconnectProducer, consumerId);
}

void TMidiConnections::MidiEvent(const TMidiNotice& notice) {
  switch (notice.op) {
    case TMidiOp::Registered:
    case TMidiOp::ChangedName:
      ConnectMidiOuts(mHost.WantedMidiOuts());
      mHost.RecreateMenuMidiOut();
      break;
    case TMidiOp::Unregistered:
      MuteMidiOut(notice.consumer);
      mHost.RecreateMenuMidiOut();
      break;
    case TMidiOp::Connected:
    case TMidiOp::Disconnected: {
      if (notice.producer != producer.ID()) break;
      if (notice.op == TMidiOp::Disconnected) MuteMidiOut(notice.consumer);
      std::vector<std::string> names = mHost.WantedMidiOuts();
      AddRemoveExitConnection(&names);
      mHost.SaveMidiOuts(names);
      mHost.UpdateMenuMidiOut(notice.consumer);
      break;
    }
  }
}

void TMidiConnections::PrefMidiOutChanged(int32_t disconnectedId) {
  ConnectMidiOuts(mHost.WantedMidiOuts());
  if (disconnectedId > 0) MuteMidiOut(disconnectedId);
}

}  // namespace zoka
