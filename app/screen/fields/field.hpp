// One thing to fill in.
#pragma once

#include "screen/canvas.hpp"
#include "screen/fields/effect.hpp"
#include "screen/key.hpp"

#include <nlohmann/json.hpp>

#include <string>
#include <utility>

namespace quillmere::screen {

class Field {
public:
    Field(std::string id, std::string question) : id_(std::move(id)), question_(std::move(question)) {}
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;
    virtual ~Field() = default;

    /// The name under which a draft keeps it, once in a form.
    const std::string& id() const { return id_; }
    /// What the person is asked.
    const std::string& question() const { return question_; }

    /// Takes a key, if it is for this field, which is `columns` wide.
    virtual Effect take(const Key& key, std::size_t columns) = 0;

    /// The rows that it takes.
    virtual std::size_t rows(std::size_t columns) const = 0;

    /// Shows it in an area of that many rows; with the cursor when it is the one being filled in.
    virtual void draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const = 0;

    /// What has been filled in, as a draft keeps it.
    virtual nlohmann::json value() const = 0;
    /// Takes what a draft has kept; leaves alone what is no value of such a field.
    virtual void setValue(const nlohmann::json& value) = 0;

private:
    std::string id_;
    std::string question_;
};

}  // namespace quillmere::screen
