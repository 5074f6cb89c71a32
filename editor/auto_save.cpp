// Locks and files of the slots.
#include "editor/auto_save.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

#include "common/write_all.h"

namespace zoka {
namespace {

constexpr mode_t PRIVATE_MODE = 0600;

std::string slot_path(const std::string& folder, int number, const char* ext) {
  std::string body = folder + AUTO_SAVE_FILE;
  if (number > 1) body += "." + std::to_string(number);
  return body + ext;
}

bool is_regular(const std::string& path, timespec* modified) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
  *modified = info.st_mtim;
  return true;
}

bool is_newer(const timespec& a, const timespec& b) {
  return a.tv_sec != b.tv_sec ? a.tv_sec > b.tv_sec : a.tv_nsec > b.tv_nsec;
}

/// The newer of the two that exist; the journal where they are of one time.
std::string newer_file(const std::string& list, const std::string& journal) {
  timespec listTime{};
  timespec journalTime{};
  const bool hasList = is_regular(list, &listTime);
  if (!is_regular(journal, &journalTime)) return hasList ? list : "";
  return hasList && is_newer(listTime, journalTime) ? list : journal;
}

}  // namespace

TAutoSaveSlot::TAutoSaveSlot(const TSettingsPlace& place) {
  std::string path;
  if (get_settings_entry(place, SETTINGS_FOLDER, "", true, &path) != 0) return;
  for (const bool onlyWithLeftover : {true, false}) {
    for (int number = 1; number <= MAX_AUTO_SAVE_SLOTS; ++number) {
      if (TakeSlot(path, number, onlyWithLeftover)) return;
    }
  }
}

TAutoSaveSlot::~TAutoSaveSlot() {
  if (mLock >= 0) close(mLock);
}

bool TAutoSaveSlot::TakeSlot(const std::string& folder, int number, bool onlyWithLeftover) {
  const std::string list = slot_path(folder, number, ".bas");
  const std::string journal = slot_path(folder, number, ".journal");
  if (onlyWithLeftover && newer_file(list, journal).empty()) return false;
  // The lock's file stays for ever: were it removed, two processes could each lock one of its name.
  const std::string lock = slot_path(folder, number, ".lock");
  const int fd = open(lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, PRIVATE_MODE);
  if (fd < 0) return false;
  if (flock(fd, LOCK_EX | LOCK_NB) != 0) {
    close(fd);
    return false;
  }
  mLock = fd;
  mListPath = list;
  mJournalPath = journal;
  // Asked again: its owner may have ended regularly just before the lock was ours.
  mLeftover = newer_file(list, journal);
  return true;
}

bool TAutoSaveSlot::WriteJournal(std::string_view text) {
  if (!IsOpen()) return false;
  const std::string fresh = mJournalPath + "~";
  const int fd = open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, PRIVATE_MODE);
  if (fd < 0) return false;
  // No fsync: it guards against the death of the process, and the disk must not slow typing down.
  const bool written = write_all(fd, text);
  const bool closed = close(fd) == 0;
  if (written && closed && rename(fresh.c_str(), mJournalPath.c_str()) == 0) return true;
  unlink(fresh.c_str());
  return false;
}

void TAutoSaveSlot::ClearJournal() {
  if (!IsOpen()) return;
  unlink(mJournalPath.c_str());
  unlink((mJournalPath + "~").c_str());
}

void TAutoSaveSlot::DeleteAutoSave() {
  if (!IsOpen()) return;
  ClearJournal();
  unlink(mListPath.c_str());
}

}  // namespace zoka
