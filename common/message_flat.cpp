// The flat form of a message, little-endian:
//   message: what u32, number of fields u32, fields
//   field:   name (text), type u8, number of values u32 (at least 1), values
//   text:    length u32, bytes;  a nested message is a text that holds its flat form
#include <bit>
#include <type_traits>
#include <unordered_set>

#include "common/message.h"

namespace zoka {

namespace {

using TValue = TMessage::TValue;
using TField = TMessage::TField;

/// Types of a value in the flat form: its place among the alternatives.
constexpr size_t TYPE_COUNT = std::variant_size_v<TValue>;

template <typename T>
void put_number(std::string& out, T value) {
  for (size_t i = 0; i < sizeof(T); ++i) out += static_cast<char>(value >> 8 * i & 0xFF);
}

void put_text(std::string& out, std::string_view text) {
  put_number(out, static_cast<uint32_t>(text.size()));
  out += text;
}

/// Writes one value of each kind.
struct TValueWriter {
  std::string& out;
  void operator()(const std::string& value) const { put_text(out, value); }
  void operator()(bool value) const { put_number<uint8_t>(out, value); }
  void operator()(int32_t value) const { put_number(out, static_cast<uint32_t>(value)); }
  void operator()(int64_t value) const { put_number(out, static_cast<uint64_t>(value)); }
  void operator()(float value) const { put_number(out, std::bit_cast<uint32_t>(value)); }
  void operator()(double value) const { put_number(out, std::bit_cast<uint64_t>(value)); }
  void operator()(const TFrame& value) const {
    for (float side : {value.left, value.top, value.right, value.bottom}) (*this)(side);
  }
  void operator()(const std::shared_ptr<const TMessage>& value) const {
    put_text(out, value->Flatten());
  }
  void operator()(const TPathRef& value) const { put_text(out, value.bytes); }
  void operator()(THandlerId value) const { put_number(out, value.id); }
};

/// Takes a flat form apart. Each operation returns false where the bytes do not suffice.
class TReader {
 public:
  TReader(std::string_view bytes, int nesting) : mRest(bytes), mNesting(nesting) {}

  bool Message(TMessage* out, std::vector<TField>* fields);

 private:
  template <typename T>
  bool Number(T* out);
  bool Text(std::string_view* out);
  bool Field(TField* out);
  bool Value(size_t type, TValue* out);

  template <size_t TYPE>
  bool ValueOf(TValue* out) {
    std::variant_alternative_t<TYPE, TValue> value{};
    if (!Read(&value)) return false;
    *out = std::move(value);
    return true;
  }

  bool Read(std::string* out);
  bool Read(bool* out);
  bool Read(int32_t* out);
  bool Read(int64_t* out);
  bool Read(float* out);
  bool Read(double* out);
  bool Read(TFrame* out);
  bool Read(std::shared_ptr<const TMessage>* out);
  bool Read(TPathRef* out);
  bool Read(THandlerId* out) { return Number(&out->id); }

  std::string_view mRest;
  int mNesting;
};

template <typename T>
bool TReader::Number(T* out) {
  if (mRest.size() < sizeof(T)) return false;
  T value = 0;
  for (size_t i = 0; i < sizeof(T); ++i) {
    value = static_cast<T>(value | static_cast<T>(static_cast<unsigned char>(mRest[i])) << 8 * i);
  }
  mRest.remove_prefix(sizeof(T));
  *out = value;
  return true;
}

bool TReader::Text(std::string_view* out) {
  uint32_t length = 0;
  if (!Number(&length) || length > mRest.size()) return false;
  *out = mRest.substr(0, length);
  mRest.remove_prefix(length);
  return true;
}

bool TReader::Read(std::string* out) {
  std::string_view text;
  if (!Text(&text)) return false;
  *out = text;
  return true;
}

bool TReader::Read(bool* out) {
  uint8_t value = 0;
  if (!Number(&value) || value > 1) return false;
  *out = value == 1;
  return true;
}

bool TReader::Read(int32_t* out) {
  uint32_t bits = 0;
  if (!Number(&bits)) return false;
  *out = static_cast<int32_t>(bits);
  return true;
}

bool TReader::Read(int64_t* out) {
  uint64_t bits = 0;
  if (!Number(&bits)) return false;
  *out = static_cast<int64_t>(bits);
  return true;
}

bool TReader::Read(float* out) {
  uint32_t bits = 0;
  if (!Number(&bits)) return false;
  *out = std::bit_cast<float>(bits);
  return true;
}

bool TReader::Read(double* out) {
  uint64_t bits = 0;
  if (!Number(&bits)) return false;
  *out = std::bit_cast<double>(bits);
  return true;
}

bool TReader::Read(TFrame* out) {
  return Read(&out->left) && Read(&out->top) && Read(&out->right) && Read(&out->bottom);
}

bool TReader::Read(std::shared_ptr<const TMessage>* out) {
  std::string_view text;
  if (mNesting >= TMessage::MAX_NESTING || !Text(&text)) return false;
  auto message = std::make_shared<TMessage>();
  if (!message->UnflattenNested(text, mNesting + 1)) return false;
  *out = std::move(message);
  return true;
}

bool TReader::Read(TPathRef* out) {
  return Read(&out->bytes);
}

bool TReader::Value(size_t type, TValue* out) {
  static_assert(TYPE_COUNT == 10, "a new kind of value needs its row here");
  switch (type) {
    case 0:
      return ValueOf<0>(out);
    case 1:
      return ValueOf<1>(out);
    case 2:
      return ValueOf<2>(out);
    case 3:
      return ValueOf<3>(out);
    case 4:
      return ValueOf<4>(out);
    case 5:
      return ValueOf<5>(out);
    case 6:
      return ValueOf<6>(out);
    case 7:
      return ValueOf<7>(out);
    case 8:
      return ValueOf<8>(out);
    case 9:
      return ValueOf<9>(out);
    default:
      return false;
  }
}

bool TReader::Field(TField* out) {
  uint8_t type = 0;
  uint32_t count = 0;
  if (!Read(&out->name) || !Number(&type) || !Number(&count) || count == 0) return false;
  // Each value takes at least a byte, so that a false count runs out of bytes before long.
  for (uint32_t i = 0; i < count; ++i) {
    TValue value;
    if (!Value(type, &value)) return false;
    out->values.push_back(std::move(value));
  }
  return true;
}

bool TReader::Message(TMessage* out, std::vector<TField>* fields) {
  uint32_t count = 0;
  if (!Number(&out->what) || !Number(&count)) return false;
  std::unordered_set<std::string> names;
  for (uint32_t i = 0; i < count; ++i) {
    TField field;
    if (!Field(&field) || !names.insert(field.name).second) return false;
    fields->push_back(std::move(field));
  }
  return mRest.empty();
}

}  // namespace

std::string TMessage::Flatten() const {
  std::string out;
  put_number(out, what);
  put_number(out, static_cast<uint32_t>(mFields.size()));
  for (const TField& field : mFields) {
    put_text(out, field.name);
    put_number(out, static_cast<uint8_t>(field.values.front().index()));
    put_number(out, static_cast<uint32_t>(field.values.size()));
    for (const TValue& value : field.values) std::visit(TValueWriter{out}, value);
  }
  return out;
}

bool TMessage::UnflattenNested(std::string_view bytes, int nesting) {
  TMessage result;
  if (!TReader(bytes, nesting).Message(&result, &result.mFields)) return false;
  *this = std::move(result);
  return true;
}

bool TMessage::Unflatten(std::string_view bytes) {
  return UnflattenNested(bytes, 0);
}

}  // namespace zoka
