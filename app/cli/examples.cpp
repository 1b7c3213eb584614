#include "cli/examples.hpp"

#include <algorithm>
#include <array>

namespace quillmere::cli {
namespace {

/// Two command lines that a person would type.
struct Examples {
    std::string_view command;
    std::string_view simple;
    std::string_view further;
};

// clang-format off
constexpr auto examples = std::to_array<Examples>({
    {"status",       "quillmere status",              "quillmere status --json"},
    {"ui",           "quillmere ui",                  "quillmere ui --directory ~/work"},
    {"plan",         "quillmere plan --outcome 'Chapter one' --cycles 4 --at 14:30",
                     "quillmere plan --like last --start"},
    {"start",        "quillmere start",               "quillmere start --json"},
    {"edit",         "quillmere edit --at +1h",       "quillmere edit --cycles 6 --start"},
    {"cancel",       "quillmere cancel",              "quillmere cancel --yes"},
    {"change",       "quillmere change --cycles 5 --break 10m",
                     "quillmere change --outcome-add 'Chapter two'"},
    {"now",          "quillmere now 'Outline' --for 25m",
                     "quillmere now 'Outline' --energy 4 --morale 3"},
    {"focus",        "quillmere focus",
                     "quillmere focus --outcome 'First page' --energy 4 --morale 3"},
    {"pause",        "quillmere pause",               "quillmere pause --json"},
    {"resume",       "quillmere resume",              "quillmere resume --json"},
    {"extend",       "quillmere extend 10m",          "quillmere extend --by=-5m"},
    {"away",         "quillmere away --from 14:20",   "quillmere away --from 14:20 --to 14:35"},
    {"end",          "quillmere end",                 "quillmere end --ago 10m"},
    {"review",       "quillmere review --completion yes --result 'Two pages'",
                     "quillmere review --completion half --finish"},
    {"break",        "quillmere break extend 5m",     "quillmere break end"},
    {"break extend", "quillmere break extend 5m",     "quillmere break extend 1h"},
    {"break end",    "quillmere break end",           "quillmere break end --json"},
    {"break skip",   "quillmere break skip",          "quillmere break skip --json"},
    {"finish",       "quillmere finish",              "quillmere finish --json"},
    {"reflect",      "quillmere reflect",
                     "quillmere reflect --output 'Chapter one' --lessons 'Begin with the end'"},
    {"ask",          "quillmere ask 'Which figure first?'",
                     "quillmere ask --json 'Which figure first?'"},
    {"questions",    "quillmere questions",           "quillmere questions --all"},
    {"answer",       "quillmere answer 1 'The second one'",
                     "quillmere answer 1 --dismiss"},
    {"history",      "quillmere history --search headings", "quillmere history 9F1C"},
    {"report",       "quillmere report last week",    "quillmere report --since 2026-10 --html look-back.html"},
    {"amend",        "quillmere amend 9F1C --why 'For the course'",
                     "quillmere amend 9F1C.2 --completion half"},
    {"delete",       "quillmere delete 9F1C",         "quillmere delete 9F1C --versions-too"},
    {"reset",        "quillmere reset",               "quillmere reset --yes"},
    {"undo",         "quillmere undo",                "quillmere undo --yes"},
    {"redo",         "quillmere redo",                "quillmere redo --yes"},
    {"restore",      "quillmere restore",             "quillmere restore 12 --diff"},
    {"widget",       "quillmere widget",              "quillmere widget --json"},
    {"bar",          "quillmere bar --format tmux",   "quillmere bar --format waybar --follow"},
    {"agent",        "quillmere agent",               "quillmere agent serve"},
    {"agent serve",  "quillmere agent serve",         "quillmere agent serve --directory ~/work"},
    {"open",         "quillmere open quillmere://open/focus",
                     "quillmere open quillmere://open/break"},
    {"tick",         "quillmere tick",                "quillmere tick --json"},
    {"watch",        "quillmere watch",               "quillmere watch --once --urgency low"},
    {"tour",         "quillmere tour",                "quillmere tour /tmp/tour"},
    {"config",       "quillmere config --edit",       "quillmere config block.focus 50m"},
    {"doctor",       "quillmere doctor",              "quillmere doctor --json"},
    {"help",         "quillmere help plan",           "quillmere help break extend"},
    {"version",      "quillmere version",             "quillmere version --json"},
});
// clang-format on

}  // namespace

std::string examplesOf(std::string_view command)
{
    const auto found = std::find_if(examples.begin(), examples.end(),
                                    [command](const Examples& each) { return each.command == command; });
    return found == examples.end()
               ? ""
               : "Examples:\n  " + std::string(found->simple) + "\n  " + std::string(found->further);
}

}  // namespace quillmere::cli
