// Directories as one may find them, met by an ordinary user: what save, load and the program do is what the
// table says, and nothing else changes anywhere around.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "apart.hpp"
#include "conduct.hpp"
#include "proofs/support/figures.hpp"
#include "situations.hpp"

namespace quillmere::test {
namespace {

constexpr const char* promise = "Hostile directories, as an ordinary user";

/// What was seen of one situation, as it is passed from one process to another: a line a fact.
struct Seen {
    std::array<std::string, columnCount> words;
    std::array<std::string, columnCount> errors;
    std::size_t memory = 0;
};

std::string onOneLine(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

/// Becomes an ordinary user and tries all columns. The superuser of the first process could not tell what
/// modes keep away, and could not go back.
std::string tryAll(const Situation& situation, const std::filesystem::path& ground)
{
    std::string lines = becomeOrdinaryUser() ? "ordinary\n" : "superuser\n";
    std::size_t memory = 0;
    for (const Column& column : columns()) {
        const Conduct conduct = conductOf(column, situation.make, ground);
        lines += onOneLine(conduct.words) + '\n' + onOneLine(conduct.errors) + '\n';
        memory = std::max(memory, conduct.memory);
    }
    return lines + std::to_string(memory) + '\n';
}

std::optional<Seen> seenIn(const std::string& lines)
{
    std::istringstream stream(lines);
    std::string line;
    if (!std::getline(stream, line) || line != "ordinary") {
        return std::nullopt;
    }
    Seen seen;
    for (std::size_t column = 0; column < columnCount; ++column) {
        std::getline(stream, seen.words[column]);
        std::getline(stream, seen.errors[column]);
    }
    stream >> seen.memory;
    return stream ? std::optional(seen) : std::nullopt;
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
    for (const Column& column : columns()) {
        table << ' ' << column.title << " |";
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
        keepProgram();
        const Ground ground;
        if (ground.path().empty()) {
            GTEST_SKIP() << "there is no ordinary user here who could make files";
        }
        for (const Situation& situation : situations) {
            SCOPED_TRACE(situation.name);
            constexpr unsigned seconds = 1800;
            const Apart tried = apart([&] { return tryAll(situation, ground.path()); }, seconds, "/dev/null");
            const std::optional<Seen> seen = seenIn(tried.said);
            ASSERT_TRUE(seen) << tried.said;
            for (std::size_t column = 0; column < columnCount; ++column) {
                EXPECT_EQ(seen->words[column], situation.expected[column])
                    << columns()[column].title << ": " << seen->errors[column];
            }
            memory_ = std::max(memory_, seen->memory);
        }
        reportFigure(promise, std::string("situations, ") + title, situations.size());
        reportFigure(promise, std::string("calls, ") + title, situations.size() * columnCount);
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
