#include "workspace/loading.hpp"

#include "base/json.hpp"
#include "base/refusal.hpp"
#include "base/text/failure.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/store/file_manager.hpp>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace quillmere::workspace {
namespace {

using Json = base::SortedJson;

/// Reads a text for the place of its error alone, and keeps none of its values.
class ErrorFinder final : public nlohmann::json_sax<Json> {
public:
    std::optional<std::size_t> offset;

    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(Json::number_integer_t) override { return true; }
    bool number_unsigned(Json::number_unsigned_t) override { return true; }
    bool number_float(Json::number_float_t, const Json::string_t&) override { return true; }
    bool string(Json::string_t&) override { return true; }
    bool binary(Json::binary_t&) override { return true; }
    bool start_object(std::size_t) override { return true; }
    bool key(Json::string_t&) override { return true; }
    bool end_object() override { return true; }
    bool start_array(std::size_t) override { return true; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t position, const std::string&, const Json::exception&) override
    {
        offset = position > 0 ? position - 1 : 0;
        return false;
    }
};

/// Where a text stops being JSON. The library's parser does not tell; this one is slower and does.
std::optional<std::size_t> endOfWellFormedText(std::string_view text)
{
    ErrorFinder finder;
    Json::sax_parse(text, &finder);
    return finder.offset;
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
    constexpr std::uintmax_t longest = 256'000'000;  // bytes; far longer than a state, and read once already
    try {
        if (std::filesystem::file_size(file) > longest) {
            return "";
        }
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
