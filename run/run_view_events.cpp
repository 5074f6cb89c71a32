// The run view, what reaches a run from outside: keys, the mouse, the alarm, the speed control.
#include <string_view>

#include "app/settings/prefs.h"
#include "run/key_feeder.h"
#include "run/live_inputs.h"
#include "run/run_view.h"
#include "run/screen/host_keys.h"

namespace zoka {

void TRunView::SetKeyFeeder(TKeyFeeder* feeder) {
  mKeyFeeder.store(feeder);
  mInputs->SetKeyFeeder(feeder);
}

std::shared_ptr<TInterruptPort> TRunView::Port() const {
  TLock lock(mPortLock);
  return mPort;
}

void TRunView::SetPort(std::shared_ptr<TInterruptPort> port) {
  TLock lock(mPortLock);
  mPort.swap(port);
}

void TRunView::RaiseInterrupt(uint32_t mask) {
  if (auto port = Port()) port->HappenInterrupt(mask);
}

void TRunView::KeyDown(std::string_view bytes, int32_t key) {
  if (bytes.empty()) return;
  if (bytes[0] == HOST_KEY_FUNCTION) {
    int32_t index = key - FIRST_FUNCTION_KEY_CODE;
    if (index < 0 || index >= HOST_FUNCTION_KEYS) return;
    uint32_t mask = IR_KEY_1 << index;
    if (index < FUNC_KEY_COUNT) {
      mRsrc.PushFuncKey(index, [port = Port(), mask] {
        if (port) port->HappenInterrupt(mask);
      });
    } else {
      RaiseInterrupt(mask);
    }
    return;
  }
  mRsrc.PushToKeyBuf(bytes.data(), static_cast<int32_t>(bytes.size()));
  if (bytes[0] == HOST_KEY_END) RaiseInterrupt(IR_HELP_KEY);
}

void TRunView::CtrlKeyDown(char byte) {
  if (byte == 'C' || byte == 'c') {
    RaiseInterrupt(IR_STOP_KEY);
  } else {
    KeyDown(std::string_view(&byte, 1));
  }
}

void TRunView::MouseDown(TPoint point, uint32_t buttons) {
  if (!mMachine) return;
  if (buttons & LEFT_BUTTON) {
    mMachine->Mouse().SetMouseButtonLeftState(-1, point);
    RaiseInterrupt(IR_MOUSE_LEFT_DOWN);
  }
  if (buttons & RIGHT_BUTTON) {
    mMachine->Mouse().SetMouseButtonRightState(-1, point);
    RaiseInterrupt(IR_MOUSE_RIGHT_DOWN);
  }
  mHost.CapturePointer(true);
}

void TRunView::MouseUp(TPoint point, uint32_t buttons) {
  if (!mMachine) return;
  if (buttons & LEFT_BUTTON) {
    mMachine->Mouse().SetMouseButtonLeftState(0, point);
    RaiseInterrupt(IR_MOUSE_LEFT_UP);
  }
  if (buttons & RIGHT_BUTTON) {
    mMachine->Mouse().SetMouseButtonRightState(0, point);
    RaiseInterrupt(IR_MOUSE_RIGHT_UP);
  }
  mHost.CapturePointer(false);
}

void TRunView::MouseMoved(TPoint point) {
  if (!mMachine) return;
  mMachine->Mouse().SetMousePosCurrent(point, mRsrc.GrphYScale());
  RaiseInterrupt(IR_MOUSE_MOVED);
}

void TRunView::SetUseSpeedControl() {
  auto port = Port();
  if (!port) return;
  if (mContext.prefs->USpC.load()) {
    port->HappenInterrupt(IR_SPEED_CONTROL);
  } else {
    port->UnhappenInterrupt(IR_SPEED_CONTROL);
  }
}

int32_t TRunView::SetOnTimeDl(const char* hhmmss) {
  return mAlarm.Set(hhmmss, [port = Port()] {
    if (port) port->HappenInterrupt(IR_TIME);
  });
}

void TRunView::KeyWaitBegins(bigtime_t deadline) {
  FlushOutput();
  if (TKeyFeeder* feeder = mKeyFeeder.load()) feeder->WaitBegins(deadline);
}

void TRunView::KeyBufHasRoom() {
  if (TKeyFeeder* feeder = mKeyFeeder.load()) feeder->HasRoom();
}

}  // namespace zoka
