// All commands, one file each. The function of a command adds it to the command line: its name, its options
// and its action.
#pragma once

#include "cli/program.hpp"

#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/widget/widget_route.hpp>

#include <functional>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace quillmere::cli {

// clang-format off

// These only read: they neither lock nor write.
void addStatus    (CLI::App& line, Program& program);  // where the work stands
void addQuestions (CLI::App& line, Program& program);  // the questions of the agent
void addHistory   (CLI::App& line, Program& program);  // the finished blocks
void addReport    (CLI::App& line, Program& program);  // statistics: figures, charts, exports
void addWidget    (CLI::App& line, Program& program);  // the summary as a widget shows it
void addBar       (CLI::App& line, Program& program);  // the summary in one line, for a status bar
void addAgent     (CLI::App& line, Program& program);  // the summary for an agent; the server for one
void addOpen      (CLI::App& line, Program& program);  // the screen that a deep link leads to

// The live screen.
void addUi        (CLI::App& line, Program& program);  // every operation, with its key

// A block.
void addPlan      (CLI::App& line, Program& program);  // beginBlockPlanning, then startBlock or scheduleBlock
void addStart     (CLI::App& line, Program& program);  // startScheduledBlockNow
void addEdit      (CLI::App& line, Program& program);  // editScheduledBlock, then scheduleBlock or startBlock
void addCancel    (CLI::App& line, Program& program);  // cancelScheduledBlock; amendments: back out, drop
void addChange    (CLI::App& line, Program& program);  // an amendment: change
void addFinish    (CLI::App& line, Program& program);  // an amendment: finish now
void addReflect   (CLI::App& line, Program& program);  // completeBlockReview

// A focus session and its break.
void addNow       (CLI::App& line, Program& program);  // startFocus, from idle after startBlock
void addFocus     (CLI::App& line, Program& program);  // startFocus
void addPause     (CLI::App& line, Program& program);  // pauseFocus
void addResume    (CLI::App& line, Program& program);  // resumeFocus
void addExtend    (CLI::App& line, Program& program);  // amendments: longer, shorter; go on
void addAway      (CLI::App& line, Program& program);  // an amendment: was away
void addEnd       (CLI::App& line, Program& program);  // endFocus; an amendment: forgot to end
void addReview    (CLI::App& line, Program& program);  // saveReviewAndStartBreak; an amendment: finish now
void addBreak     (CLI::App& line, Program& program);  // extendBreak, endBreak, skipBreak

// Questions.
void addAsk       (CLI::App& line, Program& program);  // addQuestion
void addAnswer    (CLI::App& line, Program& program);  // answerQuestion

// What is recorded.
void addAmend     (CLI::App& line, Program& program);  // an amendment: correct
void addDelete    (CLI::App& line, Program& program);  // an amendment: delete; removes a block from versions too
void addReset     (CLI::App& line, Program& program);  // an amendment: reset

// Earlier versions.
void addUndo      (CLI::App& line, Program& program);  // takes the last change back
void addRedo      (CLI::App& line, Program& program);  // makes an undone change again
void addRestore   (CLI::App& line, Program& program);  // lists them, brings one back

// The system.
void addConfig    (CLI::App& line, Program& program);  // shows the configuration, sets a value, opens the person's file
void addDoctor    (CLI::App& line, Program& program);  // examines the files and what they lie on

// Time.
void addTick      (CLI::App& line, Program& program);  // evaluateSchedule, evaluateTimer
void addWatch     (CLI::App& line, Program& program);  // records events as time passes, gives notices on the desktop
void addTour      (CLI::App& line, Program& program);  // plays a whole block on a clock of its own

// About the program.
void addHelp      (CLI::App& line, Program& program);  // the help of the program or of a command
void addVersion   (CLI::App& line, Program& program);  // its version
void addComplete  (CLI::App& line, Program& program);  // hidden: the values that a shell may offer

// clang-format on

/// Whether the screen can be shown: on a terminal that can, and without --json.
bool isForScreen(Program& program);

/// Shows the screen until the person closes it, opened on the page of the route if there is one
/// (screen::showScreen).
void openScreen(Program& program, std::optional<WidgetRoute> route);

/// Adds a command with an action, which Program::action becomes when the command is parsed.
CLI::App* addCommand(CLI::App& line, Program& program, const std::string& name, const std::string& purpose,
                     std::function<void()> action);

}  // namespace quillmere::cli
