// Unusual deep links: no text of any length or content does harm.
#include <quillmere/widget/widget_route.hpp>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "widget_testing.hpp"

namespace quillmere::test {
namespace {

std::string repeated(std::string_view text, std::size_t count)
{
    std::string result;
    for (std::size_t index = 0; index < count; ++index) {
        result += text;
    }
    return result;
}

TEST(WidgetRouteFromURL, refusesZeroBytesAtEveryPlace)
{
    const std::string link = "quillmere://u@open:1/focus?q#f";
    ASSERT_EQ(parsed(link), WidgetRoute::focus);
    for (std::size_t place = 0; place <= link.size(); ++place) {
        std::string spoilt = link;
        spoilt.insert(place, 1, '\0');
        EXPECT_EQ(parsed(spoilt), noRoute) << place;
    }
}

TEST(WidgetRouteFromURL, takesOrRefusesAnyLength)
{
    constexpr std::size_t count = 300'000;
    EXPECT_EQ(parsed("quillmere://open" + std::string(count, '/') + "focus"), WidgetRoute::focus);
    EXPECT_EQ(parsed("quillmere://open/" + repeated("%2F", count) + "focus"), WidgetRoute::focus);
    EXPECT_EQ(parsed("quillmere://" + std::string(count, 'u') + "@open/focus"), WidgetRoute::focus);
    EXPECT_EQ(parsed("quillmere://open:" + std::string(count, '1') + "/focus"), WidgetRoute::focus);
    EXPECT_EQ(parsed("quillmere://open/focus?" + std::string(count, 'q')), WidgetRoute::focus);
    EXPECT_EQ(parsed("quillmere://open/focus#" + std::string(count, 'f')), WidgetRoute::focus);
    EXPECT_EQ(parsed("quillmere://open/" + std::string(count, 'f')), noRoute);
    EXPECT_EQ(parsed("quillmere://open" + std::string(count, 'n') + "/focus"), noRoute);
    EXPECT_EQ(parsed(std::string(count, 'q') + "://open/focus"), noRoute);
    EXPECT_EQ(parsed(std::string(count, ':')), noRoute);
    EXPECT_EQ(parsed("quillmere://" + std::string(count, '@')), noRoute);
    EXPECT_EQ(parsed("quillmere://open/" + std::string(count, '%')), noRoute);
}

TEST(WidgetRouteFromURL, looksAtNoByteBehindTheText)
{
    // On the heap and without a terminator, so that a sanitizer reports a read beyond the end.
    const std::string whole = "quillmere://u@open:1/%66ocus?%71#%66";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::vector<char> bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const auto route = parsed({bytes.data(), bytes.size()});
        EXPECT_TRUE(!route || *route == WidgetRoute::focus || *route == WidgetRoute::idle) << length;
    }
    constexpr std::string_view cut = "quillmere://open/focu%73";
    EXPECT_EQ(parsed(cut), WidgetRoute::focus);
    EXPECT_EQ(parsed(cut.substr(0, cut.size() - 1)), noRoute);
}

TEST(WidgetRouteFromURL, survivesAnyTextAndNeverMindsItsCase)
{
    constexpr std::string_view pieces[] = {"quillmere",
                                           "QUILLMERE",
                                           "://",
                                           ":",
                                           "//",
                                           "/",
                                           "open",
                                           "Open",
                                           "focus",
                                           "break",
                                           "session-review",
                                           "%",
                                           "%66",
                                           "%2F",
                                           "%0",
                                           "%zz",
                                           "?",
                                           "#",
                                           "@",
                                           "[",
                                           "]",
                                           "::1",
                                           "80",
                                           "\xC3",
                                           "\xFF",
                                           " ",
                                           "\n",
                                           "a",
                                           "-",
                                           "..",
                                           ";",
                                           "&="};
    constexpr unsigned seed = 20261115;
    std::mt19937 random(seed);
    const auto below = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    std::size_t routes = 0;
    for (int round = 0; round < 40'000; ++round) {
        std::string link = below(4) == 0 ? "" : "quillmere://open/";
        for (std::size_t count = below(6); count > 0; --count) {
            link += pieces[below(std::size(pieces))];
        }
        if (!link.empty() && below(4) == 0) {
            link[below(link.size())] = static_cast<char>(below(256));
        }
        std::string capitals = link;
        for (char& character : capitals) {
            character = character >= 'a' && character <= 'z' ? static_cast<char>(character - 32) : character;
        }
        ASSERT_EQ(parsed(link), parsed(capitals)) << link;
        routes += parsed(link) ? 1 : 0;
    }
    EXPECT_GT(routes, 1000u) << "texts that reach no further than the scheme would test little";
}

}  // namespace
}  // namespace quillmere::test
