// Other libraries performing the same work.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <string>
#include <string_view>

namespace quillmere::bench {

/// nlohmann/json: its DOM in both directions.
namespace nlohmann_json {
QuillmereState decode(std::string_view text);
std::string encode(const QuillmereState& state);
}  // namespace nlohmann_json

/// RapidJSON: its DOM for reading, its PrettyWriter for writing.
namespace rapid_json {
QuillmereState decode(std::string_view text);
std::string encode(const QuillmereState& state);
}  // namespace rapid_json

}  // namespace quillmere::bench
