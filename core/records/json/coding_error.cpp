#include <quillmere/records/json/coding_error.hpp>

#include <utility>

namespace quillmere {

CodingError::CodingError(std::string explanation) : explanation_(std::move(explanation)) { rebuildMessage(); }

void CodingError::prependKey(std::string_view key)
{
    // An index follows its key directly: sessions[2].
    const bool separated = !path_.empty() && path_.front() != '[';
    path_.insert(0, separated ? std::string(key) + '.' : std::string(key));
    rebuildMessage();
}

void CodingError::prependIndex(std::size_t index)
{
    path_.insert(0, '[' + std::to_string(index) + (path_.empty() || path_.front() == '[' ? "]" : "]."));
    rebuildMessage();
}

void CodingError::rebuildMessage() { message_ = path_.empty() ? explanation_ : path_ + ": " + explanation_; }

DecodingError::DecodingError(std::string expected, std::string found)
    : CodingError("expected " + expected + ", found " + found),
      expected_(std::move(expected)),
      found_(std::move(found))
{
}

EncodingError::EncodingError(std::string reason)
    : CodingError("cannot be written: " + reason), reason_(std::move(reason))
{
}

}  // namespace quillmere
