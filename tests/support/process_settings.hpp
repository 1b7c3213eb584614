// Settings of the whole process, changed for as long as an object lives and then put back.
#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>

namespace quillmere::test {

/// An environment variable with another value, or with none.
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

/// The permissions that new files and directories do not get.
class FileCreationMask {
public:
    explicit FileCreationMask(mode_t mask);
    FileCreationMask(const FileCreationMask&) = delete;
    FileCreationMask& operator=(const FileCreationMask&) = delete;
    ~FileCreationMask();

private:
    mode_t before_;
};

/// Where relative paths begin.
class CurrentDirectory {
public:
    explicit CurrentDirectory(const std::filesystem::path& directory);
    CurrentDirectory(const CurrentDirectory&) = delete;
    CurrentDirectory& operator=(const CurrentDirectory&) = delete;
    ~CurrentDirectory();

private:
    std::filesystem::path before_;
};

/// A limit on the size of files: a write is cut short there, and the next one fails with EFBIG. It stands
/// for a disk that is full.
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

/// A user whom permissions hold back. Tests that run as any other than the superuser are one already.
class UnprivilegedUser {
public:
    UnprivilegedUser();
    UnprivilegedUser(const UnprivilegedUser&) = delete;
    UnprivilegedUser& operator=(const UnprivilegedUser&) = delete;
    ~UnprivilegedUser();

    /// False where the system does not let the superuser become anybody else.
    bool isOne() const;

private:
    bool wasSuperuser_;
};

}  // namespace quillmere::test
