// The text of a file, read piece by piece.
#pragma once

#include "base/system/descriptor.hpp"

#include <time.h>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace quillmere::statefile {

/// An open regular file. Reading does not move it.
class OpenFile {
public:
    /// Throws `std::system_error`, also for what is no regular file.
    explicit OpenFile(const std::filesystem::path& path);

    int descriptor() const { return descriptor_.get(); }
    std::size_t size() const { return size_; }  ///< when it was opened
    /// Whether it was written to since.
    bool hasChanged() const;

    /// As many bytes as there are from a place on, `count` at most (pread(2)).
    std::size_t read(char* bytes, std::size_t count, std::size_t offset) const;

    /// All bytes from `begin` to the end of the file.
    std::string textFrom(std::size_t begin) const;

private:
    base::Descriptor descriptor_;
    std::size_t size_;
    timespec modified_;
};

/// A part of the text that moves forward through the file.
class Window {
public:
    explicit Window(const OpenFile& file) : file_(file) {}

    /// What is in memory.
    std::string_view text() const { return std::string_view(buffer_).substr(begin_, end_ - begin_); }
    /// Where the text begins in the file.
    std::size_t offset() const { return fileOffset_ - (end_ - begin_); }

    /// Leaves out the first bytes of the text.
    void skip(std::size_t count) { begin_ += count; }

    /// Reads on, so that the text becomes longer. False at the end of the file.
    bool extend();

private:
    const OpenFile& file_;
    std::string buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::size_t fileOffset_ = 0;  ///< of the byte after the text
};

}  // namespace quillmere::statefile
