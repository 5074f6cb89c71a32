// Producer, roster and consumers.
#include "sound/midi.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/unit/sound/sound_fixture.h"

using namespace zoka;
using namespace zoka_test;

namespace {

class TSeenConsumer : public TMidiConsumer {
 public:
  using TMidiConsumer::TMidiConsumer;
  void Receive(const TMidiEvent& event) override { seen.Receive(event); }
  void Connected(int32_t) override { ++connected; }
  void Disconnected(int32_t) override { ++disconnected; }
  TSeenSink seen;
  int connected = 0;
  int disconnected = 0;
};

class Midi : public testing::Test {
 protected:
  Midi() {
    clock->EnterThread(clock->PrepareThread(TActorClass::Machine));
    roster.StartWatching([this](const TMidiNotice& notice) { notices.push_back(notice); });
    roster.RegisterProducer(&producer);
  }
  ~Midi() override {
    roster.UnregisterProducer(&producer);
    clock->LeaveThread();
  }
  std::shared_ptr<TSeenConsumer> Add(const std::string& name) {
    auto consumer = std::make_shared<TSeenConsumer>(name);
    roster.Register(consumer);
    return consumer;
  }

  std::unique_ptr<TClock> clock = make_simulated_clock();
  TWake wake{*clock};
  TMidiLocalProducer producer{*clock, "Zoka-BASIC OUT"};
  TMidiRoster roster;
  std::vector<TMidiNotice> notices;
};

TEST_F(Midi, SprayMakesTheMessages) {
  const auto consumer = Add("A");
  roster.Connect(producer, consumer->ID());
  producer.SprayNoteOn(6, 127, 1, 10);
  producer.SprayNoteOff(0, 0, 127, 20);
  producer.SprayControlChange(15, 0x7B, 0, 30);
  producer.SprayProgramChange(3, 81, 40);
  producer.SpraySystemExclusive("\x7E\x7F\x09\x01", 50);
  EXPECT_EQ(consumer->seen.events, (TSeenList{{10, {0x96, 127, 1}},
                                              {20, {0x80, 0, 127}},
                                              {30, {0xBF, 0x7B, 0}},
                                              {40, {0xC3, 81}},
                                              {50, {0xF0, 0x7E, 0x7F, 0x09, 0x01, 0xF7}}}));
}

TEST_F(Midi, AnEventNeverSoundsBeforeItIsSent) {
  TSeenSink sink;
  producer.AddRecorder(&sink);
  clock->Wait(1000, wake);
  producer.SprayNoteOn(1, 2, 3, 0);
  producer.SprayNoteOn(1, 2, 3, 999);
  producer.SprayNoteOn(1, 2, 3, 1001);
  producer.SprayNoteOn(1, 2, 3, -5);
  ASSERT_EQ(sink.events.size(), 4u);
  EXPECT_EQ(sink.events[0].time, 1000);
  EXPECT_EQ(sink.events[1].time, 1000);
  EXPECT_EQ(sink.events[2].time, 1001);
  EXPECT_EQ(sink.events[3].time, 1000);
  producer.RemoveRecorder(&sink);
  producer.SprayNoteOn(1, 2, 3, 0);
  EXPECT_EQ(sink.events.size(), 4u);
}

TEST_F(Midi, BytesStayWithinWhatMidiHas) {
  TSeenSink sink;
  producer.AddRecorder(&sink);
  producer.SprayNoteOn(0x2F, 200, 255, 0);
  EXPECT_EQ(sink.events, (TSeenList{{0, {0x9F, 200 - 128, 127}}}));
}

TEST_F(Midi, ConnectionsAreCountedAndNoticed) {
  const auto a = Add("A");
  const auto b = Add("B");
  TSeenSink recorder;
  EXPECT_EQ(producer.CountConnections(), 0);
  EXPECT_TRUE(roster.Connect(producer, a->ID()));
  EXPECT_FALSE(roster.Connect(producer, a->ID()));
  EXPECT_TRUE(roster.Connect(producer, b->ID()));
  producer.AddRecorder(&recorder);
  EXPECT_EQ(producer.CountConnections(), 3);
  EXPECT_EQ(producer.Connections(), (std::vector<int32_t>{a->ID(), b->ID()}));
  EXPECT_TRUE(roster.Disconnect(producer, a->ID()));
  EXPECT_FALSE(roster.Disconnect(producer, a->ID()));
  EXPECT_FALSE(roster.Connect(producer, 999));
  producer.SprayNoteOn(1, 60, 64, 0);
  EXPECT_TRUE(a->seen.events.empty());
  EXPECT_EQ(b->seen.events.size(), 1u);
  EXPECT_EQ(a->connected, 1);
  EXPECT_EQ(a->disconnected, 1);
  EXPECT_EQ(notices, (std::vector<TMidiNotice>{{TMidiOp::Registered, a->ID(), 0},
                                               {TMidiOp::Registered, b->ID(), 0},
                                               {TMidiOp::Connected, a->ID(), producer.ID()},
                                               {TMidiOp::Connected, b->ID(), producer.ID()},
                                               {TMidiOp::Disconnected, a->ID(), producer.ID()}}));
  producer.RemoveRecorder(&recorder);
}

TEST_F(Midi, AConsumerThatVanishesIsCutOff) {
  const auto a = Add("A");
  roster.Connect(producer, a->ID());
  notices.clear();
  roster.Unregister(a->ID());
  producer.SprayNoteOn(1, 60, 64, 0);
  EXPECT_TRUE(a->seen.events.empty());
  EXPECT_FALSE(a->IsValid());
  EXPECT_EQ(producer.CountConnections(), 0);
  EXPECT_TRUE(roster.Consumers().empty());
  EXPECT_EQ(roster.FindConsumer(a->ID()), nullptr);
  EXPECT_FALSE(roster.Connect(producer, a->ID()));
  EXPECT_EQ(notices, (std::vector<TMidiNotice>{{TMidiOp::Unregistered, a->ID(), 0}}));
  roster.Unregister(a->ID());
  EXPECT_EQ(notices.size(), 1u);
}

TEST_F(Midi, NamesMayChangeAndNeedNotDiffer) {
  const auto a = Add("A");
  const auto b = Add("A");
  EXPECT_NE(a->ID(), b->ID());
  notices.clear();
  roster.Rename(a->ID(), "B");
  roster.Rename(a->ID(), "B");
  roster.Rename(999, "C");
  EXPECT_EQ(a->Name(), "B");
  EXPECT_EQ(b->Name(), "A");
  EXPECT_EQ(notices, (std::vector<TMidiNotice>{{TMidiOp::ChangedName, a->ID(), 0}}));
}

TEST_F(Midi, NobodyIsToldAfterStopWatching) {
  roster.StopWatching();
  Add("A");
  EXPECT_TRUE(notices.empty());
}

TEST_F(Midi, TheNumbersOfNoticesAreFixed) {
  EXPECT_EQ(static_cast<int>(TMidiOp::Registered), 1);
  EXPECT_EQ(static_cast<int>(TMidiOp::Unregistered), 2);
  EXPECT_EQ(static_cast<int>(TMidiOp::Connected), 3);
  EXPECT_EQ(static_cast<int>(TMidiOp::Disconnected), 4);
  EXPECT_EQ(static_cast<int>(TMidiOp::ChangedName), 5);
}

TEST_F(Midi, TheNullConsumerTakesEverything) {
  const auto null = std::make_shared<TNullConsumer>("Null");
  roster.Register(null);
  EXPECT_TRUE(roster.Connect(producer, null->ID()));
  producer.SprayNoteOn(1, 60, 64, 0);
  EXPECT_EQ(producer.CountConnections(), 1);
}

TEST_F(Midi, TheProducerIsNamedAfterTheApplication) {
  EXPECT_EQ(midi_out_name(), "Zoka-BASIC OUT");
}

TEST_F(Midi, SilenceIsThreeControlChangesOnSixteenChannels) {
  TSeenSink sink;
  producer.AddRecorder(&sink);
  spray_silence(producer);
  ASSERT_EQ(sink.events.size(), 48u);
  for (int ch = 0; ch < 16; ++ch) {
    const size_t first = static_cast<size_t>(ch) * 3;
    EXPECT_EQ(sink.events[first], control(0, ch, 0x7B));
    EXPECT_EQ(sink.events[first + 1], control(0, ch, 0x78));
    EXPECT_EQ(sink.events[first + 2], control(0, ch, 0x79));
  }
}

}  // namespace
