// Findings on who else may read the files.
#pragma once

#include "doctor/check.hpp"
#include "doctor/examined.hpp"

#include <optional>

namespace quillmere::doctor {

/// Files are to have mode 0600 and directories 0700. Wider ones are `wrong` where other users can get at a
/// file or change a directory, and `look` where the directories above keep them out.
std::optional<Finding> modesFinding(const Examined& examined);

}  // namespace quillmere::doctor
