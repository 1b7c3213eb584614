#include "screen/keys/key_reader.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

/// A terminal that sends bytes in given pieces.
class KeyReaderOfBytes : public testing::Test {
protected:
    KeyReader reader{Charset::unicode};

    /// Bytes that arrive at once, with a pause after them.
    void comes(std::string_view bytes)
    {
        for (const char byte : bytes) {
            reader.take(static_cast<unsigned char>(byte));
        }
        reader.pause();
    }
    /// The keys so far: texts as they are, others as their number in angle brackets.
    std::string keys()
    {
        std::string all;
        while (const std::optional<Key> key = reader.key()) {
            all += key->kind == Key::Kind::character ? key->text
                   : key->kind == Key::Kind::paste   ? "{" + key->text + "}"
                   : key->kind == Key::Kind::control
                       ? "^" + key->text
                       : "<" + std::to_string(static_cast<int>(key->kind)) + ">";
        }
        return all;
    }
    static std::string name(Key::Kind kind) { return "<" + std::to_string(static_cast<int>(kind)) + ">"; }
};

TEST_F(KeyReaderOfBytes, readsTextsAndControls)
{
    comes("a\xC3\xA9\xE6\x97\xA5\xF0\x9F\x98\x80\x13\r\t\x7F");
    EXPECT_EQ(keys(), "a\u00E9\u65E5\U0001F600^s" + name(Key::Kind::enter) + name(Key::Kind::tab) +
                          name(Key::Kind::backspace));
}

TEST_F(KeyReaderOfBytes, joinsTheBytesOfACharacterThatArriveInPieces)
{
    comes("\xE6");
    EXPECT_EQ(keys(), "");
    comes("\x97");
    comes("\xA5x");
    EXPECT_EQ(keys(), "\u65E5x");
}

TEST_F(KeyReaderOfBytes, replacesOnlyAnInvalidByte)
{
    comes("one\xFF\xFEtwo caf\xE9 au\xE6\x97 lait\x80");
    EXPECT_EQ(keys(), "one\uFFFD\uFFFDtwo caf\uFFFD au\uFFFD lait\uFFFD");
    comes("\xED\xA0\x80|\xC3\r");
    EXPECT_EQ(keys(), "\uFFFD\uFFFD\uFFFD|\uFFFD" + name(Key::Kind::enter));
}

TEST_F(KeyReaderOfBytes, dropsC1ControlsAndNul)
{
    comes(std::string_view("a\0b\x1C\xC2\x9B\x63", 7));
    EXPECT_EQ(keys(), "abc");
}

TEST_F(KeyReaderOfBytes, dropsUnknownSequencesAsAWhole)
{
    comes("a\x1B[1;9Db\x1BOPc\x1B[?1;2c\x1B[24~d");
    EXPECT_EQ(keys(), "abcd");
    comes("\x1B[1;");
    comes("9De");
    EXPECT_EQ(keys(), "e");
    comes("\x1B[1\rf\x1B[\xC3\xA9");
    EXPECT_EQ(keys(), name(Key::Kind::enter) + "f\u00E9");
}

TEST_F(KeyReaderOfBytes, readsTheSequencesOfCursorKeys)
{
    comes("\x1B[D\x1BOD\x1B[C\x1B[A\x1BOB");
    EXPECT_EQ(keys(), name(Key::Kind::left) + name(Key::Kind::left) + name(Key::Kind::right) +
                          name(Key::Kind::up) + name(Key::Kind::down));
    comes("\x1B[H\x1B[1~\x1BOF\x1B[4~\x1B[3~");
    EXPECT_EQ(keys(), name(Key::Kind::home) + name(Key::Kind::home) + name(Key::Kind::end) +
                          name(Key::Kind::end) + name(Key::Kind::remove));
    comes("a\x1B[1;");
    comes("5D\x1B[1;3Cb");
    EXPECT_EQ(keys(), "a" + name(Key::Kind::wordLeft) + name(Key::Kind::wordRight) + "b");
}

