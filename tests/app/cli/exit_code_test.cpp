// The exit codes, which scripts depend on.
#include "cli/exit_code.hpp"

#include <gtest/gtest.h>

#include <string_view>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

struct Row {
    ExitCode code;
    int number;
    std::string_view name;
};

constexpr Row rows[] = {
    {ExitCode::done, 0, "done"},
    {ExitCode::refused, 1, "refused"},
    {ExitCode::usage, 2, "usage"},
    {ExitCode::urgent, 33, "urgent"},
    {ExitCode::unusableData, 65, "unusableData"},
    {ExitCode::outOfMemory, 71, "outOfMemory"},
    {ExitCode::fileError, 74, "fileError"},
    {ExitCode::lockBusy, 75, "lockBusy"},
};

TEST(ExitCode, keepsItsNumberAndItsNameInJson)
{
    for (const Row& row : rows) {
        EXPECT_EQ(static_cast<int>(row.code), row.number);
        EXPECT_EQ(cli::nameOf(row.code), row.name);
    }
}

TEST(ExitCode, followsFromTheKindOfARefusal)
{
    using enum base::Refusal::Kind;
    EXPECT_EQ(cli::exitCodeOf(invalidRequest), ExitCode::usage);
    EXPECT_EQ(cli::exitCodeOf(unusableData), ExitCode::unusableData);
    EXPECT_EQ(cli::exitCodeOf(fileError), ExitCode::fileError);
    EXPECT_EQ(cli::exitCodeOf(busy), ExitCode::lockBusy);
}

}  // namespace
}  // namespace quillmere::test
