#include "proofs/system_calls/version.hpp"

#include <cstddef>
#include <ostream>

namespace quillmere::test {

void PrintTo(Version version, std::ostream* stream)
{
    constexpr const char* names[] = {"none", "older", "newer", "foreign"};
    *stream << names[static_cast<std::size_t>(version)];
}

}  // namespace quillmere::test
