#include <quillmere/records/json/key_conversion.hpp>
#include <quillmere/records/json/number_text.hpp>

#include <charconv>
#include <system_error>

namespace quillmere::json {
namespace {

/// The parts of a number text: WHOLE.FRACTION × 10^exponent.
struct Decimal {
    bool negative;
    std::string_view whole;
    std::string_view fraction;
    std::int64_t exponent;  ///< limited to ±exponentLimit

    char digit(std::size_t index) const
    {
        return index < whole.size() ? whole[index] : fraction[index - whole.size()];
    }
    std::size_t digitCount() const { return whole.size() + fraction.size(); }
};

/// Larger than the number of digits that any text can have, so that a larger exponent gives the same result.
constexpr std::int64_t exponentLimit = std::int64_t{1} << 40;

/// Removes the digits at the front of `rest` and returns them.
std::string_view takeDigits(std::string_view& rest)
{
    std::size_t length = 0;
    while (length < rest.size() && isDigit(rest[length])) {
        ++length;
    }
    const std::string_view digits = rest.substr(0, length);
    rest.remove_prefix(length);
    return digits;
}

/// Removes the character at the front of `rest` if it is one of the two; returns whether it was.
bool takeIf(std::string_view& rest, char one, char other)
{
    const bool found = !rest.empty() && (rest.front() == one || rest.front() == other);
    rest.remove_prefix(found ? 1 : 0);
    return found;
}

bool takeIf(std::string_view& rest, char character) { return takeIf(rest, character, character); }

std::int64_t limitedExponent(std::string_view digits)
{
    std::int64_t exponent = 0;
    for (const char digit : digits) {
        exponent = exponent * 10 + (digit - '0');
        if (exponent > exponentLimit) {
            return exponentLimit;
        }
    }
    return exponent;
}

Decimal takeApart(std::string_view text)
{
    Decimal decimal{};
    decimal.negative = takeIf(text, '-');
    decimal.whole = takeDigits(text);
    if (takeIf(text, '.')) {
        decimal.fraction = takeDigits(text);
    }
    if (takeIf(text, 'e', 'E')) {
        const bool negative = !text.empty() && text.front() == '-';
        takeIf(text, '+', '-');
        const std::int64_t magnitude = limitedExponent(text);
        decimal.exponent = negative ? -magnitude : magnitude;
    }
    return decimal;
}

/// The index of the first digit that is not 0; digitCount() when all are 0.
std::size_t firstSignificantDigit(const Decimal& decimal)
{
    std::size_t index = 0;
    while (index < decimal.digitCount() && decimal.digit(index) == '0') {
        ++index;
    }
    return index;
}

/// The number of digits before the decimal point after the exponent is applied, counted from the first digit
/// that is not 0. Above 0 for values of 1 and more.
std::int64_t magnitude(const Decimal& decimal)
{
    return static_cast<std::int64_t>(decimal.whole.size()) + decimal.exponent -
           static_cast<std::int64_t>(firstSignificantDigit(decimal));
}

}  // namespace

bool isNumberText(std::string_view text) noexcept
{
    takeIf(text, '-');
    const std::string_view whole = takeDigits(text);
    if (whole.empty() || (whole.size() > 1 && whole.front() == '0')) {
        return false;
    }
    if (takeIf(text, '.') && takeDigits(text).empty()) {
        return false;
    }
    if (takeIf(text, 'e', 'E')) {
        takeIf(text, '+', '-');
        if (takeDigits(text).empty()) {
            return false;
        }
    }
    return text.empty();
}

std::optional<std::int64_t> integerFromNumberText(std::string_view text) noexcept
{
    std::int64_t value = 0;
    const char* const end = text.data() + text.size();
    const auto outcome = std::from_chars(text.data(), end, value);
    if (outcome.ptr == end) {
        // Only digits; too many of them give an error.
        return outcome.ec == std::errc() ? std::optional(value) : std::nullopt;
    }

    const Decimal decimal = takeApart(text);
    const std::size_t first = firstSignificantDigit(decimal);
    if (first == decimal.digitCount()) {
        return 0;
    }
    constexpr std::int64_t mostDigits = 19;
    const std::int64_t wholeDigits = magnitude(decimal);
    if (wholeDigits < 1 || wholeDigits > mostDigits) {
        return std::nullopt;
    }
    value = 0;
    for (std::int64_t taken = 0; taken < wholeDigits; ++taken) {
        const std::size_t index = first + static_cast<std::size_t>(taken);
        const int digit = index < decimal.digitCount() ? decimal.digit(index) - '0' : 0;
        // The value is built as a negative number, because the lowest number has no positive counterpart.
        if (__builtin_mul_overflow(value, std::int64_t{10}, &value) ||
            __builtin_sub_overflow(value, std::int64_t{digit}, &value)) {
            return std::nullopt;
        }
    }
    for (std::size_t index = first + static_cast<std::size_t>(wholeDigits); index < decimal.digitCount();
         ++index) {
        if (decimal.digit(index) != '0') {
            return std::nullopt;
        }
    }
    if (!decimal.negative && __builtin_sub_overflow(std::int64_t{0}, value, &value)) {
        return std::nullopt;
    }
    return value;
}

std::optional<double> doubleFromNumberText(std::string_view text) noexcept
{
    double value = 0;
    const auto outcome = std::from_chars(text.data(), text.data() + text.size(), value);
    if (outcome.ec != std::errc::result_out_of_range) {
        return value;
    }
    // from_chars reports the same error for values too large and too small. Zero is nearest to the latter.
    const Decimal decimal = takeApart(text);
    if (magnitude(decimal) > 0) {
        return std::nullopt;
    }
    return decimal.negative ? -0.0 : 0.0;
}

}  // namespace quillmere::json
