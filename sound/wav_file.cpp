// Rendering to a file, faster than it sounds.
#include "sound/wav_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <memory>

#include "sound/synthesizer.h"

namespace zoka {

namespace {

constexpr uint32_t CHANNELS = 2;
constexpr uint32_t BYTES_PER_SAMPLE = 2;
constexpr uint32_t FRAME_BYTES = CHANNELS * BYTES_PER_SAMPLE;
constexpr uint32_t HEADER_BYTES = 44;
constexpr int64_t MAX_FRAMES = (int64_t{UINT32_MAX} - HEADER_BYTES) / FRAME_BYTES;
constexpr size_t BLOCK_FRAMES = 1024;

struct TFileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

void append_little_endian(std::string* out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out->push_back(static_cast<char>(value >> (8 * i) & 0xFF));
}

std::string wav_header(uint32_t frames) {
  const uint32_t data = frames * FRAME_BYTES;
  std::string header = "RIFF";
  append_little_endian(&header, HEADER_BYTES - 8 + data, 4);
  header += "WAVEfmt ";
  append_little_endian(&header, 16, 4);
  append_little_endian(&header, 1, 2);  // plain samples
  append_little_endian(&header, CHANNELS, 2);
  append_little_endian(&header, SYNTH_RATE, 4);
  append_little_endian(&header, SYNTH_RATE * FRAME_BYTES, 4);
  append_little_endian(&header, FRAME_BYTES, 2);
  append_little_endian(&header, BYTES_PER_SAMPLE * 8, 2);
  header += "data";
  append_little_endian(&header, data, 4);
  return header;
}

// Rounded by ourselves: the library's own conversion adds noise that depends on its history.
void append_sample(std::string* out, float sample) {
  constexpr float MAX = 32767.0F;
  const float value = std::clamp(sample * MAX, -MAX - 1, MAX);
  append_little_endian(out, static_cast<uint32_t>(std::lround(value)), BYTES_PER_SAMPLE);
}

// Writes samples behind a header that is completed at the end.
class TWavWriter {
 public:
  TWavWriter(const std::string& path, TSynthesizer& synth)
      : mSynth(synth), mFile(std::fopen(path.c_str(), "wbe")) {
    Put(wav_header(0));
  }

  int64_t Frames() const { return mFrames; }
  bool IsGood() const { return mGood; }

  void RenderTo(int64_t frame) {
    if (frame > MAX_FRAMES) mGood = false;
    while (mGood && mFrames < frame) {
      RenderBlock(std::min<size_t>(BLOCK_FRAMES, static_cast<size_t>(frame - mFrames)));
    }
  }

  bool Finish() {
    if (!mFile) return false;
    if (std::fseek(mFile.get(), 0, SEEK_SET) != 0) mGood = false;
    Put(wav_header(static_cast<uint32_t>(mFrames)));
    return std::fclose(mFile.release()) == 0 && mGood;
  }

 private:
  // A long silence costs nothing: what echoes of the last note is over by then.
  void RenderBlock(size_t frames) {
    mSilentFrames = mSynth.IsSounding() ? 0 : mSilentFrames + static_cast<int64_t>(frames);
    if (mSilentFrames > SYNTH_TAIL_FRAMES) {
      mLeft.fill(0);
      mRight.fill(0);
    } else {
      mSynth.Render(mLeft.data(), mRight.data(), frames);
    }
    std::string bytes;
    for (size_t i = 0; i < frames; ++i) {
      append_sample(&bytes, mLeft[i]);
      append_sample(&bytes, mRight[i]);
    }
    Put(bytes);
    mFrames += static_cast<int64_t>(frames);
  }

  void Put(const std::string& bytes) {
    if (!mFile || std::fwrite(bytes.data(), 1, bytes.size(), mFile.get()) != bytes.size()) {
      mGood = false;
    }
  }

  TSynthesizer& mSynth;
  std::unique_ptr<std::FILE, TFileCloser> mFile;
  int64_t mFrames = 0;
  int64_t mSilentFrames = 0;
  bool mGood = true;
  std::array<float, BLOCK_FRAMES> mLeft;
  std::array<float, BLOCK_FRAMES> mRight;
};

int64_t frame_at(bigtime_t time) {
  constexpr bigtime_t MAX_TIME = bigtime_t{1} << 40;  // far beyond what a file holds
  return std::clamp<bigtime_t>(time, 0, MAX_TIME) * SYNTH_RATE / 1000000;
}

}  // namespace

bool write_wav_file(const std::string& path, const std::vector<TMidiEvent>& events) {
  const std::unique_ptr<TSynthesizer> synth = TSynthesizer::Create();
  if (!synth) return false;
  TWavWriter writer(path, *synth);
  for (const TMidiEvent& event : events) {
    writer.RenderTo(frame_at(event.time));
    if (!writer.IsGood()) break;
    synth->Apply(event.bytes);
  }
  const int64_t end = writer.Frames() + SYNTH_TAIL_FRAMES;
  while (writer.IsGood() && writer.Frames() < end && synth->IsSounding()) {
    writer.RenderTo(std::min<int64_t>(writer.Frames() + int64_t{BLOCK_FRAMES}, end));
  }
  return writer.Finish();
}

}  // namespace zoka
