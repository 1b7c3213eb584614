#include "notices/watch.hpp"

#include "amendments/forgot_to_end.hpp"
#include "amendments/was_away.hpp"
#include "base/json.hpp"
#include "base/refusal.hpp"
#include "base/system/held_signals.hpp"
#include "base/system/next_second.hpp"
#include "base/text/digest.hpp"
#include "base/text/failure.hpp"
#include "base/text/local_time.hpp"
#include "notices/next_due.hpp"
#include "notices/said_again.hpp"
#include "work/break_extension.hpp"
#include "work/event_text.hpp"
#include "work/focus_extension.hpp"
#include "work/short_view.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <limits>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace quillmere::notices {
namespace {

using namespace std::chrono_literals;

constexpr auto longestOnce = 5s;
constexpr double moreFocusSeconds = 10 * 60;

// However often others write into the directory, it is read a few times a second.
constexpr auto restAfterRead = 250ms;
constexpr auto restAfterError = 1s;

/// A file in the state directory; empty when there is no such directory.
std::filesystem::path placeOf(const char* name, const std::filesystem::path& stateDirectory)
{
    return stateDirectory.empty() ? stateDirectory : stateDirectory / name;
}

/// The kind of a file error. Its text is no kind: it may name a temporary file, a new one each time.
std::string errorKind(const std::exception& error)
{
    if (const auto* const systemError = dynamic_cast<const std::system_error*>(&error)) {
        return systemError->code().category().name() + std::to_string(systemError->code().value());
    }
    if (const auto* const refusal = dynamic_cast<const base::Refusal*>(&error)) {
        return "refusal" + std::to_string(static_cast<int>(refusal->kind()));
    }
    return error.what();
}

bool asksForEnd(const std::vector<int>& signals)
{
    return std::any_of(signals.begin(), signals.end(), [](int signal) { return signal != SIGCHLD; });
}

bool isReadable(int descriptor)
{
    base::PollSource source{.descriptor = descriptor};
    return base::waitFor({&source, 1}, 0ns);
}

base::Moment steadyNow() { return std::chrono::steady_clock::now(); }

}  // namespace

Watch::Watch(workspace::Workspace workspace, base::Environment& environment, WatchSettings settings,
             NotifierChannel& channel)
    : clock_(environment.clock),
      output_(environment.out, environment.output),
      messages_(environment.err, environment.error),
      settings_(std::move(settings)),
      workspace_(std::move(workspace)),
      deliveryLog_(workspace::noticesDirectory(workspace_.stateDirectory()), messages_),
      sleeps_(environment.suspended),
      subprocesses_(messages_),
      notifier_({.urgency = settings_.urgency,
                 .hasSound = settings_.sound,
                 .offersActions = !settings_.once,
                 .shownFile = placeOf("shown-notices.json", workspace_.stateDirectory())},
                deliveryLog_, channel, messages_),
      fileErrors_(messages_),
      versionErrors_(messages_),
      watchErrors_(messages_)
{
}

void Watch::run()
{
    // SIGCHLD wakes the loop, and each round reaps.
    const base::HeldSignals signals{SIGTERM, SIGINT, SIGHUP, SIGCHLD};
    const base::BrokenPipesAreErrors whenNobodyReads;
    const base::Moment limit = steadyNow() + longestOnce;
    while (true) {
        round(steadyNow());
        const base::Moment now = steadyNow();
        if (settings_.once && (isIdle(now) || now >= limit)) {
            return;
        }
        Waiting next = waiting(now);
        next.sources.push_back({.descriptor = signals.descriptor()});
        base::waitFor(next.sources, next.until - now);
        // Before the next round: control-C on a terminal ends the notifier too, and that is no error.
        if (asksForEnd(signals.take())) {
            return;
        }
    }
}

void Watch::round(base::Moment now)
{
    subprocesses_.reap();
    clockChanges_.take();
    if (canRecord_ || now >= restEnds_) {
        refresh(now);
    }
    noteSleep();
    for (const NoticeAction action : notifier_.takeActions(now)) {
        perform(action);
    }
    if (canDeliver_) {
        deliver(now);
    }
    if (open_ && canRecord_ && !settings_.once) {
        open_->compressVersion();
    }
}

