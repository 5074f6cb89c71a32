// The ALSA sequencer against a table of functions that plays the system's part.
#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "sound/alsa_sequencer.h"
#include "tests/unit/sound/sound_fixture.h"

// The library's types have no definition: these stand in for them.
struct _snd_seq_client_info {
  int client = 0;
  std::string name;
};
struct _snd_seq_port_info {
  zoka::TAlsaAddress address;
  std::string name;
  unsigned capability = 0;
};
struct _snd_seq_port_subscribe {
  snd_seq_addr_t dest;
};
struct _snd_seq_remove_events {
  unsigned condition = 0;
  snd_seq_addr_t dest;
};

using namespace zoka;
using namespace zoka_test;

namespace {

constexpr unsigned CAN_WRITE = SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;
constexpr int OUR_CLIENT = 128;
constexpr int OUR_PORT = 0;

struct TFakePort {
  std::string name;
  unsigned capability = CAN_WRITE;
};

/// The system: clients with their ports, our connections, what was sent, what is to be told.
struct TFakeSystem {
  bool hasDevice = true;
  bool isOpen = false;
  std::map<int, std::string> clients;
  std::map<TAlsaAddress, TFakePort> ports;
  std::set<TAlsaAddress> connections;
  std::vector<snd_seq_event_t> sent;
  std::vector<std::string> sysex;
  std::vector<TAlsaAddress> removed;
  std::deque<snd_seq_event_t> notices;
  snd_seq_event_t current = {};
  bool overrun = false;
  bool announced = false;      // our side has a port that notices reach
  bool startBuffered = false;  // the order to start the queue has been given
  bool queueRuns = false;      // it has reached the system
  int ourPorts = 0;
  int device = -1;  // the file that the library would write to
};
TFakeSystem* gSystem = nullptr;

TAlsaApi FakeApi() {
  TAlsaApi api;
  api.snd_seq_open = [](snd_seq_t** handle, const char*, int, int) {
    if (!gSystem->hasDevice) return -ENOENT;
    gSystem->isOpen = true;
    *handle = reinterpret_cast<snd_seq_t*>(gSystem);
    return 0;
  };
  api.snd_seq_close = [](snd_seq_t*) {
    gSystem->isOpen = false;
    return 0;
  };
  api.snd_seq_client_id = [](snd_seq_t*) { return OUR_CLIENT; };
  api.snd_seq_set_client_name = [](snd_seq_t*, const char* name) {
    gSystem->clients[OUR_CLIENT] = name;
    return 0;
  };
  api.snd_seq_set_client_pool_output = [](snd_seq_t*, size_t) { return 0; };
  api.snd_seq_create_simple_port = [](snd_seq_t*, const char* name, unsigned capability, unsigned) {
    const int port = gSystem->ourPorts++;
    gSystem->ports[{OUR_CLIENT, port}] = {name, capability};
    return port;
  };
  api.snd_seq_alloc_queue = [](snd_seq_t*) { return 3; };
  api.snd_seq_control_queue = [](snd_seq_t*, int, int type, int, snd_seq_event_t*) {
    gSystem->startBuffered = type == SND_SEQ_EVENT_START;
    return 0;
  };
  api.snd_seq_drain_output = [](snd_seq_t*) {
    gSystem->queueRuns = gSystem->startBuffered;
    return 0;
  };
  api.snd_seq_connect_from = [](snd_seq_t*, int own, int client, int port) {
    const bool isWritable =
        (gSystem->ports[{OUR_CLIENT, own}].capability & SND_SEQ_PORT_CAP_WRITE) != 0;
    gSystem->announced = client == 0 && port == 1 && isWritable;
    return 0;
  };
  api.snd_seq_connect_to = [](snd_seq_t*, int, int client, int port) {
    return gSystem->connections.insert({client, port}).second ? 0 : -EBUSY;
  };
  api.snd_seq_disconnect_to = [](snd_seq_t*, int, int client, int port) {
    return gSystem->connections.erase({client, port}) ? 0 : -ENOENT;
  };
  api.snd_seq_event_output_direct = [](snd_seq_t*, snd_seq_event_t* event) {
    if (!gSystem->ports.contains({event->dest.client, event->dest.port})) return -ENOENT;
    // A queue that stands still lets nothing out.
    if (event->queue != SND_SEQ_QUEUE_DIRECT && !gSystem->queueRuns) return 0;
    gSystem->sent.push_back(*event);
    if (event->type == SND_SEQ_EVENT_SYSEX) {
      gSystem->sysex.emplace_back(static_cast<const char*>(event->data.ext.ptr),
                                  size_t{event->data.ext.len});
    }
    return 0;
  };
  api.snd_seq_event_input = [](snd_seq_t*, snd_seq_event_t** event) {
    if (gSystem->overrun) {
      gSystem->overrun = false;
      return -ENOSPC;
    }
    if (gSystem->notices.empty() || !gSystem->announced) return -EAGAIN;
    gSystem->current = gSystem->notices.front();
    gSystem->notices.pop_front();
    *event = &gSystem->current;
    return 0;
  };
  api.snd_seq_poll_descriptors = [](snd_seq_t*, pollfd* descriptor, unsigned, short) {
    descriptor->fd = gSystem->device;
    return gSystem->device < 0 ? 0 : 1;
  };
  api.snd_seq_client_info_malloc = [](snd_seq_client_info_t** info) {
    *info = new _snd_seq_client_info;
    return 0;
  };
  api.snd_seq_client_info_free = [](snd_seq_client_info_t* info) { delete info; };
  api.snd_seq_client_info_set_client = [](snd_seq_client_info_t* info, int client) {
    info->client = client;
  };
  api.snd_seq_client_info_get_client = [](const snd_seq_client_info_t* info) {
    return info->client;
  };
  api.snd_seq_client_info_get_name = [](snd_seq_client_info_t* info) { return info->name.c_str(); };
  api.snd_seq_query_next_client = [](snd_seq_t*, snd_seq_client_info_t* info) {
    const auto it = gSystem->clients.upper_bound(info->client);
    if (it == gSystem->clients.end()) return -ENOENT;
    info->client = it->first;
    info->name = it->second;
    return 0;
  };
  api.snd_seq_get_any_client_info = [](snd_seq_t*, int client, snd_seq_client_info_t* info) {
    const auto it = gSystem->clients.find(client);
    if (it == gSystem->clients.end()) return -ENOENT;
    info->name = it->second;
    return 0;
  };
  api.snd_seq_port_info_malloc = [](snd_seq_port_info_t** info) {
    *info = new _snd_seq_port_info;
    return 0;
  };
  api.snd_seq_port_info_free = [](snd_seq_port_info_t* info) { delete info; };
  api.snd_seq_port_info_set_client = [](snd_seq_port_info_t* info, int client) {
    info->address.first = client;
  };
  api.snd_seq_port_info_set_port = [](snd_seq_port_info_t* info, int port) {
    info->address.second = port;
  };
  api.snd_seq_port_info_get_port = [](const snd_seq_port_info_t* info) {
    return info->address.second;
  };
  api.snd_seq_port_info_get_name = [](const snd_seq_port_info_t* info) {
    return info->name.c_str();
  };
  api.snd_seq_port_info_get_capability = [](const snd_seq_port_info_t* info) {
    return info->capability;
  };
  api.snd_seq_query_next_port = [](snd_seq_t*, snd_seq_port_info_t* info) {
    const auto it = gSystem->ports.upper_bound(info->address);
    if (it == gSystem->ports.end() || it->first.first != info->address.first) return -ENOENT;
    info->address = it->first;
    return 0;
  };
  api.snd_seq_get_any_port_info = [](snd_seq_t*, int client, int port, snd_seq_port_info_t* info) {
    const auto it = gSystem->ports.find({client, port});
    if (it == gSystem->ports.end()) return -ENOENT;
    info->name = it->second.name;
    info->capability = it->second.capability;
    return 0;
  };
  api.snd_seq_port_subscribe_malloc = [](snd_seq_port_subscribe_t** subscribe) {
    *subscribe = new _snd_seq_port_subscribe;
    return 0;
  };
  api.snd_seq_port_subscribe_free = [](snd_seq_port_subscribe_t* subscribe) { delete subscribe; };
  api.snd_seq_port_subscribe_set_sender = [](snd_seq_port_subscribe_t*, const snd_seq_addr_t*) {};
  api.snd_seq_port_subscribe_set_dest = [](snd_seq_port_subscribe_t* subscribe,
                                           const snd_seq_addr_t* dest) { subscribe->dest = *dest; };
  api.snd_seq_get_port_subscription = [](snd_seq_t*, snd_seq_port_subscribe_t* subscribe) {
    return gSystem->connections.contains({subscribe->dest.client, subscribe->dest.port}) ? 0
                                                                                         : -ENOENT;
  };
  api.snd_seq_remove_events_malloc = [](snd_seq_remove_events_t** remove) {
    *remove = new _snd_seq_remove_events;
    return 0;
  };
  api.snd_seq_remove_events_free = [](snd_seq_remove_events_t* remove) { delete remove; };
  api.snd_seq_remove_events_set_condition =
      [](snd_seq_remove_events_t* remove, unsigned condition) { remove->condition = condition; };
  api.snd_seq_remove_events_set_dest = [](snd_seq_remove_events_t* remove,
                                          const snd_seq_addr_t* dest) { remove->dest = *dest; };
  api.snd_seq_remove_events = [](snd_seq_t*, snd_seq_remove_events_t* remove) {
    EXPECT_EQ(remove->condition, static_cast<unsigned>(SND_SEQ_REMOVE_OUTPUT) |
                                     static_cast<unsigned>(SND_SEQ_REMOVE_DEST));
    gSystem->removed.emplace_back(remove->dest.client, remove->dest.port);
    return 0;
  };
  return api;
}

class Alsa : public testing::Test {
 protected:
  Alsa() {
    gSystem = &system;
    clock->EnterThread(clock->PrepareThread(TActorClass::Machine));
    roster.RegisterProducer(&producer);
    system.clients = {{0, "System"}, {14, "Midi Through"}, {20, "Piano"}};
    system.ports[{0, 1}] = {"Announce"};
    system.ports[{14, 0}] = {"Midi Through Port-0"};
    system.ports[{20, 0}] = {"Keys"};
    system.ports[{20, 1}] = {"Input only", SND_SEQ_PORT_CAP_READ};
    system.ports[{20, 2}] = {"Hidden", CAN_WRITE | SND_SEQ_PORT_CAP_NO_EXPORT};
  }
  ~Alsa() override {
    sequencer.reset();
    roster.UnregisterProducer(&producer);
    clock->LeaveThread();
  }
  void Open() {
    sequencer = std::make_unique<TAlsaSequencer>(*clock, roster, producer, &api);
    roster.StartWatching([this](const TMidiNotice& notice) { notices.push_back(notice); });
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const auto& consumer : roster.Consumers()) names.push_back(consumer->Name());
    return names;
  }
  int32_t IdOf(const std::string& name) {
    for (const auto& consumer : roster.Consumers()) {
      if (consumer->Name() == name) return consumer->ID();
    }
    return 0;
  }
  void Tell(int type, int client, int port) {
    snd_seq_event_t notice = {};
    notice.type = static_cast<unsigned char>(type);
    notice.data.addr.client = static_cast<unsigned char>(client);
    notice.data.addr.port = static_cast<unsigned char>(port);
    system.notices.push_back(notice);
  }
  void TellConnection(int type, int from, int client, int port) {
    snd_seq_event_t notice = {};
    notice.type = static_cast<unsigned char>(type);
    notice.data.connect.sender.client = static_cast<unsigned char>(from);
    notice.data.connect.sender.port = OUR_PORT;
    notice.data.connect.dest.client = static_cast<unsigned char>(client);
    notice.data.connect.dest.port = static_cast<unsigned char>(port);
    system.notices.push_back(notice);
  }
  void LetNoticesCome() { clock->Wait(clock->system_time() + 250000, wake); }

