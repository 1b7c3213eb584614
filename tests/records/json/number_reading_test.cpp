// Reading of integers and doubles.
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>
#include <limits>
#include <random>

#include "records/coding_helpers.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();

std::string planWithEnergy(std::string_view number)
{
    static const std::string sample = test::compactText(test::samplePlan(1));
    return test::withScalar(sample, "energy", number);
}

std::string stateWithExtension(std::string_view number)
{
    static const std::string sample = test::compactText(test::stateIn(WorkflowState::idle));
    return test::withScalar(sample, "break_extension_seconds", number);
}

double readDuration(std::string_view number)
{
    return test::decoded<QuillmereState>(stateWithExtension(number)).breakExtensionSeconds;
}

TEST(ReadInteger, isAnyNumberThatIsExactlyWholeAndFits64Bits)
{
    constexpr struct {
        std::string_view text;
        std::int64_t value;
    } rows[] = {
        {"0", 0},
        {"-0", 0},
        {"0.0", 0},
        {"0e5", 0},
        {"-0.000e-99", 0},
        {"0e999999999999999999999", 0},
        {"3", 3},
        {"3.0", 3},
        {"3.000000000000000000000000000000", 3},
        {"3e0", 3},
        {"3E+0", 3},
        {"3e-0", 3},
        {"30e-1", 3},
        {"0.3e1", 3},
        {"0.0003e4", 3},
        {"300000000000000000000000000000e-29", 3},
        {"-3", -3},
        {"-3.0", -3},
        {"-30e-1", -3},
        {"12.5e1", 125},
        {"1e18", 1'000'000'000'000'000'000},
        {"1000000e12", 1'000'000'000'000'000'000},
        {"0.000000000000000000000000000001e+30", 1},
        // A double does not have the last digit of these.
        {"9007199254740993", 9007199254740993},
        {"9007199254740993.0", 9007199254740993},
        {"9007199254740993e0", 9007199254740993},
        {"900719925474099.3e1", 9007199254740993},
        {"9223372036854775807", greatest},
        {"9223372036854775807.0", greatest},
        {"9223372036854775807.000e0", greatest},
        {"922337203685477580.7e1", greatest},
        {"92233720368547758070e-1", greatest},
        {"-9223372036854775808", least},
        {"-9223372036854775808.0", least},
        {"-922337203685477580.8e1", least},
        {"-9.223372036854775808e18", least},
    };
    for (const auto& [text, value] : rows) {
        SCOPED_TRACE(text);
        const auto error = test::decodingError<SessionPlan>(planWithEnergy(text));
        ASSERT_FALSE(error) << error->what();
        EXPECT_EQ(test::decoded<SessionPlan>(planWithEnergy(text)).energy, value);
    }
}

TEST(ReadInteger, isNoNumberWithAFractionOrBeyond64Bits)
{
    constexpr std::string_view texts[] = {
        "3.5",
        "0.1",
        "-0.5",
        "3.0000000000000000000000000001",
        "35e-1",
        "3e-1",
        "1e-400",
        "5e-324",
        "0.9999999999999999999999",
        "9223372036854775808",
        "9223372036854775808.0",
        "9223372036854775807.5",
        "922337203685477580.8e1",
        "-9223372036854775809",
        "-9223372036854775808.5",
        "-9.223372036854775809e18",
        "1e19",
        "-1e19",
        "10e18",
        "18446744073709551615",
        "18446744073709551616",
        "18446744073709551619",
        "340282366920938463463374607431768211459",
        "1e400",
        "-1e400",
        "1e999999999999999999999",
        "1e-999999999999999999999",
        "99999999999999999999999999999999999999999999",
    };
    for (const std::string_view text : texts) {
        SCOPED_TRACE(text);
        const auto error = test::decodingError<SessionPlan>(planWithEnergy(text));
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "energy");
        EXPECT_EQ(error->expected(), "a whole number of 64 bits");
        EXPECT_EQ(error->found(), text);
    }
}

TEST(ReadInteger, isReadWithAnyNumberOfDigits)
{
    const std::string zeros(1000, '0');
    EXPECT_EQ(test::decoded<SessionPlan>(planWithEnergy("7" + zeros + "e-1000")).energy, 7);
    EXPECT_EQ(test::decoded<SessionPlan>(planWithEnergy("0." + zeros + "7e1001")).energy, 7);
    EXPECT_EQ(test::decoded<SessionPlan>(planWithEnergy("7." + zeros)).energy, 7);
    EXPECT_TRUE(test::decodingError<SessionPlan>(planWithEnergy("7." + zeros + "1")));
    EXPECT_TRUE(test::decodingError<SessionPlan>(planWithEnergy("7" + zeros)));
}

