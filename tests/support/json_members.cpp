#include "support/json_members.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

/// The position of a member: its key with quotes starts at `begin`, its value is from `value` to `end`.
struct Place {
    std::size_t begin;
    std::size_t value;
    std::size_t end;
};

/// The position after a JSON string that starts at `index`.
std::size_t behindString(std::string_view text, std::size_t index)
{
    for (++index; text[index] != '"'; ++index) {
        index += text[index] == '\\' ? 1 : 0;
    }
    return index + 1;
}

/// The position after the value that starts at `index`.
std::size_t behindValue(std::string_view text, std::size_t index)
{
    int depth = 0;
    while (index < text.size()) {
        const char character = text[index];
        const bool closes = character == '}' || character == ']';
        if (depth == 0 && (character == ',' || closes)) {
            break;
        }
        depth += character == '{' || character == '[' ? 1 : 0;
        depth -= closes ? 1 : 0;
        index = character == '"' ? behindString(text, index) : index + 1;
    }
    return index;
}

Place find(std::string_view key, std::string_view object)
{
    std::size_t index = 1;
    while (index < object.size() && object[index] == '"') {
        const std::size_t keyEnd = behindString(object, index);
        const std::size_t end = behindValue(object, keyEnd + 1);
        if (object.substr(index + 1, keyEnd - index - 2) == key) {
            return {.begin = index, .value = keyEnd + 1, .end = end};
        }
        index = end + 1;
    }
    ADD_FAILURE() << "no member " << key << " in " << object;
    return {.begin = 1, .value = 1, .end = 1};
}

}  // namespace

std::string without(std::string_view key, std::string_view object)
{
    const Place place = find(key, object);
    const bool isLast = object[place.end] == '}';
    const bool isFirst = place.begin == 1;
    // Removes one comma with the member: the one after it, or the one before it for the last member.
    const std::size_t begin = isLast && !isFirst ? place.begin - 1 : place.begin;
    const std::size_t end = isLast ? place.end : place.end + 1;
    return std::string(object.substr(0, begin)).append(object.substr(end));
}

std::string with(std::string_view key, std::string_view value, std::string_view object)
{
    const Place place = find(key, object);
    return std::string(object.substr(0, place.value)).append(value).append(object.substr(place.end));
}

}  // namespace quillmere::test
