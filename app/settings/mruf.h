// TMRUF: the list of most recently used paths. The menu that shows it belongs to the windows.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "app/settings/archivable.h"

namespace zoka {

/// Paths in a history, unless its owner says otherwise.
constexpr int32_t DEFAULT_MAX_MRUF = 10;
/// More are not read from a file.
constexpr size_t MAX_STORED_MRUF = 1000;

/// A history, newest first, each path once. One thread.
class TMRUF : public TArchivable {
 public:
  /// The number of paths that the next add leaves.
  void SetMaxMRUF(int32_t max) { mMax = max > 0 ? static_cast<size_t>(max) : 0; }

  /// Puts the path in front, from wherever it was, and drops those beyond the maximum.
  void AddMRUF(std::string_view path);
  void RemoveMRUF(std::string_view path);
  void ClearMRUF() { mPaths.clear(); }

  /// Position of the path, or -1.
  int32_t FindMRUF(std::string_view path) const;
  /// The path at that position; empty where there is none.
  std::string MRUFAt(int32_t index) const;
  int32_t CountMRUFs() const { return static_cast<int32_t>(mPaths.size()); }

  /// The oldest is written first, so that adding in order on reading restores the order. Reading
  /// does not drop anything; the next add does.
  int32_t Archive(TMessage* message) const override;
  void Unarchive(const TMessage& message) override;
  bool KnowsField(std::string_view name) const override;

 private:
  void PutInFront(std::string_view path);
  void DeleteExtraMRUF();

  std::deque<std::string> mPaths;
  size_t mMax = DEFAULT_MAX_MRUF;
};

}  // namespace zoka
