#include "agent/attempt.hpp"

#include "exit_code.hpp"
#include "text/failure.hpp"

#include <quillmere/records/json/coding_error.hpp>

#include <system_error>

namespace quillmere::app::agent {

std::string failureInWords()
{
    try {
        throw;
    } catch (const Refusal& refusal) {
        return refusal.what();
    } catch (const ProgramError& error) {
        return error.what();
    } catch (const CodingError& error) {
        return std::string("The state cannot be used, and only the person can repair it: ") + error.what();
    } catch (const std::system_error& error) {
        return "The files cannot be used now: " + fileErrorText(error);
    }
}

Outcome attempt(const std::function<std::variant<Json, Later>()>& action)
{
    using protocol::ToolResult;
    try {
        std::variant<Json, Later> found = action();
        if (const Later* const later = std::get_if<Later>(&found)) {
            return *later;
        }
        return ToolResult{.value = std::get<Json>(std::move(found))};
    } catch (...) {
        return ToolResult{.value = nullptr, .refusal = failureInWords()};
    }
}

}  // namespace quillmere::app::agent
