// What a file system may leave after the power is cut.
//
// The failure model. fsync of a file makes all that was written to it before lasting; fsync of a directory
// makes all that was done to its entries before lasting. Nothing else lasts for certain. Of what was written
// since, each write by itself is whole, lost, all zeros, or cut at a boundary of 512 bytes, with zeros or
// with nothing behind the cut. Of what was done to entries since, each creation, rename and removal by itself
// has happened or not, wholly: a rename never leaves a name without a file. The directory was there before
// and stays: that the name of a new one is synced is shown with the system calls. What lasts is never
// damaged, and no block holds what another file held once.
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "proofs/system_calls/system_calls.hpp"

namespace quillmere::test {

/// A directory as it may be found: the bytes of each file by its name. Temporary files, which nobody reads,
/// count as one a destination, and as empty.
using DirectoryImage = std::map<std::string, std::string>;

class FileSystemModel {
public:
    static constexpr std::size_t sectorSize = 512;

    /// A directory whose files last.
    FileSystemModel(std::filesystem::path directory, const DirectoryImage& lasting);

    /// Does what a call did; false when that is nothing that the model knows of.
    bool apply(const CallRecord& record);

    /// Every directory that may be found if the power is cut now.
    std::set<DirectoryImage> imagesAfterCut() const;

private:
    struct Write {
        std::uint64_t offset;
        std::string data;
    };
    /// What a name leads to.
    struct File {
        std::vector<Write> lasting;
        std::vector<Write> unsynced;
    };
    struct EntryChange {
        std::string removed;  ///< a name, or none
        std::string set;      ///< a name, or none
        std::size_t file;     ///< that it leads to then
    };
    using Entries = std::map<std::string, std::size_t>;

    static void change(Entries& entries, const EntryChange& change);
    static std::set<std::string> contentsOf(const File& file);
    std::set<Entries> entriesAfterCut() const;
    void addImages(const Entries& entries, std::set<DirectoryImage>& images) const;

    std::filesystem::path directory_;
    std::vector<File> files_;
    Entries lasting_;
    Entries current_;  ///< as processes see them
    std::vector<EntryChange> unsynced_;
};

}  // namespace quillmere::test
