// The memory use of this process.
#pragma once

#include <cstdint>

namespace quillmere::test {

/// Resident memory in kilobytes (VmRSS); 0 where the system does not report it.
std::int64_t residentKilobytes();

}  // namespace quillmere::test
