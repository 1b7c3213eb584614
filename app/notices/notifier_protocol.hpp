// The messages between `quillmere watch` and `quillmere-notifier` as bytes: one JSON object per line, over
// one socket that is the notifier's standard input and output. Both programs are always of the same version.
#pragma once

#include "notices/notifier_message.hpp"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>

namespace quillmere::notices {

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(NoticeRequest, replaces, heading, body, urgency, actions, sound)

// An unknown kind is read as the first row.
NLOHMANN_JSON_SERIALIZE_ENUM(NotifierMessageKind, {{NotifierMessageKind::ended, "ended"},
                                                   {NotifierMessageKind::ready, "ready"},
                                                   {NotifierMessageKind::given, "given"},
                                                   {NotifierMessageKind::failed, "failed"},
                                                   {NotifierMessageKind::unanswered, "unanswered"},
                                                   {NotifierMessageKind::action, "action"},
                                                   {NotifierMessageKind::closed, "closed"}})

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(NotifierMessage, kind, number, text, error)

/// A record as one line.
template <class Record>
std::string protocolLine(const Record& record)
{
    return nlohmann::json(record).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + '\n';
}

/// Removes the first complete line from `received` and returns its record; absent while no line is complete.
/// Throws nlohmann::json::exception for a line that is no such record.
template <class Record>
std::optional<Record> takeRecord(std::string& received)
{
    const std::size_t end = received.find('\n');
    if (end == std::string::npos) {
        return std::nullopt;
    }
    const std::string line = received.substr(0, end);
    received.erase(0, end + 1);
    return nlohmann::json::parse(line).get<Record>();
}

}  // namespace quillmere::notices
