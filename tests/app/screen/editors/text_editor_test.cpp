#include "screen/editors/text_editor.hpp"

#include "program_testing.hpp"
#include "screen/screen_testing.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

void press(TextEditor& editor, std::initializer_list<Key::Kind> kinds)
{
    for (const Key::Kind kind : kinds) {
        editor.take({kind}, roomy);
    }
}

std::vector<std::string> rowsOf(const TextEditor& editor, std::size_t columns)
{
    std::vector<std::string> rows;
    for (const TextEditor::Row& row : editor.rows(columns)) {
        rows.push_back(editor.text().substr(row.begin, row.end - row.begin));
    }
    return rows;
}

TEST(TextEditor, writesAtTheCursor)
{
    TextEditor editor("ac");
    press(editor, {Key::Kind::left});
    editor.take(typed("b"), roomy);
    EXPECT_EQ(editor.text(), "abc");
    press(editor, {Key::Kind::home});
    editor.take(typed("_"), roomy);
    press(editor, {Key::Kind::end});
    editor.take(typed("!"), roomy);
    EXPECT_EQ(editor.text(), "_abc!");
}

TEST(TextEditor, erasesAUserPerceivedCharacterAsAWhole)
{
    TextEditor editor("ae\u0301\u65E5");
    press(editor, {Key::Kind::backspace, Key::Kind::backspace});
    EXPECT_EQ(editor.text(), "a");
    editor = TextEditor("e\u0301b");
    press(editor, {Key::Kind::home, Key::Kind::remove});
    EXPECT_EQ(editor.text(), "b");
    press(editor, {Key::Kind::home, Key::Kind::backspace});
    EXPECT_EQ(editor.text(), "b");
}

TEST(TextEditor, isEmptiedWithControlU)
{
    TextEditor editor("all of it");
    EXPECT_EQ(editor.take(withControl('u'), roomy), Effect::changed);
    EXPECT_EQ(editor.text(), "");
}

TEST(TextEditor, movesByWords)
{
    TextEditor editor("one  t\u00E9o\nthree");
    const auto offsetAfter = [&](Key::Kind kind) {
        press(editor, {kind});
        return editor.cursor();
    };
    EXPECT_EQ(offsetAfter(Key::Kind::wordLeft), 10u);
    EXPECT_EQ(offsetAfter(Key::Kind::wordLeft), 5u);
    EXPECT_EQ(offsetAfter(Key::Kind::wordLeft), 0u);
    EXPECT_EQ(offsetAfter(Key::Kind::wordLeft), 0u);
    EXPECT_EQ(offsetAfter(Key::Kind::wordRight), 3u);
    EXPECT_EQ(offsetAfter(Key::Kind::wordRight), 9u);
    EXPECT_EQ(offsetAfter(Key::Kind::wordRight), 15u);
    EXPECT_EQ(offsetAfter(Key::Kind::wordRight), 15u);
}

TEST(TextEditor, hasTheControlKeysOfALineEditor)
{
    TextEditor editor("one two");
    editor.take(withControl('a'), roomy);
    EXPECT_EQ(editor.cursor(), 0u);
    EXPECT_EQ(editor.take(withControl('w'), roomy), Effect::unchanged);
    editor.take(withControl('e'), roomy);
    EXPECT_EQ(editor.cursor(), 7u);
    EXPECT_EQ(editor.take(withControl('w'), roomy), Effect::changed);
    EXPECT_EQ(editor.text(), "one ");
    EXPECT_EQ(editor.take(withControl('w'), roomy), Effect::changed);
    EXPECT_EQ(editor.text(), "");
    EXPECT_EQ(editor.take(withControl('k'), roomy), Effect::notForIt);
}

TEST(TextEditor, breaksRowsBetweenWords)
{
    EXPECT_EQ(rowsOf(TextEditor("one two three"), 9), (std::vector<std::string>{"one two ", "three"}));
    EXPECT_EQ(rowsOf(TextEditor("abcdefghij"), 6), (std::vector<std::string>{"abcde", "fghij"}));
    EXPECT_EQ(rowsOf(TextEditor("one\n\ntwo"), 9), (std::vector<std::string>{"one", "", "two"}));
    EXPECT_EQ(rowsOf(TextEditor("\u65E5\u672C\u8A9E"), 5),
              (std::vector<std::string>{"\u65E5\u672C", "\u8A9E"}));
    EXPECT_EQ(rowsOf(TextEditor(""), 9), (std::vector<std::string>{""}));
}

TEST(TextEditor, wrapsWithoutLosingAByte)
{
    const TextEditor editor("a  long   text with\nmany \u65E5\u672C words andaverylongonewithoutanyspace");
    for (std::size_t columns = 1; columns < 30; ++columns) {
        std::size_t expected = 0;
        for (const TextEditor::Row& row : editor.rows(columns)) {
            EXPECT_TRUE(row.begin == expected ||
                        (row.begin == expected + 1 && editor.text()[expected] == '\n'));
            expected = row.end;
        }
        EXPECT_EQ(expected, editor.text().size());
    }
}

TEST(TextEditor, movesUpAndDownByRowsAndReportsTheFirstAndTheLastRow)
{
    constexpr std::size_t narrow = 9;
    TextEditor editor("one two three");
    EXPECT_EQ(editor.take({Key::Kind::down}, narrow), Effect::notForIt);
    EXPECT_EQ(editor.take({Key::Kind::up}, narrow), Effect::unchanged);
    editor.take(typed("_"), narrow);
    EXPECT_EQ(editor.text(), "one t_wo three");
    EXPECT_EQ(editor.take({Key::Kind::up}, narrow), Effect::notForIt);
}

}  // namespace
}  // namespace quillmere::test
