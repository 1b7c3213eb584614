// Who tells what.
#pragma once

#include "notices/trouble.hpp"

#include <filesystem>
#include <iosfwd>
#include <set>
#include <string>
#include <vector>

namespace quillmere::app {

/// Claims on events, one empty file each, created exclusively (open(2), O_EXCL): of all programs that see an
/// event, the one that made the file acts on it. Where files cannot be made, which is said once, the claims
/// hold in this process alone.
class Claims {
public:
    /// In `directory`, which is made when it is needed. Empty: there is no place for files.
    Claims(std::filesystem::path directory, std::ostream& messages);

    /// Whether the event of this key is the caller's to act on: true once, for one of all who ask.
    bool take(const std::string& key);

    /// Gives up a claim that was taken and not acted on.
    void giveBack(const std::string& key);

    /// Removes what nobody will ask for again: claims of forty days ago, by the clock of the file system.
    /// Those on `standing` events stay, however old.
    void removeOld(const std::vector<std::string>& standing) const;

private:
    std::filesystem::path directory_;
    Trouble trouble_;
    std::set<std::string> own_;
};

}  // namespace quillmere::app
