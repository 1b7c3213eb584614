// The way from any state back to `idle`.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::test {

/// Leads to `idle` without a block; returns the number of steps and amendments, ten when they do not suffice.
int stepsHome(QuillmereState state, Instant now);

}  // namespace quillmere::test
