// Directories in which something is wrong, used by an ordinary user: save, load and the program do what the
// table says, and nothing else changes in the tree around.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "ordinary_user.hpp"
#include "outcome.hpp"
#include "proofs/support/figures.hpp"
#include "situations.hpp"

namespace quillmere::test {
namespace {

constexpr const char* promise = "Hostile directories, as an ordinary user";

/// The operations that are tried in a situation: all in the long form; in the short one two of the eight, by
/// the number of the situation, one of the library's saves and loads and one of the program's commands or the
/// widget's load. So each operation is tried in every fourth situation.
std::vector<std::size_t> chosenOperations(std::size_t situation)
{
    const std::size_t stride = amount(4, 1);
    std::vector<std::size_t> chosen;
    for (std::size_t number = situation % stride; number < operationCount; number += stride) {
        chosen.push_back(number);
    }
    return chosen;
}

std::string onOneLine(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

/// Becomes an ordinary user and tries the operations; returns a line a fact, to pass from one process to
/// another. Modes keep nothing from the superuser, who could not change back either.
std::string tryOperations(const std::vector<std::size_t>& numbers, const Situation& situation,
                          const std::filesystem::path& directory)
{
    std::string lines = becomeOrdinaryUser() ? "ordinary\n" : "superuser\n";
    std::size_t memory = 0;
    for (const std::size_t number : numbers) {
        const Outcome outcome = outcomeOf(operations()[number], situation.make, directory);
        lines += onOneLine(outcome.words) + '\n' + onOneLine(outcome.errors) + '\n';
        memory = std::max(memory, outcome.memory);
    }
    return lines + std::to_string(memory) + '\n';
}

/// The facts in such lines: an outcome for each operation that was tried, with the memory that the largest
/// took.
std::optional<std::vector<Outcome>> outcomesIn(const std::string& lines, std::size_t count)
{
    std::istringstream stream(lines);
    std::string line;
    if (!std::getline(stream, line) || line != "ordinary") {
        return std::nullopt;
    }
    std::vector<Outcome> outcomes(count);
    for (Outcome& outcome : outcomes) {
        std::getline(stream, outcome.words);
        std::getline(stream, outcome.errors);
    }
    std::size_t memory = 0;
    stream >> memory;
    for (Outcome& outcome : outcomes) {
        outcome.memory = memory;
    }
    return stream ? std::optional(outcomes) : std::nullopt;
}

void writeTable(const char* title, std::span<const Situation> situations)
{
    const char* const file = std::getenv("QUILLMERE_HOSTILE_TABLE");
    if (!file) {
        return;
    }
    std::ofstream table(file, std::ios::app);
    std::string rule = "|---|";
    table << "| " << title << " |";
    for (const Operation& operation : operations()) {
        table << ' ' << operation.title << " |";
        rule += "---|";
    }
    table << '\n' << rule << '\n';
    for (const Situation& situation : situations) {
        table << "| " << situation.name << " |";
        for (const char* const words : situation.expected) {
            table << ' ' << words << " |";
        }
        table << '\n';
    }
    table << '\n';
}

class HostileDirectories : public testing::Test {
protected:
    void expect(const char* title, std::span<const Situation> situations)
    {
        openProgram();
        const WritableDirectory directory;
        if (directory.path().empty()) {
            GTEST_SKIP() << "no ordinary user here could make files";
        }
        std::size_t tried = 0;
        for (std::size_t number = 0; number < situations.size(); ++number) {
            const Situation& situation = situations[number];
            SCOPED_TRACE(situation.name);
            const std::vector<std::size_t> chosen = chosenOperations(number);
            constexpr unsigned seconds = 1800;
            const ChildResult child =
                resultOfChild([&] { return tryOperations(chosen, situation, directory.path()); }, seconds);
            const std::optional<std::vector<Outcome>> outcomes = outcomesIn(child.result, chosen.size());
            ASSERT_TRUE(outcomes) << child.result;
            for (std::size_t index = 0; index < chosen.size(); ++index) {
                const Outcome& outcome = (*outcomes)[index];
                EXPECT_EQ(outcome.words, situation.expected[chosen[index]])
                    << operations()[chosen[index]].title << ": " << outcome.errors;
                memory_ = std::max(memory_, outcome.memory);
                ++tried;
            }
        }
        reportFigure(promise, std::string("situations, ") + title, situations.size());
        reportFigure(promise, std::string("calls, ") + title, tried);
        writeTable(title, situations);
    }

    std::size_t memory_ = 0;  ///< the most that a call took
};

TEST_F(HostileDirectories, areMetAsTheTableSays) { expect("the directory", directorySituations()); }

TEST_F(HostileDirectories, withHostileFilesAreMetAsTheTableSays)
{
    expect("a file", fileSituations());
    // A file of a gigabyte is held once, and nothing is built from it.
    if (inLongForm()) {
        constexpr std::size_t megabyte = 1'000'000;
        constexpr std::size_t most = 1'200 * megabyte;
        reportFigure(promise, "most memory of a call in MB, with files of 1,000", memory_ / megabyte);
        EXPECT_LT(memory_, most);
    }
}

TEST_F(HostileDirectories, areFoundAsTheTableSays) { expect("mask, environment", processSituations()); }

}  // namespace
}  // namespace quillmere::test
