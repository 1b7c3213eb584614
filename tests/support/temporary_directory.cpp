#include "support/temporary_directory.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "support/process_settings.hpp"

namespace quillmere::test {

namespace fs = std::filesystem;

namespace {

/// Whether an ordinary user can create files there; some tests change from superuser to ordinary user.
bool isOpenToAll(const fs::path& directory)
{
    const UnprivilegedUser user;
    return ::faccessat(AT_FDCWD, directory.c_str(), R_OK | W_OK | X_OK, AT_EACCESS) == 0;
}

/// The directory for temporary files. If the configured one is closed to other users, one that is open to
/// all.
fs::path place()
{
    std::vector<fs::path> places = {"/tmp", "/var/tmp"};
    if (const char* const chosen = std::getenv("TMPDIR")) {
        places.insert(places.begin(), chosen);
    }
    const auto open = std::find_if(places.begin(), places.end(), isOpenToAll);
    return open == places.end() ? places.front() : *open;
}

}  // namespace

TemporaryDirectory::TemporaryDirectory()
{
    std::string name = (place() / "quillmere-test-XXXXXX").string();
    if (!::mkdtemp(name.data())) {
        throw std::runtime_error("no temporary directory");
    }
    path_ = name;
}

TemporaryDirectory::~TemporaryDirectory()
{
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::vector<std::string> TemporaryDirectory::names() const { return namesIn(path_); }

std::vector<std::string> namesIn(const fs::path& directory)
{
    std::vector<std::string> names;
    if (fs::is_directory(directory)) {
        for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
            names.push_back(entry.path().filename().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string textOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << file;
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void writeText(const fs::path& file, const std::string& text)
{
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    ASSERT_TRUE(stream.good()) << file;
}

}  // namespace quillmere::test
