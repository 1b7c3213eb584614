// A block to begin planning with, as the person wants it.
#pragma once

#include "config/values.hpp"

#include <quillmere/records/block.hpp>
#include <quillmere/records/instant.hpp>

#include <string_view>

namespace quillmere::config {

/// Block::default_ with the configured lengths and number of sessions.
Block newBlock(const Values& values, Instant now);

/// The same with the fields of a template.
Block newBlock(const Values& values, const Template& fields, Instant now);

/// The template of this name; null when there is none. Points into `values`.
const Template* templateNamed(const Values& values, std::string_view name);

}  // namespace quillmere::config
