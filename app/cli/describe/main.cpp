// Generates the manual page or a completion from the command line: quillmere_describe FRAME RESULT
// Copies the frame and replaces each placeholder line, such as "<bash commands>", by the generated piece. The
// build runs it, so the results always match the program.
#include "cli/describe/pieces.hpp"

#include <array>
#include <fstream>
#include <iostream>
#include <string_view>

namespace {

using namespace quillmere::cli::describe;

struct Piece {
    std::string_view placeholder;
    void (*print)(std::ostream& out, const Command& program);
};

constexpr auto pieces = std::to_array<Piece>({
    {"<manual options>", printManualOptions},
    {"<manual commands>", printManualCommands},
    {"<manual configuration>", printManualConfiguration},
    {"<manual events>", printManualEvents},
    {"<bash commands>", printBashCommands},
    {"<bash values>", printBashValues},
    {"<zsh functions>", printZshFunctions},
    {"<fish commands>", printFishCommands},
    {"<fish values>", printFishValues},
    {"<fish offers>", printFishOffers},
});

void printLine(std::ostream& out, const std::string& text, const Command& program)
{
    for (const Piece& piece : pieces) {
        if (text == piece.placeholder) {
            piece.print(out, program);
            return;
        }
    }
    out << text << '\n';
}

}  // namespace

int main(int count, char** arguments)
{
    if (count != 3) {
        std::cerr << "usage: quillmere_describe FRAME RESULT\n";
        return 2;
    }
    std::ifstream frame(arguments[1]);
    std::ofstream result(arguments[2]);
    const Command program = thisProgram();
    for (std::string line; std::getline(frame, line);) {
        printLine(result, line, program);
    }
    if (!frame.eof() || !result.flush()) {
        std::cerr << "cannot make " << arguments[2] << " from " << arguments[1] << '\n';
        return 1;
    }
    return 0;
}
