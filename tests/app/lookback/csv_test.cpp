// The sessions as a table for spreadsheets.
#include "lookback/csv.hpp"

#include "figures_testing.hpp"
#include "support/process.hpp"

namespace quillmere::test {
namespace {

using figures::statistics;
using lookback::csvOf;
using lookback::csvText;

std::string csvAt(const QuillmereState& state) { return csvOf(statistics(state, {}, day("2026-11-15"))); }

constexpr const char* names =
    "session_id,block_id,number,day,started_at,ended_at,planned_seconds,worked_seconds,paused_seconds,energy,"
    "morale,completion,block_outcome,intended_outcome,first_action,result,distractions,improvement\r\n";

TEST(Csv, hasALineForEachSession)
{
    const TimeZone here("Pacific/Kiritimati");
    WorkSession odd = session(moment + 3600, -60);
    odd.review.reset();
    odd.plan.energy = -7;
    odd.plan.blockOutcomeID.reset();
    EXPECT_EQ(
        csvAt(stateWith({session(moment, 1500.75, 60.5), odd})),
        names + std::string(
                    "9F1C2A4E-0B7D-4C55-8E21-0000000002BC,9F1C2A4E-0B7D-4C55-8E21-00000000012D,1,2026-11-16,"
                    "2026-11-15T15:00:00Z,2026-11-15T15:25:00Z,1500,1440,60,4,3,half,\"Chapter one\","
                    "\"Outcome of session 1\",\"First action 1\",\"Result 1\",\"Mail\","
                    "\"Start with the hard part\"\r\n"
                    "9F1C2A4E-0B7D-4C55-8E21-0000000002BD,9F1C2A4E-0B7D-4C55-8E21-00000000012D,2,2026-11-16,"
                    "2026-11-15T16:00:00Z,2026-11-15T15:59:00Z,1500,,,-7,3,,\"\","
                    "\"Outcome of session 1\",\"First action 1\",\"\",\"\",\"\"\r\n"));
}

TEST(Csv, hasItsNamesWhereThereIsNoSession) { EXPECT_EQ(csvAt(QuillmereState::initial(moment)), names); }

struct CellCase {
    const char* text;
    const char* cell;
};

constexpr CellCase cells[] = {
    {"", "\"\""},
    {"Result", "\"Result\""},
    {"a \"b\", c", "\"a \"\"b\"\", c\""},
    {"two\r\nlines", "\"two\r\nlines\""},
    {"=1+1", "\"'=1+1\""},
    {"+1", "\"'+1\""},
    {"-1", "\"'-1\""},
    {"@SUM(A1)", "\"'@SUM(A1)\""},
    {"\t=1", "\"\t'=1\""},
    {"\r=1", "\"\r'=1\""},
    {"\n=1", "\"\n'=1\""},
    {" =1", "\"' =1\""},
    {"\"=1", "\"'\"\"=1\""},
    {"a;=1;b;@1", "\"a;'=1;b;'@1\""},
    {"a; \"-1", "\"a;' \"\"-1\""},
    {"a\r\n+1\n\uFF1D1", "\"a\r\n'+1\n'\uFF1D1\""},
    {"a,=1", "\"a,=1\""},
    {"\uFF1D1", "\"'\uFF1D1\""},
    {"a=1", "\"a=1\""},
    {"'=1", "\"'=1\""},
    {"a\x1b[2J\x7F", "\"a\uFFFD[2J\uFFFD\""},
    {"a\xC2\x9Bz", "\"a\uFFFDz\""},
    {"\u202E=1\u2069", "\"\uFFFD=1\uFFFD\""},
};

TEST(CsvText, isQuotedAndNeverAFormula)
{
    for (const CellCase& each : cells) {
        EXPECT_EQ(csvText(each.text), each.cell);
    }
}

TEST(Csv, hasNoFormulaWhereSemicolonsSeparateCellsEither)
{
    // As spreadsheets do it there: quotes mean something only at the beginning of a cell.
    WorkSession written = session(moment, 1500);
    written.plan.intendedOutcome = "list;=1+1;\"=2\"\n=3; @4\t+5";
    const std::string table = csvAt(stateWith({written}));
    std::string cell;
    for (const char character : table) {
        if (std::string_view(";\t\r\n").find(character) == std::string_view::npos) {
            cell += character;
            continue;
        }
        cell.erase(0, cell.find_first_not_of(" \""));
        EXPECT_NE(cell.find_first_of("=+-@"), 0u) << cell;
        cell.clear();
    }
}

TEST(Csv, isReadBackAsItWasWrittenByAnotherProgram)
{
    const TimeZone here("UTC");
    const TemporaryDirectory directory;
    const auto file = directory.path() / "sessions.csv";
    const auto expected = directory.path() / "expected";
    writeText(file, csvAt(hostileState()));
    // The file has an apostrophe before the text.
    writeText(expected, "'" + hostileTextInExports());
    const char* const script =
        "import csv, sys\n"
        "rows = list(csv.DictReader(open(sys.argv[1], newline='', encoding='utf-8'), strict=True))\n"
        "text = open(sys.argv[2], newline='', encoding='utf-8').read()\n"
        "assert len(rows) == 1, rows\n"
        "for name in ['block_outcome', 'intended_outcome', 'first_action', 'result', 'distractions',\n"
        "             'improvement']:\n"
        "    assert rows[0][name] == text, (name, rows[0][name], text)\n"
        "print(rows[0]['worked_seconds'], len(rows[0]))\n";
    const ProcessEnding ending =
        run({.words = {"/usr/bin/python3", "-c", script, file.string(), expected.string()}});
    EXPECT_EQ(ending.code, 0) << ending.err;
    EXPECT_EQ(ending.out, "1500 18\n");
}

}  // namespace
}  // namespace quillmere::test
