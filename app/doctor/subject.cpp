#include "doctor/subject.hpp"

#include "base/refusal.hpp"
#include "base/text/failure.hpp"
#include "doctor/shell_word.hpp"
#include "workspace/loading.hpp"
#include "workspace/screening.hpp"

#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/state_store.hpp>

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quillmere::doctor {
namespace {

/// The reason of a refusal without the sentence on what to do, which a finding has apart.
std::string withoutWayOut(const std::string& message)
{
    return message.substr(0, message.find(" Nothing was changed"));
}

}  // namespace

Origin usualOrigin()
{
    const char* const dataHome = std::getenv("XDG_DATA_HOME");
    return dataHome && *dataHome == '/' ? Origin::dataHome : Origin::home;
}

std::string commandLine(const Subject& subject, const std::string& command)
{
    return "quillmere " +
           (subject.origin == Origin::option ? "--directory " + shellWord(subject.directory()) + " " : "") +
           command;
}

StateReading readState(const workspace::Workspace& workspace)
{
    StateReading reading;
    const StateStore store(workspace.directory(), StateStore::renameReplacing);
    try {
        reading.exists = FileManager::standard().fileExists(store.stateURL());
        if (reading.exists) {
            QuillmereState state = workspace::load(store);
            workspace::requireUsable(state);
            reading.size = std::filesystem::file_size(store.stateURL());
            reading.state = std::move(state);
        }
    } catch (const std::system_error& error) {
        reading.failure = base::failureText(error);
    } catch (const base::Refusal& refusal) {
        reading.failure = withoutWayOut(refusal.what());
        reading.isSpoilt = true;
    }
    return reading;
}

}  // namespace quillmere::doctor
