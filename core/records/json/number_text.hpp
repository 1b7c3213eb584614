// JSON number texts (RFC 8259, section 6) to numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmere::json {

/// Whether `text` is a JSON number.
bool isNumberText(std::string_view text) noexcept;

/// The value as an integer: 3, 3.0 and 30e-1 are 3. Absent when the value is not exactly whole or does not
/// fit 64 bits. `text` must satisfy isNumberText.
std::optional<std::int64_t> integerFromNumberText(std::string_view text) noexcept;

/// The nearest double. Absent when the value is too large for a double. `text` must satisfy isNumberText.
std::optional<double> doubleFromNumberText(std::string_view text) noexcept;

}  // namespace quillmere::json
