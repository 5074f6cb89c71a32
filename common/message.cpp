// TMessage: fields and their look-up. The flat form is in message_flat.cpp.
#include "common/message.h"

#include <algorithm>

namespace zoka {

void TMessage::Add(std::string_view name, TValue value) {
  const auto it = std::ranges::find(mFields, name, &TField::name);
  if (it == mFields.end()) {
    mFields.push_back({std::string(name), {}});
    mFields.back().values.push_back(std::move(value));
  } else if (it->values.front().index() == value.index()) {
    it->values.push_back(std::move(value));
  }
}

void TMessage::AddString(std::string_view name, std::string_view value) {
  Add(name, std::string(value));
}
void TMessage::AddBool(std::string_view name, bool value) {
  Add(name, value);
}
void TMessage::AddInt32(std::string_view name, int32_t value) {
  Add(name, value);
}
void TMessage::AddInt64(std::string_view name, int64_t value) {
  Add(name, value);
}
void TMessage::AddFloat(std::string_view name, float value) {
  Add(name, value);
}
void TMessage::AddDouble(std::string_view name, double value) {
  Add(name, value);
}
void TMessage::AddRect(std::string_view name, const TFrame& value) {
  Add(name, value);
}
void TMessage::AddMessage(std::string_view name, const TMessage& value) {
  Add(name, std::make_shared<const TMessage>(value));
}
void TMessage::AddRef(std::string_view name, const TPathRef& value) {
  Add(name, value);
}
void TMessage::AddHandler(std::string_view name, THandlerId value) {
  Add(name, value);
}

const TMessage::TField* TMessage::Field(std::string_view name) const {
  const auto it = std::ranges::find(mFields, name, &TField::name);
  return it == mFields.end() ? nullptr : &*it;
}

template <typename T>
bool TMessage::Find(std::string_view name, T* out, size_t index) const {
  const TField* field = Field(name);
  if (!field || index >= field->values.size()) return false;
  const T* value = std::get_if<T>(&field->values[index]);
  if (!value) return false;
  *out = *value;
  return true;
}

bool TMessage::FindString(std::string_view name, std::string* out, size_t index) const {
  return Find(name, out, index);
}
bool TMessage::FindBool(std::string_view name, bool* out, size_t index) const {
  return Find(name, out, index);
}
bool TMessage::FindInt32(std::string_view name, int32_t* out, size_t index) const {
  return Find(name, out, index);
}
bool TMessage::FindInt64(std::string_view name, int64_t* out, size_t index) const {
  return Find(name, out, index);
}
bool TMessage::FindFloat(std::string_view name, float* out, size_t index) const {
  return Find(name, out, index);
}
bool TMessage::FindDouble(std::string_view name, double* out, size_t index) const {
  return Find(name, out, index);
}
bool TMessage::FindRect(std::string_view name, TFrame* out, size_t index) const {
  return Find(name, out, index);
}
bool TMessage::FindMessage(std::string_view name, TMessage* out, size_t index) const {
  std::shared_ptr<const TMessage> message;
  if (!Find(name, &message, index)) return false;
  *out = *message;
  return true;
}
bool TMessage::FindRef(std::string_view name, TPathRef* out, size_t index) const {
  return Find(name, out, index);
}
bool TMessage::FindHandler(std::string_view name, THandlerId* out, size_t index) const {
  return Find(name, out, index);
}

void TMessage::AddField(const TField& field) {
  if (!Field(field.name)) mFields.push_back(field);
}

bool TMessage::HasField(std::string_view name) const {
  return Field(name) != nullptr;
}

void TMessage::RemoveName(std::string_view name) {
  std::erase_if(mFields, [&](const TField& field) { return field.name == name; });
}

void TMessage::ReplaceString(std::string_view name, std::string_view value) {
  // The value may lie in the field that goes away.
  std::string kept(value);
  RemoveName(name);
  Add(name, std::move(kept));
}

}  // namespace zoka
