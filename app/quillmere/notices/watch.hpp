// Lets time pass without a screen, and tells the person what comes of it.
#pragma once

#include "notices/claims.hpp"
#include "notices/errands.hpp"
#include "notices/teller.hpp"
#include "notices/trouble.hpp"
#include "program.hpp"
#include "workspace/open_workspace.hpp"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::app {

struct WatchSettings {
    bool once = false;  ///< only what is due now
    Urgency urgency = Urgency::normal;
    std::vector<std::string> hooks = {};  ///< commands for the shell
    std::string opener = "xdg-open";      ///< a program that opens the link that it is given
    std::filesystem::path notifier = {};  ///< the program that gives notices
};

/// One loop and no threads: it sleeps until the next whole second, a change of the files, a word of the
/// notifier or a signal. After a machine has slept, the first round catches up.
class Watch {
public:
    Watch(Program& program, WatchSettings settings);

    /// Goes on until the process is asked to end (SIGTERM, SIGINT); with `once`, until what is due has been
    /// given, a few seconds at most. Files that cannot be used are waited for; with `once` that throws.
    void run();

    /// One pass: brings the record up to the present, gives what is due. Never waits for anybody but the
    /// holder of the directory's lock.
    void round();

private:
    bool refresh();
    void tellWhatStands();
    void runHooks(const StandingEvent& event);
    void print(const StandingEvent& event);
    void act(NoticeAction action);
    void openScreen();
    void extendBreak();
    /// Whether there is nothing left to wait for.
    bool isAtRest() const;
    void sleep(int signals) const;
    void giveBackClaims();

    Program& program_;
    WatchSettings settings_;
    Workspace workspace_;
    std::optional<OpenWorkspace> open_;  ///< absent while the files cannot be read
    Claims claims_;
    bool oldClaimsAreGone_ = false;
    Errands errands_;
    Teller teller_;
    Trouble filesTrouble_;
    Trouble versionsTrouble_;
};

}  // namespace quillmere::app
