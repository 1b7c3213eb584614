#include "cli/block_number.hpp"

#include "base/text/count.hpp"
#include "cli/exit_code.hpp"
#include "cli/program.hpp"
#include "cli/prompt.hpp"
#include "work/deletion.hpp"
#include "work/naming.hpp"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace quillmere::cli {
namespace {

/// The number that the text begins with, up to a point; 0: the text is no number of a block.
std::size_t numberIn(const std::string& name)
{
    constexpr std::size_t mostDigits = 3;  // four digits may be the beginning of an identifier
    const std::size_t length = std::min(name.find('.'), name.size());
    std::size_t number = 0;
    const auto [stop, error] = std::from_chars(name.data(), name.data() + length, number);
    const bool isNumber = error == std::errc() && stop == name.data() + length && length <= mostDigits;
    return isNumber ? number : 0;
}

}  // namespace

std::string nameWithoutNumber(const std::string& name, bool commandAsks, const QuillmereState& state,
                              Program& program)
{
    const std::size_t number = numberIn(name);
    if (number == 0) {
        return name;
    }
    if (!program.environment().inputIsTerminal) {
        throw ProgramError(ExitCode::usage,
                           "A number names a block only on a terminal, because it changes with every block "
                           "that is finished. Give the name that quillmere history prints.");
    }
    if (number > state.blockHistory.size()) {
        throw ProgramError(ExitCode::usage,
                           "The history has no block " + std::to_string(number) + "; it has " +
                               base::countText(std::ssize(state.blockHistory), "block") + ".");
    }
    const Block& block = state.blockHistory[number - 1];
    if (!commandAsks) {
        requireAgreement(program.environment(),
                         "This is " + work::blockInOneLine(block, program.hours()) + ". Is it meant?");
    }
    const std::size_t point = std::min(name.find('.'), name.size());
    return work::shortName(block.id, state) + name.substr(point);
}

}  // namespace quillmere::cli
