// Function keys of a script on their way into a run.
#include <gtest/gtest.h>

#include "run/key_feeder.h"
#include "tests/unit/run/run_rig.h"

namespace zoka {
namespace {

TFeedItem function_key(int32_t number) {
  TFeedItem item;
  item.kind = TFeedItem::TKind::FunctionKey;
  item.number = number;
  return item;
}

TFeedItem key(const std::string& bytes) {
  TFeedItem item;
  item.bytes = bytes;
  return item;
}

TEST(FunctionKeys, FunctionKeysWithoutATextTypeNothing) {
  TRunRig rig;
  TKeyFeeder feeder(*rig.clock, *rig.view);
  rig.view->SetKeyFeeder(&feeder);
  feeder.Add({function_key(11), function_key(12), key("x"), key("\x0A")});
  feeder.Finish();
  EXPECT_EQ(rig.Run("10 INPUT A$\n20 PRINT A$+A$\n"), 0);
  EXPECT_EQ(rig.Screen(), (std::vector<std::string>{"? x", "xx", "Ok"}));
  rig.view->QuitBasic();  // while the feeder is there
}

}  // namespace
}  // namespace zoka
