// Keys of a script on their way into a run.
#include "run/key_feeder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "run/run_view.h"

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
  const std::unique_ptr<TClock> clock = make_simulated_clock();
  TCatalogue catalogue(TLanguage::Keys);
  TPrefs prefs;
  TExitStates exitStates(nullptr);
  TEngineContext context;
  context.clock = clock.get();
  context.catalogue = &catalogue;
  context.prefs = &prefs;
  context.exitStates = &exitStates;
  TRunHost host;
  TRunView view(context, host);
  TKeyFeeder feeder(*clock, view);
  view.SetKeyFeeder(&feeder);
  feeder.Add({function_key(11), function_key(12), key("x"), key("\x0A")});
  feeder.Finish();
  ASSERT_EQ(view.CompileBasic("10 INPUT A$\n20 PRINT A$+A$\n"), TCompileResult::Runnable);
  view.ReadyBasic();
  view.RunBasic(TMessage("run"));
  EXPECT_EQ(view.WaitForEnd(), 0);
  EXPECT_EQ(view.Rsrc().RowText(0), "? x");
  EXPECT_EQ(view.Rsrc().RowText(1), "xx");
  view.QuitBasic();  // while the feeder is there
}

}  // namespace
}  // namespace zoka
