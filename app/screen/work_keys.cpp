#include "screen/work_keys.hpp"

#include "base/text/count.hpp"
#include "screen/action_keys.hpp"

#include <iterator>

namespace quillmere::screen {
namespace {

constexpr std::size_t leastColumnsForPast = 60;

}  // namespace

std::string questionCount(const QuillmereState& state)
{
    const auto count = std::ssize(state.openQuestions());
    return count == 0 ? "" : base::countText(count, "question");
}

std::string questionsLabel(const QuillmereState& state)
{
    const std::string count = questionCount(state);
    return count.empty() ? "questions" : count;
}

std::vector<KeyHint> usualKeys(const work::Presenter& presenter, Size window)
{
    std::vector<KeyHint> hints;
    for (const work::Action* const action : work::actionsFor(presenter.situation())) {
        if (isUsual(action->id)) {
            hints.push_back({keyName(action->id), std::string(action->label)});
        }
    }
    hints.push_back({questionsKey, questionsLabel(presenter.state())});
    if (window.columns >= leastColumnsForPast) {
        hints.push_back({historyKey, "history"});
        hints.push_back({lookBackKey, "look back"});
    }
    if (presenter.keepsVersions()) {
        hints.push_back({undoKey, "undo"});
    }
    hints.push_back({keysKey, "keys"});
    hints.push_back({"q", "quit"});
    return hints;
}

std::vector<KeyHint> allKeys(const work::Presenter& presenter)
{
    std::vector<KeyHint> keys;
    for (const work::Action* const action : work::actionsFor(presenter.situation())) {
        if (action->id != work::ActionId::leavePlanning) {
            keys.push_back({keyName(action->id), std::string(action->label)});
        }
    }
    if (presenter.keepsVersions()) {
        keys.push_back({undoKey, "undo the last change"});
        keys.push_back({redoKey, "redo what was undone"});
    }
    keys.push_back({questionsKey, questionsLabel(presenter.state())});
    keys.push_back({historyKey, "the blocks, and what you wrote in them"});
    keys.push_back({lookBackKey, "look back: focus time, completion, streaks"});
    keys.push_back({"q", "quit"});
    return keys;
}

}  // namespace quillmere::screen
