// Pieces of the manual page, in mdoc(7): a line that begins with a full stop is a macro; \- is an ASCII
// minus.
#include "cli/describe/pieces.hpp"
#include "cli/describe/words.hpp"
#include "config/keys.hpp"
#include "config/setting.hpp"
#include "work/event_text.hpp"

#include <array>
#include <ostream>

namespace quillmere::cli::describe {
namespace {

/// Text with the special characters of mdoc escaped.
std::string plain(const std::string& text)
{
    std::string result;
    for (const char character : text) {
        result += character == '\\' ? "\\e" : character == '-' ? "\\-" : std::string(1, character);
    }
    return !result.empty() && (result.front() == '.' || result.front() == '\'') ? "\\&" + result : result;
}

/// Prints a sentence on its own line, with a full stop if it has no end.
void printSentence(std::ostream& out, const std::string& text)
{
    const bool isClosed = !text.empty() && std::string(".?!").find(text.back()) != std::string::npos;
    out << plain(text) << (isClosed ? "" : ".") << '\n';
}

/// The option as arguments of a macro. Fl adds one dash before the name.
std::string flags(const Argument& option)
{
    std::vector<std::string> names;
    for (const std::string& name : option.names) {
        names.push_back("Fl " + plain(name.substr(1)));
    }
    std::string text = joined(names, " , ");
    if (option.kind == ValueKind::choice) {
        text += " Cm " + joined(option.choices, " | ");
    } else if (option.kind != ValueKind::none) {
        text += " Ar " + option.valueName;
    }
    return text;
}

void printManualOption(std::ostream& out, const Argument& option)
{
    out << ".It " << flags(option) << '\n';
    printSentence(out, option.help);
    if (!option.excluded.empty()) {
        printSentence(out, "Not together with " + joined(option.excluded, ", "));
    }
}

/// The arguments and options of a command.
void printList(std::ostream& out, const std::vector<Argument>& arguments,
               const std::vector<Argument>& options)
{
    if (arguments.empty() && options.empty()) {
        return;
    }
    out << ".Bl -tag -width Ds -compact\n";
    for (const Argument& argument : arguments) {
        out << ".It Ar " << plain(argument.names.front()) << '\n';
        printSentence(out, argument.help);
    }
    for (const Argument& option : options) {
        printManualOption(out, option);
    }
    out << ".El\n";
}

/// The options without --help, which every command has and the program's list shows.
std::vector<Argument> ownOptions(const Command& command)
{
    std::vector<Argument> own;
    for (const Argument& option : command.options) {
        if (option.names.back() != "--help") {
            own.push_back(option);
        }
    }
    return own;
}

void printCommand(std::ostream& out, const Command& command)
{
    const std::vector<Argument> options = ownOptions(command);
    // Oo … Oc instead of Op, which would enclose the whole rest of the line.
    out << ".It Cm " << command.path << (options.empty() ? "" : " Oo Ar options Oc");
    for (const Argument& argument : command.arguments) {
        const std::string name = plain(argument.names.front());
        out << (argument.isRequired ? " Ar " + name : " Oo Ar " + name + " Oc");
    }
    out << '\n';
    printSentence(out, command.purpose);
    printList(out, command.arguments, options);
}

template <class Record, std::size_t count>
void printKeys(std::ostream& out, const std::array<config::Key<Record>, count>& keys)
{
    out << ".Bl -tag -width Ds -compact\n";
    for (const config::Key<Record>& key : keys) {
        const std::string usual = config::written(Record(), key);
        out << ".It Ic " << plain(std::string(key.name)) << '\n';
        printSentence(out, std::string(key.help) + ": " + config::accepted(key) +
                               (usual.empty() ? "" : " (usual: " + usual + ")"));
    }
    out << ".El\n";
}

}  // namespace

void printManualConfiguration(std::ostream& out, const Command&)
{
    printKeys(out, config::keys);
    out << ".Pp\nA table\n.Ic [template.NAME]\nis a template for blocks.\nIts keys:\n.Pp\n";
    printKeys(out, config::templateKeys);
    out << ".Pp\n";
}

void printManualEvents(std::ostream& out, const Command&)
{
    out << ".Bl -tag -width Ds -compact\n";
    for (const work::EventDescription& event : work::allEvents()) {
        out << ".It Ic " << plain(std::string(event.name)) << '\n';
        printSentence(out, std::string(event.meaning));
    }
    out << ".El\n";
}

void printManualOptions(std::ostream& out, const Command& program) { printList(out, {}, program.options); }

void printManualCommands(std::ostream& out, const Command& program)
{
    out << ".Bl -tag -width Ds\n";
    for (const Command* const command : withAllBelow(program)) {
        if (command != &program) {
            printCommand(out, *command);
        }
    }
    out << ".El\n";
}

}  // namespace quillmere::cli::describe
