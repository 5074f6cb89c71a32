// Putting an engine together, and loading the list.
#include "console/engine.h"

#include <unistd.h>

#include <cerrno>

#include "common/write_all.h"

namespace zoka {
namespace {

/// All of standard input, up to one byte more than a list may have.
bool read_standard_input(std::string* bytes) {
  char buffer[1 << 16];
  for (;;) {
    ssize_t size = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) return false;
    if (size == 0) return true;
    bytes->append(buffer, static_cast<size_t>(size));
    if (bytes->size() > static_cast<size_t>(MAX_LIST_BYTES)) return true;
  }
}

TSettingsPlace settings_place(const TOptions& options) {
  TSettingsPlace place;
  if (!options.noConfig) place = TSettingsPlace::OfUser();
  if (!options.configFolder.empty()) place.root = options.configFolder;
  place.readOnly = true;
  return place;
}

TLocalTime simulated_start(const TOptions& options) {
  return options.clock ? *options.clock : make_real_clock()->local_time();
}

std::unique_ptr<TClock> make_clock(const TOptions& options) {
  if (options.noWait) return make_simulated_clock(simulated_start(options));
  return make_real_clock(options.clock);
}

}  // namespace

TConsoleEngine::TConsoleEngine(const TOptions& options, TConsoleHost& host)
    : mOptions(options),
      mClock(make_clock(options)),
      mCatalogue(options.language),
      mPlace(settings_place(options)),
      mPrefs(&mPlace),
      mExitStates(nullptr),
      mInterAppPrefs(&mPlace) {
  // Repeat and the debugger are the window application's, so exit states are not read.
  mPrefs.LoadFromFile();
  if (options.compat) mPrefs.CmpM.store(*options.compat);
  mContext.clock = mClock.get();
  mContext.catalogue = &mCatalogue;
  mContext.prefs = &mPrefs;
  mContext.exitStates = &mExitStates;
  mContext.interAppPrefs = &mInterAppPrefs;
  mContext.alertHost = &host;
  mView = std::make_unique<TRunView>(mContext, host);
  mView->SetPlain(options.plain);
  mDocument = std::make_unique<TListDocument>(mContext, *mView, mText, mDocumentHost);
}

bool TConsoleEngine::Load() {
  int32_t encoding = mOptions.encoding ? *mOptions.encoding : mPrefs.DEnc.load();
  bool loaded;
  if (mOptions.file == "-") {
    std::string bytes;
    loaded = read_standard_input(&bytes) &&
             mDocument->OpenBytes(std::move(bytes), encoding, mOptions.file);
  } else {
    loaded = mDocument->OpenList(mOptions.file, encoding);
  }
  for (const std::string& sentence : mDocument->LoadReport()) {
    write_all(STDERR_FILENO, sentence + "\n");
  }
  return loaded;
}

}  // namespace zoka
