// Lists the questions of the agent.
#include "base/record_json.hpp"
#include "base/text/local_time.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"
#include "cli/status.hpp"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <memory>
#include <ostream>

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

/// Open questions are numbered: answer takes the number.
void showQuestions(bool all, Program& program)
{
    const QuillmereState state = program.workspace().look().state;
    std::ostream& out = program.environment().out;
    base::Json list = base::Json::array();
    std::int64_t number = 0;
    for (const AgentQuestion& question : state.agentQuestions) {
        const bool isOpen = question.isOpen();
        number += isOpen ? 1 : 0;
        if (!isOpen && !all) {
            continue;
        }
        if (program.settings().json) {
            list.push_back(base::recordJson(question));
        } else {
            printQuestion(out, isOpen ? std::to_string(number) + "." : "  ", question, program.hours());
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
    })->add_flag("--all", *all, "List answered questions too");
}

}  // namespace quillmere::cli
