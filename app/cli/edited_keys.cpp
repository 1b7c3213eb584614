#include "cli/edited_keys.hpp"

#include "cli/libedit.hpp"
#include "cli/utf8_locale.hpp"

#include <histedit.h>

#include <cwchar>
#include <string_view>

namespace quillmere::cli {
namespace {

// Characters that no key of the keyboard leads to, since these are left out below.
constexpr wchar_t removeNext = L'\x1C';
constexpr wchar_t toPreviousWord = L'\x1D';
constexpr wchar_t toNextWord = L'\x1E';
constexpr wchar_t lineBreak = L'\x1F';

// Characters that libedit binds by itself.
constexpr wchar_t toBegin = L'\x01';
constexpr wchar_t toLeft = L'\x02';
constexpr wchar_t toEnd = L'\x05';
constexpr wchar_t toRight = L'\x06';
constexpr wchar_t toLater = L'\x0E';
constexpr wchar_t toEarlier = L'\x10';
constexpr wchar_t metaPrefix = L'\x1B';
constexpr wchar_t removePrevious = L'\x7F';

/// With Control. Left out are those that take the next character literally, run commands, or end nothing.
constexpr std::string_view lettersWithControl = "abdefgklnprtuwy";

unsigned char insertLineBreak(EditLine* line, wint_t)
{
    return libedit().insert(line, L"\n") == 0 ? CC_REFRESH : CC_ERROR;
}

void bind(EditLine* line, const wchar_t* key, const wchar_t* function)
{
    libedit().set(line, EL_BIND, key, function, nullptr);
}

/// A paste without the line breaks around it. Tabs become spaces, and so do line breaks in a line.
std::wstring pastedText(const std::string& text, bool takesLines)
{
    const std::size_t begin = text.find_first_not_of('\n');
    const std::size_t end = text.find_last_not_of('\n');
    const std::string part = begin == std::string::npos ? "" : text.substr(begin, end - begin + 1);
    std::wstring characters;
    for (const wchar_t character : wideText(part)) {
        if (character == L'\n') {
            characters += takesLines ? lineBreak : L' ';
        } else {
            characters += character == L'\t' ? L' ' : character;
        }
    }
    return characters;
}

/// Removes U+FFFD, which stands for bytes that were not UTF-8.
std::wstring withoutReplacements(std::wstring text)
{
    std::erase(text, L'\uFFFD');
    return text;
}

}  // namespace

void bindKeys(EditLine* line)
{
    libedit().set(line, EL_EDITOR, L"emacs");
    libedit().set(line, EL_ADDFN, L"quillmere-insert-line-break", L"Insert a line break", insertLineBreak);
    bind(line, L"^\\", L"ed-delete-next-char");
    bind(line, L"^]", L"ed-prev-word");
    bind(line, L"^^", L"em-next-word");
    bind(line, L"^_", L"quillmere-insert-line-break");
    bind(line, L"^W", L"ed-delete-prev-word");
    bind(line, L"^Q", L"ed-redisplay");
    // Runs commands of libedit.
    bind(line, L"\\ex", L"ed-unassigned");
    bind(line, L"\\eX", L"ed-unassigned");
}

std::wstring charactersOf(const screen::Key& key, bool takesLines)
{
    using enum screen::Key::Kind;
    switch (key.kind) {
        case character: return withoutReplacements(wideText(key.text));
        case paste: return withoutReplacements(pastedText(key.text, takesLines));
        case control:
            return lettersWithControl.find(key.text) == std::string_view::npos
                       ? std::wstring()
                       : std::wstring(1, static_cast<wchar_t>(key.text[0] - 'a' + 1));
        case enter: return L"\n";
        case backspace: return {removePrevious};
        case remove: return {removeNext};
        case left: return {toLeft};
        case right: return {toRight};
        case up: return {toEarlier};
        case down: return {toLater};
        case home: return {toBegin};
        case end: return {toEnd};
        case wordLeft: return {toPreviousWord};
        case wordRight: return {toNextWord};
        case escape: return {metaPrefix};
        case tab:
        case backTab:
        case pageUp:
        case pageDown:
        case click: break;
    }
    return {};
}

}  // namespace quillmere::cli
