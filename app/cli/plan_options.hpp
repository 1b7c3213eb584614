// The options of a session plan, and the prompts for what they leave out.
#pragma once

#include "cli/field_prompts.hpp"
#include "cli/text_options.hpp"

#include <quillmere/records/block.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace quillmere::cli {

/// The outcome that the session serves is given by its number in the block.
class PlanOptions {
public:
    void addTo(CLI::App& command, const std::string& prefix = "") { options_.addTo(command, prefix); }

    bool anyGiven() const { return options_.anyGiven(); }

    /// Sets what was given; ignores the number of an outcome that the block does not have.
    void applyTo(SessionPlan& plan, const std::optional<Block>& block, Instant now) const;

    /// Throws ProgramError when the block has no outcome of the given number. Called at the end of an
    /// operation, so that a refusal of the engine comes first.
    void requireOutcome(const std::optional<Block>& block) const;

    /// Throws ProgramError, which names the options, when a rating was neither given nor asked for: the
    /// ratings of a new plan are only defaults. To be called where `requireOutcome` is.
    void requireRatings() const;

    /// Asks for the fields of a new plan that were not given. Where some were, only the ratings are asked.
    void askForMissing(const Asking& asking);

    /// The options as if everything had been asked, for dry runs.
    PlanOptions asked() const;

private:
    std::optional<std::int64_t> outcomeNumber() const;

    RecordOptions<SessionPlan> options_{work::planFields};
};

}  // namespace quillmere::cli
