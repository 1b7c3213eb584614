// How a finished temporary file takes the place of a file.
#pragma once

#include <filesystem>
#include <functional>

namespace quillmere {

/// Moves a completely written temporary file over the destination, in one step as seen by readers;
/// throws `std::system_error` when it cannot. `StateStore` offers two.
using ReplaceItem =
    std::function<void(const std::filesystem::path& temporaryURL, const std::filesystem::path& destination)>;

}  // namespace quillmere
