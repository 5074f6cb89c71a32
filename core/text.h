// Texts of the running program: immutable counted blocks, of which values show a leading part. The
// machine's thread alone touches counts; another thread copies bytes under the variables' lock.
#pragma once

#include <cstdint>
#include <string_view>

namespace zoka {

/// Counts the bytes that a run holds in texts and arrays, and says when they are too many. One run
/// has one; it is the machine's thread's own.
struct TMemoryBudget {
  int64_t used = 0;
  int64_t limit = INT64_MAX;
};

/// Longest text of a program. (1 GiB; far above any use, below what 32-bit lengths hold.)
constexpr uint32_t MAX_TEXT_BYTES = 1u << 30;

/// Bytes of one or more texts. Bytes below `used` never change; a value whose length equals `used`
/// may be extended in place. Never holds a NUL within the length of a value.
class TTextBlock {
 public:
  /// A new block with count 1. Throws std::bad_alloc when memory, or the budget, does not allow it.
  static TTextBlock* Create(std::string_view text, uint32_t capacity);
  /// A block that lives until FreeLiteral: retaining and releasing it do nothing.
  static TTextBlock* CreateLiteral(std::string_view text);
  static void FreeLiteral(TTextBlock* literal);
  /// The one empty text; immortal.
  static TTextBlock* Empty() { return &gEmpty; }

  /// The budget that new blocks of this thread count against; null for none.
  static void SetBudget(TMemoryBudget* budget);

  void Retain() {
    if (mCount > 0) ++mCount;
  }
  void Release() {
    if (mCount > 0 && --mCount == 0) Free();
  }

  /// True for literals and the empty text: their address is never used again during a run.
  bool IsImmortal() const { return mCount == 0; }

  const char* Bytes() const { return reinterpret_cast<const char*>(this + 1); }
  uint32_t Used() const { return mUsed; }
  uint32_t Capacity() const { return mCapacity; }
  std::string_view View(uint32_t length) const { return {Bytes(), length}; }
  /// For a literal, whose value is all of it.
  std::string_view View() const { return {Bytes(), mUsed}; }

  /// Appends in place if a value of `length` ends at the used end and there is room; false if not.
  bool Extend(uint32_t length, std::string_view more);

 private:
  constexpr TTextBlock(int32_t count, uint32_t used, uint32_t capacity, bool counted)
      : mCount(count), mUsed(used), mCapacity(capacity), mCounted(counted ? 1 : 0) {}
  void Free();

  static TTextBlock gEmpty;

  int32_t mCount;  // 0: immortal
  uint32_t mUsed;
  uint32_t mCapacity;
  uint32_t mCounted;  // 1: its bytes stand in a budget
};
static_assert(sizeof(TTextBlock) == 16);

/// A value: a block and how much of it. Owns one count of its block. Zeroed memory is an empty
/// text, so that arrays of texts need no work before they are used.
class TText {
 public:
  TText() = default;
  /// Copies `text` up to its first NUL: texts of the language end there.
  explicit TText(std::string_view text);
  /// Takes over a count of `block`.
  TText(TTextBlock* block, uint32_t length) : mBlock(block), mLength(length) {}
  TText(const TText& other) : mBlock(other.mBlock), mLength(other.mLength) {
    if (mBlock != nullptr) mBlock->Retain();
  }
  TText(TText&& other) noexcept : mBlock(other.mBlock), mLength(other.mLength) {
    other.mBlock = nullptr;
    other.mLength = 0;
  }
  TText& operator=(TText other) noexcept {
    TTextBlock* block = mBlock;
    mBlock = other.mBlock;
    other.mBlock = block;
    mLength = other.mLength;
    return *this;
  }
  ~TText() {
    if (mBlock != nullptr) mBlock->Release();
  }

  std::string_view View() const { return Block()->View(mLength); }
  uint32_t Length() const { return mLength; }
  /// Never null.
  TTextBlock* Block() const { return mBlock != nullptr ? mBlock : TTextBlock::Empty(); }
  /// Gives the count away, and the length is forgotten; never null.
  TTextBlock* Detach() {
    TTextBlock* block = Block();
    mBlock = nullptr;
    mLength = 0;
    return block;
  }
  /// Left and right joined; extends the left's block in place where it can. `right` holds no NUL
  /// and may lie in the left's own block. Throws std::bad_alloc, or std::length_error beyond
  /// MAX_TEXT_BYTES.
  static TText Concatenate(TText left, std::string_view right);

 private:
  TTextBlock* mBlock = nullptr;
  uint32_t mLength = 0;
};

}  // namespace zoka
