// Messages: fields, and the flat form against any bytes.
#include "common/message.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "common/handler.h"

namespace zoka {
namespace {

using std::string_literals::operator""s;

TMessage full_message() {
  TMessage message("vmrr");
  message.AddString("s", "one");
  message.AddString("s", "");
  message.AddString("s", "a\0b"s);
  message.AddBool("b", true);
  message.AddBool("b", false);
  message.AddInt32("i", std::numeric_limits<int32_t>::min());
  message.AddInt64("l", -5'000'000'000);
  message.AddFloat("f", 1.5F);
  message.AddDouble("d", -0.1);
  message.AddRect("r", {5, 24, 500, 300});
  message.AddRef("p", {"/tmp/\xFF"});
  message.AddHandler("h", {7});
  TMessage inner("SAVE");
  inner.AddString("name", "x");
  message.AddMessage("m", inner);
  return message;
}

TEST(Message, CodesPackHighestFirst) {
  EXPECT_EQ(message_code("vmrr"), 0x766D7272u);
  EXPECT_EQ(message_code("run"), 0x0072756Eu);
  EXPECT_EQ(message_code(""), 0u);
}

TEST(Message, MissingValueLeavesTheTarget) {
  TMessage message;
  message.AddInt32("n", 3);
  int32_t n = 9;
  EXPECT_FALSE(message.FindInt32("other", &n));
  EXPECT_FALSE(message.FindInt32("n", &n, 1));
  int64_t wide = 9;
  EXPECT_FALSE(message.FindInt64("n", &wide));
  EXPECT_EQ(n, 9);
  EXPECT_EQ(wide, 9);
  EXPECT_TRUE(message.FindInt32("n", &n));
  EXPECT_EQ(n, 3);
}

TEST(Message, FieldKeepsItsType) {
  TMessage message;
  message.AddInt32("n", 3);
  message.AddString("n", "x");
  std::string text = "kept";
  EXPECT_FALSE(message.FindString("n", &text));
  EXPECT_FALSE(message.FindString("n", &text, 1));
  ASSERT_EQ(message.Fields().size(), 1u);
  EXPECT_EQ(message.Fields()[0].values.size(), 1u);
}

TEST(Message, ReplaceMayTakeItsOwnValue) {
  TMessage message;
  message.AddString("SISmplIptTxt", "a long text that lies outside of the string");
  message.AddString("SISmplIptTxt", "second");
  std::string text;
  message.FindString("SISmplIptTxt", &text);
  message.ReplaceString("SISmplIptTxt", std::get<std::string>(message.Fields()[0].values[0]));
  EXPECT_TRUE(message.FindString("SISmplIptTxt", &text));
  EXPECT_EQ(text, "a long text that lies outside of the string");
  EXPECT_FALSE(message.FindString("SISmplIptTxt", &text, 1));
  message.RemoveName("SISmplIptTxt");
  EXPECT_TRUE(message.IsEmpty());
}

TEST(Message, FlatFormIsLittleEndian) {
  TMessage message("ab");
  message.AddInt32("n", -2);
  EXPECT_EQ(message.Flatten(),
            "ba\0\0"
            "\1\0\0\0"
            "\1\0\0\0n"
            "\2"
            "\1\0\0\0"
            "\xFE\xFF\xFF\xFF"s);
  EXPECT_EQ(TMessage().Flatten(), "\0\0\0\0\0\0\0\0"s);
}

TEST(Message, FlatFormHoldsAll) {
  TMessage copy;
  copy.AddBool("old", true);
  ASSERT_TRUE(copy.Unflatten(full_message().Flatten()));
  EXPECT_EQ(copy.what, message_code("vmrr"));
  EXPECT_FALSE(copy.HasField("old"));
  std::string text;
  EXPECT_TRUE(copy.FindString("s", &text, 2));
  EXPECT_EQ(text, "a\0b"s);
  bool flag = true;
  EXPECT_TRUE(copy.FindBool("b", &flag, 1));
  EXPECT_FALSE(flag);
  int32_t i = 0;
  EXPECT_TRUE(copy.FindInt32("i", &i));
  EXPECT_EQ(i, std::numeric_limits<int32_t>::min());
  int64_t l = 0;
  EXPECT_TRUE(copy.FindInt64("l", &l));
  EXPECT_EQ(l, -5'000'000'000);
  float f = 0;
  EXPECT_TRUE(copy.FindFloat("f", &f));
  EXPECT_EQ(f, 1.5F);
  double d = 0;
  EXPECT_TRUE(copy.FindDouble("d", &d));
  EXPECT_EQ(d, -0.1);
  TFrame frame;
  EXPECT_TRUE(copy.FindRect("r", &frame));
  EXPECT_EQ(frame, (TFrame{5, 24, 500, 300}));
  TPathRef ref;
  EXPECT_TRUE(copy.FindRef("p", &ref));
  EXPECT_EQ(ref.bytes, "/tmp/\xFF");
  THandlerId handler;
  EXPECT_TRUE(copy.FindHandler("h", &handler));
  EXPECT_EQ(handler.id, 7u);
  TMessage inner;
  EXPECT_TRUE(copy.FindMessage("m", &inner));
  EXPECT_EQ(inner.what, message_code("SAVE"));
  EXPECT_EQ(copy.Flatten(), full_message().Flatten());
}

TEST(Message, EveryCutIsRefusedAndLeavesTheMessageAlone) {
  const std::string flat = full_message().Flatten();
  TMessage message("kept");
  for (size_t size = 0; size < flat.size(); ++size) {
    ASSERT_FALSE(message.Unflatten(std::string_view(flat).substr(0, size))) << size;
  }
  EXPECT_FALSE(message.Unflatten(flat + '\0'));
  EXPECT_EQ(message.what, message_code("kept"));
  EXPECT_TRUE(message.IsEmpty());
}

TEST(Message, EveryChangedByteIsSafe) {
  const std::string flat = full_message().Flatten();
  for (size_t at = 0; at < flat.size(); ++at) {
    for (int value = 0; value < 256; ++value) {
      std::string changed = flat;
      changed[at] = static_cast<char>(value);
      TMessage message;
      if (!message.Unflatten(changed)) continue;
      // What is taken must be a message that comes back the same.
      ASSERT_EQ(message.Flatten(), changed) << at << ' ' << value;
    }
  }
}

TEST(Message, FalseCountsAreRefused) {
  TMessage message;
  EXPECT_FALSE(
      message.Unflatten("\0\0\0\0"
                        "\xFF\xFF\xFF\xFF"s));
  // A field whose count of values is huge, and one that has none.
  EXPECT_FALSE(
      message.Unflatten("\0\0\0\0"
                        "\1\0\0\0"
                        "\1\0\0\0n"
                        "\1"
                        "\xFF\xFF\xFF\xFF"
                        "\1"s));
  EXPECT_FALSE(
      message.Unflatten("\0\0\0\0"
                        "\1\0\0\0"
                        "\1\0\0\0n"
                        "\1"
                        "\0\0\0\0"s));
  // A type that does not exist, a bool that is neither, the same name twice.
  EXPECT_FALSE(
      message.Unflatten("\0\0\0\0"
                        "\1\0\0\0"
                        "\1\0\0\0n"
                        "\x0A"
                        "\1\0\0\0"
                        "\1"s));
  EXPECT_FALSE(
      message.Unflatten("\0\0\0\0"
                        "\1\0\0\0"
                        "\1\0\0\0n"
                        "\1"
                        "\1\0\0\0"
                        "\2"s));
  const std::string field =
      "\1\0\0\0n"
      "\1"
      "\1\0\0\0"
      "\1"s;
  EXPECT_TRUE(
      message.Unflatten("\0\0\0\0"
                        "\1\0\0\0"s +
                        field));
  EXPECT_FALSE(
      message.Unflatten("\0\0\0\0"
                        "\2\0\0\0"s +
                        field + field));
}

TMessage nested(int levels) {
  TMessage message("nest");
  for (int i = 0; i < levels; ++i) {
    TMessage outer("nest");
    outer.AddMessage("NextMsg", message);
    message = outer;
  }
  return message;
}

TEST(Message, NestingIsBounded) {
  TMessage message;
  EXPECT_TRUE(message.Unflatten(nested(TMessage::MAX_NESTING).Flatten()));
  EXPECT_EQ(message.Flatten(), nested(TMessage::MAX_NESTING).Flatten());
  EXPECT_FALSE(message.Unflatten(nested(TMessage::MAX_NESTING + 1).Flatten()));
  EXPECT_FALSE(message.Unflatten(nested(300).Flatten()));
}

TEST(Message, NotANumberSurvives) {
  TMessage message;
  message.AddFloat("f", std::numeric_limits<float>::quiet_NaN());
  TMessage copy;
  ASSERT_TRUE(copy.Unflatten(message.Flatten()));
  float f = 0;
  EXPECT_TRUE(copy.FindFloat("f", &f));
  EXPECT_TRUE(std::isnan(f));
}

/// Keeps what it gets, and then does something.
class TRecorder : public THandler {
 public:
  void PostMessage(const TMessage& message) override {
    codes.push_back(message.what);
    if (then) then();
  }
  std::vector<uint32_t> codes;
  std::function<void()> then;
};

TEST(HandlerRegistry, PostsToLiveHandlersOnly) {
  THandlerRegistry registry;
  TRecorder first;
  TRecorder second;
  const THandlerId one = registry.Register(&first);
  const THandlerId two = registry.Register(&second);
  EXPECT_NE(one.id, 0u);
  EXPECT_NE(one, two);
  EXPECT_TRUE(registry.Post(one, TMessage("a")));
  registry.Unregister(one);
  EXPECT_FALSE(registry.Post(one, TMessage("b")));
  EXPECT_FALSE(registry.Post(THandlerId{}, TMessage("c")));
  EXPECT_EQ(first.codes, (std::vector<uint32_t>{'a'}));
  EXPECT_NE(registry.Register(&first), one);
}

TEST(HandlerRegistry, HandlerMayPostAndUnregisterItself) {
  THandlerRegistry registry;
  TRecorder first;
  TRecorder second;
  const THandlerId one = registry.Register(&first);
  const THandlerId two = registry.Register(&second);
  first.then = [&] {
    EXPECT_TRUE(registry.Post(two, TMessage("next")));
    registry.Unregister(one);
  };
  EXPECT_TRUE(registry.Post(one, TMessage("a")));
  EXPECT_EQ(second.codes, (std::vector<uint32_t>{message_code("next")}));
  EXPECT_FALSE(registry.Post(one, TMessage("a")));
}

TEST(HandlerRegistry, UnregisterWaitsForAPostOfAnotherThread) {
  THandlerRegistry registry;
  std::mutex gate;
  std::condition_variable opened;
  bool inside = false;
  bool left = false;
  TRecorder handler;
  handler.then = [&] {
    {
      std::lock_guard lock(gate);
      inside = true;
    }
    opened.notify_all();
    std::this_thread::yield();
    left = true;
  };
  const THandlerId id = registry.Register(&handler);
  std::thread poster([&] { registry.Post(id, TMessage("a")); });
  {
    std::unique_lock lock(gate);
    opened.wait(lock, [&] { return inside; });
  }
  registry.Unregister(id);
  EXPECT_TRUE(left);
  poster.join();
}

TEST(Handler, NextMessageIsAdded) {
  TMessage message("SAVE");
  EXPECT_EQ(add_next_msg(&message, TMessage("quit"), THandlerId{3}), 0);
  TMessage next;
  THandlerId target;
  EXPECT_TRUE(message.FindMessage("NextMsg", &next));
  EXPECT_TRUE(message.FindHandler("NextMsgTgt", &target));
  EXPECT_EQ(next.what, message_code("quit"));
  EXPECT_EQ(target.id, 3u);
}

}  // namespace
}  // namespace zoka