void Watch::noteSleep()
{
    const std::optional<base::Sleep> sleep = sleeps_.take(clock_());
    if (!canDeliver_) {
        return;
    }
    if (sleep) {
        slept_ = work::sleptThrough(*sleep, situation().state);
    }
    if (slept_ && !work::stands(*slept_, situation().state)) {
        slept_.reset();
    }
}

Waiting Watch::waiting(base::Moment now) const
{
    const bool rests = now < restEnds_;
    base::Moment until = looksEachSecond(now) ? now + base::timeToNextSecond(clock_())
                                              : due(now, now + base::timeToNextMinute(clock_()));
    if (rests) {
        until = std::min(restEnds_, until);
    }
    return {.sources = {{.descriptor = notifier_.descriptor()},
                        {.descriptor = clockChanges_.descriptor()},
                        {.descriptor = open_ && !rests ? open_->descriptor() : -1}},
            .until = until};
}

bool Watch::looksEachSecond(base::Moment now) const
{
    return !open_ || !open_->watchTrouble().empty() || !canRecord_ || !isIdle(now) || settings_.once;
}

base::Moment Watch::due(base::Moment now, base::Moment latest) const
{
    if (const std::optional<base::Moment> next = notifier_.nextTry(now)) {
        latest = std::min(latest, *next);
    }
    const std::optional<Instant> next = nextDue(situation(), settings_.reminderSeconds);
    const double seconds = next ? *next - clock_() : std::numeric_limits<double>::infinity();
    const std::chrono::duration<double> left = latest - now;
    return seconds < left.count() ? now + std::chrono::ceil<std::chrono::milliseconds>(
                                              std::chrono::duration<double>(std::max(seconds, 0.0)))
                                  : latest;
}

bool Watch::isIdle(base::Moment now) const
{
    return subprocesses_.isIdle() && !hooksWait_ && notifier_.isIdle(now);
}

void Watch::refresh(base::Moment now)
{
    bool directoryHasChanged = false;
    try {
        if (!open_) {
            open_.emplace(workspace_, base::Reach::present);
        }
        directoryHasChanged = isReadable(open_->descriptor());
        open_->refresh(settings_.lockPatience);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        if (settings_.once) {
            throw;
        }
        handleRefreshError(error, now);
        return;
    }
    unrecorded_.reset();
    canRecord_ = true;
    canDeliver_ = true;
    if (directoryHasChanged) {
        restEnds_ = now + restAfterRead;
    }
    fileErrors_.resolve("The files can be used again.");
    reportWarning(open_->situation());
    reportWatchTrouble();
}

void Watch::reportWatchTrouble()
{
    // Each round reads what has changed, and there is a round every second.
    if (!settings_.once && !open_->watchTrouble().empty()) {
        watchErrors_.report("watch", open_->watchTrouble());
    }
}

void Watch::reportWarning(const workspace::Situation& situation)
{
    if (!situation.warning.empty()) {
        versionErrors_.report("versions", situation.warning);
    }
}

void Watch::handleRefreshError(const std::exception& error, base::Moment now)
{
    fileErrors_.report(errorKind(error), base::failureText(error));
    canRecord_ = false;
    try {
        unrecorded_ = workspace_.look(base::Reach::present);
        canDeliver_ = true;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        // Not readable either. The error is already reported.
        canDeliver_ = false;
    }
    restEnds_ = now + restAfterError;
}

void Watch::deliver(base::Moment now)
{
    const QuillmereState& state = situation().state;
    std::vector<StandingEvent> events = standingEvents(state);
    if (!std::exchange(isLogPruned_, true)) {
        deliveryLog_.prune(keysOf(events));
    }
    std::erase_if(events, [&](const StandingEvent& event) { return !mayBeDelivered(event, state); });
    notifier_.notify(toNotify(events), now);
    runHooks(events, now);
    print(events);
}

std::vector<StandingEvent> Watch::toNotify(std::vector<StandingEvent> events) const
{
    if (std::optional<StandingEvent> ahead = eventAhead(situation().state, situation().now)) {
        events.insert(events.begin(), *std::move(ahead));
    }
    const base::SeenFrom here(situation().now, settings_.hours);
    addReminders(events, settings_.reminderSeconds, work::ShortView::of(situation()).overSince, here);
    if (slept_) {
        addSleep(events, *slept_, static_cast<std::int64_t>(sleeps_.totalSeconds()), here);
    }
    return events;
}

