#include "lookback/page/html_page.hpp"

#include "lookback/page/block_section.hpp"
#include "lookback/page/markup.hpp"
#include "lookback/page/sections.hpp"
#include "lookback/page/style.hpp"
#include "lookback/words.hpp"

#include <string_view>

namespace quillmere::lookback {
namespace {

/// Empty elements end with "/>" for XML. The policy makes the browser refuse to load or run anything.
constexpr std::string_view pageHead =
    "<meta charset=\"utf-8\"/>\n"
    "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
    "'unsafe-inline'\"/>\n"
    "<title>Look back</title>\n";

constexpr std::string_view pageFooter =
    "Ended sessions count, also those of the current block, on the day on which they started, with their "
    "worked and planned time. Focus is the worked time on the days on which it was spent. The times of "
    "pauses "
    "are not recorded: in a session over midnight they are taken to come last.";

std::string omissionText(const Contents& contents)
{
    if (contents.texts && contents.ratings) {
        return "";
    }
    const std::string omitted = contents.texts ? "ratings" : contents.ratings ? "texts" : "texts and ratings";
    return " This page leaves out " + omitted + ".";
}

}  // namespace

std::string htmlPage(const figures::LookBack& look, const PageScope& scope)
{
    const bool isEmpty = look.sessions.empty() && look.days.empty();
    const std::string content =
        isEmpty ? element("p", {}, escaped(emptyText(look))) + "\n"
                : keyFigures(look) + pageSections(look, scope.contents) + blockSection(look, scope.blocks);
    const std::string body =
        element("header", {}, element("h1", {}, "Look back") + element("p", {}, escaped(rangeText(look)))) +
        "\n" + content +
        element(
            "footer", {},
            element("p", {}, std::string(pageFooter) + " " + countingText + omissionText(scope.contents)));
    return "<!DOCTYPE html>\n" +
           element("html", {{"xmlns", "http://www.w3.org/1999/xhtml"}, {"lang", "en"}},
                   "\n" +
                       element("head", {},
                               "\n" + std::string(pageHead) + element("style", {}, pageStyle()) + "\n") +
                       "\n" + element("body", {}, "\n" + element("main", {}, body) + "\n") + "\n") +
           "\n";
}

}  // namespace quillmere::lookback
