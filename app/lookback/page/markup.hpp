// Elements of HTML that are also well-formed XML.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace quillmere::lookback {

/// Any text, sanitized, as content or as the value of an attribute.
std::string escaped(std::string_view text);

struct Attribute {
    std::string_view name;
    std::string value;  ///< not yet escaped
};

/// "<name attribute="value">content</name>"; the content is markup.
std::string element(std::string_view name, std::initializer_list<Attribute> attributes,
                    std::string_view content = {});

/// With one decimal: "12.3".
std::string coordinate(double value);

}  // namespace quillmere::lookback
