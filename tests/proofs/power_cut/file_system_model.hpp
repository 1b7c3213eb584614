// A model of the possible file system contents after a power cut.
//
// The failure model: fsync of a file makes all earlier writes to it durable; fsync of a directory makes all
// earlier changes of its entries durable. Nothing else is certainly durable. Each later write is,
// independently of the others, complete, lost, all zeros, or cut at a boundary of 512 bytes, followed by
// zeros or by nothing. Each later creation, rename and removal has, independently of the others, happened
// completely or not at all: a rename never leaves a name without a file. The directory itself exists before
// and remains; the proof of the system calls shows that the name of a new directory is synced. Durable data
// is never damaged, and no block contains old data of another file.
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

/// The possible content of a directory: the bytes of each file by name. Temporary files, which nobody reads,
/// are counted once per destination and as empty.
using DirectoryImage = std::map<std::string, std::string>;

class FileSystemModel {
public:
    static constexpr std::size_t sectorSize = 512;

    /// A directory whose files are durable.
    FileSystemModel(std::filesystem::path directory, const DirectoryImage& lasting);

    /// Applies a recorded call; returns false for a call that the model does not know.
    bool apply(const CallRecord& record);

    /// Every possible directory if the power is cut now.
    std::set<DirectoryImage> imagesAfterCut() const;

private:
    struct Write {
        std::uint64_t offset;
        std::string data;
    };
    /// The content of one file.
    struct File {
        std::vector<Write> lasting;
        std::vector<Write> unsynced;
    };
    struct EntryChange {
        std::string removed;  ///< the name removed; empty for none
        std::string set;      ///< the name set; empty for none
        std::size_t file;     ///< the index of the file that the set name refers to
    };
    using Entries = std::map<std::string, std::size_t>;

    static void change(Entries& entries, const EntryChange& change);
    static std::set<std::string> contentsOf(const File& file);
    std::set<Entries> entriesAfterCut() const;
    void addImages(const Entries& entries, std::set<DirectoryImage>& images) const;

    std::filesystem::path directory_;
    std::vector<File> files_;
    Entries lasting_;
    Entries current_;  ///< the directory as processes see it
    std::vector<EntryChange> unsynced_;
};

}  // namespace quillmere::test
