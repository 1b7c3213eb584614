#include "agent/tools.hpp"

#include "agent/asking.hpp"
#include "agent/question_json.hpp"
#include "agent/question_text.hpp"
#include "agent/summary.hpp"
#include "agent/waiting.hpp"
#include "base/text/quotes.hpp"
#include "work/fields/answers.hpp"

#include <chrono>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

namespace quillmere::agent {
namespace {

constexpr protocol::Hints looks{
    .readOnly = true, .destructive = false, .idempotent = true, .openWorld = false};
constexpr protocol::Hints adds{
    .readOnly = false, .destructive = false, .idempotent = false, .openWorld = false};

// Input schemas -----------------------------------------------------------------------------------------

constexpr const char* noArguments = R"json({"type": "object", "additionalProperties": false})json";

constexpr const char* questionArgument = R"json({
    "type": "object",
    "additionalProperties": false,
    "required": ["question"],
    "properties": {
        "question": {
            "type": "string",
            "description": "Plain text; line feeds and tabs are the only control characters allowed."
        }
    }
})json";

constexpr const char* idArgument = R"json({
    "type": "object",
    "additionalProperties": false,
    "required": ["id"],
    "properties": {"id": {"type": "string", "description": "What ask_question returned."}}
})json";

constexpr const char* waitArguments = R"json({
    "type": "object",
    "additionalProperties": false,
    "required": ["id"],
    "properties": {
        "id": {"type": "string", "description": "What ask_question returned."},
        "timeout_seconds": {
            "type": "integer", "minimum": 0, "maximum": 600, "default": 45,
            "description": "How long to wait at most."
        }
    }
})json";

constexpr const char* listArgument = R"json({
    "type": "object",
    "additionalProperties": false,
    "properties": {
        "open_only": {
            "type": "boolean", "default": true,
            "description": "Whether to leave out questions that have an answer."
        }
    }
})json";

// Output schemas ------------------------------------------------------------------------------------------

constexpr const char* askedQuestion = R"json({
    "type": "object",
    "additionalProperties": false,
    "required": ["id", "interruptible"],
    "properties": {
        "id": {"type": "string", "description": "Of the question."},
        "interruptible": {
            "type": "boolean",
            "description": "Whether the person may be interrupted now. If not, wait quietly."
        }
    }
})json";

base::SortedJson listOfQuestions()
{
    return {{"type", "object"},
            {"additionalProperties", false},
            {"required", base::SortedJson::array({"questions"})},
            {"properties", {{"questions", {{"type", "array"}, {"items", questionSchema()}}}}}};
}

// The tools -----------------------------------------------------------------------------------------------

using Begin = std::function<protocol::Call(const base::SortedJson& arguments, protocol::Moment now)>;

/// Begins a call that has its result at once.
Begin atOnce(std::function<base::SortedJson(const base::SortedJson& arguments)> action)
{
    return [action = std::move(action)](const base::SortedJson& arguments, protocol::Moment) {
        return [action, arguments](protocol::Moment) { return attempt([&] { return action(arguments); }); };
    };
}

protocol::Tool focusState(const workspace::Workspace& workspace)
{
    return {
        .name = "get_focus_state",
        .title = "Focus state",
        .description =
            "What the person works on, how long the running focus session or break still lasts "
            "(remaining_seconds), and whether they may be interrupted now (interruptible). "
            "interruptible is false only while a focus session runs: then leave the person alone, "
            "and use ask_question for what can wait. Look again before each interruption; the "
            "answer is true at the moment of the call only.",
        .inputSchema = base::SortedJson::parse(noArguments),
        .outputSchema = summarySchema(),
        .hints = looks,
        .begin = atOnce(
            [workspace](const base::SortedJson&) { return base::SortedJson::parse(summaryText(workspace)); }),
    };
}

