// The outputs of a console run.
#include "sound/play_outputs.h"

#include "sound/wav_file.h"

namespace zoka {

namespace {

// Time for the last note to die away and for the device to play what it holds.
constexpr bigtime_t TAIL = 1000000;

// How long a device may take to get going, and how often it is looked at.
constexpr bigtime_t START_LIMIT = 3000000;
constexpr bigtime_t START_POLL = 5000;

}  // namespace

TPlayOutputs::TPlayOutputs(TClock& clock, TMidiLocalProducer& producer,
                           const TPlayOutputOptions& options)
    : mClock(clock),
      mProducer(producer),
      mOptions(options),
      mRecorder(clock.system_time()),
      mRecording(!options.midiPath.empty() || !options.wavPath.empty()) {
  if (mRecording) {
    mProducer.AddRecorder(&mRecorder);
  } else if (!options.noWait && !clock.IsSimulated()) {
    mSynth = std::make_shared<TSynthConsumer>(clock, TSynthConsumer::TOpening::FirstEvent);
    mRoster.Register(mSynth);
    mRoster.RegisterProducer(&mProducer);
    mRoster.Connect(mProducer, mSynth->ID());
  }
}

TPlayOutputs::~TPlayOutputs() {
  if (mRecording) mProducer.RemoveRecorder(&mRecorder);
  if (mSynth) mRoster.UnregisterProducer(&mProducer);
}

void TPlayOutputs::OpenDevice() {
  if (!mSynth || !mSynth->Open()) return;
  TWake wake(mClock);
  const bigtime_t end = mClock.system_time() + START_LIMIT;
  while (!mSynth->IsRunning() && mClock.system_time() < end) mClock.snooze(START_POLL, wake);
}

bigtime_t TPlayOutputs::Tail() const {
  return mSynth && mSynth->HasDevice() ? TAIL : 0;
}

std::vector<std::string> TPlayOutputs::Finish() {
  std::vector<std::string> failed;
  if (!mRecording) return failed;
  const std::vector<TMidiEvent> events = mRecorder.Events();
  if (!mOptions.midiPath.empty() && !write_whole_file(mOptions.midiPath, make_midi_file(events))) {
    failed.push_back(mOptions.midiPath);
  }
  if (!mOptions.wavPath.empty() && !write_wav_file(mOptions.wavPath, events)) {
    failed.push_back(mOptions.wavPath);
  }
  return failed;
}

}  // namespace zoka
