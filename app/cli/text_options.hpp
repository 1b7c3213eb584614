// Options for the fields of a record.
#pragma once

#include "work/fields.hpp"

#include <CLI/CLI.hpp>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::cli {

/// Refuses bytes that are no text: they could not be kept as they are.
CLI::Validator wellFormedText();

/// Refuses what is no whole number of 64 bits, and has it read in decimal: 010 is ten.
CLI::Validator wholeNumber();

/// The options of a record's texts.
template <class Record, std::size_t count>
class TextOptions {
public:
    explicit TextOptions(const std::array<work::RecordText<Record>, count>& fields) : fields_(fields) {}

    void addTo(CLI::App& command, const std::string& prefix = "")
    {
        for (std::size_t index = 0; index < count; ++index) {
            command.add_option("--" + prefix + fields_[index].option, texts_[index], fields_[index].question)
                ->check(wellFormedText());
        }
    }

    bool anyGiven() const
    {
        return std::any_of(texts_.begin(), texts_.end(), [](const auto& text) { return text.has_value(); });
    }

    /// Sets the texts that were given.
    void applyTo(Record& record) const
    {
        for (std::size_t index = 0; index < count; ++index) {
            if (texts_[index]) {
                record.*fields_[index].member = *texts_[index];
            }
        }
    }

    /// Has `ask` ask for the texts that were not given; it takes the question and may return none.
    template <class Ask>
    void askForMissing(Ask ask)
    {
        for (std::size_t index = 0; index < count; ++index) {
            if (!texts_[index]) {
                texts_[index] = ask(fields_[index].question);
            }
        }
    }

private:
    const std::array<work::RecordText<Record>, count>& fields_;
    std::array<std::optional<std::string>, count> texts_;
};

/// The options of a session plan: its texts, its ratings, and the block's outcome that it works
/// towards, by number.
class PlanOptions {
public:
    void addTo(CLI::App& command, const std::string& prefix = "");

    bool anyGiven() const;

    /// Sets what was given in `plan`, but for an outcome that the block does not have.
    void applyTo(SessionPlan& plan, const std::optional<Block>& block) const;

    /// Throws ProgramError when the block has no outcome of the number that was given. For the end of an
    /// operation: what the engine refuses is to be said first.
    void requireOutcome(const std::optional<Block>& block) const;

    template <class Ask>
    void askForMissing(Ask ask)
    {
        texts_.askForMissing(ask);
    }

private:
    TextOptions<SessionPlan, work::planFields.size()> texts_{work::planFields};
    std::optional<std::int64_t> energy_;
    std::optional<std::int64_t> morale_;
    std::optional<std::int64_t> outcomeNumber_;

    bool hasOutcome(const std::optional<Block>& block) const;
};

}  // namespace quillmere::cli