void Watch::runHooks(const std::vector<StandingEvent>& events, base::Moment now)
{
    hooksWait_ = false;
    workspace::LeaderLock lock(workspace_.stateDirectory());
    for (const StandingEvent& event : events) {
        for (const std::string& command : settings_.hooks) {
            if (!runHook(command, event, lock, now)) {
                hooksWait_ = true;
                return;
            }
        }
    }
    subprocesses_.reportNoHookWaits();
}

bool Watch::runHook(const std::string& command, const StandingEvent& event, workspace::LeaderLock& lock,
                    base::Moment now)
{
    const std::string key = "hook-" + base::digest(command) + "-" + event.key;
    if (deliveryLog_.has(key)) {
        return true;
    }
    // Recorded after the start, under a lock: a watch that is killed in between leaves the hook to the next
    // one, and no other watch starts it at the same time.
    if (!subprocesses_.mayRunHook(now) || !lock.tryAcquire()) {
        return false;
    }
    if (deliveryLog_.has(key)) {
        return true;
    }
    const Bytes summary =
        JsonEncoder(JsonLayout::compact).encode(WidgetSnapshot::make(situation().state, situation().now));
    if (!subprocesses_.runHook(command, work::eventName(event.kind), summary.view(), now)) {
        return false;
    }
    deliveryLog_.record(key);
    return true;
}

void Watch::print(const std::vector<StandingEvent>& events)
{
    for (const StandingEvent& event : events) {
        if (!deliveryLog_.hadAtStart(event.key) && printed_.insert(event.key).second) {
            print(event);
        }
    }
}

void Watch::print(const StandingEvent& event)
{
    if (settings_.json) {
        output_.say(
            base::jsonLine({{"event", work::eventName(event.kind)}, {"at", base::instantJson(event.at)}}));
    } else {
        output_.say(base::localTextSeenFrom({situation().now, settings_.hours}, event.at) + "  " +
                    std::string(work::eventHeading(event.kind)) + (event.text.empty() ? "" : ": ") +
                    event.text);
    }
}

void Watch::perform(NoticeAction action)
{
    switch (action) {
        case NoticeAction::open: openScreen(); break;
        case NoticeAction::extendBreak: extendBreak(); break;
        case NoticeAction::extendFocus: extendFocus(); break;
        case NoticeAction::makeSleepAPause: makeSleepAPause(); break;
        case NoticeAction::endBeforeSleep: endBeforeSleep(); break;
    }
}

void Watch::openScreen()
{
    const auto route = fromWorkflowState<WidgetRoute>(situation().state.workflowState);
    subprocesses_.openLink(settings_.opener, url(route));
}

void Watch::extendBreak()
{
    change([](QuillmereState& state, Instant now) { work::extendBreak(state, work::usualExtension, now); },
           "The break is not longer: ");
}

void Watch::extendFocus()
{
    change(
        [](QuillmereState& state, Instant now) {
            work::extendFocus(state, moreFocusSeconds, amendments::TimeSinceEnd::countsAsFocus, now);
        },
        "The session is not longer: ");
}

void Watch::makeSleepAPause()
{
    if (slept_) {
        change(
            [&sleep = slept_->sleep](QuillmereState& state, Instant now) {
                amendments::wasAway(state, sleep.from, sleep.to, now);
            },
            "The sleep is no pause: ");
    }
}

void Watch::endBeforeSleep()
{
    if (slept_) {
        change([end = slept_->sleep.from](QuillmereState& state,
                                          Instant now) { amendments::forgotToEnd(state, end, now); },
               "The session has not ended earlier: ");
    }
}

void Watch::change(const workspace::Operation& operation, const std::string& refusal)
{
    try {
        const auto ignoreEvents = [](const std::vector<workspace::Event>&) {};
        reportWarning(workspace_.change(ignoreEvents, operation, {.reach = base::Reach::present}));
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        messages_.say(refusal + base::failureText(error));
    }
}

}  // namespace quillmere::notices
