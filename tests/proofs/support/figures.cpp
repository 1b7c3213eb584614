#include "proofs/support/figures.hpp"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string_view>

namespace quillmere::test {

bool inLongForm()
{
    const char* const form = std::getenv("QUILLMERE_PROOF_FORM");
    return form && std::string_view(form) == "long";
}

void reportFigure(const std::string& promise, const std::string& what, const std::string& figure)
{
    const std::string row = "| " + promise + " | " + what + " | " + figure + " |\n";
    if (const char* const table = std::getenv("QUILLMERE_PROOF_TABLE")) {
        std::ofstream(table, std::ios::app) << row;
    } else {
        std::cout << row;
    }
}

}  // namespace quillmere::test
