// Steps and amendments with random arguments.
#pragma once

#include "amendments/possible.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include "proofs/steering/random_values.hpp"

namespace quillmere::test {

/// Takes the step of a person. Throws WorkflowError when the engine refuses it. Nothing for the steps of the
/// clock.
void takeStep(Step step, QuillmereState& state, RandomValues& random, Instant now);

/// Makes the amendment. Throws amendments::Refusal when it is refused.
void amend(amendments::Kind kind, QuillmereState& state, RandomValues& random, Instant now);

}  // namespace quillmere::test
