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

std::optional<ToolResult> attempt(const std::function<std::optional<Json>()>& action)
{
    try {
        std::optional<Json> value = action();
        return value ? std::optional(ToolResult{.value = *std::move(value)}) : std::nullopt;
    } catch (...) {
        return ToolResult{.value = nullptr, .refusal = failureInWords()};
    }
}

}  // namespace quillmere::app::agent
