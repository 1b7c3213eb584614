#include "screen/terminal/terminal.hpp"

#include "base/refusal.hpp"
#include "base/system/terminal_charset.hpp"
#include "base/system/wait.hpp"
#include "base/text/terminal_background.hpp"
#include "screen/terminal/abilities.hpp"
#include "screen/terminal/curses.hpp"
#include "screen/terminal/interruptible_write.hpp"
#include "screen/terminal/restore_terminal.hpp"

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <clocale>
#include <cstdlib>
#include <utility>

namespace quillmere::screen {
namespace {

struct KeyRow {
    int code;
    Key::Kind kind;
};

constexpr auto functionKeys = std::to_array<KeyRow>({
    {KEY_ENTER, Key::Kind::enter},
    {KEY_BTAB, Key::Kind::backTab},
    {KEY_BACKSPACE, Key::Kind::backspace},
    {KEY_DC, Key::Kind::remove},
    {KEY_LEFT, Key::Kind::left},
    {KEY_RIGHT, Key::Kind::right},
    {KEY_UP, Key::Kind::up},
    {KEY_DOWN, Key::Kind::down},
    {KEY_HOME, Key::Kind::home},
    {KEY_END, Key::Kind::end},
    {KEY_PPAGE, Key::Kind::pageUp},
    {KEY_NPAGE, Key::Kind::pageDown},
});

std::optional<Key> functionKey(int code)
{
    for (const KeyRow& row : functionKeys) {
        if (row.code == code) {
            return Key{row.kind};
        }
    }
    return std::nullopt;
}

/// Sets the locale that curses draws by. C.UTF-8 stands in for one of UTF-8 that is not installed here.
Charset takeOverLocale()
{
    if (!base::terminalUsesUtf8()) {
        std::setlocale(LC_CTYPE, "");
        return Charset::ascii;
    }
    const bool isSet = std::setlocale(LC_CTYPE, "") || std::setlocale(LC_CTYPE, "C.UTF-8");
    return isSet ? Charset::unicode : Charset::ascii;
}

}  // namespace

bool canShowScreens()
{
    int ignored = 0;
    const char* const name = std::getenv("TERM");
    if (!name || !*name || curses().setupterm(name, STDOUT_FILENO, &ignored) == ERR) {
        return false;
    }
    const char* const move = curses().tigetstr("cup");
    const bool canMove = move && move != reinterpret_cast<const char*>(-1);
    curses().del_curterm(*curses().terminal);
    return canMove;
}

void Terminal::Delete::operator()(::screen* terminal) const
{
    leaveScreen();
    curses().delscreen(terminal);
}

Terminal::Terminal() : charset_(takeOverLocale()), keyReader_(charset_)
{
    if (canShowScreens()) {
        screen_.reset(curses().newterm(nullptr, stdout, stdin));
    }
    if (!screen_) {
        throw base::Refusal(
            base::Refusal::Kind::invalidRequest,
            "This terminal cannot show the live screen: by its type (TERM) it cannot move the cursor. The "
            "commands work all the same (quillmere --help).");
    }
    constexpr int escapeMilliseconds = 50;
    curses().set_escdelay(escapeMilliseconds);
    curses().cbreak();
    curses().noecho();
    curses().nonl();
    // Keys are read from a pad, which curses does not draw.
    input_ = curses().newpad(1, 1);
    curses().keypad(input_, TRUE);
    curses().nodelay(input_, TRUE);
    // The key reader decodes the mouse.
    curses().define_key(nullptr, KEY_MOUSE);
    curses().wrefresh(*curses().standardWindow);
    // Curses uses LINES and COLUMNS, which may describe another window.
    adaptToSize();
    setInputModes();
    writeToTerminal(markPastes);
    writeToTerminal(reportMouse);
    keepFormerTitle();
    TerminalAbilities abilities = abilitiesOfTerminal();
    const bool dependsOnBackground = abilities.colours >= base::ColourDepth::of256;
    painter_.emplace(std::move(abilities));
    if (dependsOnBackground) {
        askForItsBackground();
    }
}

Terminal::~Terminal() = default;

void Terminal::askForItsBackground()
{
    keyReader_.expectAnswer();
    writeToTerminal(base::askForBackground);
    // A late answer is taken as well; the wait only avoids a first picture in the wrong colours.
    constexpr std::chrono::milliseconds shortWait(100);
    std::array<base::PollSource, 1> input{{{STDIN_FILENO}}};
    if (base::waitFor(input, shortWait)) {
        earlyKeys_ = takeKeys();
        hasMoreKeys_ = true;
    }
}

void Terminal::keepFormerTitle()
{
    // A process that is stopped by SIGSTOP is continued without having given the terminal back.
    if (!std::exchange(keepsTitle_, true)) {
        writeToTerminal(keepTitle);
        title_.clear();
    }
}

void Terminal::setInputModes()
{
    // Control-S saves here; by default it stops the output.
    termios modes{};
    if (::tcgetattr(STDIN_FILENO, &modes) == 0) {
        modes.c_iflag &= ~static_cast<tcflag_t>(IXON);
        ::tcsetattr(STDIN_FILENO, TCSADRAIN, &modes);
        curses().def_prog_mode();
    }
}

Size Terminal::size() const
{
    return {.rows = static_cast<std::size_t>(std::max(curses().getmaxy(*curses().standardWindow), 1)),
            .columns = static_cast<std::size_t>(std::max(curses().getmaxx(*curses().standardWindow), 1))};
}

void Terminal::adaptToSize()
{
    winsize window{};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &window) == 0 && window.ws_row > 0 && window.ws_col > 0) {
        curses().resize_term(window.ws_row, window.ws_col);
        if (painter_) {
            painter_->forget();
        }
    }
}

