// Records as JSON values.
#pragma once

#include "base/json.hpp"

#include <quillmere/records/json/json_encoder.hpp>

#include <nlohmann/json.hpp>

namespace quillmere::base {

/// A record as in the files.
template <class Record>
Json recordJson(const Record& record)
{
    return parsedJson(JsonEncoder(JsonLayout::compact).encode(record).view());
}

}  // namespace quillmere::base
