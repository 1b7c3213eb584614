// Every save that a fault can befall.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "proofs/system_calls/expectation.hpp"

namespace quillmere::test {

/// A save in which one call failed or fell short, and the undisturbed one after it.
struct FaultedSave {
    Situation situation;
    CallRecord record;  ///< of the call as it goes undisturbed
    Fault fault;
    Expectation expected;
    int error;                ///< that the save threw; 0 for none, -1 for something that is no system_error
    Content content;          ///< when it had ended
    bool faultCame;           ///< whether the call was reached
    bool closedNothing;       ///< a descriptor was closed that was not open
    std::ptrdiff_t leftOpen;  ///< files more than before
    int nextError;            ///< of the undisturbed save that followed
    Content nextContent;
};

/// For a test that fails: which one it was.
void PrintTo(const FaultedSave& save, std::ostream* stream);

/// The calls of a save that nothing disturbs.
std::vector<CallRecord> undisturbedCalls(const Situation& situation);

/// Saves with this fault and those `besides`; `record` is the call that it befalls, the `index`th of `calls`.
FaultedSave saveWith(const Situation& situation, const std::vector<CallRecord>& calls, std::size_t index,
                     const Fault& fault, const std::vector<Fault>& besides = {});

/// Faults of a call, given what it is and its number among those of its name.
using FaultsOf = std::function<std::vector<Fault>(const CallRecord& record, std::size_t ordinal)>;

/// Every situation, every call, every fault that `faultsOf` names: each in a directory of its own.
void forEveryFaultedSave(const FaultsOf& faultsOf, const std::function<void(const FaultedSave&)>& judge);

/// Every error that the call can give, once and from there on.
std::vector<Fault> everyError(const CallRecord& record, std::size_t ordinal);

}  // namespace quillmere::test
