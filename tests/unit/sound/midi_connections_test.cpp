// The user's list of outputs against the roster's connections.
#include "sound/midi_connections.h"

#include <memory>
#include <string>
#include <vector>

#include "tests/unit/sound/sound_fixture.h"

using namespace zoka;
using namespace zoka_test;

namespace {

using TNames = std::vector<std::string>;

class TSeenConsumer : public TMidiConsumer {
 public:
  using TMidiConsumer::TMidiConsumer;
  void Receive(const TMidiEvent& event) override { seen.Receive(event); }
  TSeenSink seen;
};

class Connections : public testing::Test, public TMidiConnectionsHost {
 protected:
  std::vector<std::string> WantedMidiOuts() override { return wanted; }
  void SaveMidiOuts(const std::vector<std::string>& names) override {
    wanted = names;
    ++saves;
  }
  void RecreateMenuMidiOut() override { ++recreated; }
  void UpdateMenuMidiOut(int32_t id) override { updated.push_back(id); }

  std::shared_ptr<TSeenConsumer> Add(const std::string& name) {
    auto consumer = std::make_shared<TSeenConsumer>(name);
    roster.Register(consumer);
    return consumer;
  }

  std::unique_ptr<TClock> clock = make_simulated_clock();
  TMidiRoster roster;
  TMidiLocalProducer producer{*clock, "Zoka-BASIC OUT"};
  TMidiLocalProducer muting{*clock, "DisconnectProducer"};
  TMidiConnections connections{roster, producer, muting, *this};
  TNames wanted;
  int saves = 0;
  int recreated = 0;
  std::vector<int32_t> updated;
};

TEST_F(Connections, ConnectsThoseNamedAndNoOthers) {
  const auto a = Add("A");
  const auto b = Add("B");
  const auto c = Add("C");
  roster.Connect(producer, b->ID());
  connections.ConnectMidiOuts({"C", "A", "elsewhere"});
  EXPECT_EQ(producer.Connections(), (std::vector<int32_t>{a->ID(), c->ID()}));
}

TEST_F(Connections, TheListFollowsWhatTheUserDidElsewhere) {
  const auto a = Add("A");
  const auto b = Add("B");
  const auto hidden = Add("<anonymous>");
  roster.Connect(producer, a->ID());
  roster.Connect(producer, hidden->ID());
  TNames names = {"B", "unplugged", "<anonymous>"};
  EXPECT_TRUE(connections.AddRemoveExitConnection(&names));
  EXPECT_EQ(names, (TNames{"unplugged", "<anonymous>", "A"}));
  EXPECT_FALSE(connections.AddRemoveExitConnection(&names));
}

TEST_F(Connections, ARegisteredConsumerOfTheListIsConnected) {
  wanted = {"A"};
  const auto a = Add("A");
  connections.MidiEvent({TMidiOp::Registered, a->ID(), 0});
  EXPECT_TRUE(producer.IsConnected(a->ID()));
  EXPECT_EQ(recreated, 1);
  EXPECT_EQ(saves, 0);
}

TEST_F(Connections, ARenamedConsumerIsLookedAtAnew) {
  wanted = {"A"};
  const auto a = Add("A");
  connections.ConnectMidiOuts(wanted);
  roster.Rename(a->ID(), "B");
  connections.MidiEvent({TMidiOp::ChangedName, a->ID(), 0});
  EXPECT_FALSE(producer.IsConnected(a->ID()));
  EXPECT_EQ(recreated, 1);
}

TEST_F(Connections, AConsumerThatIsGoneStaysInTheList) {
  wanted = {"A"};
  const auto a = Add("A");
  connections.ConnectMidiOuts(wanted);
  roster.Unregister(a->ID());
  connections.MidiEvent({TMidiOp::Unregistered, a->ID(), 0});
  EXPECT_EQ(wanted, (TNames{"A"}));
  EXPECT_EQ(recreated, 1);
  EXPECT_EQ(saves, 0);
}

TEST_F(Connections, AConnectionIsAddedAndSaved) {
  const auto a = Add("A");
  roster.Connect(producer, a->ID());
  connections.MidiEvent({TMidiOp::Connected, a->ID(), producer.ID()});
  EXPECT_EQ(wanted, (TNames{"A"}));
  EXPECT_EQ(saves, 1);
  EXPECT_EQ(updated, (std::vector<int32_t>{a->ID()}));
  EXPECT_TRUE(a->seen.events.empty());
}

TEST_F(Connections, ADisconnectionIsMutedRemovedAndSaved) {
  wanted = {"A"};
  const auto a = Add("A");
  connections.ConnectMidiOuts(wanted);
  roster.Disconnect(producer, a->ID());
  connections.MidiEvent({TMidiOp::Disconnected, a->ID(), producer.ID()});
  EXPECT_EQ(a->seen.events.size(), 48u);
  EXPECT_EQ(a->seen.events.front(), control(0, 0, 0x7B));
  EXPECT_EQ(a->seen.events.back(), control(0, 15, 0x79));
  EXPECT_EQ(wanted, TNames{});
  EXPECT_EQ(saves, 1);
  EXPECT_EQ(muting.CountConnections(), 0);
}

TEST_F(Connections, OthersConnectionsAreNoneOfOurs) {
  wanted = {"A"};
  const auto a = Add("A");
  connections.MidiEvent({TMidiOp::Connected, a->ID(), muting.ID()});
  connections.MidiEvent({TMidiOp::Disconnected, a->ID(), muting.ID()});
  EXPECT_EQ(saves, 0);
  EXPECT_TRUE(updated.empty());
  EXPECT_TRUE(a->seen.events.empty());
}

TEST_F(Connections, AChangeOfTheListConnectsAndMutes) {
  const auto a = Add("A");
  wanted = {"A"};
  connections.PrefMidiOutChanged(0);
  EXPECT_TRUE(producer.IsConnected(a->ID()));
  EXPECT_TRUE(a->seen.events.empty());
  wanted = {};
  connections.PrefMidiOutChanged(a->ID());
  EXPECT_FALSE(producer.IsConnected(a->ID()));
  EXPECT_EQ(a->seen.events.size(), 48u);
}

}  // namespace
