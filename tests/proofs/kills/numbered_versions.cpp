#include "proofs/kills/numbered_versions.hpp"

#include <algorithm>
#include <sstream>
#include <string_view>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

constexpr std::size_t longestText = 50'000;

/// The 64-bit FNV-1a hash.
std::uint64_t hashOf(std::string_view text)
{
    std::uint64_t hash = 14695981039346656037u;
    for (const char character : text) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 1099511628211u;
    }
    return hash;
}

/// "17 6B8A…  padding": the hash covers the number and the padding.
std::string numberedText(std::uint64_t number, std::size_t size)
{
    std::string padding(size, '\0');
    for (std::size_t index = 0; index < size; ++index) {
        padding[index] = static_cast<char>('a' + (number + index * index / 7) % 26);
    }
    std::ostringstream text;
    text << number << ' ' << hashOf(std::to_string(number) + padding) << ' ' << padding;
    return text.str();
}

/// The number in one text; absent if the hash is wrong.
std::optional<std::uint64_t> numberIn(const std::string& text)
{
    std::istringstream stream(text);
    std::uint64_t number = 0;
    std::uint64_t hash = 0;
    std::string padding;
    stream >> number >> hash >> padding;
    const bool isWhole = !stream.fail() && hash == hashOf(std::to_string(number) + padding);
    return isWhole ? std::optional(number) : std::nullopt;
}

}  // namespace

QuillmereState numberedState(std::uint64_t number, std::size_t size)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.updatedAt = moment + static_cast<double>(number);
    for (std::size_t left = size; left > 0; left -= std::min(left, longestText)) {
        state.agentQuestions.push_back({.id = identifier(static_cast<unsigned>(left)),
                                        .question = numberedText(number, std::min(left, longestText)),
                                        .createdAt = moment,
                                        .answer = std::nullopt,
                                        .answeredAt = std::nullopt});
    }
    return state;
}

std::optional<std::uint64_t> numberIn(const std::vector<std::string>& texts)
{
    std::optional<std::uint64_t> number;
    for (const std::string& text : texts) {
        const std::optional<std::uint64_t> own = numberIn(text);
        if (!own || (number && *number != *own)) {
            return std::nullopt;
        }
        number = own;
    }
    return number;
}

std::optional<std::uint64_t> numberIn(const std::vector<AgentQuestion>& questions)
{
    std::vector<std::string> texts;
    for (const AgentQuestion& question : questions) {
        texts.push_back(question.question);
    }
    return numberIn(texts);
}

}  // namespace quillmere::test
