// A font family that surely exists, for windows whose columns must stand under each other.
#pragma once

#include <QString>
#include <string>

namespace zoka {

/// `family` if the system has it; else, for a font that was taken away since it was chosen, the
/// default one, and without that the system's own family of fixed pitch. Window thread.
QString present_fixed_family(const std::string& family);

}  // namespace zoka
