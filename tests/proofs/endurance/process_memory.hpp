// What the system says about the memory of this process.
#pragma once

#include <cstdint>

namespace quillmere::test {

/// Memory in use that is in RAM, in kilobytes (VmRSS); 0 where the system does not tell.
std::int64_t residentKilobytes();

}  // namespace quillmere::test
