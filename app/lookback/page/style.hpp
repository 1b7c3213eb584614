// The style sheet of the page.
#pragma once

#include <string>

namespace quillmere::lookback {

/// Contains no "<" and no "&", so that it needs no escaping in XML.
std::string pageStyle();

}  // namespace quillmere::lookback
