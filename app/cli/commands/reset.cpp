// Leads out of a state that no step leads on from.
#include "amendments/reset.hpp"
#include "amendments/possible.hpp"
#include "cli/commands.hpp"
#include "cli/prompt.hpp"
#include "work/done_text.hpp"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

constexpr const char* question =
    "Reset the work? A block with sessions goes into the history, one without is dropped, and nothing is "
    "planned then. Versions keep the present state.";

void reset(bool isConfirmed, Program& program)
{
    const bool isPossible =
        amendments::isPossible(amendments::Kind::reset, program.workspace().look(base::Reach::present).state);
    if (isPossible && !isConfirmed) {
        requireAgreement(program.environment(), question);
    }
    program.change(work::done::workReset,
                   [](QuillmereState& state, Instant now) { amendments::reset(state, now); });
}

}  // namespace

void addReset(CLI::App& line, Program& program)
{
    const auto isConfirmed = std::make_shared<bool>(false);
    addCommand(line, program, "reset", "Lead the work out of a state that no step leads on from",
               [isConfirmed, &program] { reset(*isConfirmed, program); })
        ->add_flag("--yes", *isConfirmed, "Reset without asking");
}

}  // namespace quillmere::cli
