// The exit states and their file.
#include "app/settings/exit_states.h"

#include "app/settings/field.h"
#include "common/context.h"

namespace zoka {

namespace {

constexpr const char EXIT_STATES_FILE[] = "ZokaBASIC_ExitStates.arc";
constexpr const char VERSION_KEY[] = "_Ver";

}  // namespace

int32_t TExitStates::Archive(TMessage* message) const {
#define ZOKA_NONE(...)
#define ZOKA_ARCHIVE_FLAG(member, key, value) archive_field(message, key, member.load());
#define ZOKA_ARCHIVE_FOLDER(member, key) \
  if (!member.empty()) archive_field(message, key, member);
#define ZOKA_ARCHIVE_FRAME(member, key, value) archive_field(message, key, member);
  // The version stands behind the flags.
  ZOKA_EXIT_STATES_FIELDS(ZOKA_ARCHIVE_FLAG, ZOKA_NONE, ZOKA_NONE)
  message->AddString(VERSION_KEY, APP_VERSION);
  ZOKA_EXIT_STATES_FIELDS(ZOKA_NONE, ZOKA_ARCHIVE_FOLDER, ZOKA_ARCHIVE_FRAME)
#undef ZOKA_NONE
#undef ZOKA_ARCHIVE_FLAG
#undef ZOKA_ARCHIVE_FOLDER
#undef ZOKA_ARCHIVE_FRAME
  return 0;
}

void TExitStates::Unarchive(const TMessage& message) {
#define ZOKA_UNARCHIVE_FLAG(member, key, value) unarchive_flag(message, key, &member);
#define ZOKA_UNARCHIVE_FOLDER(member, key) find_field(message, key, &member);
#define ZOKA_UNARCHIVE_FRAME(member, key, value) find_field(message, key, &member);
  ZOKA_EXIT_STATES_FIELDS(ZOKA_UNARCHIVE_FLAG, ZOKA_UNARCHIVE_FOLDER, ZOKA_UNARCHIVE_FRAME)
#undef ZOKA_UNARCHIVE_FLAG
#undef ZOKA_UNARCHIVE_FOLDER
#undef ZOKA_UNARCHIVE_FRAME
  find_field(message, VERSION_KEY, &Ver);
}

bool TExitStates::KnowsField(std::string_view name) const {
#define ZOKA_KNOWS(member, key, ...) \
  if (name == key) return true;
#define ZOKA_KNOWS_FOLDER(member, key) ZOKA_KNOWS(member, key, )
  ZOKA_EXIT_STATES_FIELDS(ZOKA_KNOWS, ZOKA_KNOWS_FOLDER, ZOKA_KNOWS)
#undef ZOKA_KNOWS
#undef ZOKA_KNOWS_FOLDER
  return name == VERSION_KEY;
}

int32_t TExitStates::SaveToFile() const {
  return SaveByName(SETTINGS_FOLDER, EXIT_STATES_FILE);
}

int32_t TExitStates::LoadFromFile() {
  return LoadByName(SETTINGS_FOLDER, EXIT_STATES_FILE);
}

bool TExitStates::HasFile() const {
  return HasFileByName(SETTINGS_FOLDER, EXIT_STATES_FILE);
}

}  // namespace zoka
