// TAutoSaveSlot: where one process keeps what must survive its death: the auto-save list and,
// beside it, the journal of unsaved text. Several processes never share a slot. It asks nobody
// anything.
#pragma once

#include <string>
#include <string_view>

#include "app/settings/settings_place.h"

namespace zoka {

/// Names of the first slot's files; the others have their number behind the body
/// ("AutoSave.2.bas").
constexpr const char AUTO_SAVE_FILE[] = "AutoSave";
/// Processes that may have a slot at the same time; one more has none and keeps nothing.
constexpr int MAX_AUTO_SAVE_SLOTS = 100;
/// Unsaved typing is in the journal this many milliseconds after it was typed; half of the second
/// that may be lost, so that a busy machine has room.
constexpr int JOURNAL_INTERVAL_MS = 500;

/// Owns a slot by a lock that the host drops when the process ends, however it ends. One thread.
class TAutoSaveSlot {
 public:
  /// Takes the first free slot in which a process left something behind, else the first free one.
  explicit TAutoSaveSlot(const TSettingsPlace& place);
  /// Gives the slot up; the files stay.
  ~TAutoSaveSlot();
  TAutoSaveSlot(const TAutoSaveSlot&) = delete;
  TAutoSaveSlot& operator=(const TAutoSaveSlot&) = delete;

  /// False if there is no folder for it: the rest then does nothing.
  bool IsOpen() const { return mLock >= 0; }
  /// The path of the auto-save list.
  const std::string& ListPath() const { return mListPath; }
  /// What the process before left in the slot, the newer of list and journal; empty for nothing.
  const std::string& Leftover() const { return mLeftover; }

  /// Lays the unsaved text down whole. A reader finds the old text or the new one. False if the
  /// disk refuses.
  bool WriteJournal(std::string_view text);
  /// Nothing is unsaved.
  void ClearJournal();
  /// Removes list and journal: the regular end.
  void DeleteAutoSave();

 private:
  bool TakeSlot(const std::string& folder, int number, bool onlyWithLeftover);

  int mLock = -1;
  std::string mListPath;
  std::string mJournalPath;
  std::string mLeftover;
};

}  // namespace zoka
