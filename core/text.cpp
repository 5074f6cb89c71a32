// The blocks behind the texts of a running program: allocation, the budget, growth.
#include "core/text.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>

namespace zoka {
namespace {

constexpr size_t ASCII_COUNT = 128;

thread_local TMemoryBudget* gBudget = nullptr;

int64_t block_bytes(uint32_t capacity) {
  return int64_t{sizeof(TTextBlock)} + capacity;
}

void* allocate_block(uint32_t capacity) {
  void* memory = std::malloc(static_cast<size_t>(block_bytes(capacity)));
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

/// Room beyond what is needed now, so that building a text piece by piece is linear.
uint32_t grown_capacity(uint32_t length) {
  return std::min(length + length / 2 + 16, MAX_TEXT_BYTES);
}

/// The texts of one ASCII character, which programs make all the time; they live for ever.
TTextBlock* character_block(char c) {
  static const auto blocks = [] {
    std::array<TTextBlock*, ASCII_COUNT> made;
    for (size_t i = 0; i < made.size(); ++i) {
      const char character = static_cast<char>(i);
      made[i] = TTextBlock::CreateLiteral({&character, 1});
    }
    return made;
  }();
  return blocks[static_cast<unsigned char>(c)];
}

bool is_ascii(char c) {
  return static_cast<unsigned char>(c) < ASCII_COUNT;
}

}  // namespace

constinit TTextBlock TTextBlock::gEmpty{0, 0, 0, false};

TTextBlock* TTextBlock::Create(std::string_view text, uint32_t capacity) {
  const auto length = static_cast<uint32_t>(text.size());
  capacity = std::max(capacity, length);
  if (gBudget != nullptr && gBudget->used > gBudget->limit - block_bytes(capacity)) {
    throw std::bad_alloc();
  }
  void* memory = allocate_block(capacity);
  auto* block = new (memory) TTextBlock(1, length, capacity, gBudget != nullptr);
  if (gBudget != nullptr) gBudget->used += block_bytes(capacity);
  std::copy(text.begin(), text.end(), reinterpret_cast<char*>(block + 1));
  return block;
}

TTextBlock* TTextBlock::CreateLiteral(std::string_view text) {
  const auto length = static_cast<uint32_t>(text.size());
  auto* block = new (allocate_block(length)) TTextBlock(0, length, length, false);
  std::copy(text.begin(), text.end(), reinterpret_cast<char*>(block + 1));
  return block;
}

void TTextBlock::FreeLiteral(TTextBlock* literal) {
  if (literal != &gEmpty) std::free(literal);
}

void TTextBlock::SetBudget(TMemoryBudget* budget) {
  gBudget = budget;
}

void TTextBlock::Free() {
  // After a run its budget is gone, and its last texts go with the image.
  if (mCounted != 0 && gBudget != nullptr) gBudget->used -= block_bytes(mCapacity);
  std::free(this);
}

bool TTextBlock::Extend(uint32_t length, std::string_view more) {
  if (mCount == 0 || length != mUsed || more.size() > mCapacity - mUsed) return false;
  std::copy(more.begin(), more.end(), reinterpret_cast<char*>(this + 1) + mUsed);
  mUsed += static_cast<uint32_t>(more.size());
  return true;
}

TText::TText(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  if (text.empty()) return;
  if (text.size() > MAX_TEXT_BYTES) throw std::length_error("text");
  const bool isCharacter = text.size() == 1 && is_ascii(text[0]);
  mBlock = isCharacter ? character_block(text[0]) : TTextBlock::Create(text, 0);
  mLength = static_cast<uint32_t>(text.size());
}

TText TText::Concatenate(TText left, std::string_view right) {
  if (right.empty()) return left;
  if (right.size() > MAX_TEXT_BYTES - left.mLength) throw std::length_error("text");
  const uint32_t length = left.mLength + static_cast<uint32_t>(right.size());
  if (!left.Block()->Extend(left.mLength, right)) {
    TText joined(TTextBlock::Create(left.View(), grown_capacity(length)), left.mLength);
    joined.mBlock->Extend(joined.mLength, right);
    joined.mLength = length;
    return joined;
  }
  left.mLength = length;
  return left;
}

}  // namespace zoka
