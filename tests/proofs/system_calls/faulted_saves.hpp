// All saves in which a fault can occur.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "proofs/system_calls/expectation.hpp"

namespace quillmere::test {

/// A save with one failed or short call, and the undisturbed save after it.
struct FaultedSave {
    Situation situation;
    CallRecord record;  ///< the call of the undisturbed save
    Fault fault;
    Expectation expected;
    int error;                ///< error of the save; 0 for none, -1 for an exception other than system_error
    Content content;          ///< after the save
    bool faultCame;           ///< whether the save reached the call
    bool closedNothing;       ///< closed a descriptor that was not open
    std::ptrdiff_t leftOpen;  ///< number of additional open files
    int nextError;            ///< error of the following undisturbed save
    Content nextContent;
};

/// Describes the save in a failed assertion.
void PrintTo(const FaultedSave& save, std::ostream* stream);

/// The calls of an undisturbed save.
std::vector<CallRecord> undisturbedCalls(const Situation& situation);

/// Saves with this fault and those in `besides`; `record` is the call that fails, the `index`th of `calls`.
FaultedSave saveWith(const Situation& situation, const std::vector<CallRecord>& calls, std::size_t index,
                     const Fault& fault, const std::vector<Fault>& besides = {});

/// The faults to try at a call, given its record and its index among the calls of its name.
using FaultsOf = std::function<std::vector<Fault>(const CallRecord& record, std::size_t ordinal)>;

/// Runs every situation with every fault of `faultsOf` at every call, each in a new directory.
void forEveryFaultedSave(const FaultsOf& faultsOf, const std::function<void(const FaultedSave&)>& judge);

/// Every error of the call, once and from this call on.
std::vector<Fault> everyError(const CallRecord& record, std::size_t ordinal);

}  // namespace quillmere::test