  TFakeSystem system;
  const TAlsaApi api = FakeApi();
  std::unique_ptr<TClock> clock = make_simulated_clock();
  TWake wake{*clock};
  TMidiRoster roster;
  TMidiLocalProducer producer{*clock, midi_out_name()};
  std::vector<TMidiNotice> notices;
  std::unique_ptr<TAlsaSequencer> sequencer;
};

TEST_F(Alsa, WithoutADeviceThereIsSilence) {
  system.hasDevice = false;
  Open();
  EXPECT_FALSE(sequencer->IsOpen());
  EXPECT_TRUE(Names().empty());
  LetNoticesCome();
}

TEST_F(Alsa, WithoutALibraryThereIsSilence) {
  TAlsaSequencer none(*clock, roster, producer, nullptr);
  EXPECT_FALSE(none.IsOpen());
}

TEST_F(Alsa, OurPortIsNamedAfterTheProducer) {
  Open();
  EXPECT_EQ(system.clients[OUR_CLIENT], "Zoka-BASIC OUT");
  const TFakePort& port = system.ports[{OUR_CLIENT, OUR_PORT}];
  EXPECT_EQ(port.name, "Zoka-BASIC OUT");
  EXPECT_EQ(port.capability,
            static_cast<unsigned>(SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ));
  EXPECT_TRUE(system.announced);
  EXPECT_TRUE(system.queueRuns);
  // The port of the notices is nobody else's.
  EXPECT_EQ(system.ourPorts, 2);
  const TFakePort& noticePort = system.ports[{OUR_CLIENT, OUR_PORT + 1}];
  EXPECT_NE(noticePort.capability & SND_SEQ_PORT_CAP_NO_EXPORT, 0u);
  EXPECT_EQ(noticePort.capability & SND_SEQ_PORT_CAP_SUBS_WRITE, 0u);
}

