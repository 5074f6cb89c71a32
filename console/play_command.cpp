// `zoka play`: plays MML strings as one PLAY statement.
#include <unistd.h>

#include "app/settings/show_alert.h"
#include "console/commands.h"
#include "console/engine.h"
#include "console/watch.h"
#include "sound/play_command.h"

namespace zoka {

int play_command(const TOptions& options) {
  TConsoleHost host;
  TConsoleEngine engine(options, host);
  TPrefs& prefs = *engine.Context().prefs;
  TPlayCommand play(*engine.Context().clock, TSoundSettings{prefs.SVol, prefs.MDly}, options.mml,
                    TPlayOutputOptions{options.midi, options.wav, options.noWait});
  TWatch watch(
      options.timeoutSeconds, [&play] { play.Stop(); }, [] {});
  TPlayResult result = play.Run();
  for (const std::string& path : result.unwritten) report_unwritten(path);
  if (watch.Status() != 0) return watch.Status();
  if (result.fault) {
    show_fault_alert(engine.Context(), exception_text(*result.fault, *engine.Context().catalogue),
                     nullptr);
    return EXIT_STOPPED;
  }
  return result.unwritten.empty() ? EXIT_OK : EXIT_OUTPUT;
}

}  // namespace zoka
