#include "proofs/crowds/ticking_crowd.hpp"

#include "cli/run.hpp"

#include <quillmere/records/instant.hpp>
#include <quillmere/records/json/date_text.hpp>

#include <unistd.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "proofs/crowds/asking_process.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

/// Runs a command in this process, records the events that it reports and returns its exit code.
int act(Stage& stage, const fs::path& directory, const Words& words, Clock clock)
{
    Words all = {"--directory", directory.string(), "--json"};
    all.insert(all.end(), words.begin(), words.end());
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    base::Environment environment{.in = in,
                                  .out = out,
                                  .err = err,
                                  .clock = std::move(clock),
                                  .inputIsTerminal = false,
                                  .outputIsTerminal = false};
    const cli::ExitCode code = cli::run(all, environment);
    const auto result = nlohmann::json::parse(code == cli::ExitCode::done ? out.str() : err.str());
    for (const auto& event : result.at("events")) {
        const auto at = json::instantFromDateText(event.at("at").get<std::string>());
        stage.reported.add(event.at("event").get<std::string>(), at.value().secondsSince1970());
    }
    return static_cast<int>(code);
}

/// The clock of the stage, slow to read. The program reads it between load and save, where no other process
/// may interfere.
Clock slowClock(const Stage& stage)
{
    return [&stage] {
        constexpr useconds_t readingTime = 500;
        ::usleep(readingTime);
        return Instant(stage.seconds);
    };
}

int tickUntilOver(Stage& stage, const fs::path& directory, std::size_t self)
{
    while (!stage.isOver) {
        const int code = act(stage, directory, {"tick"}, slowClock(stage));
        if (code == isDone) {
            ++stage.ticks[self];
        } else if (code != isLockedOut) {
            return code;
        } else {
            ++stage.lockOuts;
        }
        // About the start time of a program, so that other processes can take the lock.
        constexpr useconds_t startTime = 2'000;
        ::usleep(startTime);
    }
    return 0;
}

/// Performs the steps that need a person.
class PersonAtWork {
public:
    PersonAtWork(Stage& stage, const fs::path& directory) : stage_(stage), directory_(directory) {}

    void workThroughBlock()
    {
        act({"plan", "--outcome", "Chapter", "--focus", "25m", "--break", "5m", "--cycles", "3", "--at",
             "+1h"});
        awaitStart();
        act({"focus", "--outcome", "Page one", "--energy", "4", "--morale", "3"});
        awaitEnd(1500, "focus_ended");
        for (int cycle = 2; cycle <= 3; ++cycle) {
            act({"review", "--completion", "yes", "--next-outcome", "The next page", "--next-energy", "4",
                 "--next-morale", "3"});
            awaitEnd(300, "break_ended");
            act({"break", "end"});
            act({"focus"});
            awaitEnd(1500, "focus_ended");
        }
        act({"review", "--completion", "yes"});
        act({"reflect"});
    }

private:
    static constexpr double late = 7;

    void act(const Words& words)
    {
        int code = isLockedOut;
        while (code == isLockedOut) {
            code = test::act(stage_, directory_, words, slowClock(stage_));
        }
        if (code != isDone) {
            throw std::runtime_error(words.front() + " ended with " + std::to_string(code));
        }
    }

    /// A block starts with the first tick after its planned start.
    void awaitStart()
    {
        const double due = stage_.seconds + 3600;
        stage_.expected.add("block_started", due + late);
        moveClock(due + late);
    }

    /// A timer ends at the instant when its duration is over, however late the tick is.
    void awaitEnd(double duration, const char* event)
    {
        const double due = stage_.seconds + duration;
        stage_.expected.add(event, due);
        moveClock(due + late);
    }

    /// Waits until every process has ticked with the new time.
    void moveClock(double seconds)
    {
        stage_.seconds = seconds;
        constexpr std::uint64_t oneBegunBeforeAndOneSince = 2;
        std::array<std::uint64_t, crowdSize> before = {};
        std::copy(stage_.ticks.begin(), stage_.ticks.end(), before.begin());
        for (std::size_t one = 0; one < before.size(); ++one) {
            const auto hasTicked = [&] {
                return stage_.ticks[one] >= before[one] + oneBegunBeforeAndOneSince;
            };
            if (!eventually(hasTicked)) {
                throw std::runtime_error("a process of the crowd has stopped ticking");
            }
        }
    }

    Stage& stage_;
    const fs::path& directory_;
};

}  // namespace

void EventList::add(const std::string& name, double seconds)
{
    const std::string text = name + " at " + std::to_string(static_cast<std::int64_t>(seconds));
    std::array<char, longestEvent>& event = events_.at(count_++);
    text.copy(event.data(), event.size() - 1);
}

std::vector<std::string> EventList::sorted() const
{
    std::vector<std::string> texts;
    for (std::size_t index = 0; index < count_; ++index) {
        texts.emplace_back(events_.at(index).data());
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

bool tickThroughBlocks(Stage& stage, const fs::path& directory, std::uint64_t blockCount)
{
    Crowd crowd;
    for (std::size_t self = 0; self < crowdSize; ++self) {
        crowd.join([&, self] { return tickUntilOver(stage, directory, self); });
    }
    crowd.join([&] {
        PersonAtWork person(stage, directory);
        for (std::uint64_t block = 0; block < blockCount; ++block) {
            person.workThroughBlock();
        }
        stage.isOver = true;
        return 0;
    });
    return crowd.allSucceed();
}

bool tickOnceTogether(Stage& stage, const fs::path& directory)
{
    Crowd crowd;
    for (int self = 0; self < crowdSize; ++self) {
        crowd.join([&] {
            return act(stage, directory, {"tick"}, [&stage] {
                stage.rendezvous.meet(crowdSize);
                return Instant(stage.seconds);
            });
        });
    }
    return crowd.allSucceed();
}

}  // namespace quillmere::test
