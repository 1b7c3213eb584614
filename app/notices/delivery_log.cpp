#include "notices/delivery_log.hpp"

#include "base/system/private_directory.hpp"
#include "base/text/failure.hpp"

#include <quillmere/store/file_manager.hpp>

#include <algorithm>
#include <chrono>
#include <system_error>
#include <utility>

namespace quillmere::notices {
namespace {

namespace fs = std::filesystem;

constexpr auto longestRecord = std::chrono::hours(24 * 40);

/// Whether the file was made; false when there is one.
bool makeRecord(const fs::path& directory, const std::string& key)
{
    const FileManager& fileManager = FileManager::standard();
    const fs::path record = directory / key;
    if (fileManager.fileExists(record)) {
        return false;
    }
    base::createOwnersDirectory(directory);
    try {
        fileManager.writeWithoutOverwriting(record, [](const ByteSink&) {});
        return true;
    } catch (const std::system_error& error) {
        // Somebody was faster.
        if (error.code() == std::errc::file_exists) {
            return false;
        }
        throw;
    }
}

}  // namespace

DeliveryLog::DeliveryLog(fs::path directory, base::LineWriter& messages)
    : directory_(std::move(directory)), trouble_(messages)
{
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory_, ignored)) {
        first_.insert(entry.path().filename());
    }
}

bool DeliveryLog::has(const std::string& key) const
{
    std::error_code ignored;
    return own_.contains(key) || (!directory_.empty() && fs::exists(directory_ / key, ignored));
}

bool DeliveryLog::make(const std::string& key)
{
    if (own_.contains(key)) {
        return false;
    }
    if (!directory_.empty()) {
        try {
            if (!makeRecord(directory_, key)) {
                return false;
            }
        } catch (const std::system_error& error) {
            // Told twice is better than not told.
            trouble_.met("records", "Notices may be given more than once: " + base::fileErrorText(error));
        }
    }
    own_.insert(key);
    return true;
}

void DeliveryLog::remove(const std::string& key)
{
    own_.erase(key);
    if (!directory_.empty()) {
        std::error_code ignored;
        fs::remove(directory_ / key, ignored);
    }
}

void DeliveryLog::removeOld(const std::vector<std::string>& standing) const
{
    const fs::file_time_type oldest = fs::file_time_type::clock::now() - longestRecord;
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory_, ignored)) {
        const std::string name = entry.path().filename();
        const bool stands = std::any_of(standing.begin(), standing.end(),
                                        [&](const std::string& key) { return name.ends_with(key); });
        const fs::file_time_type madeAt = entry.last_write_time(ignored);
        if (!ignored && madeAt < oldest && !stands) {
            fs::remove(entry.path(), ignored);
        }
    }
}

}  // namespace quillmere::notices
