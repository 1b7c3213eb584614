// Helpers of the fuzz targets.
//
// A target takes any bytes and aborts when one of its rules does not hold. Linked with libFuzzer, it gets
// generated inputs; linked with replay_main.cpp, it repeats the inputs in tests/corpus.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace quillmere::test {

/// Unless the rule holds, prints it and aborts.
inline void require(bool holds, const char* sentence)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", sentence);
        std::abort();
    }
}

inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace quillmere::test
