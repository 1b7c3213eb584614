#include "base/compression.hpp"

#include <gtest/gtest.h>

#include <string>

#include "base/refusal.hpp"

namespace quillmere::test {
namespace {

std::string compressedText(const std::string& text) { return std::string(base::compressed(text).view()); }

TEST(Compression, bringsEveryContentBack)
{
    for (const std::string& text :
         {std::string(), std::string("a"), std::string("a\0b", 3), std::string(1'000'000, 'x')}) {
        EXPECT_EQ(base::decompressed(compressedText(text)).view(), text);
    }
}

TEST(Compression, makesTextsSmaller)
{
    EXPECT_LT(base::compressed(std::string(1'000'000, 'x')).size(), 1'000U);
}

TEST(Compression, refusesDamagedBytes)
{
    const std::string frame = compressedText("A text that is compressed, and longer than its checksum.");
    std::string changed = frame;
    changed[changed.size() - 6] = static_cast<char>(changed[changed.size() - 6] ^ 1);
    for (const std::string& damaged :
         {std::string(), std::string("{}"), frame.substr(0, frame.size() - 1), changed}) {
        EXPECT_THROW(base::decompressed(damaged), base::Refusal);
    }
}

TEST(Compression, takesNoMemoryForASizeThatTheBytesCannotHold)
{
    // A header alone, for a content of 2^62 bytes (RFC 8878, section 3.1.1.1).
    const std::string header("\x28\xB5\x2F\xFD\xE0\0\0\0\0\0\0\0\x40", 13);
    EXPECT_THROW(base::decompressed(header), base::Refusal);
}

}  // namespace
}  // namespace quillmere::test
