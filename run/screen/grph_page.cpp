// The memory of a graphic page.
#include "run/screen/grph_page.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace zoka {

namespace {

constexpr size_t PIXELS = static_cast<size_t>(SCREEN_WIDTH) * SCREEN_HEIGHT;
constexpr size_t BYTES = PIXELS * (sizeof(uint8_t) + sizeof(uint32_t));

/// Zeroed memory for both planes that costs nothing until it is touched.
void* map_zeroed() {
  void* memory = mmap(nullptr, BYTES, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::bad_alloc();
  return memory;
}

}  // namespace

TGrphPage::TGrphPage()
    : mIndex(static_cast<uint8_t*>(map_zeroed())),
      mReal(reinterpret_cast<uint32_t*>(mIndex + PIXELS)) {}

TGrphPage::~TGrphPage() {
  munmap(mIndex, BYTES);
}

void TGrphPage::Clear(const TPen& pen) {
  if (mPristine && pen.index == 0 && pen.real == 0) return;
  Touch();
  std::memset(mIndex, pen.index, PIXELS);
  std::fill_n(mReal, PIXELS, pen.real);
}

}  // namespace zoka
