// The MIDI producer and the roster of consumers.
#include "sound/midi.h"

#include <algorithm>

#include "common/context.h"

namespace zoka {

namespace {

constexpr uint8_t CHANNEL_MASK = 0x0F;
constexpr uint8_t DATA_MASK = 0x7F;

// Producers are numbered in one row with nothing else; the numbers only have to differ.
int32_t next_producer_id() {
  static std::atomic<int32_t> sLastId{0};
  return ++sLastId;
}

}  // namespace

std::string TMidiConsumer::Name() const {
  const TLock lock(mNameLock);
  return mName;
}

TMidiLocalProducer::TMidiLocalProducer(TClock& clock, std::string name)
    : mClock(clock), mName(std::move(name)), mId(next_producer_id()) {}

void TMidiLocalProducer::SprayNoteOn(uint8_t channel, uint8_t note, uint8_t velocity,
                                     bigtime_t stamp) {
  Spray(stamp, MIDI_NOTE_ON, channel, {note, velocity});
}

void TMidiLocalProducer::SprayNoteOff(uint8_t channel, uint8_t note, uint8_t velocity,
                                      bigtime_t stamp) {
  Spray(stamp, MIDI_NOTE_OFF, channel, {note, velocity});
}

void TMidiLocalProducer::SprayControlChange(uint8_t channel, uint8_t control, uint8_t value,
                                            bigtime_t stamp) {
  Spray(stamp, MIDI_CONTROL_CHANGE, channel, {control, value});
}

void TMidiLocalProducer::SprayProgramChange(uint8_t channel, uint8_t program, bigtime_t stamp) {
  Spray(stamp, MIDI_PROGRAM_CHANGE, channel, {program});
}

void TMidiLocalProducer::SpraySystemExclusive(std::string_view data, bigtime_t stamp) {
  std::string bytes(1, static_cast<char>(MIDI_SYSEX_START));
  bytes.append(data);
  bytes.push_back(static_cast<char>(MIDI_SYSEX_END));
  Deliver(stamp, std::move(bytes));
}

// A message of a channel is short enough to be kept without allocation.
void TMidiLocalProducer::Spray(bigtime_t stamp, uint8_t status, uint8_t channel,
                               std::initializer_list<uint8_t> data) {
  std::string bytes(1, static_cast<char>(status | (channel & CHANNEL_MASK)));
  for (const uint8_t byte : data) bytes.push_back(static_cast<char>(byte & DATA_MASK));
  Deliver(stamp, std::move(bytes));
}

void TMidiLocalProducer::Deliver(bigtime_t stamp, std::string bytes) {
  const TLock lock(mDelivery);
  const TMidiEvent event{std::max(stamp, mClock.system_time()), std::move(bytes)};
  for (TMidiSink* recorder : mRecorders) recorder->Receive(event);
  for (const auto& consumer : mConsumers) consumer->Receive(event);
}

void TMidiLocalProducer::AddRecorder(TMidiSink* recorder) {
  const TLock lock(mDelivery);
  mRecorders.push_back(recorder);
}

void TMidiLocalProducer::RemoveRecorder(TMidiSink* recorder) {
  const TLock lock(mDelivery);
  std::erase(mRecorders, recorder);
}

std::vector<int32_t> TMidiLocalProducer::Connections() {
  const TLock lock(mDelivery);
  std::vector<int32_t> ids;
  for (const auto& consumer : mConsumers) ids.push_back(consumer->ID());
  return ids;
}

bool TMidiLocalProducer::IsConnected(int32_t consumerId) {
  const std::vector<int32_t> ids = Connections();
  return std::find(ids.begin(), ids.end(), consumerId) != ids.end();
}

int32_t TMidiLocalProducer::CountConnections() {
  const TLock lock(mDelivery);
  return static_cast<int32_t>(mConsumers.size() + mRecorders.size());
}

bool TMidiLocalProducer::Add(std::shared_ptr<TMidiConsumer> consumer) {
  if (IsConnected(consumer->ID())) return false;
  consumer->Connected(mId);
  const TLock lock(mDelivery);
  mConsumers.push_back(std::move(consumer));
  return true;
}

bool TMidiLocalProducer::Remove(int32_t consumerId) {
  std::shared_ptr<TMidiConsumer> removed;
  {
    const TLock lock(mDelivery);
    const auto it = std::find_if(mConsumers.begin(), mConsumers.end(),
                                 [&](const auto& c) { return c->ID() == consumerId; });
    if (it == mConsumers.end()) return false;
    removed = std::move(*it);
    mConsumers.erase(it);
  }
  removed->Disconnected(mId);
  return true;
}

int32_t TMidiRoster::Register(std::shared_ptr<TMidiConsumer> consumer) {
  int32_t id = 0;
  {
    const TLock lock(mLock);
    id = ++mLastId;
    consumer->mId = id;
    mConsumers.emplace(id, std::move(consumer));
  }
  Notify({TMidiOp::Registered, id, 0});
  return id;
}

void TMidiRoster::Unregister(int32_t id) {
  std::vector<TMidiLocalProducer*> producers;
  {
    const TLock lock(mLock);
    const auto it = mConsumers.find(id);
    if (it == mConsumers.end() || !it->second->mValid.exchange(false)) return;
    producers = mProducers;
  }
  for (TMidiLocalProducer* producer : producers) producer->Remove(id);
  Notify({TMidiOp::Unregistered, id, 0});
  const TLock lock(mLock);
  mConsumers.erase(id);
}

void TMidiRoster::Rename(int32_t id, const std::string& name) {
  const std::shared_ptr<TMidiConsumer> consumer = FindConsumer(id);
  if (!consumer) return;
  {
    const TLock lock(consumer->mNameLock);
    if (consumer->mName == name) return;
    consumer->mName = name;
  }
  Notify({TMidiOp::ChangedName, id, 0});
}

std::vector<std::shared_ptr<TMidiConsumer>> TMidiRoster::Consumers() {
  const TLock lock(mLock);
  std::vector<std::shared_ptr<TMidiConsumer>> valid;
  for (const auto& [id, consumer] : mConsumers) {
    if (consumer->IsValid()) valid.push_back(consumer);
  }
  return valid;
}

std::shared_ptr<TMidiConsumer> TMidiRoster::FindConsumer(int32_t id) {
  const TLock lock(mLock);
  const auto it = mConsumers.find(id);
  return it == mConsumers.end() ? nullptr : it->second;
}

void TMidiRoster::RegisterProducer(TMidiLocalProducer* producer) {
  const TLock lock(mLock);
  mProducers.push_back(producer);
}

void TMidiRoster::UnregisterProducer(TMidiLocalProducer* producer) {
  for (const int32_t id : producer->Connections()) producer->Remove(id);
  const TLock lock(mLock);
  std::erase(mProducers, producer);
}

bool TMidiRoster::Connect(TMidiLocalProducer& producer, int32_t consumerId) {
  const std::shared_ptr<TMidiConsumer> consumer = FindConsumer(consumerId);
  if (!consumer || !consumer->IsValid() || !producer.Add(consumer)) return false;
  Notify({TMidiOp::Connected, consumerId, producer.ID()});
  return true;
}

bool TMidiRoster::Disconnect(TMidiLocalProducer& producer, int32_t consumerId) {
  if (!producer.Remove(consumerId)) return false;
  Notify({TMidiOp::Disconnected, consumerId, producer.ID()});
  return true;
}

void TMidiRoster::StartWatching(TWatcher watcher) {
  auto next = std::make_shared<TWatcher>(std::move(watcher));
  const TLock lock(mLock);
  mWatcher = std::move(next);
}

void TMidiRoster::StopWatching() {
  const TLock lock(mLock);
  mWatcher.reset();
}

void TMidiRoster::Notify(const TMidiNotice& notice) {
  std::shared_ptr<TWatcher> watcher;
  {
    const TLock lock(mLock);
    watcher = mWatcher;
  }
  if (watcher) (*watcher)(notice);
}

std::string midi_out_name() {
  return std::string(APP_NAME) + " OUT";
}

void spray_silence(TMidiLocalProducer& producer) {
  for (uint8_t channel = 0; channel < MIDI_CHANNEL_COUNT; ++channel) {
    for (const uint8_t control : MIDI_SILENCE) {
      producer.SprayControlChange(channel, control, 0, 0);
    }
  }
}

}  // namespace zoka
