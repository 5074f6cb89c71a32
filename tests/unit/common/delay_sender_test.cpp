// Bursts of messages on the simulated clock.
#include "common/delay_sender.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

class DelaySender : public testing::Test, public THandler {
 protected:
  DelaySender() {
    clock->EnterThread(clock->PrepareThread(TActorClass::Machine));
    target = registry.Register(this);
    sender->SetTarget(target);
    sender->SetDelay(1'500'000);
  }
  ~DelaySender() override {
    sender.reset();
    clock->LeaveThread();
  }

  void PostMessage(const TMessage& message) override {
    int32_t value = -1;
    message.FindInt32("n", &value);
    log.push_back(std::to_string(clock->system_time()) + ":" + std::to_string(message.what) + "/" +
                  std::to_string(value));
  }
  void Send(uint32_t code, int32_t value) {
    TMessage message(code);
    message.AddInt32("n", value);
    sender->SendMessage(message);
  }

  std::unique_ptr<TClock> clock = make_simulated_clock();
  TWake wake{*clock};
  THandlerRegistry registry;
  THandlerId target;
  std::unique_ptr<TDelaySender> sender = std::make_unique<TDelaySender>(*clock, registry);
  std::vector<std::string> log;
};

TEST_F(DelaySender, BurstBecomesItsLast) {
  Send(1, 10);
  clock->Wait(1'000'000, wake);
  Send(1, 11);
  clock->Wait(2'000'000, wake);
  Send(1, 12);
  clock->Wait(10'000'000, wake);
  EXPECT_EQ(log, (std::vector<std::string>{"3500000:1/12"}));
}

TEST_F(DelaySender, CodesDoNotInterfere) {
  Send(1, 10);
  clock->Wait(500'000, wake);
  Send(2, 20);
  clock->Wait(10'000'000, wake);
  EXPECT_EQ(log, (std::vector<std::string>{"1500000:1/10", "2000000:2/20"}));
}

TEST_F(DelaySender, SendsAgainAfterItsDelay) {
  Send(1, 10);
  clock->Wait(1'500'000, wake);
  sender->SetDelay(5);
  Send(1, 11);
  clock->Wait(10'000'000, wake);
  EXPECT_EQ(log, (std::vector<std::string>{"1500000:1/10", "1500005:1/11"}));
}

TEST_F(DelaySender, DropsWhatWaitsAtItsEnd) {
  Send(1, 10);
  sender.reset();
  clock->Wait(10'000'000, wake);
  EXPECT_TRUE(log.empty());
}

TEST_F(DelaySender, TargetThatIsGoneGetsNothing) {
  Send(1, 10);
  registry.Unregister(target);
  clock->Wait(10'000'000, wake);
  EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace zoka
