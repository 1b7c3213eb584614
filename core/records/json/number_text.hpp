// JSON number texts (RFC 8259, section 6) to numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmere::json {

/// Whether `text` is spelled as a JSON number.
bool isNumberText(std::string_view text) noexcept;

/// The whole number that a number text stands for: 3, 3.0 and 30e-1 are 3. Absent when it is not
/// exactly whole or does not fit 64 bits. `text` must satisfy isNumberText.
std::optional<std::int64_t> integerFromNumberText(std::string_view text) noexcept;

/// The nearest double. Absent when it lies beyond the doubles. `text` must satisfy isNumberText.
std::optional<double> doubleFromNumberText(std::string_view text) noexcept;

}  // namespace quillmere::json
