#include "proofs/system_calls/faulted_saves.hpp"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <system_error>

#include "proofs/system_calls/call_errors.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

int errorOf(const Scene& scene)
{
    try {
        scene.save();
    } catch (const std::system_error& error) {
        return error.code().category() == std::generic_category() ? error.code().value() : -1;
    } catch (...) {
        return -1;
    }
    return 0;
}

}  // namespace

void PrintTo(const FaultedSave& save, std::ostream* stream)
{
    constexpr std::array before = {"no directory", "no file", "an earlier file"};
    *stream << (save.situation.store == StoreKind::state ? "state" : "widget") << " store, "
            << before[static_cast<std::size_t>(save.situation.before)] << ", replacing "
            << (save.situation.replacing == Replacing::plainly ? "plainly" : "durably") << ": "
            << nameOf(save.fault.call) << " number " << save.fault.ordinal << " (" << save.record.path << ") "
            << (save.fault.error != 0 ? nameOfError(save.fault.error) : "falls short")
            << (save.fault.fromThereOn ? " from there on" : "") << "; the save reported "
            << nameOfError(save.error) << " and should have " << nameOfError(save.expected.error);
}

std::vector<CallRecord> undisturbedCalls(const Situation& situation)
{
    const Scene scene(situation);
    const SystemCallWatch watch;
    scene.save();
    return watch.calls();
}

FaultedSave saveWith(const Situation& situation, const std::vector<CallRecord>& calls, std::size_t index,
                     const Fault& fault, const std::vector<Fault>& moreFaults)
{
    FaultedSave save{.situation = situation,
                     .record = calls[index],
                     .fault = fault,
                     .expected = expectedOfSave(situation, calls, index, fault),
                     .error = 0,
                     .content = {},
                     .faultOccurred = false,
                     .closedUnopened = false,
                     .leftOpen = 0,
                     .nextError = 0,
                     .nextContent = {}};
    const Scene scene(situation);
    std::vector<Fault> faults = moreFaults;
    faults.push_back(fault);
    const std::size_t openBefore = openFileCount();
    {
        const SystemCallWatch watch(faults);
        save.error = errorOf(scene);
        save.faultOccurred = watch.faultCount() > 0;
        save.closedUnopened = watch.sawInvalidClose();
    }
    save.leftOpen = static_cast<std::ptrdiff_t>(openFileCount() - openBefore);
    save.content = scene.content();
    {
        const SystemCallWatch nothingDisturbs;
        save.nextError = errorOf(scene);
    }
    save.nextContent = scene.content();
    return save;
}

void forEveryFaultedSave(const FaultsOf& faultsOf, const std::function<void(const FaultedSave&)>& check)
{
    for (const Situation& situation : situations()) {
        const std::vector<CallRecord> calls = undisturbedCalls(situation);
        std::array<std::size_t, systemCallCount> ordinals{};
        for (std::size_t index = 0; index < calls.size(); ++index) {
            const std::size_t ordinal = ordinals[static_cast<std::size_t>(calls[index].call)]++;
            for (const Fault& fault : faultsOf(calls[index], ordinal)) {
                check(saveWith(situation, calls, index, fault));
            }
        }
    }
}

std::vector<Fault> everyError(const CallRecord& record, std::size_t ordinal)
{
    std::vector<Fault> faults;
    for (const int error : chosenErrorsOf(record.call, ordinal)) {
        for (const bool fromThereOn : {false, true}) {
            faults.push_back(
                {.call = record.call, .ordinal = ordinal, .error = error, .fromThereOn = fromThereOn});
        }
    }
    return faults;
}

}  // namespace quillmere::test
