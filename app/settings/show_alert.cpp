// Putting alerts together.
#include "app/settings/show_alert.h"

#include "app/settings/inter_app_prefs.h"
#include "common/label.h"

namespace zoka {

std::string merged_label(const TEngineContext& context, const char* label, const char* key) {
  const std::string format = context.interAppPrefs ? context.interAppPrefs->AccKeyFormat()
                                                   : std::string(DEFAULT_ACC_KEY_FORMAT);
  return merge_accelerator_key(format, key, context.catalogue->GetString(label));
}

int32_t show_alert(const TEngineContext& context, const std::string& text,
                   const std::vector<TAlertButton>& buttons, int32_t escapeIndex, TThread* waiter) {
  if (!context.alertHost) return -1;
  TAlert alert;
  alert.text = text;
  alert.title =
      replace_placeholder(context.catalogue->GetString("* %AppName% *"), "%AppName%", APP_NAME);
  for (const TAlertButton& button : buttons) {
    alert.buttons.push_back(merged_label(context, button.label, button.key));
  }
  alert.escapeIndex = escapeIndex;
  return context.alertHost->ShowAlert(alert, waiter);
}

void show_fault_alert(const TEngineContext& context, const std::string& text, TThread* waiter) {
  show_alert(context, text, {{"Understand", "U"}}, 0, waiter);
}

}  // namespace zoka
