#include "base/json.hpp"

#include "base/record_json.hpp"

#include <quillmere/widget/widget_snapshot.hpp>

namespace quillmere::base {

std::string jsonLine(const Json& json) { return json.dump(-1, ' ', true, Json::error_handler_t::replace); }

Json parsedJson(std::string_view text) { return Json::parse(text); }

Json instantJson(Instant instant)
{
    // Instants have one text form, which stands in every record that has one.
    return recordJson(WidgetSnapshot::empty(instant)).at("updated_at");
}

}  // namespace quillmere::base
