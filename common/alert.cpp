// The bytes of an alert.
#include "common/alert.h"

namespace zoka {

std::string alert_bytes(const TAlert& alert) {
  return alert.text + "\n\n" + alert.title + "\n";
}

}  // namespace zoka
