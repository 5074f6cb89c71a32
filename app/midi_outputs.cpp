// The roster of the window application.
#include "app/midi_outputs.h"

#include "app/settings/prefs_edit.h"

namespace zoka {

TMidiOutputs::TMidiOutputs(TEngineContext& context, THandlerRegistry& registry, THandlerId app,
                           TMidiLocalProducer& producer, bool firstStart)
    : mContext(context),
      mRegistry(registry),
      mApp(app),
      mProducer(producer),
      mDisconnectProducer(*context.clock, midi_out_name()),
      mConnections(mRoster, producer, mDisconnectProducer, *this) {
  mRoster.RegisterProducer(&mProducer);
  mRoster.RegisterProducer(&mDisconnectProducer);
  mRoster.Register(
      std::make_shared<TSynthConsumer>(*context.clock, TSynthConsumer::TOpening::FirstEvent));
  mRoster.StartWatching([this](const TMidiNotice& notice) {
    QMetaObject::invokeMethod(
        &mQueue, [this, notice] { mConnections.MidiEvent(notice); }, Qt::QueuedConnection);
  });
  mSequencer = std::make_unique<TAlsaSequencer>(*context.clock, mRoster, mProducer);
  if (firstStart) SaveMidiOuts({BUILT_IN_SYNTH_NAME});
  mConnections.ConnectMidiOuts(WantedMidiOuts());
}

TMidiOutputs::~TMidiOutputs() {
  // Without it no other thread gives notices.
  mSequencer.reset();
  mRoster.StopWatching();
  mRoster.UnregisterProducer(&mDisconnectProducer);
  mRoster.UnregisterProducer(&mProducer);
}

void TMidiOutputs::PrefMidiOutChanged(const TMessage& message) {
  int32_t id = 0;
  bool disconnected = false;
  message.FindInt32(MIDI_OUT_ID, &id);
  message.FindBool(MIDI_OUT_DISCONNECTED, &disconnected);
  mConnections.PrefMidiOutChanged(disconnected ? id : 0);
}

std::vector<std::string> TMidiOutputs::WantedMidiOuts() {
  return mContext.prefs->CoMO;
}

void TMidiOutputs::SaveMidiOuts(const std::vector<std::string>& names) {
  mContext.prefs->CoMO = names;
  mContext.prefs->SaveToFile();
}

void TMidiOutputs::RecreateMenuMidiOut() {
  mRegistry.Post(mApp, TMessage("rmmc"));
}

void TMidiOutputs::UpdateMenuMidiOut(int32_t consumerId) {
  TMessage message("ummr");
  message.AddInt32(MIDI_OUT_ID, consumerId);
  mRegistry.Post(mApp, message);
}

}  // namespace zoka
