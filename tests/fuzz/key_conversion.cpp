// Keys between camelCase and snake_case: any text is accepted, because a file may contain any key.
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

/// Whether a key is a possible key of a record: words of letters and digits, each but the first starting with
/// one capital.
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

/// The words between the underscores joined: the first unchanged, each other one with a capital and then
/// small letters.
std::string joinedWords(std::string_view words)
{
    std::string joined;
    bool isFirst = true;
    while (true) {
        const std::string_view word = words.substr(0, words.find('_'));
        for (std::size_t index = 0; index < word.size(); ++index) {
            const char character = word[index];
            joined += isFirst ? character : index == 0 ? json::toUpper(character) : json::toLower(character);
        }
        isFirst = false;
        if (word.size() == words.size()) {
            return joined;
        }
        words.remove_prefix(word.size() + 1);
    }
}

/// The camelCase form by its definition: keeps underscores at both ends, and joins the words between them.
std::string expectedCamelCase(std::string_view key)
{
    const std::size_t first = std::min(key.find_first_not_of('_'), key.size());
    const std::size_t end = first == key.size() ? first : key.find_last_not_of('_') + 1;
    return std::string(key.substr(0, first)) + joinedWords(key.substr(first, end - first)) +
           std::string(key.substr(end));
}

/// The part that no conversion may change: the characters without case and underscores.
std::string essence(std::string_view key)
{
    std::string rest;
    for (const char character : key) {
        rest += character == '_' ? "" : std::string(1, json::toLower(character));
    }
    return rest;
}

void convert(std::string_view key)
{
    const std::string camel = json::camelCase(key);
    const std::string snake = snakeCased(key);
    require(camel == expectedCamelCase(key), "camelCase joins the words");
    require(json::camelCase(camel) == camel, "camelCase stays as it is");
    require(std::none_of(snake.begin(), snake.end(), json::isUpper), "snake_case has no capitals");
    require(snakeCased(snake) == snake, "snake_case stays as it is");
    require(essence(camel) == essence(key) && essence(snake) == essence(key), "nothing else is changed");
    require(!isPlainKey(key) || json::camelCase(snake) == key, "a key of a record survives");
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::convert(quillmere::test::textOf(data, size));
    return 0;
}