void Terminal::giveBack()
{
    leaveScreen();
    keepsTitle_ = false;
}

void Terminal::takeBack()
{
    curses().reset_prog_mode();
    writeToTerminal(markPastes);
    writeToTerminal(reportMouse);
    keepFormerTitle();
    adaptToSize();
    curses().clearok(*curses().currentWindow, TRUE);
    const InterruptibleWrite writing;
    curses().wrefresh(*curses().currentWindow);
}

void Terminal::show(const Canvas& canvas)
{
    const InterruptibleWrite writing;
    if (!canvas.cursor()) {
        curses().curs_set(0);
    }
    writeToTerminal(painter_->paint(canvas));
    if (canvas.cursor()) {
        curses().curs_set(1);
    }
}

void Terminal::ringBell() { curses().beep(); }

void Terminal::setTitle(const std::string& title)
{
    if (title != title_) {
        // OSC 2 of xterm, ended by ST: a BEL would ring in terminals that do not know it.
        const InterruptibleWrite writing;
        writeToTerminal("\x1b]2;" + title + "\x1b\\");
        title_ = title;
    }
}

std::vector<Key> Terminal::takeKeys()
{
    // A limit, so that pictures are shown and signals handled during a long paste.
    constexpr std::size_t mostKeys = 300;
    constexpr int mostBytes = 10'000;
    std::vector<Key> keys = std::exchange(earlyKeys_, {});
    hasMoreKeys_ = true;
    for (int count = 0; count < mostBytes && keys.size() < mostKeys && hasMoreKeys_; ++count) {
        const int code = curses().wgetch(input_);
        if (code == ERR) {
            hasMoreKeys_ = false;
            keyReader_.pause();
        } else if (code <= 0xFF) {
            keyReader_.take(static_cast<unsigned char>(code));
        } else if (std::optional<Key> key = functionKey(code)) {
            keyReader_.take(*std::move(key));
        }
        while (std::optional<Key> key = keyReader_.key()) {
            keys.push_back(*std::move(key));
        }
    }
    if (const std::optional<std::string> answer = keyReader_.takeAnswer()) {
        if (const std::optional<base::Background> background = base::backgroundFrom(*answer)) {
            painter_->setBackground(*background);
        }
    }
    return keys;
}

}  // namespace quillmere::screen
