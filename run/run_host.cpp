// The defaults of TRunHost: a host that shows and answers nothing.
#include "run/run_host.h"

#include "common/host_memory.h"

namespace zoka {

namespace {

constexpr int64_t PAGE_KBYTES = 4;

}  // namespace

void TRunHost::Post(std::function<void()>) {}
void TRunHost::Present(const TRect&) {}
void TRunHost::ComposeSoon() {}
bool TRunHost::WantsPicture() const {
  return false;
}
void TRunHost::TranscriptRow(std::string_view) {}
void TRunHost::FlushOutput() {}
void TRunHost::SetTitle(const std::string&) {}
void TRunHost::DriveChanged(int32_t, const std::string&, const std::string&) {}
void TRunHost::Lamp(int32_t, int32_t) {}
void TRunHost::SetClipboardText(const std::string&) {}
void TRunHost::SetClipboardImage(const TFrameBuffer&) {}
TKeyStates TRunHost::KeyStates() const {
  return {};
}
void TRunHost::CapturePointer(bool) {}
int64_t TRunHost::FreeMemoryKBytes() const {
  return free_memory_kbytes();
}
void TRunHost::RunEnded(int64_t, int32_t, const TMessage*) {}

int64_t free_memory_kbytes() {
  return available_memory_kbytes().value_or(0) / PAGE_KBYTES * PAGE_KBYTES;
}

}  // namespace zoka
