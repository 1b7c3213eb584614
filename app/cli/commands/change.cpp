// Changes a block that has begun.
#include "amendments/change_block.hpp"
#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "cli/block_text_options.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "cli/field_prompts.hpp"
#include "cli/prompt.hpp"
#include "work/amendment_text.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"
#include "work/fields/unacceptable.hpp"

#include <CLI/CLI.hpp>

#include <memory>

namespace quillmere::cli {
namespace {

struct ChangeCommand {
    BlockTextOptions texts;
    RecordOptions<Block> numbers{work::begunBlockFields.subspan<6, 3>()};
};

std::optional<double> lengthGiven(const ChangeCommand& command, const std::string& name)
{
    const std::optional<std::string>& text = command.numbers.given(name);
    return text ? std::optional(work::durationFrom({name, *text})) : std::nullopt;
}

amendments::BlockChange changeOf(const ChangeCommand& command, const std::optional<Block>& block)
{
    const std::optional<std::string>& cycles = command.numbers.given("cycles");
    return {.texts = block ? command.texts.textsFor(*block) : amendments::BlockTexts(),
            .focusDurationSeconds = lengthGiven(command, "focus"),
            .breakDurationSeconds = lengthGiven(command, "break"),
            .cycleCount = cycles ? std::optional(work::numberFrom({"cycles", *cycles}, work::cycleLimits))
                                 : std::nullopt};
}

/// Where the command does not fit it is refused before its options are.
void change(const ChangeCommand& command, QuillmereState& state, Instant now)
{
    amendments::changeBlock(state, {}, now);
    if (!command.texts.anyGiven() && !command.numbers.anyGiven()) {
        throw ProgramError(
            ExitCode::usage,
            "Say what to change, such as --cycles 5; quillmere change --help lists the options.");
    }
    amendments::changeBlock(state, changeOf(command, state.currentBlock), now);
}

/// Runs an amendment on a copy of the state, so that an answer that would be refused is asked for again.
void requirePossible(const amendments::BlockChange& change, const Asking& asking)
{
    QuillmereState state = asking.state;
    try {
        amendments::changeBlock(state, change, asking.here.now);
    } catch (const amendments::Refusal& refusal) {
        throw work::Unacceptable(
            "", work::refusalText(refusal, {asking.state, {}, asking.here.now}, asking.here.hours));
    }
}

void requireRemovable(const std::string& outcome, const Asking& asking)
{
    std::vector<Outcome> rest = asking.state.currentBlock->outcomes;
    std::erase_if(rest, [&](const Outcome& one) { return one.id.text() == outcome; });
    if (!rest.empty()) {
        requirePossible({.texts = {.outcomes = rest}}, asking);
    }
}

void askForAll(ChangeCommand& command, const Asking& asking)
{
    const Block& block = *asking.state.currentBlock;
    explainPrompts(asking.environment);
    command.texts.askForAll(asking, block,
                            [&](const std::string& outcome) { requireRemovable(outcome, asking); });
    command.numbers.askForMissing([&](const work::RecordField<Block>& field) {
        return askForField(asking, field, block, [&](const std::string& answer) {
            ChangeCommand one;
            one.numbers.give(field.prompt.name, answer);
            requirePossible(changeOf(one, block), asking);
        });
    });
}

void changeBlock(ChangeCommand& command, Program& program)
{
    base::Environment& environment = program.environment();
    if (environment.inputIsTerminal && !command.texts.anyGiven() && !command.numbers.anyGiven()) {
        const workspace::Situation situation = program.workspace().look(base::Reach::prompts);
        if (amendments::isPossible(amendments::Kind::change, situation.state)) {
            askForAll(command, {environment, situation.state, {situation.now, program.hours()}});
        }
    }
    program.change(work::done::blockChanged,
                   namingOptions([&](QuillmereState& state, Instant now) { change(command, state, now); }));
}

}  // namespace

void addChange(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<ChangeCommand>();
    CLI::App* const app = addCommand(line, program, "change", "Change the block that has begun",
                                     [command, &program] { changeBlock(*command, program); });
    command->texts.addTo(*app);
    command->numbers.addTo(*app);
}

}  // namespace quillmere::cli
