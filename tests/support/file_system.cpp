#include "support/file_system.hpp"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace quillmere::test {

namespace fs = std::filesystem;

mode_t modeOf(const fs::path& path)
{
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

void makeFifo(const fs::path& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0666), 0) << path; }

void makeSocket(const fs::path& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.string().size(), sizeof address.sun_path) << path;
    std::strcpy(address.sun_path, path.c_str());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0) << path;
    ::close(socket);
}

void makeLinkLoop(const fs::path& path)
{
    fs::path other = path;
    other += "-and-back";
    fs::create_symlink(other.filename(), path);
    fs::create_symlink(path.filename(), other);
}

std::size_t openFileCount()
{
    // /dev/fd lists the open descriptors.
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator("/dev/fd"), fs::directory_iterator()));
}

}  // namespace quillmere::test
