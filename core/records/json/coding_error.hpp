// Errors of reading and writing JSON.
#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmere {

/// An error at one place in a document. The path of the place has the keys of the file, for example
/// `current_block.sessions[2].plan.energy`; it is empty for the document as a whole.
class CodingError : public std::exception {
public:
    const std::string& path() const noexcept { return path_; }
    const char* what() const noexcept override { return message_.c_str(); }

    /// Adds a key, or an index, in front of the path. Called while the error leaves nested values.
    void prependKey(std::string_view key);
    void prependIndex(std::size_t index);

protected:
    explicit CodingError(std::string explanation);

private:
    void rebuildMessage();

    std::string path_;
    std::string explanation_;
    std::string message_;
};

/// A text is not well-formed JSON, or does not contain the expected record.
class DecodingError : public CodingError {
public:
    DecodingError(std::string expected, std::string found);

    const std::string& expected() const noexcept { return expected_; }
    const std::string& found() const noexcept { return found_; }

    /// The byte of the text at which the value begins, or the object that lacks a key. Absent when the text
    /// is not well-formed.
    std::optional<std::size_t> offset() const noexcept { return offset_; }
    void setOffset(std::size_t offset) noexcept { offset_ = offset; }

private:
    std::string expected_;
    std::string found_;
    std::optional<std::size_t> offset_;
};

/// A value cannot be written as JSON: a duration or an instant that is not finite, or an instant outside the
/// years 0000 to 9999.
class EncodingError : public CodingError {
public:
    explicit EncodingError(std::string reason);

    const std::string& reason() const noexcept { return reason_; }

private:
    std::string reason_;
};

}  // namespace quillmere
