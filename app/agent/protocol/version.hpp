// Versions of the Model Context Protocol.
#pragma once

#include "agent/protocol/offer.hpp"

#include <array>
#include <string_view>

namespace quillmere::agent::protocol {

struct ProtocolVersion {
    std::string_view name;
    bool isStateless;    ///< each request names its version; otherwise a handshake names it for all
    bool hasStructures;  ///< knows structured results with their schemas, and titles
};

/// The supported versions, newest first.
inline constexpr auto versions = std::to_array<ProtocolVersion>({
    {"2026-07-28", true, true},
    {"2025-11-25", false, true},
    {"2025-06-18", false, true},
    {"2024-11-05", false, false},
});

/// The versions that a request may name. A client that supports none of them uses the handshake, which
/// answers every version.
SortedJson statelessVersionNames();

/// The result of a handshake that asks for a version: that version, or else the newest with a handshake.
const ProtocolVersion& versionAfterHandshake(std::string_view asked);

/// The version named in a request, or `agreed` when the request names none. Throws ProtocolError when the
/// named version is not stateless, or when a field that stateless requests must have is missing.
const ProtocolVersion& versionOf(const SortedJson& params, const ProtocolVersion& agreed);

}  // namespace quillmere::agent::protocol
