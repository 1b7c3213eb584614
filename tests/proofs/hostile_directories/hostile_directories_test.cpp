// Directories in unusual conditions, used by an ordinary user: save, load and the program must behave as the
// table says and change nothing else in the tree.
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

/// The operations to try in a situation: all in the long form, two of the eight in the short form. The index
/// of the situation chooses them: one save or load of the library, and one command of the program or the
/// widget's load. So the short form tries each operation in every fourth situation.
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

/// Becomes an ordinary user and tries the operations. Returns one result per line, to be passed to another
/// process. The superuser ignores file modes, and an ordinary user cannot become superuser again, so a child
/// process does this.
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

/// Parses such lines: an outcome for each operation, each with the peak memory of them all.
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

    std::size_t memory_ = 0;  ///< the largest peak memory of an operation
};

TEST_F(HostileDirectories, areMetAsTheTableSays) { expect("the directory", directorySituations()); }

TEST_F(HostileDirectories, withHostileFilesAreMetAsTheTableSays)
{
    expect("a file", fileSituations());
    // A file of a gigabyte is read into memory once and not decoded.
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
