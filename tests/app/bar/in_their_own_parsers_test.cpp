// The lines in the bars' own parsers: each shows the sanitized and cut text unchanged.
#include <pango/pango.h>

#include <nlohmann/json.hpp>
#include <string>

#include "bar/bar_format.hpp"
#include "bar/content_of_widget.hpp"
#include "hostile_texts.hpp"
#include "program_testing.hpp"
#include "support/process.hpp"

namespace quillmere::test {
namespace {

using bar::BarContent;
using bar::BarFormat;
using bar::BarPace;
using bar::barText;

constexpr std::size_t width = 150;

BarContent contentOf(const std::string& text)
{
    return contentOfWidget(summaryWith(text), moment + 600, width);
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

/// Quillmere's block in a line of i3blocks, an element of the endless array for i3bar; null while it is
/// missing.
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
    if (!succeeds({"i3blocks", "-V"})) {
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
            const BarContent content = contentOfWidget(summary, moment, width);
            const std::string lines = barText(BarFormat::i3blocks, content, pace);
            Process blocks({.words = {"i3blocks", "-c", config}, .output = Channel::pipe()});
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
        if (!succeeds({"tmux", "-V"})) {
            GTEST_SKIP() << "tmux is not installed";
        }
        inner({"new-session", "-d", "-x", "200", "-y", "6"});
        inner({"set", "-g", "status-right-length", "180"});
        inner({"set", "-g", "status-left", ""});
        outer({"new-session", "-d", "-x", "200", "-y", "6",
               "env -u TMUX tmux -u -S " + socket("inner") + " attach"});
        outer({"set", "-g", "status", "off"});
    }

    void TearDown() override
    {
        if (!IsSkipped()) {
            outer({"kill-server"});
            inner({"kill-server"});
        }
    }

    std::string socket(const char* name) const { return (place.path() / name).string(); }

    std::string inner(const Words& command) const { return tmux("inner", command); }
    std::string outer(const Words& command) const { return tmux("outer", command); }

    /// How the status line shows a line that a command prints.
    std::string shown(const std::string& line)
    {
        const std::string number = std::to_string(++count_);
        const std::string file = (place.path() / ("line" + number)).string();
        writeText(file, line);
        inner({"set", "-g", "status-right", "#(cat " + file + ") end" + number});
        std::string screen;
        std::size_t begin = 0;
        std::size_t end = 0;
        const auto isThere = [&] {
            screen = outer({"capture-pane", "-p", "-J"});
            begin = screen.find("Focus");
            end = screen.find(" end" + number);
            return begin < end && end != std::string::npos;
        };
        const testing::AssertionResult appeared = eventually(isThere, [&] { return screen; });
        EXPECT_TRUE(appeared);
        return appeared ? screen.substr(begin, end - begin) : std::string();
    }

    TemporaryDirectory place;

private:
    std::string tmux(const char* server, const Words& command) const
    {
        Words words = {"tmux", "-u", "-f", "/dev/null", "-S", socket(server)};
        words.insert(words.end(), command.begin(), command.end());
        return run({.words = words, .error = Channel::sameAsOut()}).out;
    }

    // A command in a text that is not escaped would run here.
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

TEST_F(TmuxInTmux, obeysTextsThatAreNotEscaped)
{
    // Proves that the tests above would see it.
    EXPECT_EQ(shown("Focus #[fg=red]red #{?,yes,no}\n"), "Focus red no");
}

}  // namespace
}  // namespace quillmere::test
