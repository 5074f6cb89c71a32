// The alerts of the system as all of them look: the text, the application's name, buttons with
// their keys. How they are shown is the front end's (TAlertHost).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/context.h"

namespace zoka {

/// A button of an alert: catalogue key of its label, and its key ("" for none).
struct TAlertButton {
  const char* label = "";
  const char* key = "";
};

/// Shows an alert and waits for the answer: index of the pressed button, -1 if `waiter` (may be
/// null) was asked to end or nobody is there to show it. `text` is shown as it is; `escapeIndex` is
/// the button that Escape presses, or -1.
int32_t show_alert(const TEngineContext& context, const std::string& text,
                   const std::vector<TAlertButton>& buttons, int32_t escapeIndex, TThread* waiter);

/// The alert of a fault or a note: one button, "Understand".
void show_fault_alert(const TEngineContext& context, const std::string& text, TThread* waiter);

/// A label in the context's language with its key merged in by the user's format.
std::string merged_label(const TEngineContext& context, const char* label, const char* key);

}  // namespace zoka
