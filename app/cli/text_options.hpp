// Command-line options for the fields of a record.
#pragma once

#include "cli/exit_code.hpp"
#include "work/fields/fields.hpp"
#include "work/fields/unacceptable.hpp"
#include "workspace/workspace.hpp"

#include <CLI/CLI.hpp>

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace quillmere::cli {

/// Refuses text that is not well-formed UTF-8: it could not be stored unchanged.
CLI::Validator wellFormedText();

/// Refuses text that is no whole number, and rewrites it in decimal: 010 is ten.
CLI::Validator wholeNumber(const work::Limits& limits = {});

/// Asks a question; absent when the value is to stay as it is.
using Ask = std::function<std::optional<std::string>(const work::Prompt&)>;

/// One option for every field of a record's table. Instantiated for Block, SessionPlan, SessionReview and
/// BlockReview.
template <class Record>
class RecordOptions {
public:
    explicit RecordOptions(std::span<const work::RecordField<Record>> fields);

    void addTo(CLI::App& command, const std::string& prefix = "");
    /// An option after `addTo`. CLI::App::get_option would end the program when memory runs out in it.
    CLI::Option* option(std::string_view name) const { return given_[indexOf(name)].option; }

    bool anyGiven() const;
    /// The text given for a field that is no list.
    const std::optional<std::string>& given(std::string_view name) const;
    /// The texts given for a list.
    std::vector<std::string>& items(std::string_view name);
    /// Sets the text as if the option had been given.
    void give(std::string_view name, std::optional<std::string> text);

    /// Sets the fields whose options were given, except an outcome of the block. Throws work::Unacceptable.
    void applyTo(Record& record, Instant now) const;

    /// Asks for the texts of the record that were not given.
    void askForMissing(const Ask& ask);

private:
    struct Given {
        std::optional<std::string> text;
        std::vector<std::string> items;  ///< of a list
        CLI::Option* option = nullptr;
    };

    std::size_t indexOf(std::string_view name) const;
    void addOption(CLI::App& command, std::size_t index);

    std::span<const work::RecordField<Record>> fields_;
    std::vector<Given> given_;
    std::string prefix_;
};

/// The options of a session plan. The outcome that it serves is given by its number in the block.
class PlanOptions {
public:
    void addTo(CLI::App& command, const std::string& prefix = "") { options_.addTo(command, prefix); }

    bool anyGiven() const { return options_.anyGiven(); }

    /// Sets what was given; ignores the number of an outcome that the block does not have.
    void applyTo(SessionPlan& plan, const std::optional<Block>& block, Instant now) const;

    /// Throws ProgramError when the block has no outcome of the given number. Called at the end of an
    /// operation, so that a refusal of the engine comes first.
    void requireOutcome(const std::optional<Block>& block) const;

    void askForMissing(const Ask& ask) { options_.askForMissing(ask); }

private:
    RecordOptions<SessionPlan> options_{work::planFields};

    std::optional<std::int64_t> outcomeNumber() const;
};

/// The operation, with the option named in front of the message when it throws work::Unacceptable.
template <class Operation>
auto namingOptions(Operation operation)
{
    return [operation = std::move(operation)](QuillmereState& state, Instant now) {
        try {
            return operation(state, now);
        } catch (const work::Unacceptable& refusal) {
            throw ProgramError(ExitCode::usage, "--" + refusal.field() + ": " + refusal.what());
        }
    };
}

}  // namespace quillmere::cli
