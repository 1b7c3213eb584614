// main of every test program. XDG_STATE_HOME and XDG_CONFIG_HOME are temporary directories that are
// removed after the tests.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    const quillmere::test::TemporaryDirectory stateHome;
    // Some tests change to an ordinary user.
    std::filesystem::permissions(stateHome.path(), std::filesystem::perms::all);
    const quillmere::test::EnvironmentVariable variable("XDG_STATE_HOME", stateHome.path().string());
    const quillmere::test::TemporaryDirectory configHome;
    std::filesystem::permissions(configHome.path(), std::filesystem::perms::all);
    const quillmere::test::EnvironmentVariable configVariable("XDG_CONFIG_HOME", configHome.path().string());
    return RUN_ALL_TESTS();
}
