// Whole numbers of 64 bits.
#include <quillmere/records/json/number_text.hpp>
#include <quillmere/records/session_plan.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "proofs/support/figures.hpp"
#include "records/coding_helpers.hpp"
#include "support/extreme_numbers.hpp"

namespace quillmere::test {
namespace {

const std::string& planText()
{
    static const std::string text = compactText(SessionPlan::blank(Identifier(Identifier::Octets{})));
    return text;
}

/// Whether a plan with this energy is written with exactly its digits and read back.
bool survives(std::int64_t value)
{
    SessionPlan plan = SessionPlan::blank(Identifier(Identifier::Octets{}));
    plan.energy = value;
    const std::string text = compactText(plan);
    return scalarOf(text, "energy") == std::to_string(value) && decoded<SessionPlan>(text).energy == value;
}

/// The number read from a file with this spelling.
std::optional<std::int64_t> read(const std::string& spelling)
{
    try {
        return decoded<SessionPlan>(withScalar(planText(), "energy", spelling)).energy;
    } catch (const DecodingError&) {
        return std::nullopt;
    }
}

/// Every power of two and of ten and the limits, with their neighbours, in both signs.
std::vector<std::int64_t> boundaries()
{
    std::vector<std::uint64_t> magnitudes = {0, std::uint64_t{1} << 63};
    for (int shift = 0; shift < 63; ++shift) {
        magnitudes.push_back(std::uint64_t{1} << shift);
    }
    for (std::uint64_t power = 1; power <= 1'000'000'000'000'000'000; power *= 10) {
        magnitudes.push_back(power);
    }
    std::vector<std::int64_t> values;
    for (const std::uint64_t magnitude : magnitudes) {
        for (const std::uint64_t near : {magnitude - 1, magnitude, magnitude + 1}) {
            values.push_back(static_cast<std::int64_t>(near));
            values.push_back(static_cast<std::int64_t>(0 - near));
        }
    }
    return values;
}

TEST(EveryInteger, readsBackEqual)
{
    std::uint64_t count = 0;
    for (const std::int64_t value : boundaries()) {
        ASSERT_TRUE(survives(value)) << value;
        ++count;
    }
    std::mt19937_64 bits(3);
    for (std::uint64_t left = amount(5'000, 2'000'000); left > 0; --left) {
        // Shifted, to cover every length and not only the longest.
        const std::uint64_t drawn = bits();
        const auto value = static_cast<std::int64_t>(drawn) >> (drawn % 64);
        ASSERT_TRUE(survives(value)) << value;
        ++count;
    }
    reportFigure("Round trip", "integers, at every boundary and at random", count);
}

TEST(EveryInteger, isReadFromEverySpellingOfIt)
{
    for (const std::int64_t value : boundaries()) {
        const std::string digits = std::to_string(value);
        ASSERT_EQ(read(digits + ".0"), value);
        // After a leading zero only a point may follow.
        ASSERT_TRUE(value == 0 || read(digits + "00e-2") == value) << value;
        ASSERT_EQ(read(digits + "E+0"), value);
        const std::size_t first = value < 0 ? 2 : 1;
        if (digits.size() > first) {
            const std::string fraction = digits.substr(first);
            const std::string exponent = std::to_string(fraction.size());
            ASSERT_EQ(read(digits.substr(0, first) + "." + fraction + "e" + exponent), value);
        }
    }
}

TEST(EveryInteger, isRefusedBeyond64BitsOrWithAFraction)
{
    EXPECT_EQ(read("9223372036854775807"), most);
    EXPECT_EQ(read("-9223372036854775808"), least);
    for (const char* const text :
         {"9223372036854775808", "-9223372036854775809", "9223372036854775808.0", "92233720368547758070e-1.0",
          "1e19", "-1e19", "18446744073709551616", "9.2233720368547758075e18", "1e400", "-1e400", "0.5",
          "1e-1", "1e-400", "9223372036854775806.5", "-0.1", "100000000000000000000000000000000000000001"}) {
        EXPECT_EQ(read(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace quillmere::test
