// The steps of the workflow that a person takes: without input as actions, with input by saving a form.
#pragma once

#include "workspace/workspace.hpp"

#include <quillmere/engine/transition.hpp>

#include <string_view>
#include <vector>

namespace quillmere::work {

/// A step without input. A step may have several actions, which fit different situations.
struct Action {
    Step step;
    std::string_view label;
    std::string_view question;  ///< to be confirmed first, because something is lost; empty: nothing is lost
    std::string_view done;      ///< said afterwards
    bool (*fits)(const workspace::Situation&);
    void (*apply)(QuillmereState&, Instant now);
};

/// The actions that the engine accepts now, in order.
std::vector<const Action*> actionsFor(const workspace::Situation& situation);

/// The action of a step at its place in the workflow, although the engine may refuse it now; null at any
/// other place, and for steps that need input.
const Action* actionFor(Step step, const workspace::Situation& situation);

/// The names of saving a form.
struct Saving {
    Step step;
    std::string_view label;
    std::string_view done;
};

/// The saving of a form that takes the step.
const Saving& savingFor(Step step);

}  // namespace quillmere::work
