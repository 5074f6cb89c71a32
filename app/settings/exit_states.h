// TExitStates: what the last run of the application left behind, to be found again by the next.
#pragma once

#include <atomic>
#include <string>

#include "app/settings/archivable.h"
#include "common/types.h"

namespace zoka {

/// Where the windows stand before they were ever moved: the main one, and the others beside it.
constexpr TFrame DEFAULT_MAIN_FRAME{5, 24, 500, 300};
constexpr TFrame DEFAULT_RUN_FRAME{25, 44, 520, 320};
constexpr TFrame DEFAULT_DEBUG_FRAME{45, 64, 540, 340};

// One row a field, in the order of the file: member, key, default. All rows are written but that of
// a FOLDER that is empty. Two members lack the underscore of their keys: no name may begin so.
//
//   RptR the program is run again when it ends   MBrS the run window shows its menu bar
//   UDbg Use Debugger                            MWPF folder of the list's panels
//   RWPF folder of the run window's panel        DWFr WFr RWFr frames of debug, main, run window
#define ZOKA_EXIT_STATES_FIELDS(FLAG, FOLDER, FRAME) \
  FLAG(RptR, "RptR", false)                          \
  FLAG(MBrS, "MBrS", true)                           \
  FLAG(UDbg, "UDbg", false)                          \
  FOLDER(MWPF, "MWPF")                               \
  FOLDER(RWPF, "RWPF")                               \
  FRAME(DWFr, "DWFr", DEFAULT_DEBUG_FRAME)           \
  FRAME(WFr, "_WFr", DEFAULT_MAIN_FRAME)             \
  FRAME(RWFr, "RWFr", DEFAULT_RUN_FRAME)

/// The exit states. Flags are read on any thread; the rest belongs to the host's thread, which
/// alone writes.
class TExitStates : public TKORUNEArchivable {
 public:
  explicit TExitStates(const TSettingsPlace* place = nullptr) : TKORUNEArchivable(place) {}
  TExitStates(const TExitStates&) = delete;
  TExitStates& operator=(const TExitStates&) = delete;

#define ZOKA_MEMBER_FLAG(member, key, value) std::atomic<bool> member{value};
#define ZOKA_MEMBER_FOLDER(member, key) std::string member;
#define ZOKA_MEMBER_FRAME(member, key, value) TFrame member = value;
  ZOKA_EXIT_STATES_FIELDS(ZOKA_MEMBER_FLAG, ZOKA_MEMBER_FOLDER, ZOKA_MEMBER_FRAME)
#undef ZOKA_MEMBER_FLAG
#undef ZOKA_MEMBER_FOLDER
#undef ZOKA_MEMBER_FRAME

  /// The version of the program that wrote the loaded file; key "_Ver". Not used further: a file
  /// is always written with the version of this one.
  std::string Ver;

  int32_t Archive(TMessage* message) const override;
  void Unarchive(const TMessage& message) override;
  bool KnowsField(std::string_view name) const override;

  /// Each returns 0 or -1.
  int32_t SaveToFile() const;
  int32_t LoadFromFile();
  /// False before the first regular end of the application, and after the file was removed.
  bool HasFile() const;
};

}  // namespace zoka
