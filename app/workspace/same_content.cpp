#include "workspace/same_content.hpp"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string>

namespace quillmere::workspace {
namespace {

/// The bytes from `begin`; fewer, or none, where the file cannot be read.
std::string block(std::ifstream& file, std::uintmax_t begin, std::size_t size)
{
    std::string bytes(size, '\0');
    file.seekg(static_cast<std::streamoff>(begin));
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return bytes;
}

}  // namespace

bool haveSameContent(const std::filesystem::path& left, const std::filesystem::path& right)
{
    constexpr std::uintmax_t blockSize = 65'536;
    std::error_code error;
    if (std::filesystem::equivalent(left, right, error)) {
        return true;
    }
    std::uintmax_t rest = std::filesystem::file_size(left, error);
    if (error || rest != std::filesystem::file_size(right, error) || error) {
        return false;
    }
    std::ifstream leftFile(left, std::ios::binary);
    std::ifstream rightFile(right, std::ios::binary);
    while (rest > 0) {
        const auto size = static_cast<std::size_t>(std::min(rest, blockSize));
        rest -= size;
        const std::string bytes = block(leftFile, rest, size);
        if (bytes.size() != size || bytes != block(rightFile, rest, size)) {
            return false;
        }
    }
    return leftFile.is_open() && rightFile.is_open();
}

}  // namespace quillmere::workspace
