// The directory that a bar watches.
#include <quillmere/widget/app_group.hpp>

#include "program_testing.hpp"
#include "workspace/workspace.hpp"

namespace quillmere::test {
namespace {

using workspace::Workspace;

Instant standingStill() { return moment; }

TEST(WidgetPlace, isTheDirectoryThatIsNamed)
{
    const TemporaryDirectory directory;
    EXPECT_EQ(Workspace::in(directory.path(), standingStill).widgetPlace(), directory.path());
}

TEST(WidgetPlace, isWhereTheContainerIsBeforeAndAfterItIsMade)
{
    for (const char* variable : {"XDG_DATA_HOME", "HOME"}) {
        SCOPED_TRACE(variable);
        const TemporaryDirectory directory;
        const EnvironmentVariable data("XDG_DATA_HOME", std::nullopt);
        const EnvironmentVariable home("HOME", std::nullopt);
        const EnvironmentVariable named(variable, directory.path().string());
        const Workspace workspace = Workspace::ofThisUser(standingStill);
        const std::filesystem::path before = workspace.widgetPlace();
        EXPECT_EQ(directory.names(), Words{});
        EXPECT_EQ(before, FileManager::standard().createContainerDirectory(QuillmereAppGroup::identifier));
        EXPECT_EQ(workspace.widgetPlace(), before);
    }
}

}  // namespace
}  // namespace quillmere::test
