// TArchivable: a record that is kept as one flattened message in a file, and TKORUNEArchivable: one
// that knows its place among the settings. They know nothing of what the fields mean.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/settings/settings_place.h"
#include "common/message.h"

namespace zoka {

/// A settings file larger than this is none.
constexpr size_t MAX_SETTINGS_BYTES = 1u << 20;

/// Base of records. A missing or wrongly typed field keeps its default, and fields that the record
/// does not know come back when it is saved, so that files of other versions keep what they hold.
class TArchivable {
 public:
  virtual ~TArchivable() = default;

  /// Writes the fields. Returns 0, or a failure which keeps them from being saved.
  virtual int32_t Archive(TMessage*) const { return 0; }
  /// Takes over the fields that are there.
  virtual void Unarchive(const TMessage&) {}
  /// True if the field is one of the record's own.
  virtual bool KnowsField(std::string_view) const { return false; }

  /// Writes the file. If Archive fails the file is left empty; if the disk fails, as it was.
  /// Returns 0 or -1.
  int32_t Save(const std::string& path) const;
  /// Reads the file. A file that is no message changes nothing. Returns 0 or -1.
  int32_t Load(const std::string& path);

 private:
  TMessage mUnknown;  // the fields of the loaded file that the record does not know
};

/// A settings file that cannot be read as a record is set aside under its name with this behind it,
/// so that nothing overwrites what it may still hold. The second one gets a "2" behind that, and so
/// on; beyond this count the newest replaces the one before.
constexpr const char SET_ASIDE_EXT[] = ".damaged";
constexpr int32_t MAX_SET_ASIDE = 9;

/// Sets the file aside if it is no message, and counts it among the damaged ones of the place. An
/// empty file is as good as none and stays. Nothing happens in a place that is read only.
void set_aside_if_damaged(const TSettingsPlace& place, const std::string& path);

/// A record with a place. Copying takes over the values; each object keeps its own place.
class TKORUNEArchivable : public TArchivable {
 public:
  /// Without a place nothing is read or written, and both operations return -1.
  explicit TKORUNEArchivable(const TSettingsPlace* place) : mPlace(place) {}

  /// Saves and loads the file of that name; one that is damaged is set aside. With the four reset
  /// keys held, nothing is saved, and loading removes the file; both then return -1.
  int32_t SaveByName(const char* folder, const char* file) const;
  int32_t LoadByName(const char* folder, const char* file);
  bool HasFileByName(const char* folder, const char* file) const;

 protected:
  TKORUNEArchivable(const TKORUNEArchivable&) = default;
  /// Copies the fields but not the place.
  TKORUNEArchivable& operator=(const TKORUNEArchivable& other) {
    if (this == &other) return *this;
    TArchivable::operator=(other);
    return *this;
  }

 private:
  const TSettingsPlace* mPlace;
};

}  // namespace zoka
