// The words and figures that help at the present moment of the work.
#pragma once

#include "config/values.hpp"
#include "work/recall/passage.hpp"
#include "workspace/situation.hpp"

namespace quillmere::work {

/// Beside the time, which is the situation's own (SituationView): what a person meant, did and learnt, as far
/// as it helps now:
/// - before a session: what the block is for, how the sessions so far went, and what the last one taught;
/// - in a session: its plan, why the block matters, how the sessions so far went;
/// - at its review: the plan;
/// - in a break: the result just saved, the next plan;
/// - at the reflection: each outcome with its sessions, what was to be reached, hazards beside distractions;
/// - while nothing runs: today, what is scheduled, the last lessons; at the very first start what a block is.
Recall recallAt(const workspace::Situation& situation, const config::Values& values);

}  // namespace quillmere::work
