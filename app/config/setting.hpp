// From a value of TOML to the member of a record and back: the only reader of each type of value.
#pragma once

#include "config/keys.hpp"
#include "config/toml_text.hpp"

#include <string>

namespace quillmere::config {

/// Sets the member to the value; returns false, and changes nothing, when the key does not take it.
template <class Record>
bool set(Record& record, const Key<Record>& key, const TomlValue& value);

/// The values that the key takes, in words: "a duration from 1 second to 366 days, such as 25m or 1h30m".
template <class Record>
std::string accepted(const Key<Record>& key);

/// The TOML value that would set the member to its present value; empty when the member is absent or empty.
template <class Record>
std::string written(const Record& record, const Key<Record>& key);

}  // namespace quillmere::config
