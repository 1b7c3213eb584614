// A watch in this process, on clocks that the test moves.
#pragma once

#include "notices/watch.hpp"

#include <chrono>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>

#include "fake_notifier.hpp"
#include "program_testing.hpp"

namespace quillmere::test {

/// Where the records of notices and hooks are.
std::filesystem::path deliveryLogOf(const Person& person);

/// Runs on the person's clock: `Person::now` is the time of day and moves the steady clock as well, but never
/// back.
class ClockedWatch {
public:
    ClockedWatch(const Person& person, notices::NotifierChannel& channel,
                 const notices::WatchSettings& settings = {});
    /// With other paths than the person's own.
    ClockedWatch(const Person& person, notices::NotifierChannel& channel,
                 const notices::WatchSettings& settings, const std::filesystem::path& directory,
                 const std::filesystem::path& stateHome);

    base::Moment moment() const;
    void round() { watch_.round(moment()); }
    /// Runs rounds until nothing is left to do at this moment; fails the test when that takes too many.
    void untilIdle();
    /// Runs rounds until `condition` holds, which depends on real processes.
    testing::AssertionResult roundsUntil(const std::function<bool()>& condition);

    notices::Waiting waiting() const { return watch_.waiting(moment()); }
    bool isIdle() const { return watch_.isIdle(moment()); }

    std::string printed() const { return out_.str(); }
    std::string said() const { return err_.str(); }

private:
    const Person& person_;
    mutable Instant seenAt_{test::moment};
    mutable base::Moment moment_{std::chrono::hours(24 * 365)};
    std::istringstream in_;
    std::ostringstream out_;
    std::ostringstream err_;
    base::Environment environment_;
    notices::Watch watch_;
};

}  // namespace quillmere::test
