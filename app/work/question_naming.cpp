#include "work/question_naming.hpp"

#include "base/refusal.hpp"
#include "base/text/quotes.hpp"
#include "work/short_names.hpp"

#include <charconv>
#include <cstddef>

namespace quillmere::work {
namespace {

base::Refusal noQuestion(const std::string& message)
{
    return {base::Refusal::Kind::invalidRequest, message};
}

ShortNames namesIn(const QuillmereState& state)
{
    std::vector<Identifier> identifiers;
    for (const AgentQuestion& question : state.agentQuestions) {
        identifiers.push_back(question.id);
    }
    return ShortNames(identifiers);
}

std::vector<const AgentQuestion*> identifiedBy(std::string_view name, const QuillmereState& state)
{
    std::vector<const AgentQuestion*> found;
    for (const AgentQuestion& question : state.agentQuestions) {
        if (isNamed(question.id, name)) {
            found.push_back(&question);
        }
    }
    return found;
}

/// Null when there is no open question with this number.
const AgentQuestion* openQuestionNumbered(std::string_view digits, const QuillmereState& state)
{
    std::size_t wanted = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, wanted);
    std::size_t number = 0;
    for (const AgentQuestion& question : state.agentQuestions) {
        number += question.isOpen() ? 1 : 0;
        if (question.isOpen() && number == wanted && error == std::errc() && stop == end) {
            return &question;
        }
    }
    return nullptr;
}

}  // namespace

std::vector<std::string> shortQuestionNames(const QuillmereState& state)
{
    const ShortNames names = namesIn(state);
    std::vector<std::string> all;
    for (const AgentQuestion& question : state.agentQuestions) {
        all.push_back(names.of(question.id));
    }
    return all;
}

const AgentQuestion& questionNamed(std::string_view name, const QuillmereState& state)
{
    // Before numbers: an identifier may begin with digits only.
    const std::vector<const AgentQuestion*> found = identifiedBy(name, state);
    if (found.size() > 1) {
        const ShortNames names = namesIn(state);
        std::string all;
        for (const AgentQuestion* const question : found) {
            all += (all.empty() ? "" : ", ") + names.of(question->id);
        }
        throw noQuestion("Several questions begin with " + base::inQuotes(name) + ": " + all +
                         ". Name one of them.");
    }
    const AgentQuestion* const question = found.empty() ? openQuestionNumbered(name, state) : found.front();
    if (!question) {
        throw noQuestion("No question is called " + base::inQuotes(name) +
                         "; see quillmere questions --all.");
    }
    return *question;
}

}  // namespace quillmere::work
