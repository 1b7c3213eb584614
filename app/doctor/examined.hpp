// The measurements of one examination.
#pragma once

#include "doctor/probe.hpp"
#include "doctor/subject.hpp"

#include <optional>

namespace quillmere::doctor {

struct Examined {
    Subject subject;
    StateReading reading;
    /// Absent while the directory does not exist.
    std::optional<Probe> probe = {};
};

}  // namespace quillmere::doctor
