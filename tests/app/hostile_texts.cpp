#include "hostile_texts.hpp"

#include "support/sample_states.hpp"

namespace quillmere::test {

namespace {

std::string repeated(const std::string& text, int count)
{
    std::string whole;
    for (int index = 0; index < count; ++index) {
        whole += text;
    }
    return whole;
}

}  // namespace

const std::vector<std::string> hostileTexts = {
    R"(<b>bold</b> & "both" 'quotes' &amp; &#x1b;)",
    R"(<span foreground="red">red</span> <a href='x'>)",
    "</tt> & < > ]]> <!-- x",
    "%{A1:touch x:}click%{A} %%{F#f00} %",
    "%{%{B#f00}%{T2}%%%{",
    "#{pid} #(touch x) #[fg=red]red",
    "##[bg=blue] ###{pid} ####(touch x) #, #} #",
    "a\x1b[2J\x1b]0;title\x07\x7F\b",
    "eight bits \xC2\x9B"
    "31m",
    "one\ntwo\r\nthree\u2028four\u0085five",
    "#ff0000\n#00ff00",
    "\u202Egnirts\u202C \u2066inner\u2069 \u061C\u200F",
    "\u05E9\u05DC\u05D5\u05DD 12:34 \u0633\u0644\u0627\u0645",
    "\u65E5\u672C\u8A9E\u306E\u6587\u7AE0 \uFF1C\uFF03",
    "e\u0301\u0323 a\u0308 \U0001F468",
    "\"}\n{\"text\":\"forged\"} \\\" \\u001b \\",
    "$(touch x) `touch x` ${HOME} %F{red} \\e[0m \\$",
    "%output% %counter% %H %s {} {percentage}",
    std::string(300, 'x') + "<&%{#[",
    repeated("x\u200B\u200B\u2060", 1'000),
    "a" + repeated("\u0301", 3'000),
    "a" + repeated("\u0301", 8) + "b",
    repeated("\u65E5", 1'000),
};

WidgetSnapshot summaryWith(const std::string& text)
{
    WidgetSnapshot summary = WidgetSnapshot::make(stateIn(WorkflowState::focusing), moment);
    summary.intendedOutcome = text;
    summary.firstAction = text;
    summary.openQuestionCount = 4;
    summary.openQuestions = {text, text, text};
    return summary;
}

}  // namespace quillmere::test
