#include "base/json.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/records/json/date_text.hpp>

namespace quillmere::base {
namespace {

template <class AnyJson>
std::string lineOf(const AnyJson& json)
{
    return json.dump(-1, ' ', true, AnyJson::error_handler_t::replace);
}

}  // namespace

std::string jsonLine(const Json& json) { return lineOf(json); }

std::string sortedJsonLine(const SortedJson& json) { return lineOf(json); }

Json parsedJson(std::string_view text) { return Json::parse(text); }

Json instantJson(Instant instant) { return json::dateText(instant); }

}  // namespace quillmere::base
