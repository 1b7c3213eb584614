// Text in XML, HTML and the markup of Pango.
#pragma once

#include <string>
#include <string_view>

namespace quillmere::base {

/// Well-formed UTF-8 as content or as the value of an attribute. U+FFFE and U+FFFF, which XML does not allow,
/// become U+FFFD. The caller replaces control characters (`sanitized`).
std::string escapedForXml(std::string_view text);

}  // namespace quillmere::base
