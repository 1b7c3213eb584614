// Which versions of the state are retained, and for how much room.
#pragma once

#include "workspace/versions.hpp"

#include <cstdint>
#include <filesystem>
#include <set>
#include <string_view>
#include <vector>

namespace quillmere::workspace {

/// The rule of `retained`, in the words of messages.
inline constexpr std::string_view retentionInWords =
    "the last ten, and the last one of each of the thirty newest days that have any";

/// The files to retain, of versions with the highest number first: the last ten, and the one saved last on
/// each of the thirty newest local days that have versions, at most forty. Of these, the oldest are left out
/// while all together take more than `room` bytes; the newest is always retained. The current time plays no
/// part, so that a wrong clock costs one day at most.
std::set<std::filesystem::path> retained(const std::vector<Version>& versions, std::uintmax_t room);

/// The room for versions of a state of this size: four times as much, but at least 64 MB.
std::uintmax_t roomForVersions(std::uintmax_t stateSize);

}  // namespace quillmere::workspace
