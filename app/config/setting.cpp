#include "config/setting.hpp"

#include "base/text/duration.hpp"

#include <algorithm>
#include <utility>

namespace quillmere::config {
namespace {

bool isWithin(double number, const Limits& limits)
{
    return number >= static_cast<double>(limits.least) && number <= static_cast<double>(limits.most);
}

template <RawEnumeration Enumeration>
std::string namesOf()
{
    std::string names;
    for (const Enumeration value : allCases<Enumeration>()) {
        names.append(names.empty() ? "" : ", ").append(tomlText(rawValue(value)));
    }
    return names;
}

// One overload of each for each type of member.

bool setTo(double& member, const TomlValue& value, const Limits& limits)
{
    const auto* const text = std::get_if<std::string>(&value);
    const auto* const minutes = std::get_if<std::int64_t>(&value);
    if (!text && !minutes) {
        return false;
    }
    const std::optional<double> seconds = base::durationFromText(text ? *text : std::to_string(*minutes));
    const bool isTaken = seconds && isWithin(*seconds, limits);
    member = isTaken ? *seconds : member;
    return isTaken;
}

bool setTo(std::int64_t& member, const TomlValue& value, const Limits& limits)
{
    const auto* const number = std::get_if<std::int64_t>(&value);
    const bool isTaken = number && *number >= limits.least && *number <= limits.most;
    member = isTaken ? *number : member;
    return isTaken;
}

bool setTo(std::string& member, const TomlValue& value, const Limits&)
{
    const auto* const text = std::get_if<std::string>(&value);
    member = text ? *text : member;
    return text;
}

bool setTo(std::vector<std::string>& member, const TomlValue& value, const Limits&)
{
    if (const auto* const text = std::get_if<std::string>(&value)) {
        member = {*text};
        return true;
    }
    const auto* const texts = std::get_if<std::vector<std::string>>(&value);
    member = texts ? *texts : member;
    return texts;
}

bool setTo(bool& member, const TomlValue& value, const Limits&)
{
    const auto* const truth = std::get_if<bool>(&value);
    member = truth ? *truth : member;
    return truth;
}

bool setTo(std::vector<double>& member, const TomlValue& value, const Limits& limits)
{
    const auto* const texts = std::get_if<std::vector<std::string>>(&value);
    if (!texts) {
        return false;
    }
    std::vector<double> durations;
    for (const std::string& text : *texts) {
        if (!setTo(durations.emplace_back(), text, limits)) {
            return false;
        }
    }
    std::sort(durations.begin(), durations.end());
    durations.erase(std::unique(durations.begin(), durations.end()), durations.end());
    member = std::move(durations);
    return true;
}

template <RawEnumeration Enumeration>
bool setTo(Enumeration& member, const TomlValue& value, const Limits&)
{
    const auto* const name = std::get_if<std::string>(&value);
    const auto named = name ? fromRawValue<Enumeration>(*name) : std::nullopt;
    member = named.value_or(member);
    return named.has_value();
}

bool setTo(std::vector<Weekday>& member, const TomlValue& value, const Limits& limits)
{
    std::vector<std::string> names;
    if (!setTo(names, value, limits)) {
        return false;
    }
    std::vector<Weekday> days;
    for (const std::string& name : names) {
        const std::optional<Weekday> day = fromRawValue<Weekday>(name);
        if (!day) {
            return false;
        }
        days.push_back(*day);
    }
    std::sort(days.begin(), days.end());
    days.erase(std::unique(days.begin(), days.end()), days.end());
    member = std::move(days);
    return true;
}

bool setTo(std::filesystem::path& member, const TomlValue& value, const Limits&)
{
    const auto* const text = std::get_if<std::string>(&value);
    const bool isTaken =
        text && (text->starts_with("/") || text->starts_with("~/")) && text->find('\0') == std::string::npos;
    if (isTaken) {
        member = *text;
    }
    return isTaken;
}

template <class Value>
bool setTo(std::optional<Value>& member, const TomlValue& value, const Limits& limits)
{
    Value taken{};
    if (!setTo(taken, value, limits)) {
        return false;
    }
    member = std::move(taken);
    return true;
}

std::string textOf(double seconds) { return tomlText(base::durationAsTyped(seconds)); }
std::string textOf(std::int64_t number) { return std::to_string(number); }
std::string textOf(bool truth) { return truth ? "true" : "false"; }
std::string textOf(const std::string& text) { return tomlText(text); }
std::string textOf(const std::filesystem::path& path)
{
    return path.empty() ? std::string() : tomlText(path.string());
}
template <RawEnumeration Enumeration>
std::string textOf(Enumeration value)
{
    return tomlText(rawValue(value));
}
template <class Value>
std::string textOf(const std::optional<Value>& value)
{
    return value ? textOf(*value) : std::string();
}
template <class Value>
std::string textOf(const std::vector<Value>& values)
{
    std::string list;
    for (const Value& value : values) {
        list += (list.empty() ? "" : ", ") + textOf(value);
    }
    return list.empty() ? list : "[" + list + "]";
}
/// Its usual value is not empty, so an empty list is a value of its own.
std::string textOf(const std::vector<double>& values)
{
    std::string list;
    for (const double value : values) {
        list += (list.empty() ? "" : ", ") + textOf(value);
    }
    return "[" + list + "]";
}

std::string durationsWithin(const Limits& limits)
{
    return "from " + base::durationText(static_cast<double>(limits.least)) + " to " +
           base::durationText(static_cast<double>(limits.most)) + ", such as ";
}

std::string acceptedBy(double, const Limits& limits)
{
    return "a duration " + durationsWithin(limits) + "\"25m\" or \"1h30m\"";
}
std::string acceptedBy(const std::vector<double>&, const Limits& limits)
{
    return "a list of durations " + durationsWithin(limits) + "[\"5m\", \"1h30m\"]";
}
std::string acceptedBy(bool, const Limits&) { return "true or false"; }
std::string acceptedBy(std::int64_t, const Limits& limits)
{
    return "a whole number from " + std::to_string(limits.least) + " to " + std::to_string(limits.most);
}
std::string acceptedBy(const std::string&, const Limits&) { return "a text"; }
std::string acceptedBy(const std::vector<std::string>&, const Limits&)
{
    return "a text, or a list of texts";
}
std::string acceptedBy(const std::filesystem::path&, const Limits&)
{
    return "a path that begins with / or ~/";
}
template <RawEnumeration Enumeration>
std::string acceptedBy(Enumeration, const Limits&)
{
    return "one of " + namesOf<Enumeration>();
}
std::string acceptedBy(const std::vector<Weekday>&, const Limits&)
{
    return "a list of days of the week, of " + namesOf<Weekday>();
}
template <class Value>
std::string acceptedBy(const std::optional<Value>&, const Limits& limits)
{
    return acceptedBy(Value{}, limits);
}

}  // namespace

template <class Record>
bool set(Record& record, const Key<Record>& key, const TomlValue& value)
{
    return std::visit([&](const auto member) { return setTo(record.*member, value, key.limits); },
                      key.member);
}

template <class Record>
std::string accepted(const Key<Record>& key)
{
    return std::visit([&](const auto member) { return acceptedBy(Record().*member, key.limits); },
                      key.member);
}

template <class Record>
std::string written(const Record& record, const Key<Record>& key)
{
    return std::visit([&](const auto member) { return textOf(record.*member); }, key.member);
}

template bool set(Values&, const Key<Values>&, const TomlValue&);
template bool set(Template&, const Key<Template>&, const TomlValue&);
template std::string accepted(const Key<Values>&);
template std::string accepted(const Key<Template>&);
template std::string written(const Values&, const Key<Values>&);
template std::string written(const Template&, const Key<Template>&);

}  // namespace quillmere::config
