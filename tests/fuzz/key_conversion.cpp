// Keys between camelCase and snake_case: any text goes in, whatever a file calls its members.
#include <quillmere/records/json/key_conversion.hpp>

#include <algorithm>
#include <string>

#include "fuzz/fuzz_target.hpp"

namespace quillmere::test {
namespace {

std::string snakeCased(std::string_view key)
{
    std::string converted;
    json::convertToSnakeCase(key, [&](char character) { converted += character; });
    return converted;
}

/// Whether a key is one that a record may have: words of letters and digits, each but the first with
/// one capital in front.
bool isPlainKey(std::string_view key)
{
    for (std::size_t index = 0; index < key.size(); ++index) {
        const bool isCapital = json::isUpper(key[index]);
        const bool mayStand = isCapital || json::isLower(key[index]) || json::isDigit(key[index]);
        if (!mayStand || (isCapital && (index == 0 || json::isUpper(key[index - 1])))) {
            return false;
        }
    }
    return true;
}

std::size_t count(std::string_view text, char character)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), character));
}

void convert(std::string_view key)
{
    const std::string camel = json::camelCase(key);
    const std::string snake = snakeCased(key);
    require(json::camelCase(camel) == camel, "camelCase stays as it is");
    require(snakeCased(snake) == snake, "snake_case stays as it is");
    require(camel.size() == key.size() - (count(key, '_') - count(camel, '_')), "only underscores are cut");
    require(snake.size() == key.size() + (count(snake, '_') - count(key, '_')), "only underscores are added");
    require(!isPlainKey(key) || json::camelCase(snake) == key, "a key of a record survives");
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::convert(quillmere::test::textOf(data, size));
    return 0;
}
