// The keys of actions.
#pragma once

#include "screen/keys/key.hpp"
#include "work/actions.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace quillmere::screen {

/// The name of the action's key, for hints: "e", "space".
std::string keyName(work::ActionId action);

/// The key of a hint: "space", "^S", "Tab". Absent where a hint names several keys.
std::optional<Key> keyNamed(std::string_view name);

/// Whether the key is shown beside the work, not only on the page of all keys.
bool isUsual(work::ActionId action);

/// The action of the key that is possible now; null: none.
const work::Action* actionOn(const Key& key, const workspace::Situation& situation);

}  // namespace quillmere::screen
