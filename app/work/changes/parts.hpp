// The parts of changesBetween; each adds the changes of its own.
#pragma once

#include "work/changes/change.hpp"
#include "work/fields/fields.hpp"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

namespace quillmere::work {

/// The end of the break of `before`. The break of `after` is up to `addBreak`.
void addEndOfBreak(Changes& changes, const QuillmereState& before, const QuillmereState& after);

/// The current blocks and the history, with their sessions.
void addBlocks(Changes& changes, const QuillmereState& before, const QuillmereState& after);

/// The sessions of one block.
void addSessions(Changes& changes, const std::vector<WorkSession>& before,
                 const std::vector<WorkSession>& after);

/// The break of `after`.
void addBreak(Changes& changes, const QuillmereState& before, const QuillmereState& after);

void addQuestions(Changes& changes, const std::vector<AgentQuestion>& before,
                  const std::vector<AgentQuestion>& after);

/// The first outcome that has a title; empty without one.
std::string nameOf(const Block& block);

inline bool hasOneOf(const Changes& changes, std::initializer_list<ChangeKind> kinds)
{
    return std::any_of(changes.begin(), changes.end(), [kinds](const Change& change) {
        return std::find(kinds.begin(), kinds.end(), change.kind) != kinds.end();
    });
}

/// The record of this list with the identifier; null when there is none.
template <class Record>
const Record* recordIn(const std::vector<Record>& records, const Identifier& id)
{
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const Record& record) { return record.id == id; });
    return found == records.end() ? nullptr : &*found;
}

template <class Record>
using ById = std::unordered_map<Identifier, const Record*>;

/// For lists that may be long. Of several records with one identifier, the first.
template <class Record>
ById<Record> byId(const std::vector<Record>& records)
{
    ById<Record> found;
    for (const Record& record : records) {
        found.emplace(record.id, &record);
    }
    return found;
}

/// The names of the fields that differ: "why, focus". A planned start is left out.
template <class Record>
std::string differingFields(const Record& before, const Record& after,
                            std::span<const RecordField<Record>> fields)
{
    std::string names;
    for (const RecordField<Record>& field : fields) {
        const bool differs =
            std::visit([&](auto member) { return before.*member != after.*member; }, field.member);
        if (differs && !std::holds_alternative<std::optional<Instant> Record::*>(field.member)) {
            names += (names.empty() ? "" : ", ") + std::string(field.prompt.name);
        }
    }
    return names;
}

}  // namespace quillmere::work
