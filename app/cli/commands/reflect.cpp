// Closes a block with a reflection.
#include "cli/commands.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"
#include "work/done_text.hpp"

#include <quillmere/engine/transition.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

using ReflectionOptions = RecordOptions<BlockReview>;

void reflect(ReflectionOptions& options, Program& program)
{
    base::Environment& environment = program.environment();
    if (environment.inputIsTerminal &&
        isPossible(Step::completeBlockReview, program.workspace().look().state)) {
        options.askForMissing(
            [&](const work::Prompt& prompt) { return ask(environment, work::promptText(prompt)); });
    }
    program.change(work::done::blockFinished, [&](QuillmereState& state, Instant now) {
        BlockReview reflection{};
        options.applyTo(reflection, now);
        WorkflowEngine().completeBlockReview(state, std::move(reflection), now);
    });
}

}  // namespace

void addReflect(CLI::App& line, Program& program)
{
    const auto options = std::make_shared<ReflectionOptions>(work::reflectionFields);
    CLI::App* const command = addCommand(line, program, "reflect", "Reflect on the block and finish it",
                                         [options, &program] { reflect(*options, program); });
    options->addTo(*command);
}

}  // namespace quillmere::cli
