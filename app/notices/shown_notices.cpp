#include "notices/shown_notices.hpp"

#include <quillmere/store/atomic_write.hpp>
#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/state_store.hpp>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <system_error>
#include <utility>

namespace quillmere::notices {

ShownNotices::ShownNotices(std::filesystem::path file) : file_(std::move(file)) { load(); }

void ShownNotices::read(const std::string& service)
{
    load();
    if (service_ != service) {
        service_ = service;
        numbers_.clear();
    }
}

std::uint32_t ShownNotices::numberOf(NoticeSubject subject) const
{
    const auto shown = numbers_.find(subject);
    return shown == numbers_.end() ? 0 : shown->second;
}

bool ShownNotices::has(std::uint32_t number) const
{
    return std::any_of(numbers_.begin(), numbers_.end(),
                       [&](const auto& shown) { return shown.second == number; });
}

void ShownNotices::show(NoticeSubject subject, std::uint32_t number)
{
    if (numberOf(subject) != number) {
        numbers_[subject] = number;
        save();
    }
}

void ShownNotices::close(std::uint32_t number)
{
    if (std::erase_if(numbers_, [&](const auto& shown) { return shown.second == number; }) > 0) {
        save();
    }
}

void ShownNotices::load()
{
    service_.clear();
    numbers_.clear();
    if (file_.empty()) {
        return;
    }
    try {
        const Bytes text = FileManager::standard().contents(file_);
        const auto content = nlohmann::json::parse(text.view());
        service_ = content.at("service").get<std::string>();
        numbers_ = content.at("numbers").get<std::map<NoticeSubject, std::uint32_t>>();
    } catch (const std::system_error&) {
        // Usually the file does not exist.
    } catch (const nlohmann::json::exception&) {
        service_.clear();
    }
}

void ShownNotices::save() const
{
    if (file_.empty()) {
        return;
    }
    const std::string text = nlohmann::json{{"service", service_}, {"numbers", numbers_}}.dump();
    try {
        writeAtomically([&](const ByteSink& sink) { sink(text); }, file_, StateStore::renameReplacing);
    } catch (const std::system_error&) {
        // Not reported: the only effect is that a later notice does not replace this one.
    }
}

}  // namespace quillmere::notices
