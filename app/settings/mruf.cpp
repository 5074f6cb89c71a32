// The history of paths.
#include "app/settings/mruf.h"

#include <algorithm>

namespace zoka {

namespace {

constexpr const char PATH_KEY[] = "MRUF";

}  // namespace

void TMRUF::PutInFront(std::string_view path) {
  std::string kept(path);  // may lie in the list
  RemoveMRUF(kept);
  mPaths.push_front(std::move(kept));
}

void TMRUF::DeleteExtraMRUF() {
  if (mPaths.size() > mMax) mPaths.resize(mMax);
}

void TMRUF::AddMRUF(std::string_view path) {
  PutInFront(path);
  DeleteExtraMRUF();
}

void TMRUF::RemoveMRUF(std::string_view path) {
  std::erase(mPaths, path);
}

int32_t TMRUF::FindMRUF(std::string_view path) const {
  const auto it = std::ranges::find(mPaths, path);
  return it == mPaths.end() ? -1 : static_cast<int32_t>(it - mPaths.begin());
}

std::string TMRUF::MRUFAt(int32_t index) const {
  return index >= 0 && index < CountMRUFs() ? mPaths[static_cast<size_t>(index)] : std::string();
}

int32_t TMRUF::Archive(TMessage* message) const {
  for (auto path = mPaths.rbegin(); path != mPaths.rend(); ++path) {
    message->AddString(PATH_KEY, *path);
  }
  return 0;
}

void TMRUF::Unarchive(const TMessage& message) {
  mPaths.clear();
  std::string path;
  for (size_t i = 0; i < MAX_STORED_MRUF && message.FindString(PATH_KEY, &path, i); ++i) {
    PutInFront(path);
  }
}

bool TMRUF::KnowsField(std::string_view name) const {
  return name == PATH_KEY;
}

}  // namespace zoka
