// Keys by their names, and the sentences about names that are none.
#pragma once

#include "config/keys.hpp"

#include <string>
#include <string_view>

namespace quillmere::config {

/// The key of this name: "block.focus"; null when there is none.
const Key<Values>* keyNamed(std::string_view name);

/// The key of a template: "why"; null when there is none.
const Key<Template>* templateKeyNamed(std::string_view name);

/// Whether some key stands in the table: "block".
bool isTable(std::string_view name);

/// "block.fokus is no key. The keys of [block] are focus, break, cycles." `table` is the first part of the
/// name.
std::string unknownKeyText(const std::string& name, const std::string& table);

/// "template.report.when is no key. The keys of a template are outcome, why, …"
std::string unknownTemplateKeyText(const std::string& name);

}  // namespace quillmere::config
