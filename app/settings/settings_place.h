// Where the settings files lie: the user's folder, one given on the command line, or nowhere.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace zoka {

/// The folder of the application's own records, and that of what applications share.
constexpr const char SETTINGS_FOLDER[] = "ZokaBASIC";
constexpr const char SHARED_FOLDER[] = "Shared";

/// Modifier keys as TSettingsPlace::modifiers gives them.
constexpr uint32_t MODIFIER_SHIFT = 0x01;
constexpr uint32_t MODIFIER_COMMAND = 0x02;
constexpr uint32_t MODIFIER_CONTROL = 0x04;
constexpr uint32_t MODIFIER_OPTION = 0x40;
/// All four held down get rid of the settings.
constexpr uint32_t RESET_MODIFIERS =
    MODIFIER_SHIFT | MODIFIER_COMMAND | MODIFIER_CONTROL | MODIFIER_OPTION;

/// Tells records where their files are. Made by the front end; outlives them.
struct TSettingsPlace {
  /// The folder that holds SETTINGS_FOLDER and SHARED_FOLDER; empty: nothing is read or written.
  std::string root;
  /// Nothing is ever written, created or removed.
  bool readOnly = false;
  /// How many files were set aside because they could not be read; shared by all copies.
  std::shared_ptr<std::atomic<int32_t>> damaged = std::make_shared<std::atomic<int32_t>>(0);
  /// The modifier keys held now; none where it is not set.
  std::function<uint32_t()> modifiers;

  /// The user's: $XDG_CONFIG_HOME/KORUNE, or .config/KORUNE at home. Nowhere for a user without
  /// a home.
  static TSettingsPlace OfUser();

  bool AreResetModifiersHeld() const {
    return modifiers && (modifiers() & RESET_MODIFIERS) == RESET_MODIFIERS;
  }
};

/// The path of a settings file into `*path`. With `create` its folders are made where they are
/// missing. Returns 0, or -1 if there is no such place.
int32_t get_settings_entry(const TSettingsPlace& place, const std::string& folder,
                           const std::string& file, bool create, std::string* path);

}  // namespace zoka
