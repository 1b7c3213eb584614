#include "support/process_settings.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace quillmere::test {
namespace {

constexpr uid_t superuser = 0;
constexpr uid_t nobody = 65534;

void set(const char* name, const std::optional<std::string>& value)
{
    if (value) {
        ::setenv(name, value->c_str(), 1);
    } else {
        ::unsetenv(name);
    }
}

}  // namespace

EnvironmentVariable::EnvironmentVariable(const char* name, const std::optional<std::string>& value)
    : name_(name)
{
    if (const char* const before = std::getenv(name)) {
        before_ = before;
    }
    set(name, value);
}

EnvironmentVariable::~EnvironmentVariable() { set(name_, before_); }

FileCreationMask::FileCreationMask(mode_t mask) : before_(::umask(mask)) {}

FileCreationMask::~FileCreationMask() { ::umask(before_); }

CurrentDirectory::CurrentDirectory(const std::filesystem::path& directory)
    : before_(std::filesystem::current_path())
{
    std::filesystem::current_path(directory);
}

CurrentDirectory::~CurrentDirectory()
{
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
}

FileSizeLimit::FileSizeLimit(rlim_t bytes)
{
    // The signal would end the program before the write could fail.
    handlerBefore_ = std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit()
{
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handlerBefore_);
}

UnprivilegedUser::UnprivilegedUser() : wasSuperuser_(::geteuid() == superuser)
{
    if (wasSuperuser_) {
        // isOne tells whether it worked.
        [[maybe_unused]] const int result = ::seteuid(nobody);
    }
}

UnprivilegedUser::~UnprivilegedUser()
{
    if (wasSuperuser_) {
        [[maybe_unused]] const int result = ::seteuid(superuser);
    }
}

bool UnprivilegedUser::isOne() const { return ::geteuid() != superuser; }

}  // namespace quillmere::test
