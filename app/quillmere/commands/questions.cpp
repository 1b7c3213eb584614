// Lists the questions of the agent.
#include "commands/commands.hpp"
#include "report/status.hpp"
#include "text/inert.hpp"
#include "text/local_time.hpp"

#include <memory>
#include <ostream>

namespace quillmere::app {
namespace {

void printQuestion(std::ostream& out, const std::string& label, const AgentQuestion& question)
{
    out << label << "  " << inert(question.question) << "  (" << localText(question.createdAt) << ")\n";
    if (question.answer) {
        out << "   = " << inert(*question.answer) << '\n';
    }
}

/// Open questions have the number by which they are answered.
void showQuestions(bool all, Program& program)
{
    const QuillmereState state = program.workspace().look().state;
    std::ostream& out = program.environment().out;
    Json list = Json::array();
    std::int64_t number = 0;
    for (const AgentQuestion& question : state.agentQuestions) {
        const bool isOpen = !question.answeredAt;
        number += isOpen ? 1 : 0;
        if (!isOpen && !all) {
            continue;
        }
        if (program.settings().json) {
            list.push_back(recordJson(question));
        } else {
            printQuestion(out, isOpen ? std::to_string(number) + "." : "  ", question);
        }
    }
    if (program.settings().json) {
        program.print(list);
    } else if (number == 0) {
        out << "No question waits.\n";
    }
}

}  // namespace

void addQuestions(CLI::App& line, Program& program)
{
    const auto all = std::make_shared<bool>(false);
    addCommand(line, program, "questions", "List the open questions", [all, &program] {
        showQuestions(*all, program);
    })->add_flag("--all", *all, "Answered ones too");
}

}  // namespace quillmere::app
