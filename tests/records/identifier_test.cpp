#include <quillmere/records/identifier.hpp>

#include <gtest/gtest.h>

#include <type_traits>
#include <unordered_set>

namespace quillmere {
namespace {

constexpr Identifier::Octets sampleBytes{0x9F, 0x1C, 0x2A, 0x4E, 0x0B, 0x7D, 0x4C, 0x55,
                                         0x8E, 0x21, 0x3A, 0x6B, 0x5D, 0x0C, 0x7F, 0x10};
constexpr std::string_view sampleText = "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10";

static_assert(!std::is_default_constructible_v<Identifier>);
static_assert(!std::is_convertible_v<std::string_view, Identifier>);
static_assert(!std::is_convertible_v<Identifier::Octets, Identifier>);
static_assert(sizeof(Identifier) == 16 && std::is_trivially_copyable_v<Identifier>);

TEST(Identifier, isWrittenInUpperCaseGroupsOf8And4And4And4And12Digits)
{
    EXPECT_EQ(Identifier(sampleBytes).text(), sampleText);
    EXPECT_EQ(Identifier(Identifier::Octets{}).text(), "00000000-0000-0000-0000-000000000000");
}

TEST(Identifier, writesItsTextIntoTheGivenCharactersAndNoFurther)
{
    std::string text(Identifier::textLength + 2, '#');
    Identifier(sampleBytes).writeText(text.data() + 1);
    EXPECT_EQ(text, '#' + std::string(sampleText) + '#');
}

TEST(Identifier, readsItsOwnTextInEitherCase)
{
    constexpr std::string_view texts[] = {
        sampleText,
        "9f1c2a4e-0b7d-4c55-8e21-3a6b5d0c7f10",
        "9f1C2A4e-0B7d-4C55-8e21-3A6b5D0c7F10",
    };
    for (const std::string_view text : texts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(Identifier::fromText(text), Identifier(sampleBytes));
    }
}

TEST(Identifier, readsIdentifiersOfAnyVersion)
{
    constexpr std::string_view texts[] = {
        "00000000-0000-0000-0000-000000000000",
        "FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF",
        "01890A5D-AC96-774B-BCCE-B302099A8057",
    };
    for (const std::string_view text : texts) {
        SCOPED_TRACE(text);
        const std::optional<Identifier> identifier = Identifier::fromText(text);
        ASSERT_TRUE(identifier);
        EXPECT_EQ(identifier->text(), text);
    }
}

TEST(Identifier, readsNoOtherText)
{
    constexpr std::string_view texts[] = {
        "",
        "9F1C2A4E",
        "9F1C2A4E0B7D4C558E213A6B5D0C7F10",
        "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F1",
        "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F100",
        " 9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10",
        "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10 ",
        "{9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10}",
        "9F1C2A4E-0B7D-4C558-E21-3A6B5D0C7F10",
        "9F1C2A4E_0B7D_4C55_8E21_3A6B5D0C7F10",
        "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F1G",
        "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F1-",
        "-F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10",
        "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7\xC3\x89"
        "0",
    };
    for (const std::string_view text : texts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(Identifier::fromText(text), std::nullopt);
    }
}

/// The digits are converted many at a time, so every position is tested with every character.
TEST(Identifier, acceptsExactlyTheHexadecimalDigitsAtEveryPlace)
{
    for (std::size_t place = 0; place < sampleText.size(); ++place) {
        for (int code = 0; code < 256; ++code) {
            std::string text(sampleText);
            text[place] = static_cast<char>(code);
            const bool isDigit =
                (code >= '0' && code <= '9') || (code >= 'a' && code <= 'f') || (code >= 'A' && code <= 'F');
            const bool isAccepted = sampleText[place] == '-' ? code == '-' : isDigit;
            SCOPED_TRACE(testing::Message() << "place " << place << ", character " << code);
            const std::optional<Identifier> identifier = Identifier::fromText(text);
            ASSERT_EQ(identifier.has_value(), isAccepted);
            if (isAccepted) {
                text[place] = static_cast<char>(code >= 'a' ? code - 'a' + 'A' : code);
                ASSERT_EQ(identifier->text(), text);
            }
        }
    }
}

TEST(Identifier, isRandomOfVersionFourWhenDrawn)
{
    Identifier::Octets everSet{};
    Identifier::Octets alwaysSet;
    alwaysSet.fill(0xFF);
    for (int count = 0; count < 500; ++count) {
        const Identifier drawn = Identifier::random();
        for (std::size_t index = 0; index < everSet.size(); ++index) {
            everSet[index] |= drawn.bytes()[index];
            alwaysSet[index] &= drawn.bytes()[index];
        }
    }
    // Every bit is seen both set and clear, except the bits of version (0100) and variant (10).
    Identifier::Octets expectedEverSet;
    expectedEverSet.fill(0xFF);
    expectedEverSet[6] = 0x4F;
    expectedEverSet[8] = 0xBF;
    Identifier::Octets expectedAlwaysSet{};
    expectedAlwaysSet[6] = 0x40;
    expectedAlwaysSet[8] = 0x80;
    EXPECT_EQ(everSet, expectedEverSet);
    EXPECT_EQ(alwaysSet, expectedAlwaysSet);
}

TEST(Identifier, isAnotherOneEveryTimeItIsDrawn)
{
    std::unordered_set<Identifier> drawn;
    for (int count = 0; count < 2000; ++count) {
        drawn.insert(Identifier::random());
    }
    EXPECT_EQ(drawn.size(), 2000U);
}

TEST(Identifier, isComparedByteByByteFromTheFront)
{
    for (std::size_t index = 0; index < sampleBytes.size(); ++index) {
        Identifier::Octets bytes = sampleBytes;
        bytes[index] = static_cast<std::uint8_t>(bytes[index] + 1);
        SCOPED_TRACE(index);
        EXPECT_NE(Identifier(bytes), Identifier(sampleBytes));
        EXPECT_GT(Identifier(bytes), Identifier(sampleBytes));
        EXPECT_NE(std::hash<Identifier>()(Identifier(bytes)),
                  std::hash<Identifier>()(Identifier(sampleBytes)));
    }
    EXPECT_EQ(Identifier(sampleBytes), Identifier(sampleBytes));
    EXPECT_EQ(std::hash<Identifier>()(Identifier(sampleBytes)),
              std::hash<Identifier>()(Identifier(sampleBytes)));
}

}  // namespace
}  // namespace quillmere
