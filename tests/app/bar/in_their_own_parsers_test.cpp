// The lines in the bars' own parsers: each shows the sanitized and cut text unchanged.
#include <pango/pango.h>
#include <unistd.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <tuple>

#include "bar/bar_format.hpp"
#include "bar/running_process.hpp"
#include "hostile_texts.hpp"

namespace quillmere::test {
namespace {

using bar::BarContent;
using bar::BarFormat;
using bar::BarPace;
using bar::barText;

constexpr std::size_t width = 150;

BarContent contentOf(const std::string& text)
{
    return bar::barContent(summaryWith(text), moment + 600, width);
}

/// The text that Pango shows for markup. Fails when the markup changes the look of any part.
std::string shownByPango(const std::string& markup)
{
    PangoAttrList* attributes = nullptr;
    char* text = nullptr;
    GError* error = nullptr;
    if (!pango_parse_markup(markup.c_str(), -1, 0, &attributes, &text, nullptr, &error)) {
        ADD_FAILURE() << error->message << " in " << markup;
        g_error_free(error);
        return {};
    }
    GSList* const looks = pango_attr_list_get_attributes(attributes);
    EXPECT_EQ(looks, nullptr) << markup;
    g_slist_free_full(looks, [](void* look) { pango_attribute_destroy(static_cast<PangoAttribute*>(look)); });
    const std::string shown = text;
    g_free(text);
    pango_attr_list_unref(attributes);
    return shown;
}

TEST(Waybar, showsTheTextAndTheTooltipUnchanged)
{
    for (const std::string& text : hostileTexts) {
        SCOPED_TRACE(text);
        const BarContent content = contentOf(text);
        const auto line = nlohmann::json::parse(barText(BarFormat::waybar, content, BarPace::following));
        EXPECT_EQ(shownByPango(line.at("text").get<std::string>()), content.text);
        std::string details;
        for (const std::string& detail : content.details) {
            details.append(details.empty() ? "" : "\n").append(detail);
        }
        EXPECT_EQ(shownByPango(line.at("tooltip").get<std::string>()), details);
        EXPECT_EQ(line.at("class"), content.classes);
    }
}

TEST(AnyProgram, readsTheTextsFromJsonUnchanged)
{
    for (const std::string& text : hostileTexts) {
        SCOPED_TRACE(text);
        const BarContent content = contentOf(text);
        const auto line = nlohmann::json::parse(barText(BarFormat::json, content, BarPace::following));
        EXPECT_EQ(line.at("text"), content.text);
        EXPECT_EQ("Outcome: " + line.at("intended_outcome").get<std::string>().substr(0, 10),
                  content.details.at(2).substr(0, 19));
    }
}

/// Our block in a line of i3blocks, an element of the endless array that it has i3bar show; null where it is
/// not shown yet.
nlohmann::json blockIn(const std::string& line)
{
    if (line.starts_with(",[")) {
        for (const auto& block : nlohmann::json::parse(line.substr(1))) {
            if (block.value("name", "") == "quillmere") {
                return block;
            }
        }
    }
    return {};
}

TEST(I3blocks, passesTheTextOnUnchanged)
{
    if (!isInstalled("i3blocks")) {
        GTEST_SKIP() << "i3blocks is not installed";
    }
    const TemporaryDirectory files;
    const TemporaryDirectory beside;
    const std::string config = (beside.path() / "config").string();
    for (const BarPace pace : {BarPace::once, BarPace::following}) {
        writeText(config,
                  "[quillmere]\ncommand=" QUILLMERE_PROGRAM " bar --format i3blocks --width " +
                      std::to_string(width) + " --directory " + files.path().string() +
                      (pace == BarPace::once ? "\ninterval=once\n" : " --follow\ninterval=persist\n"));
        for (const std::string& text : hostileTexts) {
            SCOPED_TRACE(text);
            // The program uses the wall clock, so the countdown must stand still.
            WidgetSnapshot summary = summaryWith(text);
            summary.countdown->isPaused = true;
            WidgetSnapshotStore(files.path()).save(summary);
            const BarContent content = bar::barContent(summary, moment, width);
            const std::string lines = barText(BarFormat::i3blocks, content, pace);
            RunningProcess blocks({"i3blocks", "-c", config});
            nlohmann::json shown;
            while (shown.is_null() && !HasFailure()) {
                shown = blockIn(blocks.line());
            }
            ASSERT_FALSE(HasFailure());
            EXPECT_EQ(shown.at("full_text"), lines.substr(0, lines.find('\n')));
            if (pace == BarPace::once) {
                EXPECT_EQ(shown.at("short_text"), content.shortText);
                EXPECT_EQ(shown.at("color"), "#e0806a");
            }
        }
    }
}

/// A tmux server whose only window runs a second tmux, so that the status line of the second can be read.
class TmuxInTmux : public testing::Test {
protected:
    void SetUp() override
    {
        if (!isInstalled("tmux")) {
            GTEST_SKIP() << "tmux is not installed";
        }
        inner("new-session -d -x 200 -y 6");
        inner("set -g status-right-length 180");
        inner("set -g status-left ''");
        outer("new-session -d -x 200 -y 6 'env -u TMUX tmux -u -S " + socket("inner") + " attach'");
        outer("set -g status off");
    }

