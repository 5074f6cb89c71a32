// The instrument's side of the sequencer.
#include "tests/sequencer/instrument.h"

#include <poll.h>

#include <cstring>

namespace zoka_test {

TInstrument::TInstrument(zoka::TClock& clock) : mClock(clock) {
  if (snd_seq_open(&mSequencer, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK) < 0) {
    mSequencer = nullptr;
    return;
  }
  snd_seq_set_client_name(mSequencer, "Piano");
  mClient = snd_seq_client_id(mSequencer);
  mPort = snd_seq_create_simple_port(mSequencer, "Keys",
                                     SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE,
                                     SND_SEQ_PORT_TYPE_MIDI_GENERIC);
}

TInstrument::~TInstrument() {
  if (mSequencer) snd_seq_close(mSequencer);
}

std::optional<TArrival> TInstrument::Next(int timeoutMs) {
  const zoka::bigtime_t end = mClock.system_time() + timeoutMs * zoka::bigtime_t{1000};
  do {
    snd_seq_event_t* event = nullptr;
    while (snd_seq_event_input(mSequencer, &event) >= 0 && event) {
      const TArrival arrival{*event, mClock.system_time()};
      if (event->type == SND_SEQ_EVENT_PORT_SUBSCRIBED) {
        ++mSubscribed;
      } else if (event->type == SND_SEQ_EVENT_PORT_UNSUBSCRIBED) {
        ++mUnsubscribed;
      } else {
        return arrival;
      }
    }
    pollfd descriptor = {};
    snd_seq_poll_descriptors(mSequencer, &descriptor, 1, POLLIN);
    const zoka::bigtime_t left = end - mClock.system_time();
    if (left > 0) poll(&descriptor, 1, static_cast<int>(left / 1000) + 1);
  } while (mClock.system_time() < end);
  return std::nullopt;
}

std::vector<TArrival> TInstrument::Take(size_t count, int timeoutMs) {
  std::vector<TArrival> arrivals;
  while (arrivals.size() < count) {
    const auto arrival = Next(timeoutMs);
    if (!arrival) break;
    arrivals.push_back(*arrival);
  }
  return arrivals;
}

bool TInstrument::ConnectFrom(int client, int port) {
  return snd_seq_connect_from(mSequencer, mPort, client, port) >= 0;
}

bool TInstrument::DisconnectFrom(int client, int port) {
  return snd_seq_disconnect_from(mSequencer, mPort, client, port) >= 0;
}

int TInstrument::FindClient(const char* name) {
  snd_seq_client_info_t* info = nullptr;
  if (snd_seq_client_info_malloc(&info) < 0) return -1;
  int found = -1;
  snd_seq_client_info_set_client(info, -1);
  while (found < 0 && snd_seq_query_next_client(mSequencer, info) >= 0) {
    if (std::strcmp(snd_seq_client_info_get_name(info), name) == 0) {
      found = snd_seq_client_info_get_client(info);
    }
  }
  snd_seq_client_info_free(info);
  return found;
}

}  // namespace zoka_test
