// Calls of the ALSA sequencer.
#include "sound/alsa_client.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>

namespace zoka {

namespace {

constexpr size_t POOL_EVENTS = 2000;
constexpr char NOTICE_PORT[] = "Notices";
constexpr bigtime_t SECOND = 1000000;
constexpr unsigned NANOSECONDS = 1000;

constexpr unsigned NEEDED = SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;

unsigned char data_at(const std::string& bytes, size_t index) {
  return static_cast<unsigned char>(midi_byte(bytes, index));
}

snd_seq_event_t empty_event(TAlsaAddress from, TAlsaAddress to) {
  snd_seq_event_t event = {};
  event.source.client = static_cast<unsigned char>(from.first);
  event.source.port = static_cast<unsigned char>(from.second);
  event.dest.client = static_cast<unsigned char>(to.first);
  event.dest.port = static_cast<unsigned char>(to.second);
  event.queue = SND_SEQ_QUEUE_DIRECT;
  return event;
}

void set_control(snd_seq_event_t* event, int channel, unsigned param, int value) {
  event->type = SND_SEQ_EVENT_CONTROLLER;
  event->data.control.channel = static_cast<unsigned char>(channel);
  event->data.control.param = param;
  event->data.control.value = value;
}

// The control changes of silence on all channels, for a port, at once.
void append_silence(std::vector<snd_seq_event_t>* events, TAlsaAddress from, TAlsaAddress to) {
  for (int channel = 0; channel < MIDI_CHANNEL_COUNT; ++channel) {
    for (const uint8_t control : MIDI_SILENCE) {
      events->push_back(empty_event(from, to));
      set_control(&events->back(), channel, control, 0);
    }
  }
}

// What a crash writes, readable without a lock.
struct TCrashEvents {
  std::atomic<int> file{-1};
  std::atomic<const void*> begin{nullptr};
  std::atomic<size_t> size{0};
};
TCrashEvents gCrashEvents;

// False if the message is of no kind that we send.
bool set_message(snd_seq_event_t* event, const std::string& bytes) {
  const int status = midi_byte(bytes, 0);
  const auto channel = static_cast<unsigned char>(status & 0x0F);
  if (status == MIDI_SYSEX_START) {
    event->type = SND_SEQ_EVENT_SYSEX;
    event->flags |= SND_SEQ_EVENT_LENGTH_VARIABLE;
    event->data.ext.len = static_cast<unsigned>(bytes.size());
    event->data.ext.ptr = const_cast<char*>(bytes.data());
    return true;
  }
  switch (status & 0xF0) {
    case MIDI_NOTE_ON:
    case MIDI_NOTE_OFF:
      event->type = (status & 0xF0) == MIDI_NOTE_ON ? SND_SEQ_EVENT_NOTEON : SND_SEQ_EVENT_NOTEOFF;
      event->data.note.channel = channel;
      event->data.note.note = data_at(bytes, 1);
      event->data.note.velocity = data_at(bytes, 2);
      return true;
    case MIDI_CONTROL_CHANGE:
      set_control(event, channel, static_cast<unsigned>(midi_byte(bytes, 1)), midi_byte(bytes, 2));
      return true;
    case MIDI_PROGRAM_CHANGE:
      event->type = SND_SEQ_EVENT_PGMCHANGE;
      event->data.control.channel = channel;
      event->data.control.value = midi_byte(bytes, 1);
      return true;
    default:
      return false;
  }
}

}  // namespace

void silence_alsa_in_crash() {
  const void* begin = gCrashEvents.begin;
  if (!begin) return;
  const ssize_t written = write(gCrashEvents.file, begin, gCrashEvents.size);
  static_cast<void>(written);
}

std::shared_ptr<TAlsaClient> TAlsaClient::Open(const TAlsaApi* api, TClock& clock,
                                               const std::string& name) {
  if (!api) return nullptr;
  std::shared_ptr<TAlsaClient> client(new TAlsaClient(*api, clock));
  return client->Prepare(name) ? client : nullptr;
}

bool TAlsaClient::Prepare(const std::string& name) {
  if (mApi.snd_seq_open(&mSequencer, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK) < 0) {
    mSequencer = nullptr;
    return false;
  }
  mId = mApi.snd_seq_client_id(mSequencer);
  mApi.snd_seq_set_client_name(mSequencer, name.c_str());
  mApi.snd_seq_set_client_pool_output(mSequencer, POOL_EVENTS);
  mPort = mApi.snd_seq_create_simple_port(
      mSequencer, name.c_str(), SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ,
      SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
  // A port takes events only if it may be written to; this one no other program sees.
  const int noticePort = mApi.snd_seq_create_simple_port(
      mSequencer, NOTICE_PORT, SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_NO_EXPORT,
      SND_SEQ_PORT_TYPE_APPLICATION);
  mQueue = mApi.snd_seq_alloc_queue(mSequencer);
  if (mPort < 0 || noticePort < 0 || mQueue < 0) return false;
  // The library keeps the order to start in its buffer until that is drained.
  mApi.snd_seq_control_queue(mSequencer, mQueue, SND_SEQ_EVENT_START, 0, nullptr);
  mApi.snd_seq_drain_output(mSequencer);
  mOrigin = mClock.system_time();
  // The system's own port tells who comes and goes.
  mApi.snd_seq_connect_from(mSequencer, noticePort, SND_SEQ_CLIENT_SYSTEM,
                            SND_SEQ_PORT_SYSTEM_ANNOUNCE);
  return true;
}

TAlsaClient::~TAlsaClient() {
  if (!mCrashEvents.empty()) gCrashEvents.begin = nullptr;
  if (mSequencer) mApi.snd_seq_close(mSequencer);
}

void TAlsaClient::Send(TAlsaAddress to, const TMidiEvent& midi) {
  snd_seq_event_t event = empty_event(Address(), to);
  if (!set_message(&event, midi.bytes)) return;
  const bigtime_t time = std::max<bigtime_t>(midi.time - mOrigin, 0);
  event.queue = static_cast<unsigned char>(mQueue);
  event.flags |= SND_SEQ_TIME_STAMP_REAL | SND_SEQ_TIME_MODE_ABS;
  event.time.time.tv_sec = static_cast<unsigned>(time / SECOND);
  event.time.time.tv_nsec = static_cast<unsigned>(time % SECOND) * NANOSECONDS;
  const TLock lock(mLock);
  mApi.snd_seq_event_output_direct(mSequencer, &event);
}

void TAlsaClient::RemoveScheduled(TAlsaAddress to) {
  snd_seq_remove_events_t* remove = nullptr;
  if (mApi.snd_seq_remove_events_malloc(&remove) < 0) return;
  const snd_seq_event_t event = empty_event(Address(), to);
  mApi.snd_seq_remove_events_set_condition(remove, SND_SEQ_REMOVE_OUTPUT | SND_SEQ_REMOVE_DEST);
  mApi.snd_seq_remove_events_set_dest(remove, &event.dest);
  {
    const TLock lock(mLock);
    mApi.snd_seq_remove_events(mSequencer, remove);
  }
  mApi.snd_seq_remove_events_free(remove);
}

// Past the queue, which goes with the client: at the end of the process these still arrive.
void TAlsaClient::Silence(TAlsaAddress to) {
  std::vector<snd_seq_event_t> events;
  append_silence(&events, Address(), to);
  const TLock lock(mLock);
  for (snd_seq_event_t& event : events) mApi.snd_seq_event_output_direct(mSequencer, &event);
}

void TAlsaClient::Subscribe(TAlsaAddress to) {
  const TLock lock(mLock);
  mApi.snd_seq_connect_to(mSequencer, mPort, to.first, to.second);
  mSubscribed.insert(to);
  PublishCrashEvents();
}

void TAlsaClient::Unsubscribe(TAlsaAddress to) {
  const TLock lock(mLock);
  mApi.snd_seq_disconnect_to(mSequencer, mPort, to.first, to.second);
  mSubscribed.erase(to);
  PublishCrashEvents();
}

bool TAlsaClient::IsSubscribed(TAlsaAddress to) {
  snd_seq_port_subscribe_t* subscription = nullptr;
  if (mApi.snd_seq_port_subscribe_malloc(&subscription) < 0) return false;
  const snd_seq_event_t event = empty_event(Address(), to);
  mApi.snd_seq_port_subscribe_set_sender(subscription, &event.source);
  mApi.snd_seq_port_subscribe_set_dest(subscription, &event.dest);
  bool found = false;
  {
    const TLock lock(mLock);
    found = mApi.snd_seq_get_port_subscription(mSequencer, subscription) >= 0;
  }
  mApi.snd_seq_port_subscribe_free(subscription);
  return found;
}

// Older ones are kept: a crash may be reading them.
void TAlsaClient::PublishCrashEvents() {
  pollfd descriptor = {};
  if (mApi.snd_seq_poll_descriptors(mSequencer, &descriptor, 1, POLLOUT) < 1) return;
  std::vector<snd_seq_event_t> events;
  for (const TAlsaAddress& to : mSubscribed) append_silence(&events, Address(), to);
  gCrashEvents.begin = nullptr;
  gCrashEvents.file = descriptor.fd;
  gCrashEvents.size = events.size() * sizeof(snd_seq_event_t);
  gCrashEvents.begin = events.data();
  mCrashEvents.push_back(std::move(events));  // the bytes stay where they are
}

std::string TAlsaClient::ClientName(int client) {
  snd_seq_client_info_t* info = nullptr;
  if (mApi.snd_seq_client_info_malloc(&info) < 0) return "";
  std::string name;
  if (mApi.snd_seq_get_any_client_info(mSequencer, client, info) >= 0) {
    name = mApi.snd_seq_client_info_get_name(info);
  }
  mApi.snd_seq_client_info_free(info);
  return name;
}

bool TAlsaClient::FindPort(TAlsaAddress address, TAlsaPortInfo* found) {
  if (address.first == SND_SEQ_CLIENT_SYSTEM || address.first == mId) return false;
  snd_seq_port_info_t* info = nullptr;
  if (mApi.snd_seq_port_info_malloc(&info) < 0) return false;
  const TLock lock(mLock);
  const bool exists =
      mApi.snd_seq_get_any_port_info(mSequencer, address.first, address.second, info) >= 0;
  const unsigned capability = exists ? mApi.snd_seq_port_info_get_capability(info) : 0;
  const bool takes =
      (capability & NEEDED) == NEEDED && (capability & SND_SEQ_PORT_CAP_NO_EXPORT) == 0;
  if (takes) {
    const std::string port = mApi.snd_seq_port_info_get_name(info);
    *found = {address, ClientName(address.first) + ": " + port};
  }
  mApi.snd_seq_port_info_free(info);
  return takes;
}

std::vector<TAlsaPortInfo> TAlsaClient::Ports() {
  std::vector<TAlsaAddress> addresses;
  snd_seq_client_info_t* client = nullptr;
  snd_seq_port_info_t* port = nullptr;
  if (mApi.snd_seq_client_info_malloc(&client) < 0) return {};
  if (mApi.snd_seq_port_info_malloc(&port) >= 0) {
    const TLock lock(mLock);
    mApi.snd_seq_client_info_set_client(client, -1);
    while (mApi.snd_seq_query_next_client(mSequencer, client) >= 0) {
      const int id = mApi.snd_seq_client_info_get_client(client);
      mApi.snd_seq_port_info_set_client(port, id);
      mApi.snd_seq_port_info_set_port(port, -1);
      while (mApi.snd_seq_query_next_port(mSequencer, port) >= 0) {
        addresses.emplace_back(id, mApi.snd_seq_port_info_get_port(port));
      }
    }
    mApi.snd_seq_port_info_free(port);
  }
  mApi.snd_seq_client_info_free(client);
  std::vector<TAlsaPortInfo> ports;
  TAlsaPortInfo info;
  for (const TAlsaAddress& address : addresses) {
    if (FindPort(address, &info)) ports.push_back(info);
  }
  return ports;
}

bool TAlsaClient::NextNotice(snd_seq_event_t* notice, bool* lost) {
  const TLock lock(mLock);
  snd_seq_event_t* event = nullptr;
  const int result = mApi.snd_seq_event_input(mSequencer, &event);
  if (result == -ENOSPC) *lost = true;
  if (result < 0 || !event) return false;
  *notice = *event;
  return true;
}

}  // namespace zoka
