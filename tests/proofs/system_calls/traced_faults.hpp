// Faults for the real program, and what each must lead to.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "cli/exit_code.hpp"
#include "proofs/system_calls/system_calls.hpp"
#include "proofs/system_calls/tracing.hpp"

namespace quillmere::test {

/// What a call of the system's is to the library; absent for flock.
std::optional<SystemCall> callOf(const TracedCall& call);

/// What a fault must lead to.
struct Outcome {
    cli::ExitCode code;
    std::array<bool, 3> isReplaced;  ///< of the state, the agent's summary and the widget's
};

/// A run that nothing disturbs, and what a fault at each of its calls must lead to.
class Undisturbed {
public:
    explicit Undisturbed(std::vector<TracedCall> calls) : calls_(std::move(calls)) {}

    const std::vector<TracedCall>& calls() const { return calls_; }

    Outcome outcomeOf(std::size_t index, int error, bool fromThereOn) const;

private:
    bool isAbsorbed(std::size_t index, int error) const;
    /// Whether the call is for the version that is kept: when it was loaded, the state is read once more.
    bool keepsVersion(std::size_t index) const;
    /// Whether the call is about the parent of a directory that was made before.
    bool holdsNewDirectory(std::size_t index) const;
    /// The number of renames before a call.
    std::size_t renamesBefore(std::size_t index) const;
    /// The file that a call is about, in the order of saving. The calls after its rename, up to the close of
    /// the directory, belong to it.
    std::size_t fileOf(std::size_t index) const;

    std::vector<TracedCall> calls_;
};

/// The errors to try at a call. That something is not there is no fault of a look-up but an answer.
std::vector<int> errorsToTry(const TracedCall& call);

/// Whether a fault that lasts can be put upon the call.
bool mayLast(const TracedCall& call);

/// The fault as strace wants it to be said.
std::string injectionOf(const TracedCall& call, int error, bool fromThereOn);

}  // namespace quillmere::test
