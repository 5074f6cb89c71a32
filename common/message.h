// TMessage: a four-character code and named, typed, repeated, nestable fields: what windows, runs
// and documents send each other, and what settings files hold. It knows nothing of who handles it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "common/types.h"

namespace zoka {

/// Packs a code of up to four characters, first character highest: message_code("vmrr") is
/// 0x766D7272, message_code("run") 0x0072756E.
constexpr uint32_t message_code(std::string_view text) {
  uint32_t code = 0;
  for (char c : text) code = code << 8 | static_cast<unsigned char>(c);
  return code;
}

/// A path as raw bytes (file names need not be UTF-8).
struct TPathRef {
  std::string bytes;
  bool operator==(const TPathRef&) const = default;
};

/// Names a registered handler weakly (see THandlerRegistry); 0 is none.
struct THandlerId {
  uint32_t id = 0;
  bool operator==(const THandlerId&) const = default;
};

/// A message. Copied by value. Not locked.
class TMessage {
 public:
  using TValue = std::variant<std::string, bool, int32_t, int64_t, float, double, TFrame,
                              std::shared_ptr<const TMessage>, TPathRef, THandlerId>;
  struct TField {
    std::string name;
    std::vector<TValue> values;  // all of one type
  };

  /// Messages within messages, at most; beyond that Unflatten refuses.
  static constexpr int MAX_NESTING = 16;

  uint32_t what = 0;

  TMessage() = default;
  explicit TMessage(uint32_t code) : what(code) {}
  explicit TMessage(std::string_view code) : what(message_code(code)) {}

  /// Each adds a value to the field of that name, behind those that it has; to a field of another
  /// type nothing is added.
  void AddString(std::string_view name, std::string_view value);
  void AddBool(std::string_view name, bool value);
  void AddInt32(std::string_view name, int32_t value);
  void AddInt64(std::string_view name, int64_t value);
  void AddFloat(std::string_view name, float value);
  void AddDouble(std::string_view name, double value);
  void AddRect(std::string_view name, const TFrame& value);
  void AddMessage(std::string_view name, const TMessage& value);
  void AddRef(std::string_view name, const TPathRef& value);
  void AddHandler(std::string_view name, THandlerId value);

  /// Each writes its target and returns true only if the field has a value of that type at `index`;
  /// a value of another type counts as missing.
  bool FindString(std::string_view name, std::string* out, size_t index = 0) const;
  bool FindBool(std::string_view name, bool* out, size_t index = 0) const;
  bool FindInt32(std::string_view name, int32_t* out, size_t index = 0) const;
  bool FindInt64(std::string_view name, int64_t* out, size_t index = 0) const;
  bool FindFloat(std::string_view name, float* out, size_t index = 0) const;
  bool FindDouble(std::string_view name, double* out, size_t index = 0) const;
  bool FindRect(std::string_view name, TFrame* out, size_t index = 0) const;
  bool FindMessage(std::string_view name, TMessage* out, size_t index = 0) const;
  bool FindRef(std::string_view name, TPathRef* out, size_t index = 0) const;
  bool FindHandler(std::string_view name, THandlerId* out, size_t index = 0) const;

  /// Adds a whole field with all its values, unless there is one of that name.
  void AddField(const TField& field);
  bool HasField(std::string_view name) const;
  void RemoveName(std::string_view name);
  /// Removes `name` and adds the value: the field then has just that one.
  void ReplaceString(std::string_view name, std::string_view value);
  const std::vector<TField>& Fields() const { return mFields; }
  bool IsEmpty() const { return mFields.empty(); }

  /// Compact binary form, little-endian, the same on every machine.
  std::string Flatten() const;
  /// Reads a flat form whole. Every length is checked against what is left, nothing is allocated by
  /// a declared size, all bytes must be used up. On failure returns false and leaves *this alone.
  bool Unflatten(std::string_view bytes);
  /// The same for a message that lies `nesting` levels deep in another; at MAX_NESTING it may hold
  /// none itself.
  bool UnflattenNested(std::string_view bytes, int nesting);

 private:
  void Add(std::string_view name, TValue value);
  const TField* Field(std::string_view name) const;
  template <typename T>
  bool Find(std::string_view name, T* out, size_t index) const;

  std::vector<TField> mFields;
};

}  // namespace zoka
