#include "notices/watch.hpp"

#include "base/json.hpp"
#include "base/refusal.hpp"
#include "base/system/held_signals.hpp"
#include "base/system/next_second.hpp"
#include "base/text/digest.hpp"
#include "base/text/failure.hpp"
#include "base/text/local_time.hpp"

#include <poll.h>
#include "work/break_extension.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <string>
#include <system_error>
#include <utility>

namespace quillmere::notices {
namespace {

using namespace std::chrono_literals;

constexpr auto longestOnce = 5s;

// However fast others write into the directory, it is read a few times a second.
constexpr auto restBetweenReads = 250ms;
constexpr auto restAfterFailure = 1s;

/// In what is kept beside the files; empty when nothing is.
std::filesystem::path placeOf(const char* name, const std::filesystem::path& kept)
{
    return kept.empty() ? kept : kept / name;
}

/// What tells one trouble with the files from another. The text does not: it may name a temporary file, which
/// is another one each time.
std::string kindOf(const std::exception& error)
{
    if (const auto* const failed = dynamic_cast<const std::system_error*>(&error)) {
        return failed->code().category().name() + std::to_string(failed->code().value());
    }
    if (const auto* const ended = dynamic_cast<const base::Refusal*>(&error)) {
        return "refusal" + std::to_string(static_cast<int>(ended->kind()));
    }
    return error.what();
}

bool asksForEnd(const std::vector<int>& signals)
{
    return std::any_of(signals.begin(), signals.end(), [](int signal) { return signal != SIGCHLD; });
}

/// Waits for one of the files, of which those that are -1 are left out; whether there was anything.
bool waitFor(std::initializer_list<int> files, int milliseconds)
{
    std::vector<pollfd> waiting;
    for (const int file : files) {
        waiting.push_back({.fd = file, .events = POLLIN, .revents = 0});
    }
    return ::poll(waiting.data(), waiting.size(), milliseconds) != 0;
}

}  // namespace

Watch::Watch(workspace::Workspace workspace, base::Environment& environment, WatchSettings settings)
    : clock_(environment.clock),
      output_(environment.out, environment.output),
      messages_(environment.err, environment.error),
      settings_(std::move(settings)),
      workspace_(std::move(workspace)),
      records_(placeOf("notices", workspace_.stateDirectory()), messages_),
      errands_(messages_),
      teller_({.notifier = settings_.notifier,
               .urgency = settings_.urgency,
               .offersActions = !settings_.once,
               .shownFile = placeOf("shown-notices.json", workspace_.stateDirectory())},
              records_, messages_),
      filesTrouble_(messages_),
      versionsTrouble_(messages_)
{
}

void Watch::run()
{
    // A child that has ended wakes the loop, which looks after it in each round.
    const base::HeldSignals signals{SIGTERM, SIGINT, SIGHUP, SIGCHLD};
    const base::BrokenPipesAreErrors whenNobodyReads;
    const auto limit = std::chrono::steady_clock::now() + longestOnce;
    const auto isLate = [&] { return std::chrono::steady_clock::now() >= limit; };
    round();
    while (!(settings_.once && (isAtRest() || isLate()))) {
        sleep(signals.descriptor());
        // Before the rest: a signal for all of a terminal's programs has ended the notifier too.
        if (asksForEnd(signals.take())) {
            return;
        }
        round();
    }
}

void Watch::round()
{
    errands_.takeLeave();
    if (canRecord_ || std::chrono::steady_clock::now() >= restEnds_) {
        refresh();
    }
    for (const NoticeAction action : teller_.listen()) {
        act(action);
    }
    if (canTell_) {
        tellWhatStands();
    }
}

void Watch::refresh()
{
    try {
        if (!open_) {
            open_.emplace(workspace_);
        }
        open_->refresh();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        if (settings_.once) {
            throw;
        }
        refreshFailed(error);
        return;
    }
    unrecorded_.reset();
    canRecord_ = true;
    canTell_ = true;
    restEnds_ = std::chrono::steady_clock::now() + restBetweenReads;
    filesTrouble_.isOver("The files can be used again.");
    warn(open_->situation());
}

void Watch::warn(const workspace::Situation& situation)
{
    if (!situation.warning.empty()) {
        versionsTrouble_.met("versions", situation.warning);
    }
}

void Watch::refreshFailed(const std::exception& error)
{
    filesTrouble_.met(kindOf(error), base::failureText(error));
    canRecord_ = false;
    try {
        unrecorded_ = workspace_.look();
        canTell_ = true;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        // What cannot be read cannot be told, and that has been said.
        canTell_ = false;
    }
    restEnds_ = std::chrono::steady_clock::now() + restAfterFailure;
}

void Watch::tellWhatStands()
{
    const QuillmereState& state = situation().state;
    std::vector<StandingEvent> events = standingEvents(state);
    if (!std::exchange(oldRecordsAreGone_, true)) {
        records_.removeOld(keysOf(events));
    }
    std::erase_if(events, [&](const StandingEvent& event) { return !mayBeTold(event, state); });
    teller_.tell(events);
    runHooks(events);
    print(events);
}

void Watch::runHooks(const std::vector<StandingEvent>& events)
{
    hooksWait_ = false;
    for (const StandingEvent& event : events) {
        for (const std::string& command : settings_.hooks) {
            const std::string key = "hook-" + base::digest(command) + "-" + event.key;
            if (records_.has(key)) {
                continue;
            }
            // Those that have no record yet may also be run by another watch, or by the next.
            if (!errands_.mayRunHook()) {
                hooksWait_ = true;
                return;
            }
            const Bytes summary = JsonEncoder(JsonLayout::compact)
                                      .encode(WidgetSnapshot::make(situation().state, situation().now));
            if (records_.make(key) && !errands_.runHook(command, eventName(event.kind), summary.view())) {
                records_.remove(key);
                hooksWait_ = true;
                return;
            }
        }
    }
    errands_.noHookWaits();
}

void Watch::print(const std::vector<StandingEvent>& events)
{
    for (const StandingEvent& event : events) {
        if (!records_.hadAtFirst(event.key) && printed_.insert(event.key).second) {
            print(event);
        }
    }
}

void Watch::print(const StandingEvent& event)
{
    if (settings_.json) {
        output_.say(base::jsonLine({{"event", eventName(event.kind)}, {"at", base::instantJson(event.at)}}));
    } else {
        output_.say(base::localTextSeenFrom(situation().now, event.at) + "  " +
                    std::string(heading(event.kind)) + (event.text.empty() ? "" : ": ") + event.text);
    }
}

void Watch::act(NoticeAction action)
{
    switch (action) {
        case NoticeAction::open: openScreen(); break;
        case NoticeAction::extendBreak: extendBreak(); break;
    }
}

void Watch::openScreen()
{
    const auto route = fromWorkflowState<WidgetRoute>(situation().state.workflowState);
    errands_.open(settings_.opener, url(route));
}

void Watch::extendBreak()
{
    try {
        const auto nobodyAsks = [](const std::vector<workspace::Event>&) {};
        warn(workspace_.change(nobodyAsks, [](QuillmereState& state, Instant now) {
            work::extendBreak(state, work::usualBreakExtension, now);
        }));
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        messages_.say("The break is not longer: " + base::failureText(error));
    }
}

bool Watch::isAtRest() const { return errands_.isIdle() && !hooksWait_ && teller_.isAtRest(); }

void Watch::sleep(int signals) const
{
    using std::chrono::milliseconds;
    const auto untilSecond = [this] { return base::millisecondsToNextSecond(clock_()); };
    const auto rest = std::chrono::ceil<milliseconds>(restEnds_ - std::chrono::steady_clock::now()).count();
    if (rest > 0) {
        const int pause = static_cast<int>(std::min<milliseconds::rep>(rest, untilSecond()));
        if (waitFor({signals, teller_.descriptor()}, pause) || pause < rest) {
            return;
        }
    }
    waitFor({signals, teller_.descriptor(), open_ ? open_->descriptor() : -1}, untilSecond());
}

}  // namespace quillmere::notices
