#include "proofs/system_calls/three_files.hpp"

#include <algorithm>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

/// A state with content that no timer changes.
QuillmereState quietState()
{
    QuillmereState state = fullState();
    state.workflowState = WorkflowState::idle;
    state.currentBlock.reset();
    state.plannedNextSession.reset();
    state.breakStartedAt.reset();
    state.breakEndNotifiedAt.reset();
    state.breakExtensionSeconds = 0;
    addEarlierYears(state);
    return state;
}

/// Whether `state` is `older` with the question added, and no other change.
bool isNewer(QuillmereState state, const QuillmereState& older, bool isFirst)
{
    if (state.agentQuestions.empty() || state.agentQuestions.back().question != "May I?") {
        return false;
    }
    state.agentQuestions.pop_back();
    state.updatedAt = older.updatedAt;
    state.id = isFirst ? older.id : state.id;
    return state == older;
}

}  // namespace

ThreeFiles::ThreeFiles(Before before)
    : directory_(home_.path() / "parent" / "files"),
      states_(directory_, StateStore::renameReplacing),
      widget_(directory_),
      older_(before == Before::earlierFile ? quietState() : QuillmereState::initial(moment))
{
    if (before == Before::noFile) {
        fs::create_directories(directory_);
    }
    if (before == Before::earlierFile) {
        states_.save(older_);
        widget_.save(WidgetSnapshot::make(older_, older_.updatedAt));
        olderTexts_ = {textOf(states_.stateURL()), textOf(states_.agentStateURL()),
                       textOf(widget_.snapshotURL())};
    }
}

std::vector<Version> ThreeFiles::versions() const
{
    const std::vector<fs::path> files = {states_.stateURL(), states_.agentStateURL(), widget_.snapshotURL()};
    std::vector<Version> versions(files.size(), Version::foreign);
    for (std::size_t index = 0; index < files.size(); ++index) {
        if (!fs::exists(files[index])) {
            versions[index] = Version::none;
        } else if (!olderTexts_.empty() && textOf(files[index]) == olderTexts_[index]) {
            versions[index] = Version::older;
        }
    }
    try {
        const QuillmereState state = states_.load();
        if (versions[0] != Version::foreign || !isNewer(state, older_, olderTexts_.empty())) {
            return versions;
        }
        versions[0] = Version::newer;
        if (versions[1] == Version::foreign &&
            StateStore::decoder().decode<AgentSnapshot>(Bytes(textOf(files[1]))) ==
                states_.agentSnapshot(state, std::nullopt)) {
            versions[1] = Version::newer;
        }
        if (versions[2] == Version::foreign &&
            widget_.load() == WidgetSnapshot::make(state, state.updatedAt)) {
            versions[2] = Version::newer;
        }
    } catch (const std::exception&) {
        // A file that cannot be loaded is foreign.
    }
    return versions;
}

bool ThreeFiles::agree() const
{
    const QuillmereState state = states_.load();
    const Bytes agentText(textOf(states_.agentStateURL()));
    return StateStore::decoder().decode<AgentSnapshot>(agentText) ==
               states_.agentSnapshot(state, std::nullopt) &&
           widget_.load() == WidgetSnapshot::make(state, state.updatedAt);
}

std::vector<std::string> ThreeFiles::others() const
{
    std::vector<std::string> names = namesIn(directory_);
    for (const char* const own : {"agent-state.json", "state.json", "widget-snapshot.json"}) {
        std::erase(names, own);
    }
    return names;
}

}  // namespace quillmere::test
