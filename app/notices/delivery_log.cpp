#include "notices/delivery_log.hpp"

#include "base/system/directory_names.hpp"
#include "base/system/file_age.hpp"
#include "base/system/private_directory.hpp"
#include "base/text/failure.hpp"

#include <quillmere/store/file_manager.hpp>

#include <algorithm>
#include <system_error>
#include <utility>

namespace quillmere::notices {
namespace {

namespace fs = std::filesystem;

constexpr double retention = 40 * 86'400;  // seconds

/// Creates the file; false when it exists.
bool createRecord(const fs::path& directory, const std::string& key)
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
        // Another process was faster.
        if (error.code() == std::errc::file_exists) {
            return false;
        }
        throw;
    }
}

}  // namespace

DeliveryLog::DeliveryLog(fs::path directory, base::LineWriter& messages)
    : directory_(std::move(directory)), errors_(messages)
{
    std::error_code ignored;
    for (std::string& name : base::namesInDirectory(directory_, ignored)) {
        atStart_.insert(std::move(name));
    }
}

bool DeliveryLog::has(const std::string& key) const
{
    std::error_code ignored;
    return own_.contains(key) || (!directory_.empty() && fs::exists(directory_ / key, ignored));
}

bool DeliveryLog::record(const std::string& key)
{
    if (own_.contains(key)) {
        return false;
    }
    if (!directory_.empty()) {
        try {
            if (!createRecord(directory_, key)) {
                return false;
            }
        } catch (const std::system_error& error) {
            // A duplicate is better than silence.
            errors_.report("records", "Notices may be given more than once: " + base::fileErrorText(error));
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

void DeliveryLog::prune(const std::vector<std::string>& standing) const
{
    std::error_code ignored;
    for (const std::string& name : base::namesInDirectory(directory_, ignored)) {
        const bool stands = std::any_of(standing.begin(), standing.end(),
                                        [&](const std::string& key) { return name.ends_with(key); });
        if (!stands && base::secondsSinceWritten(directory_ / name) > retention) {
            fs::remove(directory_ / name, ignored);
        }
    }
}

}  // namespace quillmere::notices
