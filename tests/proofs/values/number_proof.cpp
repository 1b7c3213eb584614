// Doubles: the written text is the shortest that reads back to the same bits.
#include <quillmere/records/json/number_text.hpp>
#include <quillmere/records/json/writer.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "proofs/support/figures.hpp"
#include "records/coding_helpers.hpp"
#include "support/extreme_numbers.hpp"

namespace quillmere::test {
namespace {

bool sameBits(double left, double right)
{
    return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

/// From 2^63 on the text needs an exponent, because without one it would be an integer that is too large.
std::size_t shortestLength(double value)
{
    char text[64];
    const bool needsExponent = std::abs(value) >= 0x1p63;
    const auto end = needsExponent
                         ? std::to_chars(text, text + sizeof text, value, std::chars_format::scientific).ptr
                         : std::to_chars(text, text + sizeof text, value).ptr;
    return static_cast<std::size_t>(end - text);
}

/// Whether a finite number is written with the shortest text and read back, by the library and by the C
/// library.
bool survives(double value)
{
    char text[json::longestToken + 1];
    char* const end = json::putNumber(text, value);
    const std::string_view written(text, static_cast<std::size_t>(end - text));
    *end = '\0';
    if (!json::isNumberText(written) || written.size() != shortestLength(value)) {
        return false;
    }
    const std::optional<double> read = json::doubleFromNumberText(written);
    return read && sameBits(*read, value) && sameBits(std::strtod(text, nullptr), value);
}

/// The same test with a whole state.
bool survivesInRecord(double value)
{
    static QuillmereState state = QuillmereState::initial(Instant(0));
    state.breakExtensionSeconds = value;
    return sameBits(decoded<QuillmereState>(compactText(state)).breakExtensionSeconds, value);
}

bool isRefused(double value)
{
    QuillmereState state = QuillmereState::initial(Instant(0));
    state.breakExtensionSeconds = value;
    try {
        compactText(state);
    } catch (const EncodingError&) {
        return true;
    }
    return false;
}

/// Adds a number and its three neighbours on each side.
void addWithNeighbours(std::vector<double>& values, double value)
{
    double below = value;
    double above = value;
    values.push_back(value);
    for (int step = 0; step < 3; ++step) {
        below = std::nextafter(below, -infinity);
        above = std::nextafter(above, infinity);
        values.push_back(below);
        values.push_back(above);
    }
}

TEST(EveryDouble, readsBackToTheSameBitsFromTheShortestText)
{
    std::mt19937_64 bits(1);
    const std::uint64_t count = amount(100'000, 100'000'000);
    std::uint64_t notFinite = 0;
    for (std::uint64_t index = 0; index < count;) {
        const auto value = std::bit_cast<double>(bits());
        if (!std::isfinite(value)) {
            ASSERT_TRUE(isRefused(value)) << value;
            ++notFinite;
            continue;
        }
        const bool isSampled = index % 500 == 0;
        if (!survives(value) || (isSampled && !survivesInRecord(value))) {
            FAIL() << std::hexfloat << value;
        }
        ++index;
    }
    EXPECT_GT(notFinite, 0U);
    reportFigure("Round trip", "random finite doubles, to the same bits", count);
}

TEST(EveryDouble, readsBackAtThePowersOfTwoAndTenAndBesideThem)
{
    std::vector<double> values;
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        addWithNeighbours(values, std::ldexp(1.0, exponent));
    }
    for (int exponent = -324; exponent <= 308; ++exponent) {
        addWithNeighbours(values, std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr));
    }
    addWithNeighbours(values, std::numeric_limits<double>::max());
    std::uint64_t count = 0;
    for (const double magnitude : values) {
        for (const double value : {magnitude, -magnitude}) {
            // The short form tests every fourth in a whole state.
            const bool isInRecord = inLongForm() || count % 4 == 0;
            const bool asPromised = std::isfinite(value)
                                        ? survives(value) && (!isInRecord || survivesInRecord(value))
                                        : isRefused(value);
            ASSERT_TRUE(asPromised) << std::hexfloat << value;
            ++count;
        }
    }
    reportFigure("Round trip", "powers of two and ten with their neighbours", count);
}

TEST(EveryDouble, readsBackWhereItIsWhole)
{
    // Durations are nearly always whole seconds, which are written by separate code.
    const auto largest = static_cast<std::int64_t>(amount(30'000, 20'000'000));
    for (std::int64_t whole = 0; whole <= largest; ++whole) {
        const auto value = static_cast<double>(whole);
        ASSERT_TRUE(survives(value) && survives(-value)) << whole;
        ASSERT_TRUE(survives(value + 0.5) && survives(-value - 0.5)) << whole;
    }
}

/// Whether the nearest decimal with one digit less is another number, according to the C library. Not for
/// whole numbers without an exponent: these may have more digits and still be shorter.
bool hasFewestDigits(double value)
{
    char text[json::longestToken];
    const char* const end = json::putNumber(text, value);
    if (std::string_view(text, static_cast<std::size_t>(end - text)).find_first_of(".e") ==
        std::string::npos) {
        return true;
    }
    std::size_t digits = 0;
    std::size_t zeros = 0;
    for (const char* at = text; at != end && *at != 'e'; ++at) {
        if (*at >= '0' && *at <= '9' && (digits > 0 || *at != '0')) {
            ++digits;
            zeros = *at == '0' ? zeros + 1 : 0;
        }
    }
    digits -= zeros;
    if (digits < 2) {
        return true;
    }
    char shorter[64];
    std::snprintf(shorter, sizeof shorter, "%.*e", static_cast<int>(digits) - 2, value);
    return !sameBits(std::strtod(shorter, nullptr), value);
}

TEST(EveryDouble, isWrittenInTheFewestDigits)
{
    std::mt19937_64 bits(2);
    const std::uint64_t count = amount(30'000, 5'000'000);
    for (std::uint64_t index = 0; index < count;) {
        const auto value = std::bit_cast<double>(bits());
        if (std::isfinite(value)) {
            ASSERT_TRUE(hasFewestDigits(value)) << std::hexfloat << value;
            ++index;
        }
    }
}

}  // namespace
}  // namespace quillmere::test
