// A fault at every system call of a load.
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <functional>

#include "proofs/support/figures.hpp"
#include "proofs/system_calls/call_errors.hpp"
#include "proofs/system_calls/expectation.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

/// The result of a load.
struct LoadEnding {
    Version version = Version::foreign;
    int error = 0;            ///< code of a system_error
    bool unreadable = false;  ///< the widget store's error for all failures
};

LoadEnding endingOf(const Scene& scene)
{
    LoadEnding ending;
    try {
        ending.version = scene.load();
    } catch (const WidgetSnapshotLoadError& error) {
        ending.unreadable = error.reason() == WidgetSnapshotLoadError::unreadable;
    } catch (const std::system_error& error) {
        ending.error = error.code().value();
    }
    return ending;
}

struct FaultedLoad {
    Situation situation;
    Fault fault;
    LoadEnding ending;
    Content contentBefore;
    Content content;
    std::ptrdiff_t leftOpen;
    bool closedNothing;
};

std::string described(const FaultedLoad& load)
{
    return std::string(load.situation.store == StoreKind::state ? "state: " : "widget: ") +
           std::string(nameOf(load.fault.call)) + " " + nameOfError(load.fault.error);
}

FaultedLoad loadWith(const Situation& situation, const Fault& fault)
{
    const Scene scene(situation);
    FaultedLoad load{.situation = situation,
                     .fault = fault,
                     .ending = {},
                     .contentBefore = scene.content(),
                     .content = {},
                     .leftOpen = 0,
                     .closedNothing = false};
    const std::size_t openBefore = openFileCount();
    {
        const SystemCallWatch watch({fault});
        load.ending = endingOf(scene);
        load.closedNothing = watch.sawCloseOfNothing();
    }
    load.leftOpen = static_cast<std::ptrdiff_t>(openFileCount() - openBefore);
    load.content = scene.content();
    return load;
}

std::vector<CallRecord> undisturbedLoad(const Situation& situation)
{
    const Scene scene(situation);
    const SystemCallWatch watch;
    scene.load();
    return watch.calls();
}

std::vector<FaultedLoad> makeFaultedLoads()
{
    std::vector<FaultedLoad> loads;
    for (const Situation& situation : situations()) {
        std::array<std::size_t, systemCallCount> ordinals{};
        for (const CallRecord& record : undisturbedLoad(situation)) {
            const std::size_t ordinal = ordinals[static_cast<std::size_t>(record.call)]++;
            for (const int error : errorsOf(record.call)) {
                for (const bool fromThereOn : {false, true}) {
                    loads.push_back(loadWith(situation, {.call = record.call,
                                                         .ordinal = ordinal,
                                                         .error = error,
                                                         .fromThereOn = fromThereOn}));
                }
            }
        }
    }
    return loads;
}

/// The loads are made once per process.
std::size_t forEveryFaultedLoad(const std::function<void(const FaultedLoad&)>& judge)
{
    static const std::vector<FaultedLoad> loads = makeFaultedLoads();
    for (const FaultedLoad& load : loads) {
        judge(load);
    }
    return loads.size();
}

bool saysThatNothingIsThere(const Fault& fault)
{
    return fault.call == SystemCall::lstat && (fault.error == ENOENT || fault.error == ENOTDIR);
}

/// A failed close does not lose the data that has been read.
bool changesNothing(const Fault& fault)
{
    return fault.call == SystemCall::close || (fault.error == EINTR && isContinued(fault.call));
}

TEST(ALoadWithAFault, takesOnlyANameThatLeadsNowhereForMissing)
{
    forEveryFaultedLoad([](const FaultedLoad& load) {
        const bool isMissing =
            load.situation.before != Before::earlierFile && !(load.ending.error || load.ending.unreadable);
        EXPECT_EQ(load.ending.version == Version::none, saysThatNothingIsThere(load.fault) || isMissing)
            << described(load);
    });
}

TEST(ALoadWithAFault, reportsTheErrorOfTheCall)
{
    const std::size_t count = forEveryFaultedLoad([](const FaultedLoad& load) {
        const bool mustFail = !saysThatNothingIsThere(load.fault) && !changesNothing(load.fault);
        const bool isState = load.situation.store == StoreKind::state;
        EXPECT_EQ(load.ending.error, mustFail && isState ? load.fault.error : 0) << described(load);
        EXPECT_EQ(load.ending.unreadable, mustFail && !isState) << described(load);
    });
    reportFigure("A fault at every system call of a load", "faulted loads", count);
}

TEST(ALoadWithAFault, goesOnWhenItWasInterruptedOnly)
{
    forEveryFaultedLoad([](const FaultedLoad& load) {
        if (changesNothing(load.fault)) {
            EXPECT_EQ(load.ending.version, Version::older) << described(load);
        }
    });
}

TEST(ALoadWithAFault, changesNoFile)
{
    forEveryFaultedLoad([](const FaultedLoad& load) {
        EXPECT_EQ(load.content.files, load.contentBefore.files) << described(load);
        EXPECT_TRUE(load.content.others.empty()) << described(load);
    });
}

TEST(ALoadWithAFault, leavesNoFileOpenAndClosesNoneTwice)
{
    forEveryFaultedLoad([](const FaultedLoad& load) {
        EXPECT_TRUE(load.leftOpen == 0 && !load.closedNothing) << described(load);
    });
}

TEST(ALoad, asksForNoFileButItsOwn)
{
    for (const Situation& situation : situations()) {
        const Scene scene(situation);
        const SystemCallWatch watch;
        scene.load();
        for (const CallRecord& record : watch.calls()) {
            EXPECT_EQ(record.path, scene.files().front()) << nameOf(record.call);
        }
    }
}

}  // namespace
}  // namespace quillmere::test
