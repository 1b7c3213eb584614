// Lists the questions of the agent.
#include "base/record_json.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"
#include "work/question_naming.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace quillmere::cli {
namespace {

void printQuestion(std::ostream& out, const std::string& label, const AgentQuestion& question,
                   base::Hours hours)
{
    out << label << "  " << base::sanitized(question.question) << "  ("
        << base::localText(question.createdAt, hours) << ")\n";
    if (question.answer) {
        out << "   = " << base::sanitized(*question.answer) << '\n';
    }
}

void listQuestions(std::ostream& out, bool all, const QuillmereState& state, base::Hours hours)
{
    const std::vector<std::string> names = work::shortQuestionNames(state);
    std::size_t number = 0;
    for (std::size_t index = 0; index < names.size(); ++index) {
        const AgentQuestion& question = state.agentQuestions[index];
        number += question.isOpen() ? 1 : 0;
        if (all || question.isOpen()) {
            const std::string label = question.isOpen() ? std::to_string(number) + "." : "  ";
            printQuestion(out, all ? label + "  " + names[index] : label, question, hours);
        }
    }
    if (number == 0) {
        out << "No question waits.\n";
    }
}

/// Open questions are numbered, and with the answered ones all have names: `answer` takes both.
void showQuestions(bool all, Program& program)
{
    const QuillmereState state =
        program.workspace().look(all ? base::Reach::years : base::Reach::present).state;
    if (!program.settings().json) {
        listQuestions(program.environment().out, all, state, program.hours());
        return;
    }
    base::Json list = base::Json::array();
    for (const AgentQuestion& question : state.agentQuestions) {
        if (all || question.isOpen()) {
            list.push_back(base::recordJson(question));
        }
    }
    program.print(list);
}

}  // namespace

void addQuestions(CLI::App& line, Program& program)
{
    const auto all = std::make_shared<bool>(false);
    addCommand(line, program, "questions", "List the open questions", [all, &program] {
        showQuestions(*all, program);
    })->add_flag("--all", *all, "List answered questions too, each with its name");
}

}  // namespace quillmere::cli
