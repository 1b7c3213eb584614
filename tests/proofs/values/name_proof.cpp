// Identifiers, and enumerations with their raw values.
#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/completion_result.hpp>
#include <quillmere/records/outcome.hpp>
#include <quillmere/records/workflow_state.hpp>
#include <quillmere/widget/widget_phase.hpp>
#include <quillmere/widget/widget_route.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <random>
#include <set>
#include <string>

#include "proofs/support/figures.hpp"
#include "records/coding_helpers.hpp"

namespace quillmere::test {
namespace {

std::string changed(std::string text, int (*change)(int))
{
    for (char& character : text) {
        character = static_cast<char>(change(static_cast<unsigned char>(character)));
    }
    return text;
}

/// The canonical text, formatted by the C library.
std::string canonical(const Identifier::Octets& bytes)
{
    std::string text;
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        char digits[4];
        std::snprintf(digits, sizeof digits, "%02X", unsigned{bytes[index]});
        text += index == 4 || index == 6 || index == 8 || index == 10 ? "-" : "";
        text += digits;
    }
    return text;
}

Identifier drawn(std::mt19937_64& random)
{
    Identifier::Octets bytes{};
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(random());
    }
    return Identifier(bytes);
}

TEST(EveryIdentifier, readsBackEqualInEitherCase)
{
    std::mt19937_64 random(6);
    const std::uint64_t count = amount(20'000, 10'000'000);
    for (std::uint64_t index = 0; index < count; ++index) {
        const Identifier identifier = drawn(random);
        const std::string text = canonical(identifier.bytes());
        ASSERT_EQ(identifier.text(), text);
        ASSERT_EQ(Identifier::fromText(text), identifier) << text;
        ASSERT_EQ(Identifier::fromText(changed(text, std::tolower)), identifier) << text;
        if (index % 100 == 0) {
            const Outcome outcome{identifier, "x"};
            ASSERT_EQ(decoded<Outcome>(compactText(outcome)), outcome);
            ASSERT_EQ(decoded<Outcome>(changed(compactText(outcome), std::tolower)), outcome);
        }
    }
    reportFigure("Round trip", "identifiers, in both cases", count);
}

TEST(EveryIdentifier, isRefusedWithAnyOtherCharacterOrLength)
{
    std::mt19937_64 random(7);
    const std::string text = drawn(random).text();
    for (std::size_t place = 0; place < text.size(); ++place) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string spoilt = text;
            spoilt[place] = static_cast<char>(byte);
            const bool fits = text[place] == '-' ? byte == '-' : std::isxdigit(byte) != 0;
            ASSERT_EQ(Identifier::fromText(spoilt).has_value(), fits) << place << ' ' << byte;
        }
        ASSERT_FALSE(Identifier::fromText(text.substr(0, place)));
        ASSERT_FALSE(Identifier::fromText(std::string(text).erase(place, 1)));
        ASSERT_FALSE(Identifier::fromText(std::string(text).insert(place, 1, '0')));
    }
    ASSERT_FALSE(Identifier::fromText(text + "0"));
}

/// Every text that differs by one typing error.
std::set<std::string> nearMisses(const std::string& text)
{
    std::set<std::string> misses = {"", changed(text, std::toupper), changed(text, std::tolower)};
    for (std::size_t place = 0; place <= text.size(); ++place) {
        for (const char extra : {' ', '_', '-', '\0', 'x', '"'}) {
            misses.insert(std::string(text).insert(place, 1, extra));
        }
        if (place < text.size()) {
            misses.insert(std::string(text).erase(place, 1));
            misses.insert(std::string(text).replace(place, 1, 1, static_cast<char>(text[place] ^ 0x20)));
            misses.insert(std::string(text).replace(place, 1, 1, static_cast<char>(text[place] + 1)));
        }
        if (place + 1 < text.size()) {
            std::string swapped = text;
            std::swap(swapped[place], swapped[place + 1]);
            misses.insert(swapped);
        }
    }
    return misses;
}

/// Counts the refused near misses.
template <class Enumeration>
std::uint64_t refusedBesideCasesOf()
{
    std::set<std::string> texts;
    std::set<std::string> misses;
    for (const Enumeration value : allCases<Enumeration>()) {
        const std::string text(rawValue(value));
        EXPECT_EQ(compactText(value), '"' + text + '"');
        EXPECT_EQ(decoded<Enumeration>('"' + text + '"'), value);
        EXPECT_EQ(decoded<Enumeration>(prettyText(value)), value);
        EXPECT_TRUE(texts.insert(text).second) << text;
        misses.merge(nearMisses(text));
    }
    for (const std::string& text : texts) {
        misses.erase(text);
    }
    for (const std::string& miss : misses) {
        EXPECT_FALSE(fromRawValue<Enumeration>(miss)) << miss;
        EXPECT_TRUE(decodingError<Enumeration>('"' + miss + '"')) << miss;
    }
    return misses.size();
}

TEST(EveryEnumeration, readsItsOwnTextsAndNothingBeside)
{
    const std::uint64_t count = refusedBesideCasesOf<WorkflowState>() +
                                refusedBesideCasesOf<CompletionResult>() + refusedBesideCasesOf<TimerKind>() +
                                refusedBesideCasesOf<WidgetPhase>() + refusedBesideCasesOf<WidgetRoute>();
    EXPECT_GT(count, 500U);
    reportFigure("Round trip", "refused texts, similar to those of enumerations", count);
}

}  // namespace
}  // namespace quillmere::test
