// TConsoleEngine: an engine put together for the console tool: clock, settings, catalogue, run view
// and document.
#pragma once

#include <memory>

#include "app/settings/exit_states.h"
#include "app/settings/inter_app_prefs.h"
#include "app/settings/prefs.h"
#include "common/context.h"
#include "console/console_host.h"
#include "console/options.h"
#include "editor/list_document.h"
#include "run/run_view.h"

namespace zoka {

/// Owns the parts in the order in which they need each other.
class TConsoleEngine {
 public:
  TConsoleEngine(const TOptions& options, TConsoleHost& host);
  TConsoleEngine(const TConsoleEngine&) = delete;
  TConsoleEngine& operator=(const TConsoleEngine&) = delete;

  /// Loads the list that the options name; false after its alert. The report of replaced characters
  /// goes to standard error.
  bool Load();

  TEngineContext& Context() { return mContext; }
  TRunView& View() { return *mView; }
  TListDocument& Document() { return *mDocument; }
  TStringText& Text() { return mText; }

 private:
  const TOptions& mOptions;
  std::unique_ptr<TClock> mClock;
  TCatalogue mCatalogue;
  TSettingsPlace mPlace;
  TPrefs mPrefs;
  TExitStates mExitStates;
  TInterAppPrefs mInterAppPrefs;
  TEngineContext mContext;
  std::unique_ptr<TRunView> mView;
  TStringText mText;
  TDocumentHost mDocumentHost;
  std::unique_ptr<TListDocument> mDocument;
};

}  // namespace zoka
