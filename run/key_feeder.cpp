// Handing over scripted keys: what --type means, and when each key goes out.
#include "run/key_feeder.h"

#include <charconv>
#include <utility>

#include "run/run_view.h"
#include "run/screen/host_keys.h"

namespace zoka {
namespace {

/// Keys with a name and the byte by which the platform codes them.
struct TNamedKey {
  const char* name;
  char byte;
};
constexpr TNamedKey NAMED_KEYS[] = {
    {"LEFT", HOST_KEY_LEFT},  {"RIGHT", HOST_KEY_RIGHT},  {"UP", HOST_KEY_UP},
    {"DOWN", HOST_KEY_DOWN},  {"HOME", HOST_KEY_HOME},    {"END", HOST_KEY_END},
    {"INS", HOST_KEY_INSERT}, {"DEL", HOST_KEY_DELETE},   {"BS", HOST_KEY_BACKSPACE},
    {"ESC", HOST_KEY_ESCAPE}, {"PGUP", HOST_KEY_PAGE_UP}, {"PGDN", HOST_KEY_PAGE_DOWN},
};

struct TNamedMouse {
  const char* name;
  TFeedItem::TKind kind;
};
constexpr TNamedMouse NAMED_MOUSE[] = {
    {"MOVE", TFeedItem::TKind::Move},   {"LDOWN", TFeedItem::TKind::LeftDown},
    {"LUP", TFeedItem::TKind::LeftUp},  {"RDOWN", TFeedItem::TKind::RightDown},
    {"RUP", TFeedItem::TKind::RightUp},
};

constexpr bigtime_t MICROSECONDS_PER_MS = 1000;
/// How long a run goes before its first key, unless it asks for one; microseconds.
constexpr bigtime_t FIRST_KEY_DELAY = 20'000;
/// Longest {WAIT}, in milliseconds: a day.
constexpr int64_t MAX_WAIT_MS = 86'400'000;

bool parse_number(std::string_view text, int64_t low, int64_t high, int64_t* value) {
  const char* const last = text.data() + text.size();
  auto [end, error] = std::from_chars(text.data(), last, *value);
  return error == std::errc() && end == last && *value >= low && *value <= high;
}

bool parse_point(std::string_view text, TPoint* point) {
  size_t comma = text.find(',');
  if (comma == text.npos) return false;
  int64_t x = 0, y = 0;
  if (!parse_number(text.substr(0, comma), -32768, 32767, &x)) return false;
  if (!parse_number(text.substr(comma + 1), -32768, 32767, &y)) return false;
  *point = {static_cast<float>(x), static_cast<float>(y)};
  return true;
}

/// The item of a name without its braces; false if there is none.
bool parse_name(std::string_view name, TFeedItem* item) {
  for (const TNamedKey& key : NAMED_KEYS) {
    if (name == key.name) {
      item->bytes = std::string(1, key.byte);
      return true;
    }
  }
  if (name == "BREAK") {
    item->kind = TFeedItem::TKind::Break;
    return true;
  }
  int64_t number = 0;
  if (name.starts_with('F') && parse_number(name.substr(1), 1, FUNC_KEY_COUNT, &number)) {
    item->kind = TFeedItem::TKind::FunctionKey;
    item->number = static_cast<int32_t>(number);
    return true;
  }
  size_t blank = name.find(' ');
  if (blank == name.npos) return false;
  std::string_view word = name.substr(0, blank);
  std::string_view rest = name.substr(blank + 1);
  if (word == "WAIT") {
    if (!parse_number(rest, 0, MAX_WAIT_MS, &number)) return false;
    item->kind = TFeedItem::TKind::Wait;
    item->delay = number * MICROSECONDS_PER_MS;
    return true;
  }
  for (const TNamedMouse& mouse : NAMED_MOUSE) {
    if (word == mouse.name) {
      item->kind = mouse.kind;
      return parse_point(rest, &item->point);
    }
  }
  return false;
}

/// Reads one item that begins with a backslash or a brace; false if it is neither of the forms.
bool parse_special(std::string_view text, size_t* pos, TFeedItem* item) {
  std::string_view rest = text.substr(*pos);
  if (rest.starts_with("\\r") || rest.starts_with("\\n")) {
    item->bytes = std::string(1, HOST_KEY_ENTER);
    *pos += 2;
    return true;
  }
  if (rest.starts_with("\\\\") || rest.starts_with("{{")) {
    item->bytes = std::string(1, rest[0]);
    *pos += 2;
    return true;
  }
  size_t close = rest.find('}');
  if (rest[0] != '{' || close == rest.npos) return false;
  if (!parse_name(rest.substr(1, close - 1), item)) return false;
  *pos += close + 1;
  return true;
}

}  // namespace

bool parse_key_text(std::string_view text, std::deque<TFeedItem>* items, std::string* error) {
  size_t pos = 0;
  while (pos < text.size()) {
    TFeedItem item;
    if (text[pos] == '\\' || text[pos] == '{') {
      if (!parse_special(text, &pos, &item)) {
        size_t close = text.find('}', pos);
        *error = std::string(text.substr(pos, close == text.npos ? close : close - pos + 1));
        return false;
      }
    } else {
      std::string_view rest = text.substr(pos);
      size_t bytes = typed_character(rest, true);
      bool isNewLine = rest[0] == '\n' || rest[0] == '\r';
      item.bytes = isNewLine ? std::string(1, HOST_KEY_ENTER) : std::string(rest.substr(0, bytes));
      pos += bytes;
    }
    items->push_back(std::move(item));
  }
  return true;
}

TKeyFeeder::TKeyFeeder(TClock& clock, TRunView& view) : mClock(clock), mView(view), mAdded(clock) {}

TKeyFeeder::~TKeyFeeder() {
  End();
}

void TKeyFeeder::Add(std::deque<TFeedItem> items) {
  {
    TLock lock(mMutex);
    for (TFeedItem& item : items) mItems.push_back(std::move(item));
  }
  mAdded.Signal();
  Pump();
}

void TKeyFeeder::Finish() {
  {
    TLock lock(mMutex);
    mFinished = true;
  }
  mAdded.Signal();
  Pump();
}

void TKeyFeeder::Begin() {
  {
    TLock lock(mMutex);
    mActive = true;
    mStarving = false;
    mHolding = true;
  }
  // A person's first key comes when the program is on its way, its traps set. Simulated time does
  // not pass before the program waits or polls, so that there any time will do.
  bigtime_t delay = mClock.IsSimulated() ? 1 : FIRST_KEY_DELAY;
  mStartTimer.store(mClock.StartTimer(
      delay, false, [this] { Release(); }, TActorClass::Keys));
}

void TKeyFeeder::Release() {
  {
    TLock lock(mMutex);
    mHolding = false;
  }
  Pump();
}

void TKeyFeeder::End() {
  mClock.CancelTimer(mStartTimer.load());
  TTimerId timer;
  {
    TLock lock(mMutex);
    mActive = false;
    timer = std::exchange(mTimer, 0);
  }
  mAdded.Signal();
  mClock.CancelTimer(timer);
}

void TKeyFeeder::HasRoom() {
  {
    TLock lock(mMutex);
    mStarving = false;
  }
  Pump();
}

bool TKeyFeeder::IsStarved() {
  TLock lock(mMutex);
  return mActive && mStarving && mFinished && !mPumping && mItems.empty() && mTimer == 0 &&
         mView.Rsrc().KeyBufCount() == 0;
}

bool TKeyFeeder::IsDry() {
  TLock lock(mMutex);
  return mActive && !mFinished && !mInteractive && mItems.empty() && mTimer == 0;
}

// Keys that come from outside take no simulated time, so the program stands still for them.
void TKeyFeeder::AwaitKeys() {
  while (mClock.IsSimulated() && mView.Rsrc().KeyBufCount() == 0 && IsDry()) {
    mClock.RealWait(mAdded);
    Pump();
  }
}

void TKeyFeeder::Look() {
  Release();
  AwaitKeys();
}

void TKeyFeeder::WaitBegins(bigtime_t deadline) {
  {
    TLock lock(mMutex);
    mStarving = deadline == FOREVER;
  }
  Release();
  if (deadline == FOREVER) AwaitKeys();
}

void TKeyFeeder::StopProgram() {
  mView.CtrlKeyDown('C');
  // With ON STOP armed the break is only an event, which waits for the statement to end.
  mView.ForceStop();
}

bool TKeyFeeder::TakeNext(TFeedItem* item) {
  TLock lock(mMutex);
  if (!mActive || mHolding || mTimer != 0 || mItems.empty()) return false;
  const TFeedItem& next = mItems.front();
  int32_t room = KEY_BUF_SIZE - mView.Rsrc().KeyBufCount();
  int32_t wanted = 0;
  if (next.kind == TFeedItem::TKind::Key) wanted = 1;
  if (next.kind == TFeedItem::TKind::FunctionKey) {
    wanted = static_cast<int32_t>(mView.Rsrc().FuncKeyStr(next.number - 1).size());
  }
  if (room < wanted && room < KEY_BUF_SIZE) return false;
  *item = next;
  mItems.pop_front();
  return true;
}

void TKeyFeeder::Pump() {
  HandOver();
  if (IsStarved()) StopProgram();
}

void TKeyFeeder::HandOver() {
  {
    // One thread hands over at a time; another's wish makes it look again.
    TLock lock(mMutex);
    if (mPumping) {
      mAgain = true;
      return;
    }
    mPumping = true;
  }
  TFeedItem item;
  for (;;) {
    while (TakeNext(&item)) Do(item);
    TLock lock(mMutex);
    if (!mAgain) {
      mPumping = false;
      return;
    }
    mAgain = false;
  }
}

void TKeyFeeder::Do(const TFeedItem& item) {
  switch (item.kind) {
    case TFeedItem::TKind::Key:
      mDown.Push(typed_key_code(item.bytes), mClock.system_time());
      mView.KeyDown(item.bytes);
      break;
    case TFeedItem::TKind::FunctionKey:
      mDown.Push(function_key_code(item.number), mClock.system_time());
      mView.KeyDown(std::string_view(&HOST_KEY_FUNCTION, 1),
                    FIRST_FUNCTION_KEY_CODE + item.number - 1);
      break;
    case TFeedItem::TKind::Break:
      mView.CtrlKeyDown('C');
      break;
    case TFeedItem::TKind::Wait:
      StartWait(item.delay);
      break;
    case TFeedItem::TKind::Move:
      mView.MouseMoved(item.point);
      break;
    case TFeedItem::TKind::LeftDown:
      mView.MouseDown(item.point, TRunView::LEFT_BUTTON);
      break;
    case TFeedItem::TKind::RightDown:
      mView.MouseDown(item.point, TRunView::RIGHT_BUTTON);
      break;
    case TFeedItem::TKind::LeftUp:
      mView.MouseUp(item.point, TRunView::LEFT_BUTTON);
      break;
    case TFeedItem::TKind::RightUp:
      mView.MouseUp(item.point, TRunView::RIGHT_BUTTON);
      break;
  }
}

void TKeyFeeder::StartWait(bigtime_t delay) {
  TTimerId id = mClock.StartTimer(
      delay, false,
      [this] {
        {
          TLock lock(mMutex);
          if (mTimer == 0) mWaitOver = true;  // its number is not known yet
          mTimer = 0;
        }
        Pump();
      },
      TActorClass::Keys);
  TLock lock(mMutex);
  // On the host's clock the wait may be over before its number is known here.
  mTimer = std::exchange(mWaitOver, false) ? 0 : id;
}

}  // namespace zoka
