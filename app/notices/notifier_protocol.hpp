// What `quillmere watch` and `quillmere-notifier` say to each other: one JSON object a line, over one socket
// that is the notifier's standard input and output. Both are always of the same version. Known to both, and
// to nothing else.
#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::notices {

/// To the notifier: give this notice. One at a time; it answers with `given`, `failed` or `unanswered`.
struct NoticeRequest {
    std::uint32_t replaces;  ///< the number of the notice to take the place of; 0: none
    std::string heading;
    std::string body;                  ///< without markup
    std::uint8_t urgency;              ///< 0 low, 1 normal, 2 critical (Desktop Notifications)
    std::vector<std::string> actions;  ///< key and label in turn
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(NoticeRequest, replaces, heading, body, urgency, actions)

enum class NotifierWordKind {
    ready,       ///< the service answers, by this name; the first word
    given,       ///< the notice has this number
    failed,      ///< the notice was not given, for this reason
    unanswered,  ///< the service was asked for the notice and does not say what became of it
    action,      ///< the person chose the action of this key, on the notice of this number
    closed,      ///< the notice of this number is gone
    ended,       ///< the notifier is, for this reason, or because the service is gone; the last word
};
NLOHMANN_JSON_SERIALIZE_ENUM(NotifierWordKind, {{NotifierWordKind::ended, "ended"},
                                                {NotifierWordKind::ready, "ready"},
                                                {NotifierWordKind::given, "given"},
                                                {NotifierWordKind::failed, "failed"},
                                                {NotifierWordKind::unanswered, "unanswered"},
                                                {NotifierWordKind::action, "action"},
                                                {NotifierWordKind::closed, "closed"}})

/// From the notifier.
struct NotifierWord {
    NotifierWordKind kind;
    std::uint32_t number = 0;  ///< of the notice, as the service counts them
    std::string text = {};     ///< a reason, a key, or a name that no other service on any bus ever has
    std::string error = {};    ///< what a reason is called on the bus, where texts may differ each time
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(NotifierWord, kind, number, text, error)

/// A record as one line.
template <class Record>
std::string protocolLine(const Record& record)
{
    return nlohmann::json(record).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + '\n';
}

/// The next whole record of what has arrived, taken out of it; absent while its line is not complete. Throws
/// nlohmann::json::exception for a line that is none.
template <class Record>
std::optional<Record> takeRecord(std::string& arrived)
{
    const std::size_t end = arrived.find('\n');
    if (end == std::string::npos) {
        return std::nullopt;
    }
    const std::string line = arrived.substr(0, end);
    arrived.erase(0, end + 1);
    return nlohmann::json::parse(line).get<Record>();
}

}  // namespace quillmere::notices
