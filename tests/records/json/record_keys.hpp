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
    std::string path;  ///< as errors name it; empty for the whole document
    std::vector<Key> keys;

    nlohmann::json::json_pointer pointer() const;
    std::string pathOf(std::string_view key) const;
};

/// A document that has every key of the objects at `places`.
struct Document {
    std::string name;
    nlohmann::json json;
    std::vector<Place> places;
    /// Reads a text as the document's record and writes that again.
    std::function<nlohmann::json(const std::string&)> readAndWrite;
};

/// State, agent's summary, widget's summary and timer.
const std::vector<Document>& documents();

/// What an error says that it expected, for a value of a kind.
std::string expectedOf(Kind kind);

/// Values of all types, and texts and numbers that only look right, that a key of a kind does not take.
std::vector<nlohmann::json> wrongValues(Kind kind);

}  // namespace quillmere::test
