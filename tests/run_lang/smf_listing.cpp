// A small reader of Standard MIDI Files of formats 0 and 1.
#include "tests/run_lang/smf_listing.h"

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace zoka {

namespace {

constexpr uint32_t DEFAULT_TEMPO = 500000;  // microseconds a quarter note
constexpr int64_t MICROSECONDS = 1000000;
constexpr uint8_t META = 0xFF;
constexpr uint8_t META_TEMPO = 0x51;
constexpr uint8_t META_END = 0x2F;
constexpr uint8_t SYSEX = 0xF0;
constexpr uint8_t ESCAPE = 0xF7;

/// Hands out bytes in order and throws at the end of its text.
class TReader {
 public:
  explicit TReader(const std::string& bytes) : mBytes(bytes) {}

  bool AtEnd() const { return mPos == mBytes.size(); }
  uint8_t Peek() const { return static_cast<uint8_t>(mBytes.at(mPos)); }
  uint8_t Byte() { return static_cast<uint8_t>(mBytes.at(mPos++)); }

  uint32_t Number(int bytes) {
    uint32_t value = 0;
    while (bytes-- > 0) {
      value = value << 8 | Byte();
    }
    return value;
  }

  /// A number of variable length, seven bits a byte.
  uint32_t Length() {
    uint32_t value = 0;
    uint8_t byte = 0x80;
    while ((byte & 0x80) != 0) {
      byte = Byte();
      value = value << 7 | (byte & 0x7F);
    }
    return value;
  }

  std::string Text(size_t length) {
    if (mBytes.size() - mPos < length) {
      throw std::out_of_range("text beyond the end");
    }
    mPos += length;
    return mBytes.substr(mPos - length, length);
  }

 private:
  const std::string& mBytes;
  size_t mPos = 0;
};

struct TEvent {
  int64_t tick = 0;
  /// The line without its time; empty for a change of tempo.
  std::string text;
  uint32_t tempo = 0;
};

std::string channel_event(uint8_t status, TReader& reader) {
  static const char* const NAMES[] = {"off", "on", "touch", "control", "program", "pressure"};
  const int kind = (status >> 4) - 8;
  std::ostringstream text;
  text << (status & 0x0F) << ' ';
  if (kind == 6) {
    const int low = reader.Byte();
    text << "bend " << (reader.Byte() << 7 | low);
    return text.str();
  }
  text << NAMES[kind] << ' ' << int{reader.Byte()};
  if (kind < 4) {
    text << ' ' << int{reader.Byte()};
  }
  return text.str();
}

std::string sysex_event(TReader& reader) {
  static const char DIGITS[] = "0123456789ABCDEF";
  std::string text = "- sysex";
  for (const char byte : reader.Text(reader.Length())) {
    const auto value = static_cast<uint8_t>(byte);
    text += {' ', DIGITS[value >> 4], DIGITS[value & 15]};
  }
  return text;
}

/// Takes a meta event; false at the end of the track.
bool take_meta(TReader& reader, TEvent& event) {
  const uint8_t type = reader.Byte();
  const std::string data = reader.Text(reader.Length());
  if (type == META_TEMPO) {
    TReader tempo(data);
    event.tempo = tempo.Number(3);
  }
  return type != META_END;
}

void read_track(const std::string& bytes, std::vector<TEvent>& events) {
  TReader reader(bytes);
  int64_t tick = 0;
  uint8_t status = 0;
  for (bool more = true; more;) {
    TEvent event;
    tick += reader.Length();
    event.tick = tick;
    if ((reader.Peek() & 0x80) != 0) {
      status = reader.Byte();
    }
    if (status == META) {
      more = take_meta(reader, event);
    } else if (status == SYSEX || status == ESCAPE) {
      event.text = sysex_event(reader);
    } else if ((status & 0x80) != 0 && status < SYSEX) {
      event.text = channel_event(status, reader);
    } else {
      throw std::runtime_error("not a MIDI status");
    }
    events.push_back(event);
  }
}

/// Turns ticks into microseconds, exactly until the last rounding.
class TTimeline {
 public:
  explicit TTimeline(uint32_t division) {
    if ((division & 0x8000) != 0) {
      const int frames = 256 - static_cast<int>(division >> 8);
      mDivision = int64_t{frames} * (division & 0xFF);
      mTempo = MICROSECONDS;
      mFixed = true;
    } else {
      mDivision = division;
    }
    if (mDivision == 0) {
      throw std::runtime_error("a division of 0");
    }
  }

  int64_t Advance(int64_t tick) {
    mScaled += (tick - mTick) * mTempo;
    mTick = tick;
    return (mScaled + mDivision / 2) / mDivision;
  }

  void SetTempo(uint32_t tempo) {
    if (!mFixed) {
      mTempo = tempo;
    }
  }

 private:
  int64_t mDivision = 0;
  int64_t mTempo = DEFAULT_TEMPO;
  int64_t mTick = 0;
  int64_t mScaled = 0;  // microseconds times mDivision
  bool mFixed = false;
};

std::string list_events(std::vector<TEvent> events, TTimeline timeline) {
  std::stable_sort(events.begin(), events.end(),
                   [](const TEvent& a, const TEvent& b) { return a.tick < b.tick; });
  std::ostringstream lines;
  for (const TEvent& event : events) {
    const int64_t time = timeline.Advance(event.tick);
    if (event.tempo != 0) {
      timeline.SetTempo(event.tempo);
    } else if (!event.text.empty()) {
      lines << time << ' ' << event.text << '\n';
    }
  }
  return lines.str();
}

std::string list_file(TReader& reader) {
  if (reader.Text(4) != "MThd" || reader.Number(4) != 6) {
    throw std::runtime_error("no MIDI header");
  }
  reader.Number(2);
  const uint32_t tracks = reader.Number(2);
  const TTimeline timeline(reader.Number(2));
  std::vector<TEvent> events;
  for (uint32_t track = 0; track < tracks; ++track) {
    if (reader.Text(4) != "MTrk") {
      throw std::runtime_error("no track where one is due");
    }
    read_track(reader.Text(reader.Number(4)), events);
  }
  if (!reader.AtEnd()) {
    throw std::runtime_error("bytes behind the last track");
  }
  return list_events(std::move(events), timeline);
}

}  // namespace

std::string list_midi(const std::string& bytes) {
  TReader reader(bytes);
  try {
    return list_file(reader);
  } catch (const std::out_of_range&) {
    throw std::runtime_error("the MIDI file ends too early");
  }
}

}  // namespace zoka
