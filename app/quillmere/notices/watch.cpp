#include "notices/watch.hpp"

#include "report/status.hpp"
#include "system/held_signals.hpp"
#include "system/next_second.hpp"
#include "text/digest.hpp"
#include "text/failure.hpp"
#include "text/inert.hpp"
#include "text/local_time.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <ostream>
#include <utility>

namespace quillmere::app {
namespace {

using namespace std::chrono_literals;

constexpr auto longestOnce = 5s;
constexpr double breakExtension = 300;

std::filesystem::path claimsBeside(const std::filesystem::path& kept)
{
    return kept.empty() ? kept : kept / "notices";
}

bool asksForEnd(const std::vector<int>& signals)
{
    return std::any_of(signals.begin(), signals.end(), [](int signal) { return signal != SIGCHLD; });
}

std::vector<std::string> keysOf(const std::vector<StandingEvent>& events)
{
    std::vector<std::string> keys;
    for (const StandingEvent& event : events) {
        keys.push_back(event.key);
    }
    return keys;
}

}  // namespace

Watch::Watch(Program& program, WatchSettings settings)
    : program_(program),
      settings_(std::move(settings)),
      workspace_(program.workspace()),
      claims_(claimsBeside(workspace_.keptBeside()), program.environment().err),
      errands_(program.environment().err),
      teller_(settings_.notifier, settings_.urgency, program.environment().err),
      filesTrouble_(program.environment().err),
      versionsTrouble_(program.environment().err)
{
}

void Watch::run()
{
    // A child that has ended wakes the loop, which looks after it in each round.
    const HeldSignals signals{SIGTERM, SIGINT, SIGHUP, SIGCHLD};
    const auto limit = std::chrono::steady_clock::now() + longestOnce;
    const auto isLate = [&] { return std::chrono::steady_clock::now() >= limit; };
    round();
    while (!asksForEnd(signals.take()) && !(settings_.once && (isAtRest() || isLate()))) {
        sleep(signals.descriptor());
        round();
    }
    giveBackClaims();
}

void Watch::round()
{
    errands_.takeLeave();
    const bool isFresh = refresh();
    for (const NoticeAction action : teller_.listen()) {
        act(action);
    }
    if (isFresh) {
        tellWhatStands();
    }
}

bool Watch::refresh()
{
    try {
        if (!open_) {
            open_.emplace(workspace_);
        }
        open_->refresh();
        filesTrouble_.isOver("The files can be used again.");
        if (const std::string& warning = open_->situation().warning; !warning.empty()) {
            versionsTrouble_.met(warning);
        }
        return true;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        if (settings_.once) {
            throw;
        }
        filesTrouble_.met(failureText(error));
        return false;
    }
}

void Watch::tellWhatStands()
{
    const QuillmereState& state = open_->situation().state;
    const std::vector<StandingEvent> standing = standingEvents(state);
    if (!std::exchange(oldClaimsAreGone_, true)) {
        claims_.removeOld(keysOf(standing));
    }
    for (const StandingEvent& event : standing) {
        if (mayBeTold(event, state)) {
            runHooks(event);
            if (claims_.take(event.key)) {
                print(event);
                teller_.add(event);
            }
        }
    }
    teller_.tell(standing, state);
}

void Watch::runHooks(const StandingEvent& event)
{
    for (const std::string& command : settings_.hooks) {
        if (claims_.take("hook-" + digest(command) + "-" + event.key)) {
            const Situation& situation = open_->situation();
            const Bytes summary =
                JsonEncoder(JsonLayout::compact).encode(WidgetSnapshot::make(situation.state, situation.now));
            errands_.runHook(command, eventName(event.kind), summary.view());
        }
    }
}

void Watch::print(const StandingEvent& event)
{
    std::ostream& out = program_.environment().out;
    if (program_.settings().json) {
        const Json json = {{"event", eventName(event.kind)}, {"at", instantJson(event.at)}};
        out << jsonLine(json) << std::endl;
    } else {
        const std::string text = inert(event.text);
        out << localTextSeenFrom(open_->situation().now, event.at) << "  " << heading(event.kind)
            << (text.empty() ? "" : ": ") << text << std::endl;
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
    const auto route = fromWorkflowState<WidgetRoute>(open_->situation().state.workflowState);
    errands_.open(settings_.opener, url(route));
}

void Watch::extendBreak()
{
    try {
        open_->change([](QuillmereState& state, Instant now) {
            WorkflowEngine().extendBreak(state, breakExtension, now);
        });
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        program_.environment().err << "The break is not longer: " << inert(failureText(error)) << std::endl;
    }
}

bool Watch::isAtRest() const { return errands_.isIdle() && teller_.isAtRest(open_->situation().state); }

void Watch::sleep(int signals) const
{
    // Those that are -1 are left out.
    std::vector<pollfd> files;
    for (const int file : {signals, teller_.descriptor(), open_ ? open_->descriptor() : -1}) {
        files.push_back({.fd = file, .events = POLLIN, .revents = 0});
    }
    ::poll(files.data(), files.size(), millisecondsToNextSecond(program_.environment().clock()));
}

void Watch::giveBackClaims()
{
    for (const StandingEvent& event : teller_.untold()) {
        claims_.giveBack(event.key);
    }
}

}  // namespace quillmere::app
