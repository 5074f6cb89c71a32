// TStdinKeys: types the lines of standard input, each with a Return, while a program runs.
#pragma once

#include <thread>

#include "console/quit_event.h"
#include "run/key_feeder.h"

namespace zoka {

/// Reads on a thread of its own, so that a silent pipe keeps nobody waiting.
class TStdinKeys {
 public:
  /// Starts reading; the feeder outlives this.
  explicit TStdinKeys(TKeyFeeder& feeder);
  /// Stops, wherever the reader is.
  ~TStdinKeys();
  TStdinKeys(const TStdinKeys&) = delete;
  TStdinKeys& operator=(const TStdinKeys&) = delete;

 private:
  void Run();

  TKeyFeeder& mFeeder;
  TQuitEvent mQuit;
  std::thread mThread;
};

/// The keys of a piece of text: its characters, and a Return for each line feed. An unfinished
/// character at the end stays in `*text`.
std::deque<TFeedItem> keys_of_text(std::string* text);

}  // namespace zoka
