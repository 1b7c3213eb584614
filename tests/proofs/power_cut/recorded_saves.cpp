#include "proofs/power_cut/recorded_saves.hpp"

#include <algorithm>

#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

DirectoryImage imageOf(const fs::path& directory)
{
    DirectoryImage image;
    for (const std::string& name : namesIn(directory)) {
        image[name] = textOf(directory / name);
    }
    return image;
}

}  // namespace

QuillmereState versionNumber(std::size_t number)
{
    QuillmereState state = stateIn(WorkflowState::sessionReview);
    state.updatedAt = moment + static_cast<double>(number);
    state.agentQuestions = {{.id = identifier(900),
                             .question = "Version " + std::to_string(number),
                             .createdAt = moment,
                             .answer = std::nullopt,
                             .answeredAt = std::nullopt}};
    return state;
}

std::vector<CutMoment> cutMoments(const Saves& saves)
{
    const TemporaryDirectory directory;
    if (saves.hasEarlier) {
        StateStore(directory.path(), StateStore::renameReplacing).save(versionNumber(0));
    }
    FileSystemModel model(directory.path(), imageOf(directory.path()));
    const StateStore store(directory.path(), saves.replaceItem);

    std::vector<CutMoment> moments;
    for (std::size_t number = 1; number <= saves.count; ++number) {
        const SystemCallWatch watch;
        store.save(versionNumber(number));
        moments.push_back({.completed = number - 1, .begun = number, .images = model.imagesAfterCut()});
        for (const CallRecord& record : watch.calls()) {
            if (model.apply(record)) {
                moments.push_back(
                    {.completed = number - 1, .begun = number, .images = model.imagesAfterCut()});
            }
        }
    }
    moments.push_back({.completed = saves.count, .begun = saves.count, .images = model.imagesAfterCut()});
    return moments;
}

}  // namespace quillmere::test
