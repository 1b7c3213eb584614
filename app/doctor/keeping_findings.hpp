// Findings on versions, on following changes, and on the watch.
#pragma once

#include "doctor/check.hpp"
#include "doctor/examined.hpp"

#include <optional>

namespace quillmere::doctor {

/// Whether versions are kept, how many there are, and whether the newest can be read.
std::optional<Finding> versionsFinding(const Examined& examined);

/// Whether the system lets one more program follow changes of files (inotify(7)).
std::optional<Finding> inotifyFinding(const Examined& examined);

/// Whether a watch gives notices.
std::optional<Finding> watchFinding(const Examined& examined);

}  // namespace quillmere::doctor
