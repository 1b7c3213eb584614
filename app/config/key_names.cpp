#include "config/key_names.hpp"

#include <algorithm>
#include <array>

namespace quillmere::config {
namespace {

template <class Record, std::size_t count>
const Key<Record>* keyIn(const std::array<Key<Record>, count>& table, std::string_view name)
{
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const Key<Record>& key) { return key.name == name; });
    return found == table.end() ? nullptr : &*found;
}

/// "focus, break, cycles": the keys whose names begin with `front`, without it.
template <class Record, std::size_t count>
std::string namesIn(const std::array<Key<Record>, count>& table, std::string_view front)
{
    std::string names;
    for (const Key<Record>& key : table) {
        if (key.name.starts_with(front)) {
            names.append(names.empty() ? "" : ", ").append(key.name.substr(front.size()));
        }
    }
    return names;
}

/// "The keys of [block] are focus, break, cycles."
std::string keysNear(const std::string& table)
{
    return isTable(table) ? "The keys of [" + table + "] are " + namesIn(keys, table + ".") + "."
                          : "The keys are " + namesIn(keys, "") +
                                "; templates stand in tables such as [template.report].";
}

}  // namespace

const Key<Values>* keyNamed(std::string_view name) { return keyIn(keys, name); }

const Key<Template>* templateKeyNamed(std::string_view name) { return keyIn(templateKeys, name); }

bool isTable(std::string_view name)
{
    const std::string front = std::string(name) + ".";
    return name == templateTable || std::any_of(keys.begin(), keys.end(), [&](const Key<Values>& key) {
               return key.name.starts_with(front);
           });
}

std::string unknownKeyText(const std::string& name, const std::string& table)
{
    return name + " is no key. " + keysNear(table);
}

std::string unknownTemplateKeyText(const std::string& name)
{
    return name + " is no key. The keys of a template are " + namesIn(templateKeys, "") + ".";
}

}  // namespace quillmere::config
