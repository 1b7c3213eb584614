#include "lookback/page/style.hpp"

#include "base/text/colours.hpp"

#include <array>
#include <string_view>

namespace quillmere::lookback {
namespace {

/// A variable of the style sheet that has a colour of all surfaces.
struct SharedVariable {
    std::string_view name;
    base::Shades shades;
};

constexpr auto sharedVariables = std::to_array<SharedVariable>({
    {"--paper", base::paper},
    {"--card", base::card},
    {"--edge", base::edge.shades},
    {"--ink", base::ink},
    {"--focus", base::colourOf(QuillmereDesign::Accent::focus).shades},
    {"--energy", base::colourOf(QuillmereDesign::Accent::plan).shades},
    {"--quiet", base::colourOf(QuillmereDesign::Accent::neutral).shades},
    {"--yes", base::colourOf(CompletionResult::yes).shades},
    {"--half", base::colourOf(CompletionResult::half).shades},
    {"--no", base::colourOf(CompletionResult::no).shades},
});

std::string sharedColours(base::Background background)
{
    std::string rule = ":root {";
    for (const SharedVariable& variable : sharedVariables) {
        rule.append(" ").append(variable.name).append(": ");
        rule.append(variable.shades.on(background)).append(";");
    }
    return rule + " }";
}

/// Every colour of the page alone stands in the variables at the top, once for light and once for dark.
constexpr std::string_view rules = R"(
:root {
  color-scheme: light dark;
  --planned: #cfc9bd;
  --morale: #b06a1c; --grid: #eae7df;
  --heat0: #eeebe3; --heat1: #f0c9b8; --heat2: #dd927a; --heat3: #bd5b45; --heat4: #85301f;
}
@media (prefers-color-scheme: dark) {
  :root {
    --planned: #6b665c;
    --morale: #e5a257; --grid: #302d29;
    --heat0: #2a2824; --heat1: #55302a; --heat2: #8d4537; --heat3: #c7664f; --heat4: #f5a48e;
  }
}
* { box-sizing: border-box; }
body {
  margin: 0; padding: 2.5rem 1.25rem 3rem; background: var(--paper); color: var(--ink);
  font: 1rem/1.5 system-ui, -apple-system, "Segoe UI", Roboto, "Liberation Sans", sans-serif;
}
main { max-width: 66rem; margin: 0 auto; }
h1 { font-size: 1.75rem; line-height: 1.2; margin: 0; font-weight: 650; letter-spacing: -0.01em; }
h2 { font-size: 1rem; margin: 0 0 0.75rem; font-weight: 600; }
header p { margin: 0.35rem 0 1.75rem; color: var(--quiet); }
.figures { display: grid; grid-template-columns: repeat(auto-fit, minmax(11rem, 1fr)); gap: 1rem; margin: 0 0 1rem; }
.figure, section { background: var(--card); border: 1px solid var(--edge); border-radius: 12px; padding: 1.1rem 1.2rem; min-width: 0; }
.figure dt { color: var(--quiet); font-size: 0.875rem; }
.figure dd { margin: 0; }
.figure .value { font-size: 1.5rem; font-weight: 600; line-height: 1.35; font-variant-numeric: tabular-nums; }
.figure .more { color: var(--quiet); font-size: 0.875rem; }
.charts + section { margin-top: 1rem; }
.charts { display: grid; grid-template-columns: repeat(2, minmax(0, 1fr)); gap: 1rem; }
.wide { grid-column: 1 / -1; }
.halves { display: grid; grid-template-columns: repeat(2, minmax(0, 1fr)); gap: 0.5rem 1.5rem; }
svg { display: block; width: 100%; height: auto; }
svg text { font-size: 11.5px; fill: var(--quiet); font-variant-numeric: tabular-nums; }
@media (max-width: 58rem) { svg text { font-size: 15.5px; } }
@media (max-width: 44rem) {
  svg text { font-size: 12.5px; }
  svg { max-width: 30rem; }
  body { padding: 1.5rem 0.75rem 2rem; }
  .charts, .halves { grid-template-columns: minmax(0, 1fr); }
  .figures { grid-template-columns: repeat(2, minmax(0, 1fr)); gap: 0.75rem; }
  .figure { padding: 0.8rem 0.9rem; }
  .figure .value { font-size: 1.1rem; }
  .sessions thead { position: absolute; clip-path: inset(50%); width: 1px; height: 1px; overflow: hidden; }
  .sessions tr { display: grid; grid-template-columns: 1fr auto auto; border-bottom: 1px solid var(--edge); padding: 0.4rem 0; }
  .sessions th, .sessions td { border: 0; padding: 0.1rem 0 0.1rem 1rem; }
  .sessions th { padding-left: 0; }
  .sessions td.text { grid-column: 1 / -1; padding-left: 0; }
}
.grid { stroke: var(--grid); stroke-width: 1; }
.focus { fill: var(--focus); background: var(--focus); }
.planned { fill: var(--planned); background: var(--planned); }
.yes { fill: var(--yes); background: var(--yes); }
.half { fill: var(--half); background: var(--half); }
.no { fill: var(--no); background: var(--no); }
.energy { fill: var(--energy); background: var(--energy); stroke: var(--energy); }
.morale { fill: var(--morale); background: var(--morale); stroke: var(--morale); }
.line { fill: none; stroke-width: 2; stroke-linejoin: round; }
.line.morale { stroke-dasharray: 5 3; }
.empty { fill: var(--grid); }
.heat0 { fill: var(--heat0); background: var(--heat0); }
.heat1 { fill: var(--heat1); background: var(--heat1); }
.heat2 { fill: var(--heat2); background: var(--heat2); }
.heat3 { fill: var(--heat3); background: var(--heat3); }
.heat4 { fill: var(--heat4); background: var(--heat4); }
.keys { display: flex; flex-wrap: wrap; gap: 0.2rem 1rem; margin: 0.6rem 0 0; color: var(--quiet); font-size: 0.875rem; }
.key { display: inline-flex; align-items: center; gap: 0.4rem; }
.swatch { width: 0.75rem; height: 0.75rem; border-radius: 2px; }
details { margin-top: 0.75rem; font-size: 0.875rem; }
summary { color: var(--quiet); cursor: pointer; width: max-content; max-width: 100%; }
.block { margin: 0; border-bottom: 1px solid var(--edge); }
.block summary { width: auto; padding: 0.5rem 0; color: var(--ink); overflow-wrap: anywhere; }
.block h3 { font-size: 0.875rem; margin: 0.75rem 0 0.25rem; color: var(--quiet); font-weight: 600; }
.block dl { display: grid; grid-template-columns: 9rem minmax(0, 1fr); gap: 0.15rem 1rem; margin: 0 0 0.75rem; max-width: 52rem; }
.block dt { color: var(--quiet); }
.block dd { margin: 0; overflow-wrap: anywhere; }
.when, .note { color: var(--quiet); font-variant-numeric: tabular-nums; }
.answer p { margin: 0 0 0.5rem; }
.answer tbody th { min-width: 6rem; white-space: normal; overflow-wrap: break-word; }
.answer td, .answer th { padding-right: 1.25rem; }
.tables { display: flex; flex-wrap: wrap; gap: 0 2.5rem; align-items: flex-start; }
.tables > .scroll { flex: 1 1 auto; max-width: 100%; }
.tables > .bars { flex-basis: 29rem; }
.answer td.bar { width: 30%; min-width: 3.5rem; padding-right: 0; vertical-align: middle; }
td.bar span { display: block; height: 0.75rem; border-radius: 2px; }
td.trend span { display: inline-block; width: 0.6rem; height: 0.75rem; margin-right: 1px; border-radius: 2px; }
.scroll { overflow-x: auto; max-height: 24rem; margin-top: 0.5rem; }
.answer .scroll { max-height: none; }
table { border-collapse: collapse; width: 100%; font-size: 0.875rem; font-variant-numeric: tabular-nums; }
caption { text-align: left; color: var(--quiet); padding-bottom: 0.3rem; }
th, td { text-align: left; vertical-align: top; padding: 0.35rem 1rem 0.35rem 0; border-bottom: 1px solid var(--edge); white-space: nowrap; }
th { font-weight: 600; color: var(--quiet); }
tbody th { font-weight: 400; color: inherit; }
td.text { white-space: normal; overflow-wrap: anywhere; }
.sessions th + td + td + td.text { font-weight: 600; }
@media (max-width: 27rem) {
  svg text { font-size: 16.5px; }
  section { padding: 0.9rem 0.75rem; }
  .answer td, .answer th { padding-right: 0.6rem; }
  .answer tbody th { min-width: 4.5rem; }
  .answer tr { position: relative; }
  .answer td.bar { position: absolute; inset: auto 0 0 0; width: auto; padding: 0; border: 0; }
  td.bar span { height: 3px; }
  .bars thead th:last-child, .bars tr > :nth-child(n+5):not(.bar) { display: none; }
  .block dl { grid-template-columns: minmax(0, 1fr); }
}
footer { margin-top: 1.5rem; color: var(--quiet); font-size: 0.875rem; }
@media print {
  details:not(.block) { display: none; }
  body { padding: 0; background: none; font-size: 0.8rem; }
  .charts { display: block; }
  section { margin-bottom: 0.75rem; }
  section, .figure { break-inside: avoid; }
  section:has(.block) { break-inside: auto; }
  .chart { display: inline-block; width: 49%; vertical-align: top; }
}
)";

}  // namespace

std::string pageStyle()
{
    return "\n" + sharedColours(base::Background::light) + "\n@media (prefers-color-scheme: dark) { " +
           sharedColours(base::Background::dark) + " }" + std::string(rules);
}

}  // namespace quillmere::lookback
