#include "screen/action_keys.hpp"

#include <quillmere/records/base/fatal_error.hpp>

#include <array>

namespace quillmere::screen {
namespace {

struct KeyRow {
    Step step;
    char key;
};

constexpr auto keyRows = std::to_array<KeyRow>({
    {Step::beginBlockPlanning, 'p'},
    {Step::startScheduledBlockNow, 's'},
    {Step::editScheduledBlock, 'e'},
    {Step::cancelScheduledBlock, 'c'},
    {Step::pauseFocus, 'p'},
    {Step::resumeFocus, 'r'},
    {Step::endFocus, 'e'},
    {Step::extendBreak, 'e'},
    {Step::endBreak, 's'},
});

}  // namespace

char keyOf(Step step)
{
    for (const KeyRow& row : keyRows) {
        if (row.step == step) {
            return row.key;
        }
    }
    fatalError("quillmere: an action has no key");
}

const work::Action* actionOn(char key, const workspace::Situation& situation)
{
    for (const KeyRow& row : keyRows) {
        if (row.key == key) {
            if (const work::Action* const action = work::actionFor(row.step, situation)) {
                return action;
            }
        }
    }
    return nullptr;
}

}  // namespace quillmere::screen
