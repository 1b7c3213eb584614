#include "workspace/loading.hpp"

#include "base/json.hpp"
#include "base/refusal.hpp"
#include "base/text/failure.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/store/file_manager.hpp>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace quillmere::workspace {
namespace {

/// Where a text stops being JSON. The library's parser does not tell; this one is slower and does.
std::optional<std::size_t> endOfWellFormedText(std::string_view text)
{
    try {
        [[maybe_unused]] const auto parsed = base::Json::parse(text);
        return std::nullopt;
    } catch (const base::Json::parse_error& error) {
        return error.byte > 0 ? error.byte - 1 : 0;
    }
}

/// "line 12, column 5", both from 1; a column is a character.
std::string placeText(std::string_view text, std::size_t offset)
{
    const std::string_view before = text.substr(0, offset);
    const std::string_view line = before.substr(before.rfind('\n') + 1);
    const auto isFirstByte = [](char byte) { return (byte & 0xC0) != 0x80; };
    return "line " + std::to_string(1 + std::count(before.begin(), before.end(), '\n')) + ", column " +
           std::to_string(1 + std::count_if(line.begin(), line.end(), isFirstByte));
}

/// ", line 12, column 5" for an error in a file; empty when the place cannot be found.
std::string placeOf(const DecodingError& error, const std::filesystem::path& file)
{
    try {
        const Bytes text = FileManager::standard().contents(file);
        const std::optional<std::size_t> offset =
            error.offset() ? error.offset() : endOfWellFormedText(text.view());
        return offset ? ", " + placeText(text.view(), *offset) : "";
    } catch (const std::system_error&) {
        return "";
    }
}

}  // namespace

QuillmereState load(const StateStore& states)
{
    try {
        return states.load();
    } catch (const DecodingError& error) {
        const std::filesystem::path& file = states.stateURL();
        throw base::Refusal(
            base::Refusal::Kind::unusableData,
            base::unusableStateText(file.string() + placeOf(error, file) + ": " + error.what()));
    }
}

}  // namespace quillmere::workspace
