// Writes and reads that transfer less than requested.
#include <gtest/gtest.h>

#include "proofs/support/figures.hpp"
#include "proofs/system_calls/faulted_saves.hpp"

namespace quillmere::test {
namespace {

constexpr Shortfall shortfalls[] = {Shortfall::oneByte, Shortfall::half, Shortfall::allButOneByte};

std::vector<Fault> shortTransfers(SystemCall meant, const CallRecord& record, std::size_t ordinal)
{
    std::vector<Fault> faults;
    for (const Shortfall shortfall : shortfalls) {
        for (const bool fromThereOn : {false, true}) {
            // Repeated short transfers need too many calls for the short form, except halves.
            const bool isSeen = inLongForm() || !fromThereOn || shortfall == Shortfall::half;
            if (record.call == meant && isSeen) {
                faults.push_back(
                    {.call = meant, .ordinal = ordinal, .shortfall = shortfall, .fromThereOn = fromThereOn});
            }
        }
    }
    return faults;
}

TEST(AShortWrite, isContinuedUntilAllIsWritten)
{
    std::size_t count = 0;
    const auto shortWrites = [](const CallRecord& record, std::size_t ordinal) {
        return shortTransfers(SystemCall::write, record, ordinal);
    };
    forEveryFaultedSave(shortWrites, [&](const FaultedSave& save) {
        ++count;
        EXPECT_TRUE(save.faultCame && save.error == 0 && save.content.files == save.expected.files &&
                    save.content.others.empty())
            << testing::PrintToString(save);
    });
    reportFigure("A fault at every system call of a save", "saves with short writes, all completed", count);
}

TEST(AWriteOfNothing, isAnInputOutputError)
{
    const Situation situation{StoreKind::state, Before::earlierFile, Replacing::durably};
    for (const std::size_t ordinal : {0u, 1u}) {
        const Scene scene(situation);
        const SystemCallWatch watch(
            {{.call = SystemCall::write, .ordinal = ordinal, .shortfall = Shortfall::everything}});
        try {
            scene.save();
            FAIL() << "nothing was thrown";
        } catch (const std::system_error& error) {
            EXPECT_EQ(error.code(), std::errc::io_error);
        }
        EXPECT_EQ(scene.content().files.back(), Version::older);
        EXPECT_TRUE(scene.content().others.empty());
    }
}

TEST(AShortRead, isContinuedUntilAllIsRead)
{
    for (const StoreKind store : {StoreKind::state, StoreKind::widget}) {
        const Scene scene({store, Before::earlierFile, Replacing::plainly});
        for (const Shortfall shortfall : shortfalls) {
            for (const bool fromThereOn : {false, true}) {
                const SystemCallWatch watch({{.call = SystemCall::read,
                                              .ordinal = 0,
                                              .shortfall = shortfall,
                                              .fromThereOn = fromThereOn}});
                EXPECT_EQ(scene.load(), Version::older);
                EXPECT_GE(watch.faultCount(), 1u);
            }
        }
    }
}

}  // namespace
}  // namespace quillmere::test
