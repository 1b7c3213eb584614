// The results of requests, in the form of each version of the protocol.
#pragma once

#include "agent/protocol/version.hpp"

namespace quillmere::agent::protocol {

SortedJson initializeResult(const Offer& offer, const ProtocolVersion& version);
SortedJson discoverResult(const Offer& offer);
SortedJson toolList(const Offer& offer, const ProtocolVersion& version);
SortedJson resourceList(const Offer& offer, const ProtocolVersion& version);
SortedJson resourceTemplateList();
SortedJson resourceContents(const Resource& resource);
SortedJson callResult(const ToolResult& result, const ProtocolVersion& version);

/// Of lists, which change only with a new version of the program.
inline constexpr Caching cachingOfLists{.milliseconds = 3'600'000, .isPublic = true};

/// Adds the members that the version requires in every result and in results that may be kept.
SortedJson complete(SortedJson result, const std::optional<Caching>& caching, const Offer& offer,
                    const ProtocolVersion& version);

}  // namespace quillmere::agent::protocol
