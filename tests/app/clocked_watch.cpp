#include "clocked_watch.hpp"

#include "workspace/state_home.hpp"

#include <algorithm>
#include <chrono>

#include "support/eventually.hpp"

namespace quillmere::test {

using base::Moment;

std::filesystem::path deliveryLogOf(const Person& person)
{
    return workspace::stateDirectory(person.directory(), person.stateHome()) / "notices";
}

ClockedWatch::ClockedWatch(const Person& person, notices::NotifierChannel& channel,
                           const notices::WatchSettings& settings)
    : ClockedWatch(person, channel, settings, person.directory(), person.stateHome())
{
}

ClockedWatch::ClockedWatch(const Person& person, notices::NotifierChannel& channel,
                           const notices::WatchSettings& settings, const std::filesystem::path& directory,
                           const std::filesystem::path& stateHome)
    : person_(person),
      environment_{
          .in = in_,
          .out = out_,
          .err = err_,
          .clock = [this] { return person_.now; },
          .inputIsTerminal = false,
          .outputIsTerminal = false,
          .stateHome = stateHome,
          .suspended = [this] { return person_.suspendedSeconds; },
      },
      watch_(workspace::Workspace::in(directory, environment_.clock, stateHome), environment_, settings,
             channel)
{
}

base::Moment ClockedWatch::moment() const
{
    // The steady clock counts nanoseconds in 64 bits, which are 292 years.
    constexpr double longest = 366 * 86'400;
    const std::chrono::duration<double> passed(std::clamp(person_.now - seenAt_, 0.0, longest));
    seenAt_ = person_.now;
    moment_ += std::chrono::duration_cast<base::Moment::duration>(passed);
    return moment_;
}

void ClockedWatch::untilIdle()
{
    for (int count = 0; count < 100; ++count) {
        round();
        if (isIdle()) {
            return;
        }
    }
    ADD_FAILURE() << "a watch does not come to rest: " << said();
}

testing::AssertionResult ClockedWatch::roundsUntil(const std::function<bool()>& condition)
{
    return eventually([&] {
        round();
        return condition();
    });
}

}  // namespace quillmere::test
