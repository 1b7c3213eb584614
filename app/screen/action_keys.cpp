#include "screen/action_keys.hpp"

#include <array>

namespace quillmere::screen {
namespace {

using work::ActionId;

struct KeyRow {
    ActionId value;
    char key;
    bool isUsual = true;
};

constexpr char escapeSign = '\x1b';

constexpr auto keyRows = std::to_array<KeyRow>({
    {ActionId::planBlock, 'p'},
    {ActionId::startScheduled, 's'},
    {ActionId::editScheduled, 'e'},
    {ActionId::cancelScheduled, 'c'},
    {ActionId::leavePlanning, escapeSign},
    {ActionId::startPassed, 's'},
    {ActionId::delayPassed, 't'},
    {ActionId::drop, 'd'},
    {ActionId::pause, ' '},
    {ActionId::resume, ' '},
    {ActionId::endFocus, 'e'},
    {ActionId::lengthen, '+'},
    {ActionId::shorten, '-', false},
    {ActionId::chooseLength, 'l', false},
    {ActionId::endEarlier, 't', false},
    {ActionId::wasAway, 'w', false},
    {ActionId::endBreak, 'e'},
    {ActionId::finishNow, 'f', false},
    {ActionId::changeBlock, 'c', false},
    {ActionId::correctSession, 'k', false},
    {ActionId::reset, 'x'},
});
static_assert(inCaseOrder(keyRows));

/// The character that a key stands for in the table; '\0' for keys that no action has.
char signOf(const Key& key)
{
    if (key.kind == Key::Kind::escape) {
        return escapeSign;
    }
    return key.kind == Key::Kind::character && key.text.size() == 1 ? key.text.front() : '\0';
}

}  // namespace

std::string keyName(ActionId action)
{
    const char key = rowOf(keyRows, action).key;
    return key == ' ' ? "space" : key == escapeSign ? "Esc" : std::string(1, key);
}

std::optional<Key> keyNamed(std::string_view name)
{
    struct NamedKey {
        std::string_view name;
        Key::Kind kind;
    };
    constexpr auto namedKeys = std::to_array<NamedKey>({{"Esc", Key::Kind::escape},
                                                        {"Tab", Key::Kind::tab},
                                                        {"Enter", Key::Kind::enter},
                                                        {"PgDn", Key::Kind::pageDown}});
    for (const NamedKey& named : namedKeys) {
        if (named.name == name) {
            return Key{named.kind};
        }
    }
    if (name == "space") {
        return typed(" ");
    }
    if (name.size() == 2 && name.front() == '^' && name.back() >= 'A' && name.back() <= 'Z') {
        return withControl(static_cast<char>(name.back() - 'A' + 'a'));
    }
    return name.size() == 1 ? std::optional(typed(std::string(name))) : std::nullopt;
}

bool isUsual(ActionId action) { return rowOf(keyRows, action).isUsual; }

const work::Action* actionOn(const Key& key, const workspace::Situation& situation)
{
    const char sign = signOf(key);
    for (const work::Action* const action : work::actionsFor(situation)) {
        if (rowOf(keyRows, action->id).key == sign) {
            return action;
        }
    }
    return nullptr;
}

}  // namespace quillmere::screen
