// The refusal of an answer.
#pragma once

#include "base/refusal.hpp"

#include <string>
#include <utility>

namespace quillmere::work {

/// An answer that cannot be used: which field it was given to, and a sentence for the person.
class Unacceptable : public base::Refusal {
public:
    Unacceptable(std::string field, const std::string& message)
        : Refusal(Kind::invalidRequest, message), field_(std::move(field))
    {
    }

    /// The name of the field, with the prefix of its form.
    const std::string& field() const noexcept { return field_; }

private:
    std::string field_;
};

}  // namespace quillmere::work