TEST_F(KeyReaderOfBytes, readsTheMouse)
{
    comes("\x1B[<0;10;5M");
    EXPECT_EQ(reader.key(), (Key{.kind = Key::Kind::click, .place = {4, 9}}));
    comes("\x1B[<0;10;5m\x1B[<2;1;1M\x1B[<64;1;1M\x1B[<65;1;1Mx");
    EXPECT_EQ(keys(), name(Key::Kind::pageUp) + name(Key::Kind::pageDown) + "x");
}

TEST_F(KeyReaderOfBytes, dropsReportsOfTheMouseThatNameNoPlace)
{
    for (const char* const report : {"<0;0;1M", "<0;1;0M", "<0;1M", "<0;1;1;1M", "<;1;1M",
                                     "<0;99999999999999999999;1M", "<0;1;M", "<M"}) {
        comes(std::string("\x1B[") + report);
        EXPECT_EQ(keys(), "") << report;
    }
}

TEST_F(KeyReaderOfBytes, readsLettersWithAltThatMoveByWords)
{
    comes(
        "\x1B"
        "b\x1B"
        "fb");
    EXPECT_EQ(keys(), name(Key::Kind::wordLeft) + name(Key::Kind::wordRight) + "b");
}

TEST_F(KeyReaderOfBytes, takesAnExpectedAnswerAndNoKeysFromIt)
{
    for (const std::string end : {"\x1B\\", "\x07"}) {
        reader.expectAnswer();
        comes("a\x1B]11;rgb:1c");
        comes("1c/1c1c/1c1c" + end + "b");
        EXPECT_EQ(keys(), "ab");
        EXPECT_EQ(reader.takeAnswer(), "11;rgb:1c1c/1c1c/1c1c");
        EXPECT_EQ(reader.takeAnswer(), std::nullopt);
    }
}

TEST_F(KeyReaderOfBytes, takesWhatIsNoAnswerForKeys)
{
    comes("\x1B]11");
    EXPECT_EQ(keys(), name(Key::Kind::escape) + "]11") << "none is expected";
    reader.expectAnswer();
    comes("\x1B]1x");
    EXPECT_EQ(keys(), name(Key::Kind::escape) + "]1x");
    comes("\x1B]" + std::string("11;rgb:") + std::string(40, '0'));
    EXPECT_EQ(keys(), name(Key::Kind::escape) + "]11;rgb:" + std::string(40, '0'));
    EXPECT_EQ(reader.takeAnswer(), std::nullopt);
}

TEST_F(KeyReaderOfBytes, recognisesThePressedEscapeKey)
{
    comes("\x1B");
    comes("[");
    EXPECT_EQ(keys(), name(Key::Kind::escape) + "[");
    comes("\x1B\x1Bx");
    EXPECT_EQ(keys(), name(Key::Kind::escape) + name(Key::Kind::escape) + "x");
}

TEST_F(KeyReaderOfBytes, returnsAPasteAsOneKey)
{
    comes("\x1B[200~Hey,\rsee\r\nyou\n\tth");
    EXPECT_EQ(keys(), "");
    comes("\xC3");
    comes("\xA9re\x1B[201");
    comes("~x");
    EXPECT_EQ(keys(), "{Hey,\nsee\nyou\n\tth\u00E9re}x");
}

TEST_F(KeyReaderOfBytes, keepsOnlyTheTextOfAPaste)
{
    comes("\x1B[200~a\x13\x1B[A\xFF\xC2\x85z\x1B[201~");
    EXPECT_EQ(keys(), "{a[A\uFFFDz}");
}

TEST_F(KeyReaderOfBytes, takesKeysThatCursesRecognised)
{
    comes("a\xC3");
    reader.take({Key::Kind::left});
    comes("b\x1B[200~c");
    reader.take({Key::Kind::left});
    comes("d\x1B[201~");
    EXPECT_EQ(keys(), "a\uFFFD" + name(Key::Kind::left) + "b{cd}");
}

TEST_F(KeyReaderOfBytes, dropsCharactersThatAnAsciiTerminalCannotShow)
{
    reader = KeyReader(Charset::ascii);
    comes("a\xC3\xA9\xFF\x62\x1B[200~c\xC3\xA9\x64\x1B[201~");
    EXPECT_EQ(keys(), "ab{cd}");
}

}  // namespace
}  // namespace quillmere::test
