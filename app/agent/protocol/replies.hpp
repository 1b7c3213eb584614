// What is said about an offer in each version of the protocol: the results of requests.
#pragma once

#include "agent/protocol/version.hpp"

namespace quillmere::agent::protocol {

Json initializeResult(const Offer& offer, const Version& version);
Json discoverResult(const Offer& offer);
Json toolList(const Offer& offer, const Version& version);
Json resourceList(const Offer& offer, const Version& version);
Json resourceTemplateList();
Json resourceContents(const Resource& resource);
Json callResult(const ToolResult& result, const Version& version);

/// For lists, which change with the program only.
inline constexpr Caching cachingOfLists{.milliseconds = 3'600'000, .isPublic = true};

/// Adds what the version wants in every result, and in those that may be kept.
Json complete(Json result, const std::optional<Caching>& caching, const Offer& offer, const Version& version);

}  // namespace quillmere::agent::protocol