TEST_F(Alsa, PortsThatTakeEventsAreConsumers) {
  Open();
  EXPECT_EQ(Names(),
            (std::vector<std::string>{"Midi Through: Midi Through Port-0", "Piano: Keys"}));
}

TEST_F(Alsa, EventsAreScheduledForTheirTimes) {
  clock->Wait(1000000, wake);
  Open();
  roster.Connect(producer, IdOf("Piano: Keys"));
  EXPECT_EQ(system.connections, (std::set<TAlsaAddress>{{20, 0}}));
  clock->Wait(1500000, wake);
  producer.SprayNoteOn(3, 60, 64, 3250007);
  producer.SprayNoteOff(3, 60, 65, 3250008);
  producer.SprayControlChange(4, 0x7B, 0, 0);
  producer.SprayProgramChange(5, 81, 2000000);
  producer.SpraySystemExclusive("\x7E\x7F\x09\x01", 2000000);
  ASSERT_EQ(system.sent.size(), 5u);
  for (const snd_seq_event_t& event : system.sent) {
    EXPECT_EQ(event.source.client, OUR_CLIENT);
    EXPECT_EQ(event.dest.client, 20);
    EXPECT_EQ(event.dest.port, 0);
    EXPECT_EQ(event.queue, 3);
    EXPECT_EQ(event.flags & SND_SEQ_TIME_STAMP_MASK, SND_SEQ_TIME_STAMP_REAL);
    EXPECT_EQ(event.flags & SND_SEQ_TIME_MODE_MASK, SND_SEQ_TIME_MODE_ABS);
  }
  // The queue began at one second.
  EXPECT_EQ(system.sent[0].time.time.tv_sec, 2u);
  EXPECT_EQ(system.sent[0].time.time.tv_nsec, 250007000u);
  EXPECT_EQ(system.sent[0].type, SND_SEQ_EVENT_NOTEON);
  EXPECT_EQ(system.sent[0].data.note.channel, 3);
  EXPECT_EQ(system.sent[0].data.note.note, 60);
  EXPECT_EQ(system.sent[0].data.note.velocity, 64);
  EXPECT_EQ(system.sent[1].type, SND_SEQ_EVENT_NOTEOFF);
  EXPECT_EQ(system.sent[1].data.note.velocity, 65);
  EXPECT_EQ(system.sent[2].type, SND_SEQ_EVENT_CONTROLLER);
  EXPECT_EQ(system.sent[2].data.control.channel, 4);
  EXPECT_EQ(system.sent[2].data.control.param, 0x7Bu);
  EXPECT_EQ(system.sent[2].time.time.tv_sec, 0u);
  EXPECT_EQ(system.sent[2].time.time.tv_nsec, 500000000u);
  EXPECT_EQ(system.sent[3].type, SND_SEQ_EVENT_PGMCHANGE);
  EXPECT_EQ(system.sent[3].data.control.value, 81);
  EXPECT_EQ(system.sysex, (std::vector<std::string>{"\xF0\x7E\x7F\x09\x01\xF7"}));
}

