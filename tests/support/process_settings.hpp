// Settings of the whole process, changed for the lifetime of an object and then restored.
#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>

namespace quillmere::test {

/// Sets or removes an environment variable.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const std::optional<std::string>& value);
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable();

private:
    const char* name_;
    std::optional<std::string> before_;
};

/// The umask.
class FileCreationMask {
public:
    explicit FileCreationMask(mode_t mask);
    FileCreationMask(const FileCreationMask&) = delete;
    FileCreationMask& operator=(const FileCreationMask&) = delete;
    ~FileCreationMask();

private:
    mode_t before_;
};

/// The working directory.
class CurrentDirectory {
public:
    explicit CurrentDirectory(const std::filesystem::path& directory);
    CurrentDirectory(const CurrentDirectory&) = delete;
    CurrentDirectory& operator=(const CurrentDirectory&) = delete;
    ~CurrentDirectory();

private:
    std::filesystem::path before_;
};

/// Limits the size of files: a write is cut short there, and the next one fails with EFBIG, similar to a full
/// disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes);
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit();

private:
    rlimit before_;
    void (*handlerBefore_)(int);
};

/// An effective user without special rights. No change if the tests run as an ordinary user.
class UnprivilegedUser {
public:
    UnprivilegedUser();
    UnprivilegedUser(const UnprivilegedUser&) = delete;
    UnprivilegedUser& operator=(const UnprivilegedUser&) = delete;
    ~UnprivilegedUser();

    /// False where the system does not let the superuser change the user.
    bool isOne() const;

private:
    bool wasSuperuser_;
};

}  // namespace quillmere::test
