// A question that an outside agent asks the person.
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
    std::optional<Instant> answeredAt;

    /// Whether the question waits for its answer: it has no `answeredAt`.
    bool isOpen() const { return !answeredAt; }

    friend bool operator==(const AgentQuestion&, const AgentQuestion&) = default;
};

}  // namespace quillmere
