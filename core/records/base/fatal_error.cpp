#include <quillmere/records/base/fatal_error.hpp>

#include <cstdio>
#include <cstdlib>

namespace quillmere {

void fatalError(std::string_view message) noexcept
{
    std::fwrite(message.data(), 1, message.size(), stderr);
    std::fputc('\n', stderr);
    std::abort();
}

}  // namespace quillmere
