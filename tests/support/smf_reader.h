// Reads a Standard MIDI File back, for tests. It shares no code with the writer.
#pragma once

#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace zoka_test {

/// An event of the file: time in microseconds and bytes, system exclusive with F0, meta events with
/// FF and their kind but without a length.
struct TSmfEvent {
  int64_t time = 0;
  std::vector<int> bytes;
  bool operator==(const TSmfEvent&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const TSmfEvent& event) {
  out << "{" << event.time << ", {";
  for (int byte : event.bytes) out << " " << byte;
  return out << " }}";
}

struct TSmf {
  int format = 0;
  int tracks = 0;
  int division = 0;
  std::vector<TSmfEvent> events;  // without meta events
  std::vector<TSmfEvent> metas;
};

/// Throws std::runtime_error on anything that the standard does not allow.
class TSmfReader {
 public:
  static TSmf Read(const std::string& file) { return TSmfReader(file).ReadFile(); }

 private:
  explicit TSmfReader(const std::string& file) : mFile(file) {}

  int Byte() {
    if (mPos >= mFile.size()) throw std::runtime_error("file ends early");
    return static_cast<unsigned char>(mFile[mPos++]);
  }
  int64_t Number(int bytes) {
    int64_t value = 0;
    while (bytes-- > 0) value = value * 256 + Byte();
    return value;
  }
  int64_t Variable() {
    int64_t value = 0;
    for (int i = 0; i < 4; ++i) {
      const int byte = Byte();
      value = value * 128 + byte % 128;
      if (byte < 128) return value;
    }
    throw std::runtime_error("number of more than four bytes");
  }
  void Expect(const std::string& tag) {
    for (char c : tag) {
      if (Byte() != static_cast<unsigned char>(c)) throw std::runtime_error("no " + tag);
    }
  }
  int DataByte() {
    const int byte = Byte();
    if (byte > 127) throw std::runtime_error("data byte above 127");
    return byte;
  }

  TSmf ReadFile() {
    TSmf smf;
    Expect("MThd");
    if (Number(4) != 6) throw std::runtime_error("header length");
    smf.format = static_cast<int>(Number(2));
    smf.tracks = static_cast<int>(Number(2));
    smf.division = static_cast<int>(Number(2));
    Expect("MTrk");
    const int64_t length = Number(4);
    if (mPos + static_cast<size_t>(length) != mFile.size())
      throw std::runtime_error("track length");
    while (ReadEvent(&smf)) {
    }
    if (mPos != mFile.size()) throw std::runtime_error("bytes behind the end of the track");
    return smf;
  }

  // A tick has tempo / division microseconds; the tempo of the files read here does not change
  // behind their first event.
  bool ReadEvent(TSmf* smf) {
    mTick += Variable();
    TSmfEvent event;
    event.time = mTick * mTempo / smf->division;
    const int status = Byte();
    event.bytes.push_back(status);
    if (status == 0xFF) return ReadMeta(smf, event);
    if (status == 0xF0) {
      for (int64_t left = Variable(); left > 0; --left) event.bytes.push_back(Byte());
      if (event.bytes.back() != 0xF7) throw std::runtime_error("open system exclusive");
    } else if (status >= 0x80 && status < 0xF0) {
      const int kind = status / 16;
      event.bytes.push_back(DataByte());
      if (kind != 0xC && kind != 0xD) event.bytes.push_back(DataByte());
    } else {
      throw std::runtime_error("no status byte");
    }
    smf->events.push_back(event);
    return true;
  }

  bool ReadMeta(TSmf* smf, TSmfEvent event) {
    event.bytes.push_back(Byte());
    for (int64_t left = Variable(); left > 0; --left) event.bytes.push_back(Byte());
    if (event.bytes[1] == 0x51) {
      if (mTick != 0) throw std::runtime_error("tempo change in the middle");
      mTempo = event.bytes[2] * 65536 + event.bytes[3] * 256 + event.bytes[4];
    }
    smf->metas.push_back(event);
    return event.bytes[1] != 0x2F;
  }

  const std::string& mFile;
  size_t mPos = 0;
  int64_t mTick = 0;
  int64_t mTempo = 500000;
};

}  // namespace zoka_test
