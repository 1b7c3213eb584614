// Well-formed HTML that is XML too, one element at a time.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace quillmere::lookback {

/// Any text, sanitized, as content or as the value of an attribute.
std::string escaped(std::string_view text);

struct Attribute {
    std::string_view name;
    std::string value;  ///< as a text; it is escaped when it is written
};

/// "<name attribute="value">content</name>"; the content is markup already.
std::string element(std::string_view name, std::initializer_list<Attribute> attributes,
                    std::string_view content = {});

/// A coordinate with one digit behind the point.
std::string coordinate(double value);

}  // namespace quillmere::lookback
