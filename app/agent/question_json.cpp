#include "agent/question_json.hpp"

#include "agent/attempt.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/records/json/json_encoder.hpp>

#include <algorithm>
#include <optional>

namespace quillmere::agent {

const AgentQuestion& questionIn(const QuillmereState& state, const std::string& idText)
{
    const std::optional<Identifier> id = Identifier::fromText(idText);
    if (!id) {
        throw Refusal("That is no id of a question. Take the one that ask_question or list_questions gave.");
    }
    const auto found = std::find_if(state.agentQuestions.begin(), state.agentQuestions.end(),
                                    [&](const AgentQuestion& question) { return question.id == *id; });
    if (found == state.agentQuestions.end()) {
        throw Refusal("There is no question with this id. list_questions has all that were asked.");
    }
    return *found;
}

agent::protocol::Json questionJson(const AgentQuestion& question)
{
    agent::protocol::Json json =
        agent::protocol::Json::parse(JsonEncoder(JsonLayout::compact).encode(question).view());
    json["status"] = question.answeredAt ? "answered" : "open";
    json.emplace("answered_at", nullptr);
    if (!question.answeredAt || !question.answer) {
        json["answer"] = nullptr;
    }
    return json;
}

agent::protocol::Json questionsJson(const QuillmereState& state, bool openOnly)
{
    agent::protocol::Json list = agent::protocol::Json::array();
    for (const AgentQuestion& question : state.agentQuestions) {
        if (!(openOnly && question.answeredAt)) {
            list.push_back(questionJson(question));
        }
    }
    return list;
}

const agent::protocol::Json& questionSchema()
{
    static const agent::protocol::Json schema = agent::protocol::Json::parse(R"json({
        "type": "object",
        "additionalProperties": false,
        "required": ["id", "question", "created_at", "status", "answer", "answered_at"],
        "properties": {
            "id": {"type": "string"},
            "question": {"type": "string"},
            "created_at": {"type": "string", "description": "UTC (RFC 3339)."},
            "status": {"enum": ["open", "answered"]},
            "answer": {
                "type": ["string", "null"],
                "description": "In the person's own words; may be empty. null while the question is open, or when it was closed without one."
            },
            "answered_at": {"type": ["string", "null"], "description": "UTC (RFC 3339)."}
        }
    })json");
    return schema;
}

}  // namespace quillmere::agent
