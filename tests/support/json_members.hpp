// Changes to JSON text, made without the reader and the writer that are being tested.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::test {

/// `object`, compact JSON as the library writes it, without the member of its top level that has `key`.
/// Fails the test when there is none.
std::string without(std::string_view key, std::string_view object);

/// The same with another value, given as JSON text, in place of the member's own.
std::string with(std::string_view key, std::string_view value, std::string_view object);

}  // namespace quillmere::test
