// A question raised for the person by an outside agent.
#pragma once

#include <quillmere/records/identifier.hpp>
#include <quillmere/records/instant.hpp>

#include <optional>
#include <string>

namespace quillmere {

struct AgentQuestion {
    Identifier id;
    std::string question;
    Instant createdAt;
    std::optional<std::string> answer;
    std::optional<Instant> answeredAt;  ///< the question is open exactly while this is absent

    friend bool operator==(const AgentQuestion&, const AgentQuestion&) = default;
};

}  // namespace quillmere
