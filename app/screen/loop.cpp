#include "screen/loop.hpp"

#include "base/refusal.hpp"
#include "base/system/held_signals.hpp"
#include "base/system/next_second.hpp"
#include "base/system/wait.hpp"
#include "screen/screen.hpp"
#include "screen/terminal/crash_handler.hpp"
#include "screen/terminal/terminal.hpp"

#include <unistd.h>

#include <array>
#include <chrono>
#include <ostream>
#include <string>

namespace quillmere::screen {
namespace {

/// Runs the screen: waits for keys, signals, changed files and the next second or minute.
class Loop {
public:
    Loop(Screen& screen, Terminal& terminal, const base::HeldSignals& signals,
         const base::Environment& environment)
        : screen_(screen),
          terminal_(terminal),
          signals_(signals),
          clock_(environment.clock),
          sleeps_(environment.suspended)
    {
    }

    /// Returns the signal that ended the loop; 0 when the person ended it.
    int run()
    {
        while (!screen_.isOver() && ending_ == 0) {
            show();
            wait();
        }
        if (ending_ != 0) {
            // Makes the signal pending again, so that it can interrupt restoring the terminal
            // (interruptible_write.hpp).
            ::raise(ending_);
        }
        return ending_ == SIGINT ? 0 : ending_;
    }

private:
    void show()
    {
        screen_.resize(terminal_.size());
        terminal_.show(screen_.picture(terminal_.charset()));
        terminal_.setTitle(screen_.title());
        if (screen_.takeBell()) {
            terminal_.ringBell();
        }
    }

    void wait()
    {
        std::array<base::PollSource, 3> sources{
            {{STDIN_FILENO}, {signals_.descriptor()}, {screen_.descriptor()}}};
        const std::chrono::milliseconds limit = terminal_.hasMoreKeys()   ? std::chrono::milliseconds(0)
                                                : screen_.countsSeconds() ? base::timeToNextSecond(clock_())
                                                                          : base::timeToNextMinute(clock_());
        const bool isReady = base::waitFor(sources, limit);
        takeSignals();
        const bool hasKeys = terminal_.hasMoreKeys() || sources[0].isReady();
        if ((!isReady && !hasKeys) || sources[2].isReady()) {
            screen_.refresh();
        }
        if (const std::optional<base::Sleep> sleep = sleeps_.take(clock_())) {
            screen_.noteSleep(*sleep);
        }
        if (!isReady && !hasKeys) {
            screen_.compressVersion();
        }
        if (hasKeys && ending_ == 0) {
            takeKeys();
        }
        // A terminal that is gone stays readable for ever and has no keys.
        if (sources[0].hasFailed()) {
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
        base::haveUsualEffect(SIGTSTP);
        terminal_.takeBack();
        screen_.refresh();
    }

    void takeKeys()
    {
        for (const Key& key : terminal_.takeKeys()) {
            screen_.press(key);
            if (screen_.isOver()) {
                break;
            }
        }
        screen_.keepDraft();
    }

    Screen& screen_;
    Terminal& terminal_;
    const base::HeldSignals& signals_;
    const Clock& clock_;
    base::SleepDetector sleeps_;
    int ending_ = 0;
};

}  // namespace

bool hasScreen(const base::Environment& environment)
{
    return environment.inputIsTerminal && environment.outputIsTerminal && canShowScreens();
}

void showScreen(const workspace::Workspace& workspace, const base::Environment& environment,
                std::optional<WidgetRoute> route, const config::Configuration& configuration)
{
    if (!environment.inputIsTerminal || !environment.outputIsTerminal) {
        throw base::Refusal(base::Refusal::Kind::invalidRequest,
                            "The live screen needs a terminal. quillmere status works without one.");
    }
    int ending = 0;
    std::string farewell;
    {
        const base::HeldSignals signals{SIGTERM, SIGHUP, SIGINT, SIGQUIT, SIGTSTP, SIGCONT, SIGWINCH};
        Screen screen(workspace, work::Drafts(workspace.stateDirectory()), route, configuration);
        Terminal terminal;
        const CrashHandler crashHandler;
        ending = Loop(screen, terminal, signals, environment).run();
        farewell = screen.takeSilenceWarning();
    }
    if (ending != 0) {
        base::haveUsualEffect(ending);
    }
    if (!farewell.empty()) {
        environment.out << farewell << '\n';
    }
}

}  // namespace quillmere::screen