    void TearDown() override
    {
        if (isInstalled("tmux")) {
            outer("kill-server");
            inner("kill-server");
        }
    }

    std::string socket(const char* name) const { return (place.path() / name).string(); }

    std::string at(const char* server, const std::string& command) const
    {
        const auto answer = place.path() / "answer";
        // Ending a server ends its clients too.
        std::ignore = std::system(
            ("tmux -u -f /dev/null -S " + socket(server) + " " + command + " >" + answer.string() + " 2>&1")
                .c_str());
        return textOf(answer);
    }

    std::string inner(const std::string& command) const { return at("inner", command); }
    std::string outer(const std::string& command) const { return at("outer", command); }

    /// The status line for the output of a command.
    std::string shown(const std::string& line)
    {
        const std::string number = std::to_string(++count_);
        const std::string file = (place.path() / ("line" + number)).string();
        writeText(file, line);
        inner("set -g status-right '#(cat " + file + ") end" + number + "'");
        std::string screen;
        for (int attempt = 0; attempt < 6'000; ++attempt) {
            screen = outer("capture-pane -p -J");
            const std::size_t begin = screen.find("Focus");
            const std::size_t end = screen.find(" end" + number);
            if (begin < end && end != std::string::npos) {
                return screen.substr(begin, end - begin);
            }
            ::usleep(10'000);
        }
        return "nothing but " + screen;
    }

    TemporaryDirectory place;

private:
    // The directory in which a command in a text would write.
    const CurrentDirectory here_{place.path()};
    // Before the servers begin: they take no part in a session in which the tests run.
    const EnvironmentVariable noSession_{"TMUX", std::nullopt};
    const EnvironmentVariable terminal_{"TERM", "xterm-256color"};
    const EnvironmentVariable locale_{"LC_ALL", "C.UTF-8"};
    int count_ = 0;
};

/// tmux 3.2 and later show several "#" in a row as fewer, escaped or not.
std::string withoutRepeatedHashes(const std::string& text)
{
    std::string result;
    for (const char character : text) {
        if (character != '#' || result.empty() || result.back() != '#') {
            result += character;
        }
    }
    return result;
}

TEST_F(TmuxInTmux, showsTheTextUnchanged)
{
    for (const std::string& text : hostileTexts) {
        SCOPED_TRACE(text);
        const BarContent content = contentOf(text);
        EXPECT_EQ(withoutRepeatedHashes(shown(barText(BarFormat::tmux, content, BarPace::following))),
                  withoutRepeatedHashes(content.text));
    }
    EXPECT_FALSE(std::filesystem::exists(place.path() / "x"));
}

TEST_F(TmuxInTmux, showsOneHashForADoubledOne)
{
    EXPECT_EQ(shown("Focus a##b ##{pid} ##[fg=red]c\n"), "Focus a#b #{pid} #[fg=red]c");
}

TEST_F(TmuxInTmux, obeysATextThatIsNotEscaped)
{
    // Proves that the tests above would see it.
    EXPECT_EQ(shown("Focus #[fg=red]red #{?,yes,no}\n"), "Focus red no");
}

}  // namespace
}  // namespace quillmere::test
