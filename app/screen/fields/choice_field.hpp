// One of several.
#pragma once

#include "screen/fields/field.hpp"

#include <optional>
#include <vector>

namespace quillmere::screen {

struct Option {
    std::string key;  ///< as a draft keeps it
    std::string text;
};

/// Its value is the key of what is chosen, empty when nothing is. Arrows choose, and so does the first
/// character of an option.
class ChoiceField final : public Field {
public:
    /// Side by side or one below the other.
    enum class Direction { across, down };

    ChoiceField(std::string id, std::string question, std::vector<Option> options,
                const std::string& chosenKey, Direction direction = Direction::across);

    Effect take(const Key& key, std::size_t columns) override;
    std::size_t rows(std::size_t columns) const override;
    void draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const override;
    nlohmann::json value() const override { return chosen_ ? options_[*chosen_].key : std::string(); }
    void setValue(const nlohmann::json& value) override;

private:
    void choose(const std::string& key);
    void chooseByLetter(char letter);
    bool step(bool forward);

    std::vector<Option> options_;
    std::optional<std::size_t> chosen_;
    Direction direction_;
};

}  // namespace quillmere::screen
