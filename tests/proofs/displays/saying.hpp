// What a display says, as far as displays have it in common.
#pragma once

#include "bar/bar_content.hpp"
#include "work/situation_view.hpp"

#include <quillmere/store/agent_snapshot.hpp>

#include <iosfwd>
#include <optional>
#include <string>

namespace quillmere::test {

/// A member is absent where the display does not say it; empty where it says that there is none.
struct Saying {
    std::optional<std::string> phase;  ///< its raw value
    std::optional<std::string> title;
    std::optional<std::string> heading;
    std::optional<std::string> remaining;  ///< seconds
    std::optional<std::string> share;      ///< that is done, in hundredths
    std::optional<std::string> over;       ///< since when: "14:55", "Thu 14:55"
    std::optional<std::string> paused;     ///< "paused"
};

/// Lets a failed test name it.
void PrintTo(const Saying& saying, std::ostream* stream);

/// Whether both say the same where both say something.
bool agree(const Saying& one, const Saying& other);

/// The measure of all displays: everything is said.
Saying sayingOf(const work::SituationView& view, Instant now);

/// Of the printed status.
Saying sayingOfStatus(const workspace::Situation& situation);

/// Of its JSON form.
Saying sayingOfStatusJson(const workspace::Situation& situation);

/// Of the tooltip, the classes and the facts for programs.
Saying sayingOf(const bar::BarContent& content);

/// Of the summary that an agent gets when it asks.
Saying sayingOfAgent(const workspace::Situation& situation);

}  // namespace quillmere::test
