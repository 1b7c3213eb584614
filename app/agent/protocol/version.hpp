// Versions of the Model Context Protocol, and which of them a request speaks.
#pragma once

#include "agent/protocol/offer.hpp"

#include <array>
#include <string_view>

namespace quillmere::agent::protocol {

struct Version {
    std::string_view name;
    bool isStateless;    ///< each request says its version; otherwise a handshake has said it for all
    bool hasStructures;  ///< knows structured results with their schemas, and titles
};

/// All that this server speaks, the newest first.
inline constexpr auto versions = std::to_array<Version>({
    {"2026-07-28", true, true},
    {"2025-11-25", false, true},
    {"2025-06-18", false, true},
    {"2024-11-05", false, false},
});

/// Those that a request may say. A client chooses from them; when it knows none it falls back to the
/// handshake, which has an answer for whatever version is asked.
Json statelessVersionNames();

/// What a handshake that asks for `asked` comes to: that version, or else the newest that has a handshake.
const Version& versionAfterHandshake(std::string_view asked);

/// The version that a request speaks: the one that it says, otherwise `agreed`. Throws ProtocolError when it
/// says one that is not spoken in this way, or does not say all that such a request must.
const Version& versionOf(const Json& params, const Version& agreed);

}  // namespace quillmere::agent::protocol
