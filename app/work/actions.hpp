// What a person can do besides filling in the form that the work waits for, as a table: steps of the workflow
// and amendments.
#pragma once

#include "work/forms/form.hpp"
#include "work/move.hpp"
#include "workspace/workspace.hpp"

#include <string_view>
#include <variant>
#include <vector>

namespace quillmere::work {

/// What a key or a button stands for, whatever it does in a situation.
enum class ActionId {
    planBlock,
    startScheduled,
    editScheduled,
    cancelScheduled,
    leavePlanning,
    startPassed,
    delayPassed,
    drop,
    pause,
    resume,
    endFocus,
    lengthen,
    shorten,
    chooseLength,
    endEarlier,
    wasAway,
    endBreak,
    finishNow,
    changeBlock,
    correctSession,
    reset,
};

/// When an action is asked before it is taken.
enum class Asks {
    never,
    ifTyped,  ///< when the form of the work holds something that was typed
    always,
};

struct Action {
    using Operation = void (*)(QuillmereState&, Instant now);

    ActionId id;
    Move move;
    bool (*fits)(const workspace::Situation&);
    std::string_view label;
    std::variant<Operation, FormKind> effect;  ///< a form asks for what the action needs
    std::string_view done = {};                ///< said afterwards; by a form, with its saving
    Asks asks = Asks::never;
    std::string_view question = {};
};

/// The actions that are possible now, in the order of the table. No two have the same id.
std::vector<const Action*> actionsFor(const workspace::Situation& situation);

/// The action that is possible now; null: none.
const Action* actionFor(ActionId id, const workspace::Situation& situation);

/// The names of saving a form.
struct Saving {
    Move move;
    std::string_view label;
    std::string_view done;
};

/// The saving of a form that makes the move.
const Saving& savingFor(const Move& move);

}  // namespace quillmere::work
