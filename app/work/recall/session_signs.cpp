#include "work/recall/session_signs.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace quillmere::work {
namespace {

constexpr std::size_t mostSigns = 16;

std::string_view signOf(CompletionResult completion)
{
    switch (completion) {
        case CompletionResult::yes: return "✓";
        case CompletionResult::half: return "½";
        case CompletionResult::no: return "✗";
    }
    return "";
}

/// The numbers of sessions by their result, and of all.
std::string numbersOf(const Block& block, std::size_t count)
{
    std::string text;
    for (const CompletionResult completion : allCases<CompletionResult>()) {
        const auto number =
            std::count_if(block.sessions.begin(), block.sessions.end(), [&](const WorkSession& session) {
                return session.review && session.review->completion == completion;
            });
        text += std::to_string(number) + " " + std::string(signOf(completion)) + " ";
    }
    return text + "of " + std::to_string(count);
}

}  // namespace

std::string_view signOf(const WorkSession& session)
{
    return session.review ? signOf(session.review->completion) : "◐";
}

std::string signsOf(const Block& block)
{
    const std::size_t count = std::max(block.sessions.size(),
                                       static_cast<std::size_t>(std::max<std::int64_t>(block.cycleCount, 0)));
    if (count > mostSigns) {
        return numbersOf(block, count);
    }
    std::string signs;
    for (std::size_t index = 0; index < count; ++index) {
        signs += signs.empty() ? "" : " ";
        signs += index < block.sessions.size() ? signOf(block.sessions[index]) : "·";
    }
    return signs;
}

}  // namespace quillmere::work
