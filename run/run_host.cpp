// The defaults of TRunHost: a host that shows and answers nothing.
#include "run/run_host.h"

#include <fstream>
#include <string>

namespace zoka {

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
  std::ifstream info("/proc/meminfo");
  std::string name;
  int64_t kbytes = 0;
  while (info >> name >> kbytes) {
    if (name == "MemAvailable:") return kbytes / 4 * 4;
    info.ignore(256, '\n');
  }
  return 0;
}

}  // namespace zoka
