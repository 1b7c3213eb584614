// What a person can do with one key, and what saving a form does: every step of the workflow that is theirs.
#pragma once

#include "workspace/workspace.hpp"

#include <quillmere/engine/transition.hpp>

#include <string_view>
#include <vector>

namespace quillmere::screen {

struct Action {
    Step step;
    char key;
    std::string_view label;
    std::string_view question;  ///< to be answered with yes first; empty: nothing is lost by it
    std::string_view done;
    bool (*fits)(const workspace::Situation&);
    void (*apply)(QuillmereState&, Instant now);
};

/// What can be done on the screen of the situation, in order.
std::vector<const Action*> actionsFor(const workspace::Situation& situation);

/// What the key stands for at this place of the workflow, though the engine may refuse it now; null for
/// nothing.
const Action* actionOn(char key, const workspace::Situation& situation);

/// What saving a form is called.
struct Saving {
    Step step;
    std::string_view label;
    std::string_view done;
};

const Saving& savingFor(Step step);

}  // namespace quillmere::screen
