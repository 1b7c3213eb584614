// Faults for the real program, and the expected outcome of each.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "cli/exit_code.hpp"
#include "proofs/system_calls/system_calls.hpp"
#include "proofs/system_calls/tracing.hpp"

namespace quillmere::test {

/// The corresponding call of the library; absent for flock.
std::optional<SystemCall> callOf(const TracedCall& call);

/// The expected outcome of a fault.
struct Outcome {
    cli::ExitCode code;
    std::array<bool, 3> isReplaced;  ///< the state, the agent's summary, the widget's
};

/// The calls of an undisturbed run, and the expected outcome of a fault at each of them.
class Undisturbed {
public:
    explicit Undisturbed(std::vector<TracedCall> calls) : calls_(std::move(calls)) {}

    const std::vector<TracedCall>& calls() const { return calls_; }

    Outcome outcomeOf(std::size_t index, int error, bool fromThereOn) const;

private:
    bool isAbsorbed(std::size_t index, int error) const;
    /// Whether the call belongs to keeping the previous version, which reads the state once more.
    bool keepsVersion(std::size_t index) const;
    /// Whether the error says that a directory cannot be synced here, which is no failure.
    bool meansNotOffered(std::size_t index, int error) const;
    /// Whether the call belongs to the look whether a directory is empty.
    bool isListing(std::size_t index) const;
    /// Whether that look goes on with the error.
    bool isAbsorbedByListing(std::size_t index, int error) const;
    /// The number of renames before a call.
    std::size_t renamesBefore(std::size_t index) const;
    /// The index of the file that a call belongs to, in the order of saving. The calls after its rename
    /// belong to it too, up to the close of the directory.
    std::size_t fileOf(std::size_t index) const;

    std::vector<TracedCall> calls_;
};

/// The errors to try at a call. For a look-up, a missing file is an answer and no fault.
std::vector<int> errorsToTry(const TracedCall& call);

/// Whether a lasting fault can be injected at the call.
bool mayBePermanent(const TracedCall& call);

/// The fault in the syntax of strace.
std::string injectionOf(const TracedCall& call, int error, bool fromThereOn);

}  // namespace quillmere::test
