// Numbers in JSON: the shortest text that reads back to the same bits.
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include "records/coding_helpers.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

constexpr std::string_view durationKey = "break_extension_seconds";

std::string written(double duration)
{
    QuillmereState state = test::stateIn(WorkflowState::idle);
    state.breakExtensionSeconds = duration;
    return test::scalarOf(test::compactText(state), durationKey);
}

double readBack(const std::string& text)
{
    static const std::string sample = test::compactText(test::stateIn(WorkflowState::idle));
    return test::decoded<QuillmereState>(test::withScalar(sample, durationKey, text)).breakExtensionSeconds;
}

/// The digits of a number text from the first to the last that is not 0.
std::string significantDigits(const std::string& text)
{
    std::string digits;
    for (const char character : text.substr(0, text.find('e'))) {
        if (character >= '0' && character <= '9' && !(digits.empty() && character == '0')) {
            digits += character;
        }
    }
    digits.erase(digits.find_last_not_of('0') + 1);
    return digits;
}

/// The smallest number of digits with which the C library, which rounds to nearest, reads the number back.
/// Next to a power of two a text with fewer digits may exist.
std::size_t fewestDigits(double value)
{
    char text[40];
    for (int precision = 0; precision < 17; ++precision) {
        std::snprintf(text, sizeof text, "%.*e", precision, value);
        if (std::strtod(text, nullptr) == value) {
            break;
        }
    }
    return significantDigits(text).size();
}

TEST(WrittenDuration, isSpelledTheShortestWay)
{
    constexpr struct {
        double value;
        std::string_view text;
    } rows[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {1, "1"},
        {300, "300"},
        {1500, "1500"},
        {-1500, "-1500"},
        {42.5, "42.5"},
        {0.1, "0.1"},
        {0.30000000000000004, "0.30000000000000004"},
        {99999, "99999"},
        {100000, "1e+05"},
        {123456, "123456"},
        {1e21, "1e+21"},
        {0.001, "0.001"},
        {1e-5, "1e-05"},
        {5e-324, "5e-324"},
        {2.2250738585072014e-308, "2.2250738585072014e-308"},
        {2.225073858507201e-308, "2.225073858507201e-308"},
        {1.7976931348623157e308, "1.7976931348623157e+308"},
        {-1.7976931348623157e308, "-1.7976931348623157e+308"},
        {9007199254740991, "9007199254740991"},
        {9007199254740994, "9007199254740994"},
        {9223372036854774784.0, "9223372036854774784"},
    };
    for (const auto& [value, text] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(written(value), text);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(readBack(std::string(text))),
                  std::bit_cast<std::uint64_t>(value));
    }
}

TEST(WrittenDuration, hasAnExponentFrom2ToThePowerOf63On)
{
    // Without an exponent it would look like an integer, and readers refuse integers beyond 64 bits.
    for (const double value : {0x1p63, -0x1p63, 0x1.0000000000001p63, 0x1p64, 0x1p65, 1e19,
                               18446744073709549568.0, 123456789012345678901.0, 0x1p70}) {
        const std::string text = written(value);
        SCOPED_TRACE(text);
        EXPECT_NE(text.find('e'), std::string::npos);
        EXPECT_EQ(readBack(text), value);
    }
}

void expectShortestAndExact(double value)
{
    const std::string text = written(value);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(std::strtod(text.c_str(), nullptr)),
              std::bit_cast<std::uint64_t>(value))
        << text;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(readBack(text)), std::bit_cast<std::uint64_t>(value)) << text;
    // A whole number without an exponent may have more digits than needed.
    if (text.find_first_of(".e") != std::string::npos) {
        ASSERT_LE(significantDigits(text).size(), fewestDigits(value)) << text;
    }
}

TEST(WrittenDuration, readsBackToTheSameBits)
{
    std::mt19937_64 random(42);
    for (int count = 0; count < 20'000; ++count) {
        const auto value = std::bit_cast<double>(random());
        if (std::isfinite(value)) {
            ASSERT_NO_FATAL_FAILURE(expectShortestAndExact(value));
        }
    }
}

TEST(WrittenDuration, readsBackToTheSameBitsInTheSizesOfDurations)
{
    std::mt19937_64 random(43);
    for (int count = 0; count < 5000; ++count) {
        const double scale = std::ldexp(1.0, static_cast<int>(random() % 90) - 20);
        const double value = std::ldexp(static_cast<double>(random() % (1U << 20)), -10) * scale;
        ASSERT_NO_FATAL_FAILURE(expectShortestAndExact(value));
        ASSERT_NO_FATAL_FAILURE(expectShortestAndExact(std::floor(value)));
        ASSERT_NO_FATAL_FAILURE(expectShortestAndExact(-value));
    }
}

TEST(WrittenDuration, readsBackToTheSameBitsAroundEveryPowerOfTwo)
{
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        const double value = std::ldexp(1.0, exponent);
        for (const double near : {std::nextafter(value, 0.0), value, std::nextafter(value, HUGE_VAL)}) {
            ASSERT_NO_FATAL_FAILURE(expectShortestAndExact(near));
        }
    }
}

TEST(WrittenInteger, hasNeitherFractionNorExponent)
{
    SessionPlan plan = test::samplePlan(1);
    for (const std::int64_t value :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{5}, std::int64_t{100'000},
          std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
        SCOPED_TRACE(value);
        plan.energy = value;
        const std::string text = test::compactText(plan);
        EXPECT_EQ(test::scalarOf(text, "energy"), std::to_string(value));
        EXPECT_EQ(test::decoded<SessionPlan>(text), plan);
    }
}

}  // namespace
}  // namespace quillmere
