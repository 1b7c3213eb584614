// How old a file is.
#pragma once

#include <filesystem>
#include <optional>

namespace quillmere::base {

/// Seconds since the file was last written, by the clock of the system; below zero when that clock was set
/// back since. Absent when the file cannot be looked at. In every year, unlike
/// std::filesystem::last_write_time, which counts nanoseconds in 64 bits.
std::optional<double> secondsSinceWritten(const std::filesystem::path& file);

}  // namespace quillmere::base
