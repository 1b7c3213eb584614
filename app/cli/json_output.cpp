#include "cli/json_output.hpp"

#include "work/event_text.hpp"
#include "workspace/catching_up.hpp"

#include <nlohmann/json.hpp>

#include <ostream>

namespace quillmere::cli {

void printJson(std::ostream& out, const base::Json& json)
{
    constexpr int indent = 2;
    constexpr bool asciiOnly = true;
    out << json.dump(indent, ' ', asciiOnly, base::Json::error_handler_t::replace) << '\n';
}

base::Json eventsJson(const std::vector<workspace::Event>& events)
{
    base::Json list = base::Json::array();
    for (const workspace::Event& event : events) {
        list.push_back(
            {{"event", work::eventName(work::kindOf(event))}, {"at", base::instantJson(event.at)}});
    }
    return list;
}

}  // namespace quillmere::cli
