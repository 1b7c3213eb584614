// The examination of a person's files and of the system that they lie on.
#pragma once

#include "doctor/check.hpp"
#include "doctor/examined.hpp"

#include <string_view>
#include <vector>

namespace quillmere::doctor {

/// Examines everything. Makes hidden temporary files in the directory and removes them, and takes the lock
/// for a moment; changes nothing else and creates no directory. What the system refuses is a finding, not an
/// exception. Checks that need the directory are left out while it does not exist.
std::vector<Check> examine(const Subject& subject);

/// The checks of finished measurements.
std::vector<Check> checksOf(const Examined& examined);

}  // namespace quillmere::doctor
