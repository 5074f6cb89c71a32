// TBasicRsrc, the keyboard: the key buffer, waits for keys, the texts of the function keys.
#include <algorithm>

#include "run/screen/basic_rsrc.h"
#include "run/screen/host_keys.h"

namespace zoka {

namespace {

/// The simulated keyboard's code for a first byte of the host's keyboard.
char translated_key(char byte) {
  struct TRow {
    char host;
    char code;
  };
  static constexpr TRow ROWS[] = {
      {HOST_KEY_HOME, 0x0C},  {HOST_KEY_END, 0x01},       {HOST_KEY_INSERT, 0x12},
      {HOST_KEY_ENTER, 0x0D}, {HOST_KEY_PAGE_UP, '\xF9'}, {HOST_KEY_PAGE_DOWN, '\xF8'},
      {HOST_KEY_LEFT, 0x1D},  {HOST_KEY_RIGHT, 0x1C},
  };
  for (const TRow& row : ROWS) {
    if (row.host == byte) return row.code;
  }
  return byte;
}

}  // namespace

// --- Pushing ------------------------------------------------------------------------------------

bool TBasicRsrc::AppendKey(const char* bytes, int32_t numBytes) {
  if (keyBuf.size() >= KEY_BUF_SIZE) return false;
  std::string key(bytes, static_cast<size_t>(std::max(numBytes, 0)));
  if (!key.empty()) key[0] = translated_key(key[0]);
  keyBuf.push_back(std::move(key));
  return true;
}

bool TBasicRsrc::PushToKeyBuf(const char* bytes, int32_t numBytes) {
  const bool pushed = [&] {
    TLock lock(mKeyMutex);
    return AppendKey(bytes, numBytes);
  }();
  mKeyWake.Signal();
  return pushed;
}

void TBasicRsrc::PushFuncKey(int32_t index, const std::function<void()>& raise) {
  {
    // One step: a program that reads the key must find the trap raised behind its statement.
    TLock lock(mKeyMutex);
    if (index >= 0 && index < FUNC_KEY_COUNT) {
      for (const char& byte : funcKeyStr[static_cast<size_t>(index)]) AppendKey(&byte, 1);
    }
    raise();
  }
  mKeyWake.Signal();
}

// --- Waiting ------------------------------------------------------------------------------------

bool TBasicRsrc::TryPopKey(std::string* key) {
  {
    TLock lock(mKeyMutex);
    if (keyBuf.empty()) return false;
    *key = std::move(keyBuf.front());
    keyBuf.pop_front();
  }
  if (owner) owner->KeyBufHasRoom();
  return true;
}

std::string TBasicRsrc::WaitForKey(bigtime_t deadline, const TThread* waiter) {
  std::string key;
  bool announced = false;
  while (!(waiter && waiter->IsTerminated())) {
    if (TryPopKey(&key)) return key;
    if (mClock.system_time() >= deadline) break;
    if (owner && !announced) {
      announced = true;
      owner->KeyWaitBegins(deadline);
      continue;
    }
    mClock.Wait(deadline, mKeyWake);
  }
  return {};
}

std::string TBasicRsrc::PopFromKeyBuf(const TThread* waiter) {
  return WaitForKey(FOREVER, waiter);
}

std::string TBasicRsrc::PopFromKeyBufWithTimeout(bigtime_t timeout, const TThread* waiter) {
  if (timeout > 0) {
    const bigtime_t now = mClock.system_time();
    return WaitForKey(now + std::min(timeout, FOREVER - now), waiter);
  }
  std::string key;
  if (!TryPopKey(&key)) mClock.Poll();
  return key;
}

void TBasicRsrc::WakeKeyWait() {
  mKeyWake.Signal();
}

// --- The buffer as a whole ----------------------------------------------------------------------

void TBasicRsrc::ClearKeyBuf() {
  TakeKeyBuf();
}

std::deque<std::string> TBasicRsrc::TakeKeyBuf() {
  std::deque<std::string> keys;
  {
    TLock lock(mKeyMutex);
    keys.swap(keyBuf);
  }
  if (owner && !keys.empty()) owner->KeyBufHasRoom();
  return keys;
}

void TBasicRsrc::PutBackKeys(const std::deque<std::string>& keys) {
  {
    TLock lock(mKeyMutex);
    keyBuf.insert(keyBuf.begin(), keys.begin(), keys.end());
    keyBuf.resize(std::min<size_t>(keyBuf.size(), KEY_BUF_SIZE));
  }
  mKeyWake.Signal();
}

int32_t TBasicRsrc::KeyBufCount() const {
  TLock lock(mKeyMutex);
  return static_cast<int32_t>(keyBuf.size());
}

// --- Function keys ------------------------------------------------------------------------------

void TBasicRsrc::InitFuncKeyStr() {
  static constexpr const char* TEXTS[FUNC_KEY_COUNT] = {"load \"",  "auto ",   "go to ", "list ",
                                                        "run\r",    "save \"", "key ",   "print ",
                                                        "edit .\r", "cont\r"};
  TLock lock(mKeyMutex);
  for (size_t i = 0; i < funcKeyStr.size(); ++i) funcKeyStr[i] = TEXTS[i];
}

std::string TBasicRsrc::FuncKeyStr(int32_t index) const {
  if (index < 0 || index >= FUNC_KEY_COUNT) return {};
  TLock lock(mKeyMutex);
  return funcKeyStr[static_cast<size_t>(index)];
}

void TBasicRsrc::SetFuncKeyStr(int32_t index, std::string_view text) {
  TLock lock(mKeyMutex);
  funcKeyStr[static_cast<size_t>(index)] = text;
}

}  // namespace zoka
