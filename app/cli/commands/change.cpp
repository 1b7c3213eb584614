// Changes a block that has begun.
#include "amendments/change_block.hpp"
#include "cli/block_text_options.hpp"
#include "cli/commands.hpp"
#include "cli/exit_code.hpp"
#include "work/done_text.hpp"
#include "work/fields/answers.hpp"

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

}  // namespace

void addChange(CLI::App& line, Program& program)
{
    const auto command = std::make_shared<ChangeCommand>();
    CLI::App* const app =
        addCommand(line, program, "change", "Change the block that has begun", [command, &program] {
            program.change(work::done::blockChanged, namingOptions([&](QuillmereState& state, Instant now) {
                               change(*command, state, now);
                           }));
        });
    command->texts.addTo(*app);
    command->numbers.addTo(*app);
}

}  // namespace quillmere::cli
