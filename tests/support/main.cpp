// main of every test program. XDG_STATE_HOME is a temporary directory that is removed after the tests.
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
    return RUN_ALL_TESTS();
}
