#include "work/forms/drafts.hpp"

#include "base/system/directory_names.hpp"
#include "base/system/file_age.hpp"
#include "base/system/private_directory.hpp"
#include "base/system/replace_file.hpp"

#include <nlohmann/json.hpp>
#include <quillmere/store/file_manager.hpp>

#include <algorithm>

namespace quillmere::work {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

constexpr std::string_view namesBegin = "draft-";
constexpr double longestKept = 30 * 86'400;  // seconds

// An object with one member for each changed field; the value of a member has these members.
constexpr const char* beginningName = "began";
constexpr const char* valueName = "value";
// The members of an item of a list.
constexpr const char* keyName = "key";
constexpr const char* textName = "text";

Json jsonOf(const FieldValue& value)
{
    if (const auto* const text = std::get_if<std::string>(&value)) {
        return *text;
    }
    Json list = Json::array();
    for (const ListItem& item : std::get<std::vector<ListItem>>(value)) {
        list.push_back({{keyName, item.key}, {textName, item.text}});
    }
    return list;
}

bool hasText(const Json& item, const char* name)
{
    return item.is_object() && item.contains(name) && item[name].is_string();
}

/// Absent when the JSON is no value of a field.
std::optional<FieldValue> valueFrom(const Json& json)
{
    if (json.is_string()) {
        return json.get<std::string>();
    }
    std::vector<ListItem> items;
    for (const Json& item : json.is_array() ? json : Json::array()) {
        if (!hasText(item, keyName) || !hasText(item, textName)) {
            return std::nullopt;
        }
        items.push_back({item[keyName], item[textName]});
    }
    return items.empty() ? std::nullopt : std::optional<FieldValue>(std::move(items));
}

std::vector<FieldChange> changesFrom(const Json& draft)
{
    std::vector<FieldChange> changes;
    for (const auto& [id, json] : draft.items()) {
        const std::optional<FieldValue> value =
            json.is_object() && json.contains(valueName) ? valueFrom(json[valueName]) : std::nullopt;
        if (value) {
            changes.push_back({id, valueFrom(json.value(beginningName, Json())), *value});
        }
    }
    return changes;
}

}  // namespace

std::string Drafts::nameOf(const FormSubject& subject)
{
    return std::string(namesBegin) + std::string(rawValue(subject.kind)) + "-" + subject.name + ".json";
}

void Drafts::keep(const Form& form) const
{
    if (directory_.empty()) {
        return;
    }
    Json draft = Json::object();
    for (const FieldChange& change : form.changes()) {
        draft[change.id] = {{beginningName, jsonOf(change.beginning.value_or(FieldValue()))},
                            {valueName, jsonOf(change.value)}};
    }
    if (draft.empty()) {
        forget(form.subject());
        return;
    }
    base::createOwnersDirectory(directory_);
    // Malformed UTF-8 is replaced: it must not cost the rest of the draft.
    const std::string text = draft.dump(2, ' ', false, Json::error_handler_t::replace);
    base::replaceOwnFile(fileOf(form.subject()), text);
}

BroughtBack Drafts::fillIn(Form& form) const
{
    if (directory_.empty()) {
        return BroughtBack::nothing;
    }
    try {
        const Bytes text = FileManager::standard().contents(fileOf(form.subject()));
        const auto draft = Json::parse(text.view(), nullptr, false);
        return draft.is_object() ? form.bringBack(changesFrom(draft)) : BroughtBack::nothing;
    } catch (const std::system_error&) {
        return BroughtBack::nothing;
    }
}

void Drafts::removeOld(const std::vector<FormSubject>& current) const
{
    std::error_code ignored;
    const auto isCurrent = [&](const std::string& name) {
        return std::any_of(current.begin(), current.end(),
                           [&](const FormSubject& subject) { return nameOf(subject) == name; });
    };
    for (const std::string& name : base::namesInDirectory(directory_, ignored)) {
        const fs::path file = directory_ / name;
        if (name.starts_with(namesBegin) && !isCurrent(name) &&
            base::secondsSinceWritten(file) > longestKept) {
            fs::remove(file, ignored);
        }
    }
}

void Drafts::forget(const FormSubject& subject) const
{
    if (!directory_.empty() && FileManager::standard().fileExists(fileOf(subject))) {
        FileManager::standard().removeFile(fileOf(subject));
    }
}

}  // namespace quillmere::work
