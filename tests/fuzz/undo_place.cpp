// The file that notes where undo stands: any text is a place, and from any place undo finds its way and ends.
#include "workspace/undo_place.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>
#include <optional>
#include <utility>

#include "app/undo_in_memory.hpp"
#include "fuzz/fuzz_target.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using work::UndoDirection;
using workspace::UndoPlace;

constexpr std::int64_t highestNumber = 1'000'000'000'000;

bool isNumber(std::int64_t number) { return number >= 0 && number <= highestNumber; }

void requireNumbers(const UndoPlace& place)
{
    require(isNumber(place.newest) && isNumber(place.target), "versions have numbers within the limits");
    require(std::all_of(place.redoable.begin(), place.redoable.end(), isNumber), "so have those to redo");
    for (const workspace::VersionRange& range : place.undone) {
        require(isNumber(range.first) && range.first <= range.last && isNumber(range.last),
                "a range of versions is one");
        require(place.isUndone(range.first) && place.isUndone(range.last), "a range has both its ends");
    }
}

void requireRoundTrip(const UndoPlace& place)
{
    require(workspace::undoPlaceFrom(workspace::jsonTextOf(place)) == place, "a place reads back equal");
}

/// A person who has paused, resumed, asked and ended: four versions, the last of them with the highest
/// number.
struct Worker {
    QuillmereState state = stateIn(WorkflowState::focusing);
    Instant now = moment;
    UndoInMemory undo;

    Worker()
    {
        constexpr WorkflowEngine engine;
        does([&] { engine.pauseFocus(state, now); });
        does([&] { engine.resumeFocus(state, now); });
        does([&] { engine.addQuestion(state, "May I?", now); });
        does([&] { engine.endFocus(state, now); });
    }

    template <class Step>
    void does(Step step)
    {
        now = now + 60;
        undo.keep(state);
        step();
    }

    /// Takes the next step; returns its version, or nothing when there is none.
    std::optional<std::int64_t> goes(UndoDirection direction)
    {
        const std::optional<work::UndoStep> step = undo.next(direction, state, state, now);
        if (!step) {
            return std::nullopt;
        }
        require(undo.keeps(step->version), "a step leads to a version that there is");
        undo.note(*step, std::exchange(state, step->state));
        require(direction == UndoDirection::redo || undo.place.isUndone(step->version),
                "what was undone is noted");
        requireNumbers(undo.place);
        requireRoundTrip(undo.place);
        return step->version;
    }
};

void undoFrom(const UndoPlace& place)
{
    static const Worker begun;
    Worker worker = begun;
    worker.undo.place = place;
    worker.goes(UndoDirection::redo);
    std::int64_t earlier = highestNumber;
    for (auto version = worker.goes(UndoDirection::undo); version;
         version = worker.goes(UndoDirection::undo)) {
        require(*version < earlier, "undo after undo leads further back, and ends");
        earlier = *version;
    }
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quillmere;
    const workspace::UndoPlace place = workspace::undoPlaceFrom(test::textOf(data, size));
    test::requireNumbers(place);
    test::requireRoundTrip(place);
    if (place != workspace::UndoPlace()) {
        test::undoFrom(place);
    }
    return 0;
}
