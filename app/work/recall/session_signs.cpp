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
std::vector<SessionSign> numbersOf(const Block& block, std::size_t count)
{
    std::vector<SessionSign> numbers;
    for (const CompletionResult completion : allCases<CompletionResult>()) {
        const auto number =
            std::count_if(block.sessions.begin(), block.sessions.end(), [&](const WorkSession& session) {
                return session.review && session.review->completion == completion;
            });
        numbers.push_back({std::to_string(number) + " " + std::string(signOf(completion)), completion});
    }
    numbers.push_back({"of " + std::to_string(count), std::nullopt});
    return numbers;
}

}  // namespace

std::optional<CompletionResult> completionOf(const WorkSession& session)
{
    return session.review ? std::optional(session.review->completion) : std::nullopt;
}

std::string_view signOf(const WorkSession& session)
{
    return session.review ? signOf(session.review->completion) : "◐";
}

std::string labelOf(const WorkSession& session)
{
    return std::string(signOf(session)) + " " + std::to_string(session.number);
}

std::vector<SessionSign> sessionSigns(const Block& block)
{
    const std::size_t count = std::max(block.sessions.size(),
                                       static_cast<std::size_t>(std::max<std::int64_t>(block.cycleCount, 0)));
    if (count > mostSigns) {
        return numbersOf(block, count);
    }
    std::vector<SessionSign> signs;
    for (const WorkSession& session : block.sessions) {
        signs.push_back({std::string(signOf(session)), completionOf(session)});
    }
    signs.resize(count, {"·", std::nullopt});
    return signs;
}

std::string signsOf(const Block& block)
{
    std::string text;
    for (const SessionSign& sign : sessionSigns(block)) {
        text += (text.empty() ? "" : " ") + sign.text;
    }
    return text;
}

}  // namespace quillmere::work