protocol::Tool askQuestion(const workspace::Workspace& workspace)
{
    const auto begin = [workspace](const base::SortedJson& arguments, protocol::Moment now) {
        return askThePerson(workspace, arguments.at("question"), now);
    };
    return {
        .name = "ask_question",
        .title = "Ask the person",
        .description =
            "Leaves a question for the person. Asking never interrupts a focus session: the person is "
            "told of the question, if at all, when none is running, and it waits in their list until "
            "they look, which may take longer. Returns the id by which get_answer and wait_for_answer "
            "find the answer, and whether the person may be interrupted now. Ask so that the question "
            "can be understood hours later without your context, and put what belongs together into "
            "one question. At most " +
            std::to_string(mostCharacters) + " characters, " + std::to_string(mostAMinute) +
            " questions a minute and " + std::to_string(mostOpen) +
            " without an answer, of all agents together. A question cannot be taken back, and "
            "calling again asks again.",
        .inputSchema = base::SortedJson::parse(questionArgument),
        .outputSchema = base::SortedJson::parse(askedQuestion),
        .hints = adds,
        .begin = begin,
    };
}

protocol::Tool getAnswer(const workspace::Workspace& workspace)
{
    return {
        .name = "get_answer",
        .title = "Answer to a question",
        .description =
            "The answer to a question, if there is one yet: status is open or answered. The answer " +
            base::inQuotes(work::dismissal) +
            " means that the person has closed the question without one; do not ask it again. "
            "get_focus_state lists open questions only, so this is where answers are. Returns at "
            "once; use wait_for_answer rather than calling this again and again.",
        .inputSchema = base::SortedJson::parse(idArgument),
        .outputSchema = questionSchema(),
        .hints = looks,
        .begin = atOnce([workspace](const base::SortedJson& arguments) {
            return questionJson(questionIn(workspace, arguments.at("id")));
        }),
    };
}

Begin beginWaiting(const workspace::Workspace& workspace, AnswerWatch& watch, int usualSeconds)
{
    return [workspace, &watch, usualSeconds](const base::SortedJson& arguments, protocol::Moment now) {
        const std::chrono::seconds longest(arguments.value("timeout_seconds", usualSeconds));
        return waitForAnswer(workspace, watch, arguments.at("id"), now + longest);
    };
}

protocol::Tool waitForAnswer(const workspace::Workspace& workspace, AnswerWatch& watch)
{
    const base::SortedJson input = base::SortedJson::parse(waitArguments);
    return {
        .name = "wait_for_answer",
        .title = "Wait for an answer",
        .description =
            "Waits until the person has answered a question, or until the time is up; the status "
            "then still is open, which is no error. Returns what get_answer returns. Waiting costs "
            "nothing and disturbs nobody, but many clients give up on a call after 60 seconds: "
            "rather wait again than longer.",
        .inputSchema = input,
        .outputSchema = questionSchema(),
        .hints = looks,
        .begin = beginWaiting(workspace, watch, input.at("properties").at("timeout_seconds").at("default")),
    };
}

protocol::Tool listQuestions(const workspace::Workspace& workspace)
{
    return {
        .name = "list_questions",
        .title = "Questions",
        .description =
            "All questions that wait for an answer, of every agent and of the person, in order of asking; "
            "with "
            "open_only false also those that have an answer. Look here before you ask what may have been "
            "asked "
            "already, or when you have lost an id.",
        .inputSchema = base::SortedJson::parse(listArgument),
        .outputSchema = listOfQuestions(),
        .hints = looks,
        .begin = atOnce([workspace](const base::SortedJson& arguments) -> base::SortedJson {
            const bool openOnly = arguments.value("open_only", true);
            const base::Reach reach = openOnly ? base::Reach::present : base::Reach::years;
            return {{"questions", questionsJson(workspace.look(reach).state, openOnly)}};
        }),
    };
}

}  // namespace

std::vector<protocol::Tool> tools(const workspace::Workspace& workspace, AnswerWatch& watch)
{
    return {focusState(workspace), askQuestion(workspace), getAnswer(workspace),
            waitForAnswer(workspace, watch), listQuestions(workspace)};
}

}  // namespace quillmere::agent
