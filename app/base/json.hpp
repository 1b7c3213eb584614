// JSON for programs, with its members in the order in which they were added.
#pragma once

#include <quillmere/records/instant.hpp>

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace quillmere::base {

using Json = nlohmann::ordered_json;

/// On one line and in ASCII, so that a terminal obeys nothing in it. Ill-formed text is replaced.
std::string jsonLine(const Json& json);

/// Parses a text that this program made; throws nlohmann's parse error for any other.
Json parsedJson(std::string_view text);

/// An instant as the files write it.
Json instantJson(Instant instant);

}  // namespace quillmere::base