TEST_F(Alsa, ADisconnectionTakesBackWhatIsScheduled) {
  Open();
  const int32_t id = IdOf("Piano: Keys");
  roster.Connect(producer, id);
  roster.Disconnect(producer, id);
  EXPECT_TRUE(system.connections.empty());
  EXPECT_EQ(system.removed, (std::vector<TAlsaAddress>{{20, 0}}));
}

/// Expects the three control changes of silence for each of 16 channels of a port, past the queue.
void ExpectSilence(const snd_seq_event_t* events, int client, int port) {
  for (unsigned i = 0; i < 48; ++i) {
    constexpr unsigned CONTROLS[] = {0x7B, 0x78, 0x79};
    const snd_seq_event_t& event = events[i];
    EXPECT_EQ(event.type, SND_SEQ_EVENT_CONTROLLER);
    EXPECT_EQ(event.queue, SND_SEQ_QUEUE_DIRECT);
    EXPECT_EQ(event.source.client, OUR_CLIENT);
    EXPECT_EQ(event.source.port, OUR_PORT);
    EXPECT_EQ(event.dest.client, client);
    EXPECT_EQ(event.dest.port, port);
    EXPECT_EQ(event.data.control.channel, i / 3);
    EXPECT_EQ(event.data.control.param, CONTROLS[i % 3]);
    EXPECT_EQ(event.data.control.value, 0);
  }
}

