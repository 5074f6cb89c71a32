// The commands that do not run a program: check, code, list and renumber.
#include <unistd.h>

#include <cerrno>

#include "common/write_all.h"
#include "console/commands.h"
#include "console/engine.h"
#include "console/watch.h"
#include "core/code_listing.h"
#include "editor/renumber.h"

namespace zoka {
namespace {

/// Loads and compiles; 0 and the engine's compiled program, or the status to exit with.
int compile_list(const TOptions& options, TConsoleEngine& engine, TCompileResult* result) {
  TWatch watch(
      options.timeoutSeconds, [&engine] { engine.View().ForceStop(); }, [] {});
  if (!engine.Load()) return EXIT_NO_LIST;
  std::string source = CreateFmtSrc(engine.Text().Get()).Text();
  *result = engine.View().CompileBasic(source.c_str());
  if (watch.Status() != 0) return watch.Status();
  return *result == TCompileResult::Failed ? EXIT_COMPILE_ERROR : EXIT_OK;
}

}  // namespace

int check_command(const TOptions& options) {
  TConsoleHost host;
  TConsoleEngine engine(options, host);
  TCompileResult result;
  return compile_list(options, engine, &result);
}

int code_command(const TOptions& options) {
  TConsoleHost host;
  TConsoleEngine engine(options, host);
  TCompileResult result;
  int status = compile_list(options, engine, &result);
  if (status != EXIT_OK) return status;
  return write_output(code_listing(*engine.View().MidCode()));
}

int list_command(const TOptions& options) {
  TConsoleHost host;
  TConsoleEngine engine(options, host);
  if (!engine.Load()) return EXIT_NO_LIST;
  return write_output(engine.Text().Get());
}

int renumber_command(const TOptions& options) {
  TConsoleHost host;
  TConsoleEngine engine(options, host);
  if (!engine.Load()) return EXIT_NO_LIST;
  std::string text = engine.Text().Get();
  Renumber(&text, options.newLine, options.oldLine, options.step, false);
  return write_output(text);
}

int write_output(std::string_view text) {
  if (write_all(STDOUT_FILENO, text)) return EXIT_OK;
  return errno == EPIPE ? EXIT_PIPE : report_unwritten("standard output");
}

int report_unwritten(const std::string& what) {
  write_all(STDERR_FILENO, "zoka: cannot write " + what + "\n");
  return EXIT_OUTPUT;
}

}  // namespace zoka
