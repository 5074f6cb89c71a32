// What `zoka play` does: plays up to six MML strings as one PLAY statement and waits for the end of
// the music. Command line and messages are the console's.
#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <vector>

#include "common/clock.h"
#include "common/exception.h"
#include "sound/mml_player.h"
#include "sound/play_outputs.h"

namespace zoka {

/// PLAY has that many strings at most.
constexpr size_t MAX_PLAY_STRINGS = 6;

/// What came of it.
struct TPlayResult {
  /// The fault of the first string that is no MML, from the last channel down; what stood before it
  /// was played.
  std::optional<TException> fault;
  /// Paths of files that could not be written.
  std::vector<std::string> unwritten;
};

/// Plays once. The clock decides between real and simulated time.
class TPlayCommand final : private TThread, private TPlayEventTarget {
 public:
  /// `mml`: the text of channel 1 and up; more than MAX_PLAY_STRINGS are not played.
  TPlayCommand(TClock& clock, const TSoundSettings& settings, const std::vector<std::string>& mml,
               const TPlayOutputOptions& options);

  /// Plays to the end and writes the files. For a host's thread, once.
  TPlayResult Run();

  /// Cuts the music; Run then silences the output and returns. Any thread.
  void Stop() { Terminate(); }

 private:
  int32_t Execute() override;
  void HappenInterrupt(int32_t) override {}
  bool IsTerminated() const override { return TThread::IsTerminated(); }

  const std::vector<std::string> mMml;
  TMidiLocalProducer mProducer;
  TPlayOutputs mOutputs;
  TMmlPlayer mPlayer;
  TPlayResult mResult;
};

}  // namespace zoka