TEST_F(Alsa, ADisconnectionSilencesWhatSounds) {
  Open();
  roster.Connect(producer, IdOf("Piano: Keys"));
  producer.SprayNoteOn(1, 60, 64, 0);
  roster.Disconnect(producer, IdOf("Piano: Keys"));
  ASSERT_EQ(system.sent.size(), 1u + 48u);
  ExpectSilence(&system.sent[1], 20, 0);
}

TEST_F(Alsa, TheEndSilencesWhatSounds) {
  Open();
  roster.Connect(producer, IdOf("Piano: Keys"));
  roster.Connect(producer, IdOf("Midi Through: Midi Through Port-0"));
  producer.SprayNoteOn(1, 60, 64, 9000000);
  system.sent.clear();
  sequencer.reset();
  EXPECT_EQ(system.removed, (std::vector<TAlsaAddress>{{14, 0}, {20, 0}}));
  ASSERT_EQ(system.sent.size(), 2u * 48u);
  ExpectSilence(&system.sent[0], 14, 0);
  ExpectSilence(&system.sent[48], 20, 0);
}

/// The sequencer's device is one end of a pipe; what a crash writes comes out of the other.
class AlsaCrash : public Alsa {
 protected:
  AlsaCrash() {
    int ends[2] = {-1, -1};
    EXPECT_EQ(pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
    mRead = ends[0];
    system.device = ends[1];
  }
  ~AlsaCrash() override {
    sequencer.reset();
    close(mRead);
    close(system.device);
  }
  std::vector<snd_seq_event_t> Written() {
    std::vector<snd_seq_event_t> events(1000);
    const ssize_t bytes = read(mRead, events.data(), events.size() * sizeof events[0]);
    events.resize(bytes < 0 ? 0 : static_cast<size_t>(bytes) / sizeof events[0]);
    return events;
  }

 private:
  int mRead = -1;
};

TEST_F(AlsaCrash, SilencesAllConnectedPorts) {
  Open();
  roster.Connect(producer, IdOf("Piano: Keys"));
  roster.Connect(producer, IdOf("Midi Through: Midi Through Port-0"));
  EXPECT_TRUE(Written().empty());
  silence_alsa_in_crash();
  const std::vector<snd_seq_event_t> events = Written();
  ASSERT_EQ(events.size(), 2u * 48u);
  ExpectSilence(&events[0], 14, 0);
  ExpectSilence(&events[48], 20, 0);
}

TEST_F(AlsaCrash, LeavesAloneWhatIsNotConnected) {
  silence_alsa_in_crash();
  Open();
  silence_alsa_in_crash();
  EXPECT_TRUE(Written().empty());
  roster.Connect(producer, IdOf("Piano: Keys"));
  roster.Connect(producer, IdOf("Midi Through: Midi Through Port-0"));
  roster.Disconnect(producer, IdOf("Midi Through: Midi Through Port-0"));
  silence_alsa_in_crash();
  const std::vector<snd_seq_event_t> events = Written();
  ASSERT_EQ(events.size(), 48u);
  ExpectSilence(events.data(), 20, 0);
}

TEST_F(AlsaCrash, WritesNothingOnceTheClientHasGone) {
  Open();
  roster.Connect(producer, IdOf("Piano: Keys"));
  sequencer.reset();
  roster.UnregisterProducer(&producer);
  silence_alsa_in_crash();
  EXPECT_TRUE(Written().empty());
}

TEST_F(Alsa, AMutingProducerMakesNoConnectionThatOthersSee) {
  Open();
  TMidiLocalProducer muting(*clock, "DisconnectProducer");
  roster.Connect(muting, IdOf("Piano: Keys"));
  spray_silence(muting);
  EXPECT_EQ(system.sent.size(), 48u);
  EXPECT_TRUE(system.connections.empty());
  roster.Disconnect(muting, IdOf("Piano: Keys"));
  EXPECT_TRUE(system.removed.empty());
}

TEST_F(Alsa, PortsComeAndGo) {
  Open();
  system.clients[30] = "Drums";
  system.ports[{30, 0}] = {"Pads"};
  Tell(SND_SEQ_EVENT_CLIENT_START, 30, 0);
  Tell(SND_SEQ_EVENT_PORT_START, 30, 0);
  LetNoticesCome();
  const int32_t id = IdOf("Drums: Pads");
  EXPECT_EQ(notices, (std::vector<TMidiNotice>{{TMidiOp::Registered, id, 0}}));
  notices.clear();
  system.ports.erase({30, 0});
  Tell(SND_SEQ_EVENT_PORT_EXIT, 30, 0);
  LetNoticesCome();
  EXPECT_EQ(notices, (std::vector<TMidiNotice>{{TMidiOp::Unregistered, id, 0}}));
}

TEST_F(Alsa, AClientThatGoesTakesItsPortsWithIt) {
  Open();
  const int32_t id = IdOf("Piano: Keys");
  roster.Connect(producer, id);
  notices.clear();
  system.clients.erase(20);
  system.ports.erase({20, 0});
  Tell(SND_SEQ_EVENT_CLIENT_EXIT, 20, 0);
  LetNoticesCome();
  EXPECT_EQ(notices, (std::vector<TMidiNotice>{{TMidiOp::Unregistered, id, 0}}));
  EXPECT_EQ(producer.CountConnections(), 0);
  producer.SprayNoteOn(1, 60, 64, 0);
  EXPECT_TRUE(system.sent.empty());
}

TEST_F(Alsa, ARenamedPortKeepsItsNumber) {
  Open();
  const int32_t id = IdOf("Piano: Keys");
  system.ports[{20, 0}].name = "Manual";
  Tell(SND_SEQ_EVENT_PORT_CHANGE, 20, 0);
  LetNoticesCome();
  EXPECT_EQ(IdOf("Piano: Manual"), id);
  system.clients[20] = "Organ";
  Tell(SND_SEQ_EVENT_CLIENT_CHANGE, 20, 0);
  LetNoticesCome();
  EXPECT_EQ(IdOf("Organ: Manual"), id);
  EXPECT_EQ(notices, (std::vector<TMidiNotice>{{TMidiOp::ChangedName, id, 0},
                                               {TMidiOp::ChangedName, id, 0}}));
}

TEST_F(Alsa, ConnectionsMadeByOthersAreFollowed) {
  Open();
  const int32_t id = IdOf("Piano: Keys");
  system.connections.insert({20, 0});
  TellConnection(SND_SEQ_EVENT_PORT_SUBSCRIBED, OUR_CLIENT, 20, 0);
  LetNoticesCome();
  EXPECT_TRUE(producer.IsConnected(id));
  system.connections.erase({20, 0});
  TellConnection(SND_SEQ_EVENT_PORT_UNSUBSCRIBED, OUR_CLIENT, 20, 0);
  LetNoticesCome();
  EXPECT_FALSE(producer.IsConnected(id));
  EXPECT_EQ(notices, (std::vector<TMidiNotice>{{TMidiOp::Connected, id, producer.ID()},
                                               {TMidiOp::Disconnected, id, producer.ID()}}));
}

TEST_F(Alsa, OldNoticesOfOurOwnDoNoHarm) {
  Open();
  const int32_t id = IdOf("Piano: Keys");
  roster.Connect(producer, id);
  roster.Disconnect(producer, id);
  roster.Connect(producer, id);
  notices.clear();
  TellConnection(SND_SEQ_EVENT_PORT_SUBSCRIBED, OUR_CLIENT, 20, 0);
  TellConnection(SND_SEQ_EVENT_PORT_UNSUBSCRIBED, OUR_CLIENT, 20, 0);
  TellConnection(SND_SEQ_EVENT_PORT_SUBSCRIBED, OUR_CLIENT, 20, 0);
  LetNoticesCome();
  EXPECT_TRUE(producer.IsConnected(id));
  EXPECT_TRUE(notices.empty());
}

TEST_F(Alsa, ConnectionsBetweenOthersAreNoneOfOurs) {
  Open();
  system.connections.insert({20, 0});
  TellConnection(SND_SEQ_EVENT_PORT_SUBSCRIBED, 14, 20, 0);
  LetNoticesCome();
  EXPECT_TRUE(notices.empty());
}

TEST_F(Alsa, AfterLostNoticesEverythingIsLookedAtAnew) {
  Open();
  const int32_t gone = IdOf("Piano: Keys");
  system.ports.erase({20, 0});
  system.clients[30] = "Drums";
  system.ports[{30, 0}] = {"Pads"};
  system.overrun = true;
  LetNoticesCome();
  EXPECT_EQ(roster.FindConsumer(gone), nullptr);
  EXPECT_NE(IdOf("Drums: Pads"), 0);
}

TEST_F(Alsa, TheEndUnregistersAndCloses) {
  Open();
  roster.Connect(producer, IdOf("Piano: Keys"));
  sequencer.reset();
  EXPECT_TRUE(Names().empty());
  EXPECT_FALSE(system.isOpen);
  EXPECT_TRUE(system.connections.empty());
}

}  // namespace
