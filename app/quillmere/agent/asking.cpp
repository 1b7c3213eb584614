#include "agent/asking.hpp"

#include "exit_code.hpp"

#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/records/json/utf8.hpp>

#include <algorithm>
#include <cmath>

namespace quillmere::app::agent {
namespace {

/// C0 and DEL take one byte, C1 takes two, the first of which is 0xC2.
bool isControlCharacter(std::string_view character)
{
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1) {
        return (first < 0x20 && first != '\n' && first != '\t') || first == 0x7F;
    }
    return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view whiteSpace = " \t\n\v\f\r";
    const std::size_t first = std::min(text.find_first_not_of(whiteSpace), text.size());
    const std::size_t last = text.find_last_not_of(whiteSpace);
    return text.substr(first, last - first + 1);
}

/// Whether a question has been saved, as far as that can be found out.
bool isSaved(const Workspace& workspace, const Identifier& id)
{
    try {
        const std::vector<AgentQuestion> questions = workspace.look().state.agentQuestions;
        return std::any_of(questions.begin(), questions.end(),
                           [&](const AgentQuestion& question) { return question.id == id; });
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace

std::string askable(std::string_view question)
{
    const std::string_view text = trimmed(question);
    if (text.empty()) {
        throw Refusal("The question is empty. Say in a sentence or two what the person should decide.");
    }
    std::size_t count = 0;
    for (std::string_view rest = text; !rest.empty(); ++count) {
        const std::string_view character = rest.substr(0, json::frontSequence(rest).length);
        if (isControlCharacter(character)) {
            throw Refusal("The question has a control character. Only line feeds and tabs are allowed.");
        }
        rest.remove_prefix(character.size());
    }
    if (count > mostCharacters) {
        throw Refusal("The question has " + std::to_string(count) + " characters, and " +
                      std::to_string(mostCharacters) + " are the most. Ask it in fewer words.");
    }
    return std::string(text);
}

void requireRoom(const QuillmereState& state, Instant now)
{
    if (state.openQuestions().size() >= mostOpen) {
        throw Refusal(std::to_string(mostOpen) +
                      " questions wait for the person already, and no more are taken. Go on without, or ask "
                      "again when some have been answered.");
    }
    // Files keep whole seconds, so what looks 60 seconds old may be a little younger. What a clock that was
    // set back leaves in the near future counts as well.
    const auto isRecent = [now](const AgentQuestion& question) {
        return std::abs(now - question.createdAt) <= 60;
    };
    const auto recent = std::count_if(state.agentQuestions.begin(), state.agentQuestions.end(), isRecent);
    if (static_cast<std::size_t>(recent) >= mostAMinute) {
        throw Refusal(std::to_string(mostAMinute) +
                      " questions were asked within a minute, and no more are taken. Wait a minute, and put "
                      "what belongs together into one question.");
    }
}

Json askThePerson(const Workspace& workspace, std::string_view question)
{
    const std::string text = askable(question);
    std::optional<Identifier> id;
    const auto add = [&](QuillmereState& state, Instant now) {
        requireRoom(state, now);
        WorkflowEngine().addQuestion(state, text, now);
        id = state.agentQuestions.back().id;
    };
    try {
        const Situation situation = workspace.change([](const std::vector<Event>&) {}, add);
        return {{"id", id->text()}, {"interruptible", situation.state.interruptible()}};
    } catch (const ProgramError& error) {
        // The state comes first, so that it may have been saved although a summary could not be.
        if (id && isSaved(workspace, *id)) {
            throw Refusal("The question is saved with the id " + id->text() + "; do not ask it again. But " +
                          error.what());
        }
        throw;
    }
}

}  // namespace quillmere::app::agent
