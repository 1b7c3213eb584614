#include "ui/loop.hpp"

#include "exit_code.hpp"
#include "system/held_signals.hpp"
#include "system/next_second.hpp"
#include "ui/breakdown.hpp"
#include "ui/terminal.hpp"
#include "ui/ui.hpp"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace quillmere::app::ui {
namespace {

/// One run of the screen: waits for keys, signals, changed files and, where seconds are shown, the next one.
class Loop {
public:
    Loop(Ui& ui, Terminal& terminal, const HeldSignals& signals, const Clock& clock)
        : ui_(ui), terminal_(terminal), signals_(signals), clock_(clock)
    {
    }

    /// Returns the signal that ended it; 0 when the person did.
    int run()
    {
        while (!ui_.isOver() && ending_ == 0) {
            show();
            wait();
        }
        if (ending_ != 0) {
            // It waits once more, should the terminal not take what gives it back (EndableWriting).
            ::raise(ending_);
        }
        return ending_ == SIGINT ? 0 : ending_;
    }

private:
    void show()
    {
        ui_.resize(terminal_.size());
        terminal_.show(ui_.picture(terminal_.charset()));
        if (ui_.takeBell()) {
            terminal_.ringBell();
        }
    }

    void wait()
    {
        std::array<pollfd, 3> sources{
            {{STDIN_FILENO, POLLIN, 0}, {signals_.descriptor(), POLLIN, 0}, {ui_.descriptor(), POLLIN, 0}}};
        const int timeout = terminal_.hasMoreKeys() ? 0
                            : ui_.countsSeconds()   ? millisecondsToNextSecond(clock_())
                                                    : millisecondsToNextMinute(clock_());
        const int ready = ::poll(sources.data(), sources.size(), timeout);
        if (ready < 0 && errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "poll");
        }
        takeSignals();
        const bool hasKeys = terminal_.hasMoreKeys() || sources[0].revents != 0;
        if ((ready == 0 && !hasKeys) || sources[2].revents != 0) {
            ui_.refresh();
        }
        if (hasKeys && ending_ == 0) {
            takeKeys();
        }
        // A terminal that is gone can be read without end, and says nothing.
        if ((sources[0].revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) {
            ending_ = SIGHUP;
        }
    }

    void takeSignals()
    {
        for (const int signal : signals_.take()) {
            switch (signal) {
                case SIGWINCH: terminal_.adaptToSize(); break;
                case SIGCONT: terminal_.takeBack(); break;
                case SIGTSTP: rest(); break;
                default: ending_ = signal; break;
            }
        }
    }

    void rest()
    {
        terminal_.giveBack();
        haveUsualEffect(SIGTSTP);
        terminal_.takeBack();
        ui_.refresh();
    }

    void takeKeys()
    {
        for (const Key& key : terminal_.takeKeys()) {
            ui_.press(key);
            if (ui_.isOver()) {
                break;
            }
        }
        ui_.keepDraft();
    }

    Ui& ui_;
    Terminal& terminal_;
    const HeldSignals& signals_;
    const Clock& clock_;
    int ending_ = 0;
};

}  // namespace

bool hasScreen(Program& program)
{
    const Environment& environment = program.environment();
    return !program.settings().json && environment.inputIsTerminal && environment.outputIsTerminal &&
           canShowScreens();
}

void showScreen(Program& program, std::optional<WidgetRoute> route)
{
    const Environment& environment = program.environment();
    if (program.settings().json) {
        throw ProgramError(ExitCode::usage,
                           "The screen is for persons; for programs there is status --json.");
    }
    if (!environment.inputIsTerminal || !environment.outputIsTerminal) {
        throw ProgramError(ExitCode::usage, "The screen takes a terminal; see quillmere status.");
    }
    int ending = 0;
    {
        const HeldSignals signals{SIGTERM, SIGHUP, SIGINT, SIGQUIT, SIGTSTP, SIGCONT, SIGWINCH};
        Ui ui(program.workspace(), Drafts(program.workspace().keptBeside()), route);
        Terminal terminal;
        const BreakdownHandler breakdown;
        ending = Loop(ui, terminal, signals, environment.clock).run();
    }
    if (ending != 0) {
        haveUsualEffect(ending);
    }
}

}  // namespace quillmere::app::ui
