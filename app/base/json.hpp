// JSON values.
#pragma once

#include <quillmere/records/instant.hpp>

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace quillmere::base {

/// An object keeps its members in the order in which they were added, for output that a person may read too.
/// A look-up goes through all members before the one it finds, so this is not for objects from outside.
using Json = nlohmann::ordered_json;

/// An object has its members sorted by key. A look-up is fast also in an object with a million keys.
using SortedJson = nlohmann::json;

/// On one line, without its end, and in ASCII, so that no terminal obeys a text. Ill-formed text is replaced.
std::string jsonLine(const Json& json);
std::string sortedJsonLine(const SortedJson& json);

/// For texts that this program has written; throws nlohmann's parse error for anything else.
Json parsedJson(std::string_view text);

/// "2026-01-31T09:15:00Z", as in the files.
Json instantJson(Instant instant);

}  // namespace quillmere::base
