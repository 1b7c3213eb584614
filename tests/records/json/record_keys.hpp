// Documents that have every key of every record, and the kind and presence of each key. The spelling of the
// keys is tested by the golden files.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::test {

enum class Kind {
    identifier,
    text,
    integer,
    duration,
    instant,
    boolean,
    workflowState,
    completion,
    timerKind,
    phase,
    route,
    record,
    list,
};

enum class Presence {
    required,
    optional,  ///< missing or null: absent
    supplied,  ///< missing or null: the reader supplies a value
};

struct Key {
    std::string_view name;
    Kind kind;
    Presence presence = Presence::required;
};

/// One object of a document.
struct Place {
    std::string path;  ///< the path in errors; empty for the whole document
    std::vector<Key> keys;

    nlohmann::json::json_pointer pointer() const;
    std::string pathOf(std::string_view key) const;
};

/// A document whose objects at `places` have every key.
struct Document {
    std::string name;
    nlohmann::json json;
    std::vector<Place> places;
    /// Reads a text as the record of the document and writes the record again.
    std::function<nlohmann::json(const std::string&)> readAndWrite;
};

/// The state, both summaries and the timer.
const std::vector<Document>& documents();

/// The expected value in the error for a key of this kind.
std::string expectedOf(Kind kind);

/// Values that a key of this kind refuses: of all other types, and texts and numbers that look similar.
std::vector<nlohmann::json> wrongValues(Kind kind);

}  // namespace quillmere::test
