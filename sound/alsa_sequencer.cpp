// The bridge between the ALSA sequencer and the roster.
#include "sound/alsa_sequencer.h"

#include <vector>

namespace zoka {

namespace {

// How often notices are looked for; a person who plugs something in waits no longer than that.
constexpr bigtime_t NOTICE_SPAN = 200000;

// A port of another program. The player's producer makes a connection that others see; one that
// only mutes does not.
class TAlsaConsumer final : public TMidiConsumer {
 public:
  TAlsaConsumer(std::shared_ptr<TAlsaClient> client, const TAlsaPortInfo& info, int32_t producerId)
      : TMidiConsumer(info.name),
        mClient(std::move(client)),
        mAddress(info.address),
        mProducerId(producerId) {}

  void Receive(const TMidiEvent& event) override { mClient->Send(mAddress, event); }
  void Connected(int32_t producerId) override {
    if (producerId == mProducerId) mClient->Subscribe(mAddress);
  }
  void Disconnected(int32_t producerId) override {
    if (producerId != mProducerId) return;
    // The note offs go with what is scheduled, so that notes that sound would never end.
    mClient->RemoveScheduled(mAddress);
    mClient->Silence(mAddress);
    mClient->Unsubscribe(mAddress);
  }

 private:
  const std::shared_ptr<TAlsaClient> mClient;
  const TAlsaAddress mAddress;
  const int32_t mProducerId;
};

TAlsaAddress address_of(const snd_seq_addr_t& address) {
  return {address.client, address.port};
}

}  // namespace

TAlsaSequencer::TAlsaSequencer(TClock& clock, TMidiRoster& roster, TMidiLocalProducer& producer,
                               const TAlsaApi* api)
    : mClock(clock),
      mRoster(roster),
      mProducer(producer),
      mClient(TAlsaClient::Open(api, clock, producer.Name())) {
  if (!mClient) return;
  LookAtAll();
  mTimer = mClock.StartTimer(NOTICE_SPAN, true, [this] { LookForNotices(); });
}

TAlsaSequencer::~TAlsaSequencer() {
  if (!mClient) return;
  mClock.CancelTimer(mTimer);
  while (!mPorts.empty()) ForgetPort(mPorts.begin()->first);
}

void TAlsaSequencer::LookForNotices() {
  snd_seq_event_t notice;
  bool lost = false;
  while (mClient->NextNotice(&notice, &lost)) HandleNotice(notice);
  if (lost) LookAtAll();
}

void TAlsaSequencer::HandleNotice(const snd_seq_event_t& notice) {
  switch (notice.type) {
    case SND_SEQ_EVENT_PORT_START:
    case SND_SEQ_EVENT_PORT_CHANGE:
      LookAtPort(address_of(notice.data.addr));
      break;
    case SND_SEQ_EVENT_PORT_EXIT:
      ForgetPort(address_of(notice.data.addr));
      break;
    case SND_SEQ_EVENT_CLIENT_CHANGE:
      LookAtAll();
      break;
    case SND_SEQ_EVENT_CLIENT_EXIT:
      ForgetClient(notice.data.addr.client);
      break;
    case SND_SEQ_EVENT_PORT_SUBSCRIBED:
    case SND_SEQ_EVENT_PORT_UNSUBSCRIBED:
      if (address_of(notice.data.connect.sender) == mClient->Address()) {
        FollowConnection(address_of(notice.data.connect.dest));
      }
      break;
    default:
      break;
  }
}

void TAlsaSequencer::LookAtAll() {
  const std::vector<TAlsaPortInfo> present = mClient->Ports();
  std::map<TAlsaAddress, int32_t> gone = mPorts;
  for (const TAlsaPortInfo& info : present) {
    AddPort(info);
    gone.erase(info.address);
  }
  for (const auto& [address, id] : gone) ForgetPort(address);
}

void TAlsaSequencer::LookAtPort(TAlsaAddress address) {
  TAlsaPortInfo info;
  if (mClient->FindPort(address, &info)) {
    AddPort(info);
  } else {
    ForgetPort(address);
  }
}

void TAlsaSequencer::AddPort(const TAlsaPortInfo& info) {
  const auto it = mPorts.find(info.address);
  if (it != mPorts.end()) {
    mRoster.Rename(it->second, info.name);
    return;
  }
  const auto consumer = std::make_shared<TAlsaConsumer>(mClient, info, mProducer.ID());
  mPorts[info.address] = mRoster.Register(consumer);
}

void TAlsaSequencer::ForgetPort(TAlsaAddress address) {
  const auto it = mPorts.find(address);
  if (it == mPorts.end()) return;
  const int32_t id = it->second;
  mPorts.erase(it);
  mRoster.Unregister(id);
}

void TAlsaSequencer::ForgetClient(int client) {
  for (auto it = mPorts.lower_bound({client, 0}); it != mPorts.end() && it->first.first == client;
       it = mPorts.lower_bound({client, 0})) {
    ForgetPort(it->first);
  }
}

// The notice may be old, and of our own making: what counts is how things stand.
void TAlsaSequencer::FollowConnection(TAlsaAddress address) {
  const auto it = mPorts.find(address);
  if (it == mPorts.end()) return;
  if (mClient->IsSubscribed(address)) {
    mRoster.Connect(mProducer, it->second);
  } else {
    mRoster.Disconnect(mProducer, it->second);
  }
}

}  // namespace zoka
