// What goes wrong between records and JSON text.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmere {

/// Common to both directions: an error at one place of a document. The place is a path of keys as
/// they stand in the file, for example `current_block.sessions[2].plan.energy`; empty for the
/// document as a whole.
class CodingError : public std::exception {
public:
    const std::string& path() const noexcept { return path_; }
    const char* what() const noexcept override { return message_.c_str(); }

    /// Puts a key, or an index, in front of the path: called on the way out of nested values.
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

/// A text is not well-formed JSON, or does not hold the record that was asked for.
class DecodingError : public CodingError {
public:
    DecodingError(std::string expected, std::string found);

    const std::string& expected() const noexcept { return expected_; }
    const std::string& found() const noexcept { return found_; }

private:
    std::string expected_;
    std::string found_;
};

/// A value has no JSON form: a duration or an instant that is not finite, or an instant outside the
/// years 0000 to 9999.
class EncodingError : public CodingError {
public:
    explicit EncodingError(std::string reason);

    const std::string& reason() const noexcept { return reason_; }

private:
    std::string reason_;
};

}  // namespace quillmere
