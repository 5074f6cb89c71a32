// The preferences and their file.
#include "app/settings/prefs.h"

#include "app/settings/field.h"

namespace zoka {

namespace {

constexpr const char PREFS_FILE[] = "ZokaBASIC_Prefs.arc";
constexpr const char MIDI_OUTS_KEY[] = "CoMO";

bool is_inside_character(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// A family as the record can hold it: at most MAX_FONT_FAMILY bytes of whole characters, ended
/// by a NUL.
void unarchive_family(const TMessage& from, const char* key, std::string* out) {
  if (!from.FindString(key, out)) return;
  out->resize(std::min(out->find('\0'), out->size()));
  if (out->size() <= MAX_FONT_FAMILY) return;
  size_t end = MAX_FONT_FAMILY;
  while (end > 0 && is_inside_character((*out)[end])) --end;
  out->resize(end);
}

/// Old files hold 1 for DISK-BASIC; what is no mode counts as automatic.
int32_t clean_CmpM(int32_t mode) {
  if (mode == 1) return COMPAT_DISK;
  return mode == COMPAT_DISK || mode == COMPAT_DOS ? mode : COMPAT_AUTO;
}

int32_t clean_DEnc(int32_t index) {
  return index > ENCODING_SEPARATOR && index <= ENCODING_JIS ? index : ENCODING_AUTO;
}

}  // namespace

TPrefs& TPrefs::operator=(const TPrefs& other) {
  TKORUNEArchivable::operator=(other);
  CopyFields(other);
  return *this;
}

void TPrefs::CopyFields(const TPrefs& other) {
  if (this == &other) return;
#define ZOKA_COPY_NUMBER(type, key, value, least, greatest) key = other.key.load();
#define ZOKA_COPY_ATOMIC(key, value) key = other.key.load();
#define ZOKA_COPY_FAMILY(key, value) key = other.key;
  ZOKA_PREFS_FIELDS(ZOKA_COPY_ATOMIC, ZOKA_COPY_FAMILY, ZOKA_COPY_NUMBER, ZOKA_COPY_ATOMIC)
#undef ZOKA_COPY_NUMBER
#undef ZOKA_COPY_ATOMIC
#undef ZOKA_COPY_FAMILY
  CoMO = other.CoMO;
}

int32_t TPrefs::Archive(TMessage* message) const {
  for (const std::string& name : CoMO) message->AddString(MIDI_OUTS_KEY, name);
#define ZOKA_ARCHIVE_NUMBER(type, key, value, least, greatest) \
  archive_field(message, #key, key.load());
#define ZOKA_ARCHIVE_ATOMIC(key, value) archive_field(message, #key, key.load());
#define ZOKA_ARCHIVE_FAMILY(key, value) archive_field(message, #key, key);
  ZOKA_PREFS_FIELDS(ZOKA_ARCHIVE_ATOMIC, ZOKA_ARCHIVE_FAMILY, ZOKA_ARCHIVE_NUMBER,
                    ZOKA_ARCHIVE_ATOMIC)
#undef ZOKA_ARCHIVE_NUMBER
#undef ZOKA_ARCHIVE_ATOMIC
#undef ZOKA_ARCHIVE_FAMILY
  return 0;
}

void TPrefs::Unarchive(const TMessage& message) {
  CoMO.clear();
  std::string name;
  while (message.FindString(MIDI_OUTS_KEY, &name, CoMO.size())) CoMO.push_back(name);
#define ZOKA_UNARCHIVE_FLAG(key, value) unarchive_flag(message, #key, &key);
#define ZOKA_UNARCHIVE_FAMILY(key, value) unarchive_family(message, #key, &key);
#define ZOKA_UNARCHIVE_NUMBER(type, key, value, least, greatest) \
  unarchive_clamped<type>(message, #key, &key, least, greatest);
#define ZOKA_UNARCHIVE_CHOICE(key, value) \
  if (int32_t read = 0; find_field(message, #key, &read)) key = clean_##key(read);
  ZOKA_PREFS_FIELDS(ZOKA_UNARCHIVE_FLAG, ZOKA_UNARCHIVE_FAMILY, ZOKA_UNARCHIVE_NUMBER,
                    ZOKA_UNARCHIVE_CHOICE)
#undef ZOKA_UNARCHIVE_FLAG
#undef ZOKA_UNARCHIVE_FAMILY
#undef ZOKA_UNARCHIVE_NUMBER
#undef ZOKA_UNARCHIVE_CHOICE
}

bool TPrefs::KnowsField(std::string_view name) const {
#define ZOKA_KNOWS(key, value) \
  if (name == #key) return true;
#define ZOKA_KNOWS_NUMBER(type, key, value, least, greatest) ZOKA_KNOWS(key, value)
  ZOKA_PREFS_FIELDS(ZOKA_KNOWS, ZOKA_KNOWS, ZOKA_KNOWS_NUMBER, ZOKA_KNOWS)
#undef ZOKA_KNOWS
#undef ZOKA_KNOWS_NUMBER
  return name == MIDI_OUTS_KEY;
}

int32_t TPrefs::SaveToFile() const {
  ++mSaveCount;
  return SaveByName(SETTINGS_FOLDER, PREFS_FILE);
}

int32_t TPrefs::LoadFromFile() {
  return LoadByName(SETTINGS_FOLDER, PREFS_FILE);
}

bool TPrefs::HasFile() const {
  return HasFileByName(SETTINGS_FOLDER, PREFS_FILE);
}

}  // namespace zoka
