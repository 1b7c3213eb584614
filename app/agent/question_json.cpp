#include "agent/question_json.hpp"

#include "agent/attempt.hpp"
#include "agent/record_schema.hpp"
#include "base/text/quotes.hpp"
#include "work/fields/answers.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/records/json/json_encoder.hpp>

#include <algorithm>
#include <optional>

namespace quillmere::agent {
namespace {

/// The schema of the objects that `questionJson` returns.
base::SortedJson makeQuestionSchema()
{
    base::SortedJson schema =
        recordSchema<AgentQuestion>({.identifier = {{"type", "string"}},
                                     .instant = {{"type", "string"}, {"description", "UTC (RFC 3339)."}}});
    base::SortedJson& properties = schema.at("properties");
    for (const char* const key : {"answer", "answered_at"}) {
        properties.at(key) = orNull(properties.at(key));
        schema.at("required").push_back(key);
    }
    properties.at("answer")["description"] =
        "In the person's own words; may be empty. " + base::inQuotes(work::dismissal) +
        " says that the person has closed the question and will not answer it: go on without. null while the "
        "question is open, or when another program closed it.";
    properties["status"] = {{"enum", {"open", "answered"}}};
    schema.at("required").push_back("status");
    return schema;
}

}  // namespace

AgentQuestion questionIn(const workspace::Workspace& workspace, const std::string& idText)
{
    const std::optional<Identifier> id = Identifier::fromText(idText);
    if (!id) {
        throw ToolRefusal(
            "That is no id of a question. Use an id that ask_question or list_questions has returned.");
    }
    for (const base::Reach reach : {base::Reach::present, base::Reach::years}) {
        for (const AgentQuestion& question : workspace.look(reach).state.agentQuestions) {
            if (question.id == *id) {
                return question;
            }
        }
    }
    throw ToolRefusal("There is no question with this id. list_questions has all that were asked.");
}

base::SortedJson questionJson(const AgentQuestion& question)
{
    base::SortedJson json = base::SortedJson::parse(JsonEncoder(JsonLayout::compact).encode(question).view());
    json["status"] = question.isOpen() ? "open" : "answered";
    json.emplace("answered_at", nullptr);
    if (question.isOpen() || !question.answer) {
        json["answer"] = nullptr;
    }
    return json;
}

base::SortedJson questionsJson(const QuillmereState& state, bool openOnly)
{
    base::SortedJson list = base::SortedJson::array();
    for (const AgentQuestion& question : state.agentQuestions) {
        if (!openOnly || question.isOpen()) {
            list.push_back(questionJson(question));
        }
    }
    return list;
}

const base::SortedJson& questionSchema()
{
    static const base::SortedJson schema = makeQuestionSchema();
    return schema;
}

}  // namespace quillmere::agent
