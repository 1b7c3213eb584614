#include "agent/attempt.hpp"

#include "base/refusal.hpp"
#include "base/text/failure.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/records/json/coding_error.hpp>

#include <system_error>

namespace quillmere::agent {
namespace {

/// Stands before the failures of files that have to be repaired.
constexpr const char* onlyForThePerson = "Go on without Quillmere: only the person can repair it. ";

}  // namespace

std::string failureInWords()
{
    try {
        throw;
    } catch (const ToolRefusal& refusal) {
        return refusal.what();
    } catch (const base::Refusal& error) {
        return error.kind() == base::Refusal::Kind::unusableData
                   ? std::string(onlyForThePerson) + error.what()
                   : error.what();
    } catch (const CodingError& error) {
        return onlyForThePerson + base::failureText(error);
    } catch (const std::system_error& error) {
        return "The files cannot be used now: " + base::fileErrorText(error);
    }
}

protocol::Outcome attempt(const std::function<std::variant<base::SortedJson, protocol::Later>()>& action)
{
    try {
        std::variant<base::SortedJson, protocol::Later> found = action();
        if (const protocol::Later* const later = std::get_if<protocol::Later>(&found)) {
            return *later;
        }
        return protocol::ToolResult{.value = std::get<base::SortedJson>(std::move(found))};
    } catch (...) {
        return protocol::ToolResult{.value = nullptr, .refusal = failureInWords()};
    }
}

}  // namespace quillmere::agent