TEST(ReadDuration, isAnyNumberWithinTheDoubles)
{
    constexpr struct {
        std::string_view text;
        double value;
    } rows[] = {
        {"1500", 1500},
        {"1500.0", 1500},
        {"1.5e3", 1500},
        {"1.5E+3", 1500},
        {"15000e-1", 1500},
        {"0.0000015e9", 1500},
        {"-42.5", -42.5},
        {"0", 0.0},
        {"-0", -0.0},
        {"-0.0", -0.0},
        {"0e999999999999", 0.0},
        {"0.1", 0.1},
        {"0.1000000000000000055511151231257827021181583404541015625", 0.1},
        {"123456789012345678901234567890", 123456789012345678901234567890.0},
        {"9223372036854775808", 0x1p63},
        {"18446744073709551616", 0x1p64},
        {"9007199254740993", 9007199254740992},
        // Halfway between two doubles, and a little to one side of it.
        {"9007199254740993.0000000000000000000000000000000001", 9007199254740994},
        {"9007199254740992.9999999999999999999999999999999999", 9007199254740992},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {"1.797693134862315807e308", std::numeric_limits<double>::max()},
        {"2.2250738585072014e-308", std::numeric_limits<double>::min()},
        {"2.2250738585072011e-308", 0x0.fffffffffffffp-1022},
        {"4.9e-324", std::numeric_limits<double>::denorm_min()},
        {"2.4703282292062328e-324", std::numeric_limits<double>::denorm_min()},
        // Nearer to zero than to any other double.
        {"2.4703282292062327e-324", 0.0},
        {"1e-400", 0.0},
        {"-1e-400", -0.0},
        {"1e-999999999999999999999", 0.0},
        {"0.0000000001e-390", 0.0},
        {"123456789e-999", 0.0},
    };
    for (const auto& [text, value] : rows) {
        SCOPED_TRACE(text);
        const auto error = test::decodingError<QuillmereState>(stateWithExtension(text));
        ASSERT_FALSE(error) << error->what();
        EXPECT_EQ(std::bit_cast<std::uint64_t>(readDuration(text)), std::bit_cast<std::uint64_t>(value));
    }
}

TEST(ReadDuration, isNoNumberBeyondTheDoubles)
{
    constexpr std::string_view texts[] = {"1e400",
                                          "-1e400",
                                          "1e309",
                                          "1.8e308",
                                          "1.7976931348623159e308",
                                          "0.0001e400",
                                          "1e999999999999999999999",
                                          "1234567890e300"};
    for (const std::string_view text : texts) {
        SCOPED_TRACE(text);
        const auto error = test::decodingError<QuillmereState>(stateWithExtension(text));
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "break_extension_seconds");
        EXPECT_EQ(error->expected(), "a number within double precision");
        EXPECT_EQ(error->found(), text);
    }
}

TEST(ReadDuration, isReadWithAnyNumberOfDigits)
{
    const std::string zeros(5000, '0');
    EXPECT_EQ(readDuration("15" + zeros + "e-4998"), 1500);
    EXPECT_EQ(readDuration("0." + zeros + "15e5004"), 1500);
    EXPECT_EQ(readDuration("1500." + zeros + "1"), 1500);
    EXPECT_EQ(readDuration("0." + zeros + "1"), 0);
    EXPECT_TRUE(test::decodingError<QuillmereState>(stateWithExtension("1" + zeros)));
}

TEST(ReadDuration, isTheNearestDouble)
{
    std::mt19937_64 random(11);
    for (int count = 0; count < 5000; ++count) {
        const std::string digits = std::to_string(random()) + std::to_string(random());
        const std::string text = digits.substr(0, 1) + '.' + digits.substr(1, random() % 30 + 1) + 'e' +
                                 std::to_string(static_cast<int>(random() % 600) - 300);
        ASSERT_EQ(readDuration(text), std::strtod(text.c_str(), nullptr)) << text;
    }
}

TEST(ReadNumber, isNoText)
{
    for (const std::string_view text :
         {R"("3")", R"("")", R"("1500")", "true", "null", "[3]", R"({"3":3})"}) {
        SCOPED_TRACE(text);
        EXPECT_TRUE(test::decodingError<SessionPlan>(planWithEnergy(text)));
        EXPECT_TRUE(test::decodingError<QuillmereState>(stateWithExtension(text)));
    }
}

}  // namespace
}  // namespace quillmere
