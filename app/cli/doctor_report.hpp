// The results of an examination as a page and as JSON.
#pragma once

#include "base/json.hpp"
#include "base/text/style.hpp"
#include "doctor/check.hpp"

#include <cstddef>
#include <iosfwd>
#include <vector>

namespace quillmere::cli {

base::Json doctorJson(const std::vector<doctor::Check>& checks);

/// A line on the whole, then every check with its verdict, finding and remedy, in lines of at most `width`
/// columns. A command line of a remedy has a line of its own and is never broken, so that it can be copied.
void printDoctor(std::ostream& out, const std::vector<doctor::Check>& checks, std::size_t width,
                 const base::Style& style);

}  // namespace quillmere::cli
