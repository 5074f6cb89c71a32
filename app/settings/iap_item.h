// The shared preferences one by one: what each can hold, and what its control in the common window
// looks like. Their files, and who is told of changes, are elsewhere.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/message.h"

namespace zoka {

/// Names of the items.
constexpr const char ACC_KEY_FORMAT_ITEM[] = "AccKeyFormat2";
constexpr const char FLAT_TOOL_BAR_ITEM[] = "FlatToolBar";
constexpr const char LANGUAGE_ITEM[] = "Language";
constexpr const char THEME_ITEM[] = "Theme";

/// The accelerator format where none is stored: behind the label, in parentheses.
constexpr std::string_view DEFAULT_ACC_KEY_FORMAT = "\x02(a)";

/// Values of the language item and of the theme item; the first is also the latter's.
constexpr const char FOLLOW_SYSTEM[] = "system";
constexpr const char LANGUAGE_ENGLISH[] = "en";
constexpr const char LANGUAGE_JAPANESE[] = "ja";
constexpr const char THEME_LIGHT[] = "light";
constexpr const char THEME_DARK[] = "dark";
constexpr const char THEME_CONTRAST[] = "contrast";

/// Tells this application from the others of the family.
constexpr const char APP_SIGNATURE[] = "application/x-vnd.KORUNE-ZokaBASIC";

/// The field that carries an item's value.
constexpr const char IAP_VALUE_KEY[] = "Value";

/// Puts the application and the item into a message, as all messages of the items have them.
void add_default_info(TMessage* message, const std::string& item);
/// The item that a message is about; empty for none.
std::string source_item(const TMessage& message);
/// True if the messages carry the same value.
bool same_iap_value(const TMessage& a, const TMessage& b);
/// Puts the value of `from` into `*to`, in place of any other.
void copy_iap_value(const TMessage& from, TMessage* to);

/// One item of a menu: the value, and its text (a key of the catalogue).
struct TIAPChoice {
  std::string value;
  std::string label;
  bool operator==(const TIAPChoice&) const = default;
};

/// An item's control: a menu of texts, or without choices a box for a bool.
struct TIAPConfiguration {
  std::string label;  // a key of the catalogue
  std::string key;    // the letter that is merged into it
  std::vector<TIAPChoice> choices;
  bool operator==(const TIAPConfiguration&) const = default;
};

/// One shared preference. Not locked: its owner does that.
class TIAPItem {
 public:
  explicit TIAPItem(const char* name) : mName(name) {}
  virtual ~TIAPItem() = default;

  const std::string& Name() const { return mName; }
  /// Each returns false, and changes nothing, if the item's value is of another type or is none
  /// that the item can have.
  virtual bool GetString(std::string*) const { return false; }
  virtual bool SetString(std::string_view) { return false; }
  virtual bool GetBool(bool*) const { return false; }
  virtual bool SetBool(bool) { return false; }
  /// Takes the value that a message carries, and puts the own one, or that of an item which nobody
  /// ever set, into one.
  virtual bool SetValue(const TMessage& message) = 0;
  virtual void GetValue(TMessage* message) const = 0;
  virtual void GetDefault(TMessage* message) const = 0;
  virtual TIAPConfiguration Configuration() const = 0;

 private:
  std::string mName;
};

/// A preference that is a text.
class TIAPStringItem : public TIAPItem {
 public:
  TIAPStringItem(const char* name, std::string_view value)
      : TIAPItem(name), mDefault(value), mValue(value) {}
  bool GetString(std::string* value) const override;
  bool SetString(std::string_view value) override;
  bool SetValue(const TMessage& message) override;
  void GetValue(TMessage* message) const override;
  void GetDefault(TMessage* message) const override;

 protected:
  virtual bool IsPossible(std::string_view value) const = 0;

 private:
  std::string mDefault;
  std::string mValue;
};

/// How a label shows its key: see merge_accelerator_key. The empty format shows none.
class TIAPItemAccKeyFormat final : public TIAPStringItem {
 public:
  TIAPItemAccKeyFormat() : TIAPStringItem(ACC_KEY_FORMAT_ITEM, DEFAULT_ACC_KEY_FORMAT) {}
  TIAPConfiguration Configuration() const override;

 protected:
  bool IsPossible(std::string_view value) const override;
};

/// Whether tool bars are flat.
class TIAPItemFlatToolBar final : public TIAPItem {
 public:
  TIAPItemFlatToolBar() : TIAPItem(FLAT_TOOL_BAR_ITEM) {}
  bool GetBool(bool* value) const override;
  bool SetBool(bool value) override;
  bool SetValue(const TMessage& message) override;
  void GetValue(TMessage* message) const override;
  void GetDefault(TMessage* message) const override;
  TIAPConfiguration Configuration() const override;

 private:
  bool mFlat = true;
};

/// A preference with a few values, the first of which is the default.
class TIAPChoiceItem final : public TIAPStringItem {
 public:
  TIAPChoiceItem(const char* name, TIAPConfiguration configuration);
  TIAPConfiguration Configuration() const override { return mConfiguration; }

 protected:
  bool IsPossible(std::string_view value) const override;

 private:
  TIAPConfiguration mConfiguration;
};

/// The language of texts: the system's, English, Japanese.
std::unique_ptr<TIAPItem> make_language_item();
/// The colours of windows: the system's, light, dark, of high contrast.
std::unique_ptr<TIAPItem> make_theme_item();

}  // namespace zoka
