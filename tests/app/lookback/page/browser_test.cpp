// The page in a real browser.
#include "figures_testing.hpp"
#include "lookback/page/html_page.hpp"

#include "generated_year.hpp"
#include "support/process.hpp"

#include <chrono>
#include <sstream>

namespace quillmere::test {
namespace {

using figures::statistics;
using lookback::htmlPage;

struct Screen {
    const char* name;
    int width;
    const char* scheme;
    const char* paper;  ///< the background that the style sheet has for the scheme
};

constexpr Screen screens[] = {
    {"desktop", 1200, "light", "rgb(250, 249, 246)"},     {"dark desktop", 1200, "dark", "rgb(23, 22, 20)"},
    {"tablet", 720, "light", "rgb(250, 249, 246)"},       {"phone", 390, "light", "rgb(250, 249, 246)"},
    {"dark small phone", 320, "dark", "rgb(23, 22, 20)"},
};

/// Measures the pages in the frames; the policy of a page allows no script in it. One line of
/// `results` for each frame.
constexpr const char* measuring = R"(<script>
function measured(frame) {
  const page = frame.contentDocument;
  const root = page.documentElement;
  const wide = [...page.querySelectorAll('main *')].filter(
      part => part.getBoundingClientRect().right > root.clientWidth + 1 &&
              !part.closest('.scroll, .sessions thead')).map(part => part.outerHTML.slice(0, 80));
  const texts = [...page.querySelectorAll('svg text')].map(text => {
    const drawing = text.closest('svg');
    const scale = drawing.getBoundingClientRect().width / drawing.viewBox.baseVal.width;
    const size = parseFloat(page.defaultView.getComputedStyle(text).fontSize) * scale;
    return {drawing, size, words: text.textContent, box: text.getBoundingClientRect(),
            frame: drawing.getBoundingClientRect()};
  });
  const cut = texts.filter(({box, frame}) => box.left < frame.left || box.right > frame.right ||
      box.top < frame.top || box.bottom > frame.bottom).map(text => text.words);
  const small = texts.filter(text => text.size < 10.9).map(text => text.words);
  const touching = texts.filter((one, index) => texts.slice(index + 1).some(other =>
      one.drawing === other.drawing && one.box.left < other.box.right + 2 &&
      other.box.left < one.box.right + 2 && one.box.top < other.box.bottom &&
      other.box.top < one.box.bottom)).map(text => text.words);
  const charts = [...page.querySelectorAll('svg')].filter(
      chart => chart.getBoundingClientRect().height > 60).length;
  return frame.title + ': width ' + root.clientWidth + ', content ' + root.scrollWidth +
      ', too wide: [' + wide.join(' ') + '], cut: [' + cut.join(' ') + '], small: [' + small.join(' ') +
      '], touching: [' + touching.join(' ') + '], paper ' +
      page.defaultView.getComputedStyle(page.body).backgroundColor + ', charts ' + charts;
}
addEventListener('load', () => {
  document.getElementById('results').textContent =
      [...document.querySelectorAll('iframe.page')].map(measured).join('\n');
});
</script></body></html>
)";

std::string frameOf(const std::string& title, const std::string& file, const Screen& screen)
{
    return "<iframe class=\"page\" title=\"" + title + "\" src=\"" + file +
           "\" style=\"border:0;height:2000px;width:" + std::to_string(screen.width) +
           "px;color-scheme:" + screen.scheme + "\"></iframe>\n";
}

std::string expectedOf(const std::string& title, const Screen& screen)
{
    const std::string width = std::to_string(screen.width);
    return title + ": width " + width + ", content " + width +
           ", too wide: [], cut: [], small: [], touching: [], paper " + screen.paper + ", charts 9";
}

struct Rendered {
    std::string document;               ///< after its scripts
    std::vector<std::string> messages;  ///< of the console
};

Rendered rendered(const std::filesystem::path& file)
{
    const TemporaryDirectory profile;
    constexpr std::chrono::seconds limit{100};
    const ProcessEnding ending = run(
        {.words = {"chromium", "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic",
                   "--no-first-run", "--disable-background-networking", "--disable-component-update",
                   "--disable-sync", "--enable-logging=stderr", "--hide-scrollbars", "--window-size=1300,900",
                   "--disable-web-security", "--allow-file-access-from-files",
                   "--user-data-dir=" + profile.path().string(), "--dump-dom", "file://" + file.string()}},
        limit);
    Rendered result{.document = ending.out, .messages = {}};
    std::istringstream lines(ending.err);
    for (std::string line; std::getline(lines, line);) {
        if (line.find("CONSOLE") != std::string::npos) {
            result.messages.push_back(line);
        }
    }
    return result;
}

/// Texts that could break the layout, among a year of others.
QuillmereState yearWithOddTexts()
{
    QuillmereState year = generatedYear(moment);
    WorkSession& session = year.blockHistory.front().sessions.front();
    session.plan.intendedOutcome = hostileText;
    session.review->noteworthyResult = std::string(400, 'w');
    return year;
}

/// Minutes on the axes, and few columns.
QuillmereState shortHistory()
{
    return stateWith({session(moment - 2 * 86'400, 2400), session(moment, 600)});
}

// One test: starting the browser takes longer than everything that it does here.
TEST(Browser, showsThePageOnEveryScreenInTheSchemeOfTheSystemAndComplainsAboutNothing)
{
    const TimeZone here("UTC");
    const TemporaryDirectory directory;
    const auto pageOf = [](const QuillmereState& state) {
        return htmlPage(statistics(state, {}, day("2026-11-15")));
    };
    const std::string shortPage = pageOf(shortHistory());
    writeText(directory.path() / "year.html", pageOf(yearWithOddTexts()));
    writeText(directory.path() / "short.html", shortPage);
    // A page that breaks its policy, so that the silence about the others means something.
    writeText(directory.path() / "bad.html", replaced(shortPage, "</body>", "<script>a()</script></body>"));
    std::string frames = "<iframe src=\"bad.html\"></iframe>\n";
    std::vector<std::string> expected;
    for (const char* const page : {"year", "short"}) {
        for (const Screen& screen : screens) {
            const std::string title = std::string(page) + " on a " + screen.name;
            frames += frameOf(title, page + std::string(".html"), screen);
            expected.push_back(expectedOf(title, screen));
        }
    }
    writeText(
        directory.path() / "frames.html",
        "<!DOCTYPE html><html><body style=\"margin:0\"><pre id=\"results\"></pre>" + frames + measuring);
    const Rendered result = rendered(directory.path() / "frames.html");
    const std::string results = result.document.substr(0, result.document.find("</pre>"));
    for (const std::string& line : expected) {
        EXPECT_NE(results.find(line), std::string::npos) << "not: " << line << "\nbut:\n" << results;
    }
    ASSERT_EQ(result.messages.size(), 1u) << testing::PrintToString(result.messages);
    EXPECT_NE(result.messages[0].find("Content Security Policy"), std::string::npos) << result.messages[0];
    EXPECT_NE(result.messages[0].find("bad.html"), std::string::npos) << result.messages[0];
}

}  // namespace
}  // namespace quillmere::test
