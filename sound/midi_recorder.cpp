// The recorder and the writer of Standard MIDI Files.
#include "sound/midi_recorder.h"

#include <algorithm>
#include <cstdio>

namespace zoka {

namespace {

constexpr bigtime_t SMF_TICK = SMF_TEMPO / SMF_DIVISION;
// The longest gap that a file can state; longer ones are bridged by empty texts.
constexpr int64_t MAX_DELTA = 0x0FFFFFFF;

void append_big_endian(std::string* out, uint32_t value, int bytes) {
  for (int shift = (bytes - 1) * 8; shift >= 0; shift -= 8) {
    out->push_back(static_cast<char>(value >> shift & 0xFF));
  }
}

void append_variable_length(std::string* out, uint32_t value) {
  for (int shift = 21; shift > 0; shift -= 7) {
    if (value >> shift) out->push_back(static_cast<char>((value >> shift & 0x7F) | 0x80));
  }
  out->push_back(static_cast<char>(value & 0x7F));
}

void append_delta(std::string* out, int64_t delta) {
  constexpr std::string_view EMPTY_TEXT("\xFF\x01\x00", 3);
  for (; delta > MAX_DELTA; delta -= MAX_DELTA) {
    append_variable_length(out, MAX_DELTA);
    out->append(EMPTY_TEXT);
  }
  append_variable_length(out, static_cast<uint32_t>(delta));
}

void append_event(std::string* out, const std::string& bytes) {
  if (static_cast<uint8_t>(bytes[0]) != MIDI_SYSEX_START) {
    out->append(bytes);
    return;
  }
  // In a file the length stands between F0 and the rest.
  out->push_back(bytes[0]);
  append_variable_length(out, static_cast<uint32_t>(bytes.size() - 1));
  out->append(bytes, 1);
}

}  // namespace

void TMidiRecorder::Receive(const TMidiEvent& event) {
  const TLock lock(mLock);
  mEvents.push_back(event);
  mEvents.back().time -= mStart;
}

std::vector<TMidiEvent> TMidiRecorder::Events() {
  std::vector<TMidiEvent> events;
  {
    const TLock lock(mLock);
    events = mEvents;
  }
  std::stable_sort(events.begin(), events.end(),
                   [](const TMidiEvent& a, const TMidiEvent& b) { return a.time < b.time; });
  return events;
}

std::string make_midi_file(const std::vector<TMidiEvent>& events) {
  std::string track("\0\xFF\x51\x03", 4);
  append_big_endian(&track, SMF_TEMPO, 3);
  int64_t last = 0;
  for (const TMidiEvent& event : events) {
    if (event.bytes.empty()) continue;
    const int64_t tick = (std::max<bigtime_t>(event.time, 0) + SMF_TICK / 2) / SMF_TICK;
    append_delta(&track, tick - last);
    append_event(&track, event.bytes);
    last = tick;
  }
  track.append("\0\xFF\x2F\0", 4);

  std::string file("MThd\0\0\0\6\0\0\0\1", 12);
  append_big_endian(&file, SMF_DIVISION, 2);
  file.append("MTrk");
  append_big_endian(&file, static_cast<uint32_t>(track.size()), 4);
  return file + track;
}

bool write_whole_file(const std::string& path, std::string_view bytes) {
  std::FILE* file = std::fopen(path.c_str(), "wbe");
  if (!file) return false;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  return std::fclose(file) == 0 && written;
}

}  // namespace zoka
