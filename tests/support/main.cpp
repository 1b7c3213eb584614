// Every test program: what programs keep beside the files goes to a directory that goes with the tests.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    const quillmere::test::TemporaryDirectory stateHome;
    // Some tests go on as an ordinary user.
    std::filesystem::permissions(stateHome.path(), std::filesystem::perms::all);
    const quillmere::test::EnvironmentVariable variable("XDG_STATE_HOME", stateHome.path().string());
    return RUN_ALL_TESTS();
}
