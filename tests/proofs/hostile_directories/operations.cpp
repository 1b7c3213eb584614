#include "operations.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <fcntl.h>
#include <string.h>
#include <unistd.h>

#include <cerrno>
#include <new>

#include "support/sample_states.hpp"

extern char** environ;  // NOLINT(readability-redundant-declaration): not declared on every system

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

int program = -1;

std::string nameOf(const std::error_code& code)
{
    const char* const name = ::strerrorname_np(code.value());
    return code.category() == std::generic_category() && name ? name : "no POSIX code";
}

/// Describes the result of a library call: the returned value or the exception.
template <class Call>
std::string resultOf(Call call)
{
    try {
        return call();
    } catch (const std::system_error& error) {
        return nameOf(error.code());
    } catch (const DecodingError&) {
        return "not JSON";
    } catch (const WidgetSnapshotLoadError& error) {
        return error.what();
    } catch (const std::bad_alloc&) {
        return "no memory";
    }
}

constexpr Instant clockReading = moment + 5;

StateStore storeIn(const Scene& scene, const ReplaceItem& replaceItem)
{
    const fs::path directory = scene.directoryOption ? *scene.directoryOption
                                                     : StateStore::defaultDirectory(FileManager::standard());
    return {directory, [] { return clockReading; },
            [&scene, replaceItem](const fs::path& temporaryURL, const fs::path& destination) {
                if (scene.beforeMove) {
                    scene.beforeMove();
                }
                replaceItem(temporaryURL, destination);
            }};
}

std::optional<WidgetSnapshotStore> widgetStoreIn(const Scene& scene)
{
    if (!scene.directoryOption) {
        return WidgetSnapshotStore::shared(QuillmereAppGroup::identifier, FileManager::standard());
    }
    return WidgetSnapshotStore(*scene.directoryOption,
                               [&scene](const fs::path& temporaryURL, const fs::path& destination) {
                                   if (scene.beforeMove) {
                                       scene.beforeMove();
                                   }
                                   StateStore::renameReplacing(temporaryURL, destination);
                               });
}

template <void (*replaceItem)(const fs::path&, const fs::path&)>
std::string save(const Scene& scene)
{
    return resultOf([&] {
        storeIn(scene, replaceItem).save(stateToSave());
        return "done";
    });
}

std::string load(const Scene& scene)
{
    return resultOf([&] {
        const QuillmereState state = storeIn(scene, StateStore::renameReplacing).load();
        QuillmereState fresh = QuillmereState::initial(clockReading);
        fresh.id = state.id;
        return state == stateBefore()    ? "the state"
               : state == foreignState() ? "the linked state"
               : state == fresh          ? "a new state"
                                         : "another state";
    });
}

std::string saveWidget(const Scene& scene)
{
    return resultOf([&] {
        const std::optional<WidgetSnapshotStore> store = widgetStoreIn(scene);
        if (!store) {
            return "no container";
        }
        store->save(WidgetSnapshot::make(stateToSave(), moment));
        return "done";
    });
}

std::string loadWidget(const Scene& scene)
{
    return resultOf([&] {
        const std::optional<WidgetSnapshotStore> store = widgetStoreIn(scene);
        if (!store) {
            return "no container";
        }
        const WidgetSnapshot summary = store->load();
        return summary == WidgetSnapshot::make(stateBefore(), moment)    ? "the summary"
               : summary == WidgetSnapshot::make(foreignState(), moment) ? "the linked summary"
                                                                         : "another summary";
    });
}

/// Replaces this process with the program, whose exit code is then the result.
std::string run(const Scene& scene, std::vector<std::string> words)
{
    words.insert(words.begin(), "quillmere");
    if (scene.directoryOption) {
        words.insert(words.begin() + 1, "--directory=" + scene.directoryOption->string());
    }
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ::dup2(nowhere, STDOUT_FILENO);
    ::fexecve(program, pointers.data(), environ);
    return "the program cannot be run: " + std::string(::strerror(errno));
}

std::string runStatus(const Scene& scene) { return run(scene, {"status"}); }
std::string runWidget(const Scene& scene) { return run(scene, {"widget"}); }
std::string runAsk(const Scene& scene) { return run(scene, {"ask", "Why?"}); }

}  // namespace

const std::array<Operation, operationCount>& operations()
{
    static const std::vector<std::string> both = {"agent-state.json", "state.json"};
    static const std::vector<std::string> all = {"agent-state.json", "state.json", "widget-snapshot.json"};
    static const std::array<Operation, operationCount> table = {{
        {"save", save<StateStore::renameReplacing>, both},
        {"durable save", save<StateStore::renameReplacingDurably>, both},
        {"load", load, {}},
        {"widget's save", saveWidget, {"widget-snapshot.json"}},
        {"widget's load", loadWidget, {}},
        {"`status`", runStatus, {}},
        {"`widget`", runWidget, {}},
        {"`ask`", runAsk, all, 0600, 0700},
    }};
    return table;
}

void openProgram() { program = ::open(QUILLMERE_PROGRAM, O_PATH | O_CLOEXEC); }

}  // namespace quillmere::test
