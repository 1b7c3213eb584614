// JSON for programs. Members keep the order in which they were added.
#pragma once

#include <quillmere/records/instant.hpp>

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace quillmere::base {

using Json = nlohmann::ordered_json;

/// One line without its end, in ASCII, so that it contains no control character for a terminal. Ill-formed
/// text is replaced.
std::string jsonLine(const Json& json);

/// For texts that this program has written; throws nlohmann's parse error for anything else.
Json parsedJson(std::string_view text);

/// "2026-01-31T09:15:00Z", as in the files.
Json instantJson(Instant instant);

}  // namespace quillmere::base
