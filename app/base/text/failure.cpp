#include "base/text/failure.hpp"

#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/json/coding_error.hpp>

#include <filesystem>

namespace quillmere::base {

std::string fileErrorText(const std::system_error& error)
{
    // filesystem_error::what() has another layout; its base class gives the call and the reason.
    std::string text = error.std::runtime_error::what();
    if (const auto* const withPaths = dynamic_cast<const std::filesystem::filesystem_error*>(&error)) {
        for (const std::filesystem::path& path : {withPaths->path1(), withPaths->path2()}) {
            text += path.empty() ? "" : ": " + path.string();
        }
    }
    return text;
}

std::string unusableStateText(std::string_view reason)
{
    // Some texts of the parser end with a full stop.
    reason.remove_suffix(reason.ends_with('.') ? 1 : 0);
    return std::string("The state cannot be used: ")
        .append(reason)
        .append(". Nothing was changed; quillmere restore lists earlier versions.");
}

std::string failureText(const std::exception& error)
{
    if (const auto* const refused = dynamic_cast<const WorkflowError*>(&error)) {
        return refused->errorDescription();
    }
    if (dynamic_cast<const CodingError*>(&error)) {
        return unusableStateText(error.what());
    }
    if (const auto* const failed = dynamic_cast<const std::system_error*>(&error)) {
        return fileErrorText(*failed);
    }
    return error.what();
}

}  // namespace quillmere::base
