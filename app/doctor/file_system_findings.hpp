// Findings on what the file system offers.
#pragma once

#include "doctor/check.hpp"
#include "doctor/examined.hpp"
#include "doctor/file_system.hpp"

#include <cstdint>
#include <optional>

namespace quillmere::doctor {

/// Whether programs can take turns by a lock.
std::optional<Finding> lockFinding(const Examined& examined);

/// Whether changes survive a power cut.
std::optional<Finding> syncFinding(const Examined& examined);

/// Whether a file can be replaced in one step.
std::optional<Finding> replaceFinding(const Examined& examined);

/// Whether a replaced state can be kept as a version without copying it.
std::optional<Finding> hardLinkFinding(const Examined& examined);

/// Whether there is room for further saves.
std::optional<Finding> roomFinding(const Examined& examined);

/// The finding on this much room for a state of `stateSize` bytes.
Finding findingOn(const Room& room, std::uintmax_t stateSize);

}  // namespace quillmere::doctor
