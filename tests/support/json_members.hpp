// Edits JSON text without the tested reader and writer.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::test {

/// `object`, compact JSON as the library writes it, without its top-level member `key`. Fails the test if
/// there is no such member.
std::string without(std::string_view key, std::string_view object);

/// `object` with the value of its top-level member `key` replaced by the JSON text `value`.
std::string with(std::string_view key, std::string_view value, std::string_view object);

}  // namespace quillmere::test
