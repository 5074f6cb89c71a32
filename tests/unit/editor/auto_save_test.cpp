// Slots of processes, and what survives their death.
#include "editor/auto_save.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <memory>
#include <random>

#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

class TAutoSaveTest : public testing::Test {
 protected:
  TAutoSaveTest() { mPlace.root = mFolder.Path(); }
  std::string Path(const char* name) const {
    return mFolder.Path("ZokaBASIC/" + std::string(name));
  }
  std::string Read(const char* name) const {
    return mFolder.Read("ZokaBASIC/" + std::string(name));
  }
  static bool Exists(const std::string& path) { return std::filesystem::exists(path); }

  TTempFolder mFolder;
  TSettingsPlace mPlace;
};

TEST_F(TAutoSaveTest, TwoProcessesHaveSlotsOfTheirOwn) {
  TAutoSaveSlot first(mPlace);
  TAutoSaveSlot second(mPlace);
  EXPECT_EQ(first.ListPath(), Path("AutoSave.bas"));
  EXPECT_EQ(second.ListPath(), Path("AutoSave.2.bas"));
  ASSERT_TRUE(first.WriteJournal("one"));
  ASSERT_TRUE(second.WriteJournal("two"));
  EXPECT_EQ(Read("AutoSave.journal"), "one");
  EXPECT_EQ(Read("AutoSave.2.journal"), "two");
  second.DeleteAutoSave();
  EXPECT_EQ(Read("AutoSave.journal"), "one");
  EXPECT_FALSE(Exists(Path("AutoSave.2.journal")));
}

TEST_F(TAutoSaveTest, ARegularEndLeavesNothing) {
  {
    TAutoSaveSlot slot(mPlace);
    EXPECT_EQ(slot.Leftover(), "");
    slot.WriteJournal("x");
    mFolder.Write("ZokaBASIC/AutoSave.bas", "y");
    slot.DeleteAutoSave();
  }
  EXPECT_EQ(TAutoSaveSlot(mPlace).Leftover(), "");
}

TEST_F(TAutoSaveTest, TheNewerOfListAndJournalIsLeft) {
  mFolder.MakeFolder("ZokaBASIC");
  mFolder.Write("ZokaBASIC/AutoSave.bas", "list");
  EXPECT_EQ(TAutoSaveSlot(mPlace).Leftover(), Path("AutoSave.bas"));
  mFolder.Write("ZokaBASIC/AutoSave.journal", "journal");
  const auto now = std::filesystem::last_write_time(Path("AutoSave.bas"));
  std::filesystem::last_write_time(Path("AutoSave.journal"), now - std::chrono::seconds(1));
  EXPECT_EQ(TAutoSaveSlot(mPlace).Leftover(), Path("AutoSave.bas"));
  std::filesystem::last_write_time(Path("AutoSave.journal"), now);
  EXPECT_EQ(TAutoSaveSlot(mPlace).Leftover(), Path("AutoSave.journal"));
}

TEST_F(TAutoSaveTest, ASlotThatSomebodyUsesIsNoLeftover) {
  TAutoSaveSlot first(mPlace);
  first.WriteJournal("mine");
  EXPECT_EQ(TAutoSaveSlot(mPlace).Leftover(), "");
}

TEST_F(TAutoSaveTest, AnAbandonedSlotIsTakenBeforeAFreshOne) {
  mFolder.MakeFolder("ZokaBASIC");
  mFolder.Write("ZokaBASIC/AutoSave.3.bas", "lost");
  TAutoSaveSlot slot(mPlace);
  EXPECT_EQ(slot.ListPath(), Path("AutoSave.3.bas"));
  EXPECT_EQ(slot.Leftover(), Path("AutoSave.3.bas"));
}

TEST_F(TAutoSaveTest, WithoutAFolderNothingIsKept) {
  TAutoSaveSlot slot(TSettingsPlace{});
  EXPECT_FALSE(slot.IsOpen());
  EXPECT_FALSE(slot.WriteJournal("x"));
  slot.DeleteAutoSave();
}

/// Types without end, and tells how many bytes have been laid down.
[[noreturn]] void type_without_end(const TSettingsPlace& place, std::atomic<size_t>* laidDown) {
  TAutoSaveSlot slot(place);
  std::string text;
  for (;;) {
    text += static_cast<char>('a' + text.size() % 26);
    if (text.size() % 50 == 0 && slot.WriteJournal(text)) laidDown->store(text.size());
  }
}

TEST_F(TAutoSaveTest, WhatWasLaidDownSurvivesAKillAtAnyMoment) {
  void* const shared = mmap(nullptr, sizeof(std::atomic<size_t>), PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(shared, MAP_FAILED);
  std::mt19937 random(7);
  for (int round = 0; round < 40; ++round) {
    auto* const laidDown = new (shared) std::atomic<size_t>(0);
    const size_t enough = random() % 20'000;
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) type_without_end(mPlace, laidDown);
    while (laidDown->load() <= enough) sched_yield();
    ASSERT_EQ(kill(child, SIGKILL), 0);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    TAutoSaveSlot after(mPlace);
    ASSERT_EQ(after.Leftover(), Path("AutoSave.journal"));
    const std::string text = Read("AutoSave.journal");
    ASSERT_GE(text.size(), laidDown->load());
    for (size_t i = 0; i < text.size(); ++i) ASSERT_EQ(text[i], static_cast<char>('a' + i % 26));
    after.DeleteAutoSave();
  }
  munmap(shared, sizeof(std::atomic<size_t>));
}

}  // namespace
}  // namespace zoka
