// Errors as messages.
#include "base/text/failure.hpp"

#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/json/coding_error.hpp>

#include <gtest/gtest.h>

#include <filesystem>

namespace quillmere::test {
namespace {

using base::failureText;
using base::fileErrorText;
using std::filesystem::filesystem_error;

const std::error_code denied = std::make_error_code(std::errc::permission_denied);

TEST(FileErrorText, namesTheCallTheReasonAndThePath)
{
    EXPECT_EQ(fileErrorText(filesystem_error("open", "/a b/c", denied)), "open: Permission denied: /a b/c");
}

TEST(FileErrorText, namesBothPathsOfARename)
{
    EXPECT_EQ(fileErrorText(filesystem_error("rename", "/a", "/b", denied)),
              "rename: Permission denied: /a: /b");
}

TEST(FileErrorText, leavesOutUnknownPaths)
{
    EXPECT_EQ(fileErrorText(filesystem_error("read", denied)), "read: Permission denied");
    EXPECT_EQ(fileErrorText(std::system_error(denied, "flock")), "flock: Permission denied");
    EXPECT_EQ(fileErrorText(std::system_error(denied)), "Permission denied");
}

TEST(FailureText, isTheMessageOfTheEngineForItsErrors)
{
    const WorkflowError refusal = WorkflowError::missingSessionPlan;
    EXPECT_EQ(failureText(refusal), refusal.errorDescription());
}

TEST(FailureText, namesTheReasonOfASystemError)
{
    EXPECT_EQ(failureText(filesystem_error("open", "/a", denied)), "open: Permission denied: /a");
}

TEST(FailureText, saysThatAStateCannotBeUsedAndTheWayOut)
{
    const std::string text = failureText(DecodingError("a string", "a number"));
    EXPECT_TRUE(text.starts_with("The state cannot be used: ")) << text;
    EXPECT_TRUE(text.ends_with(". Nothing was changed; quillmere restore lists earlier versions.")) << text;
}

}  // namespace
}  // namespace quillmere::test
