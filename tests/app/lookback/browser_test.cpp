// The page in a real browser.
#include "lookback/html_page.hpp"

#include "figures_testing.hpp"
#include "generated_year.hpp"
#include "support/process.hpp"

namespace quillmere::test {
namespace {

using figures::statistics;
using lookback::htmlPage;

/// The document as the browser prints it after it has rendered a file, or the messages of its console when
/// there are any.
std::string rendered(const std::filesystem::path& file, const Words& flags = {})
{
    const TemporaryDirectory profile;
    Words words = {"chromium",
                   "--headless",
                   "--no-sandbox",
                   "--disable-gpu",
                   "--disable-quic",
                   "--no-first-run",
                   "--disable-background-networking",
                   "--disable-component-update",
                   "--disable-sync",
                   "--enable-logging=stderr",
                   "--hide-scrollbars",
                   "--user-data-dir=" + profile.path().string()};
    words.insert(words.end(), flags.begin(), flags.end());
    words.insert(words.end(), {"--dump-dom", "file://" + file.string()});
    const ProcessEnding ending = run({.words = words});
    const std::size_t place = ending.err.find("CONSOLE");
    return place == std::string::npos ? ending.out : ending.err.substr(place);
}

struct View {
    const char* name;
    int width;
    int scheme;  ///< that of the system: 0 is dark, 1 is light
    const char* background;
};

constexpr View views[] = {
    {"desktop, light", 1200, 1, "rgb(250, 249, 246)"}, {"desktop, dark", 1200, 0, "rgb(23, 22, 20)"},
    {"tablet, light", 720, 1, "rgb(250, 249, 246)"},   {"phone, light", 390, 1, "rgb(250, 249, 246)"},
    {"small phone, dark", 320, 0, "rgb(23, 22, 20)"},
};

/// A page around the page that measures it; the page itself lets nobody run anything in it.
constexpr const char* measuring =
    "<!DOCTYPE html><html><body style=\"margin:0\"><p id=\"said\"></p><iframe id=\"page\" src=\"page.html\" "
    "style=\"border:0;width:WIDTHpx;height:2000px\"></iframe><script>\n"
    "document.getElementById('page').addEventListener('load', event => {\n"
    "  const page = event.target.contentDocument;\n"
    "  const wide = [...page.querySelectorAll('main *')].filter(\n"
    "      part => part.getBoundingClientRect().right > page.documentElement.clientWidth + 1 &&\n"
    "              !part.closest('.scroll, .sessions thead')).map(part => part.outerHTML.slice(0, 80));\n"
    "  const texts = [...page.querySelectorAll('svg text')].map(text => {\n"
    "    const drawing = text.closest('svg');\n"
    "    const scale = drawing.getBoundingClientRect().width / drawing.viewBox.baseVal.width;\n"
    "    const size = parseFloat(page.defaultView.getComputedStyle(text).fontSize) * scale;\n"
    "    return {drawing, size, words: text.textContent, box: text.getBoundingClientRect(),\n"
    "            frame: drawing.getBoundingClientRect()};\n"
    "  });\n"
    "  const cut = texts.filter(({box, frame}) => box.left < frame.left || box.right > frame.right ||\n"
    "      box.top < frame.top || box.bottom > frame.bottom).map(text => text.words);\n"
    "  const small = texts.filter(text => text.size < 10.9).map(text => text.words);\n"
    "  const touching = texts.filter((one, index) => texts.slice(index + 1).some(other =>\n"
    "      one.drawing === other.drawing && one.box.left < other.box.right + 2 &&\n"
    "      other.box.left < one.box.right + 2 && one.box.top < other.box.bottom &&\n"
    "      other.box.top < one.box.bottom)).map(text => text.words);\n"
    "  document.getElementById('said').textContent = 'width ' + page.documentElement.clientWidth +\n"
    "      ', content ' + page.documentElement.scrollWidth + ', too wide: [' + wide.join(' ') + '], cut: [' "
    "+\n"
    "      cut.join(' ') + '], small: [' + small.join(' ') + '], touching: [' + touching.join(' ') +\n"
    "      '], paper ' +\n"
    "      page.defaultView.getComputedStyle(page.body).backgroundColor + ', charts ' +\n"
    "      [...page.querySelectorAll('svg')].filter(chart => chart.getBoundingClientRect().height > "
    "60).length;\n"
    "});\n"
    "</script></body></html>\n";

TEST(Browser, rendersThePageWithoutAComplaint)
{
    const TimeZone here("UTC");
    const TemporaryDirectory directory;
    const auto file = directory.path() / "page.html";
    const QuillmereState state = generatedYear(moment);
    const LookBack look = statistics(state, {}, day("2026-11-15"));
    writeText(file, htmlPage(look));
    const std::string document = rendered(file);
    EXPECT_NE(document.find("<h1>Look back</h1>"), std::string::npos) << document.substr(0, 500);
    EXPECT_NE(document.find("sessions on " + std::to_string(look.focusDays) + " days</dd>"),
              std::string::npos);
    EXPECT_NE(document.find("</html>"), std::string::npos);
}

TEST(Browser, complainsAboutWhatAPageMayNotDo)
{
    // Otherwise the test above could not fail.
    const TemporaryDirectory directory;
    const auto file = directory.path() / "page.html";
    const QuillmereState state = QuillmereState::initial(moment);
    writeText(file,
              replaced(htmlPage(statistics(state, {}, Day())), "</body>", "<script>a()</script></body>"));
    EXPECT_NE(rendered(file).find("Content Security Policy"), std::string::npos);
}

void expectGoodLooks(const QuillmereState& state, const View& view)
{
    const TemporaryDirectory directory;
    writeText(directory.path() / "page.html", htmlPage(statistics(state, {}, day("2026-11-15"))));
    const std::string width = std::to_string(view.width);
    writeText(directory.path() / "around.html", replaced(measuring, "WIDTH", width));
    const std::string document =
        rendered(directory.path() / "around.html",
                 {"--window-size=1300,900", "--disable-web-security", "--allow-file-access-from-files",
                  "--blink-settings=preferredColorScheme=" + std::to_string(view.scheme)});
    EXPECT_NE(document.find("width " + width + ", content " + width +
                            ", too wide: [], cut: [], small: [], touching: [], paper " + view.background +
                            ", charts 9<"),
              std::string::npos)
        << document;
}

TEST(Browser, showsThePageOnEveryScreenInTheColoursOfTheSystem)
{
    QuillmereState year = generatedYear(moment);
    year.blockHistory.front().sessions.front().plan.intendedOutcome = hostileText;
    year.blockHistory.front().sessions.front().review->noteworthyResult = std::string(400, 'w');
    for (const View& view : views) {
        SCOPED_TRACE(view.name);
        expectGoodLooks(year, view);
    }
}

TEST(Browser, showsAShortHistoryOnEveryScreen)
{
    // Minutes on the axes, and a column or a few of them.
    const QuillmereState state = stateWith({session(moment - 2 * 86'400, 2400), session(moment, 600)});
    for (const View& view : views) {
        SCOPED_TRACE(view.name);
        expectGoodLooks(state, view);
    }
}

}  // namespace
}  // namespace quillmere::test
