// Closes a block with a reflection.
#include "cli/commands.hpp"
#include "cli/field_prompts.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"
#include "work/done_text.hpp"

#include <quillmere/engine/transition.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

using ReflectionOptions = RecordOptions<BlockReview>;

void askForReflection(ReflectionOptions& options, const Asking& asking)
{
    explainPrompts(asking.environment);
    options.askForMissing([&](const work::RecordField<BlockReview>& field) {
        return askForField(asking, field, BlockReview{});
    });
}

void reflect(ReflectionOptions& options, Program& program)
{
    base::Environment& environment = program.environment();
    if (environment.inputIsTerminal) {
        const workspace::Situation situation = program.workspace().look(base::Reach::prompts);
        if (isPossible(Step::completeBlockReview, situation.state)) {
            askForReflection(options, {environment, situation.state, {situation.now, program.hours()}});
        }
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
