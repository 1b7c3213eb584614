#include "base/json.hpp"

#include <quillmere/records/json/date_text.hpp>

#include <nlohmann/json.hpp>

namespace quillmere::base {

std::string jsonLine(const Json& json) { return json.dump(-1, ' ', true, Json::error_handler_t::replace); }

Json parsedJson(std::string_view text) { return Json::parse(text); }

Json instantJson(Instant instant) { return json::dateText(instant); }

}  // namespace quillmere::base
