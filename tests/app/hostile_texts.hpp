// Texts that do harm in a bar that interprets them.
#pragma once

#include <quillmere/widget/widget_snapshot.hpp>

#include <string>
#include <vector>

namespace quillmere::test {

extern const std::vector<std::string> hostileTexts;

/// A summary of a session, ten minutes of which are over at `moment` + 600, with the text in every place
/// that has one.
WidgetSnapshot summaryWith(const std::string& text);

}  // namespace quillmere::test
