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

/// Asks for a field; absent when its value is to stay as it is.
template <class Record>
using Ask = std::function<std::optional<std::string>(const work::RecordField<Record>&)>;

/// One option for every field of a record's table. Instantiated for Block, SessionPlan, SessionReview and
/// BlockReview.
template <class Record>
class RecordOptions {
public:
    explicit RecordOptions(std::span<const work::RecordField<Record>> fields);

    void addTo(CLI::App& command, const std::string& prefix = "");
    /// An option after `addTo`. CLI::App::get_option would end the program when memory runs out in it.
    CLI::Option* option(std::string_view name) const { return given_[indexOf(name)].option; }

    /// Whether an option was given, or the person asked.
    bool anyGiven() const;
    bool wasAsked() const { return wasAsked_; }
    /// The text given for a field that is no list.
    const std::optional<std::string>& given(std::string_view name) const;
    /// The texts given for a list.
    std::vector<std::string>& items(std::string_view name);
    /// Sets the text as if the option had been given.
    void give(std::string_view name, std::optional<std::string> text);

    /// Sets the fields whose options were given, except an outcome of the block. Throws work::Unacceptable.
    void applyTo(Record& record, Instant now) const;

    /// Asks for the fields that were not given, except lists.
    void askForMissing(const Ask<Record>& ask);
    /// The name of a field's option, with dashes.
    std::string optionName(std::string_view name) const { return "--" + prefix_ + std::string(name); }

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
    bool wasAsked_ = false;
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
