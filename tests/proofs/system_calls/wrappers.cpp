// The wrappers of the system calls: --wrap=open redirects open to __wrap_open and keeps the real one as
// __real_open. The linker determines these names.
#include "proofs/system_calls/wrappers.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>

namespace quillmere::test {

SystemCallWatch* currentWatch = nullptr;

namespace {

/// Makes a call, or fails it as the watch demands, and records the result.
template <class Call>
int made(CallRecord record, Call call)
{
    const std::optional<Fault> fault = currentWatch->nextFault(record.call);
    const bool fails = fault && fault->error != 0;
    const int result = fails ? -1 : call();
    record.error = result == -1 ? (fails ? fault->error : errno) : 0;
    const int error = record.error;
    currentWatch->add(std::move(record));
    // Recording allocates memory, which may change errno.
    errno = error != 0 ? error : errno;
    return result;
}

std::size_t shortened(std::size_t count, const std::optional<Fault>& fault)
{
    switch (fault ? fault->shortfall : Shortfall::none) {
        case Shortfall::none: return count;
        // Transfers at least one byte: zero would have another meaning.
        case Shortfall::oneByte: return count > 1 ? count - 1 : count;
        case Shortfall::half: return count > 1 ? count / 2 : count;
        case Shortfall::allButOneByte: return count > 1 ? 1 : count;
        case Shortfall::everything: return 0;
    }
    return count;
}

/// The same for a call that transfers bytes: all, some or none of them.
template <class Transfer>
ssize_t moved(CallRecord record, std::size_t count, Transfer transfer)
{
    const std::optional<Fault> fault = currentWatch->nextFault(record.call);
    const bool fails = fault && fault->error != 0;
    const std::size_t most = shortened(count, fault);
    const ssize_t result = fails ? -1 : (most == 0 && count > 0 ? 0 : transfer(most));
    record.error = result == -1 ? (fails ? fault->error : errno) : 0;
    const int error = record.error;
    if (record.call == SystemCall::write) {
        record.data.resize(result > 0 ? static_cast<std::size_t>(result) : 0);
    }
    currentWatch->add(std::move(record));
    errno = error != 0 ? error : errno;
    return result;
}

CallRecord onPath(SystemCall call, const char* path) { return {.call = call, .path = path}; }

CallRecord onDescriptor(SystemCall call, int descriptor)
{
    return {.call = call, .path = currentWatch->pathOf(descriptor)};
}

}  // namespace
}  // namespace quillmere::test

using namespace quillmere::test;

extern "C" {

int __real_mkdir(const char* path, mode_t mode);
int __real_chmod(const char* path, mode_t mode);
int __real_stat(const char* path, struct stat* status);
int __real_lstat(const char* path, struct stat* status);
int __real_fstat(int descriptor, struct stat* status);
int __real_open(const char* path, int flags, ...);
ssize_t __real_read(int descriptor, void* bytes, size_t count);
ssize_t __real_write(int descriptor, const void* bytes, size_t count);
ssize_t __real_copy_file_range(int from, off64_t* fromOffset, int to, off64_t* toOffset, size_t count,
                               unsigned flags);
int __real_fsync(int descriptor);
int __real_close(int descriptor);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);

int __wrap_mkdir(const char* path, mode_t mode)
{
    const auto call = [&] { return __real_mkdir(path, mode); };
    return currentWatch ? made(onPath(SystemCall::mkdir, path), call) : call();
}

int __wrap_chmod(const char* path, mode_t mode)
{
    const auto call = [&] { return __real_chmod(path, mode); };
    return currentWatch ? made(onPath(SystemCall::chmod, path), call) : call();
}

int __wrap_stat(const char* path, struct stat* status)
{
    const auto call = [&] { return __real_stat(path, status); };
    return currentWatch ? made(onPath(SystemCall::stat, path), call) : call();
}

int __wrap_lstat(const char* path, struct stat* status)
{
    const auto call = [&] { return __real_lstat(path, status); };
    return currentWatch ? made(onPath(SystemCall::lstat, path), call) : call();
}

int __wrap_fstat(int descriptor, struct stat* status)
{
    const auto call = [&] { return __real_fstat(descriptor, status); };
    return currentWatch ? made(onDescriptor(SystemCall::fstat, descriptor), call) : call();
}

int __wrap_open(const char* path, int flags, ...)
{
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list arguments;
        va_start(arguments, flags);
        mode = va_arg(arguments, mode_t);
        va_end(arguments);
    }
    const auto call = [&] { return __real_open(path, flags, mode); };
    if (!currentWatch) {
        return call();
    }
    CallRecord record = onPath(SystemCall::open, path);
    record.creates = (flags & O_CREAT) != 0;
    record.isExclusive = (flags & O_EXCL) != 0;
    const int descriptor = made(std::move(record), call);
    if (descriptor != -1) {
        currentWatch->opened(descriptor, path);
    }
    return descriptor;
}

ssize_t __wrap_read(int descriptor, void* bytes, size_t count)
{
    const auto call = [&](std::size_t most) { return __real_read(descriptor, bytes, most); };
    return currentWatch ? moved(onDescriptor(SystemCall::read, descriptor), count, call) : call(count);
}

ssize_t __wrap_write(int descriptor, const void* bytes, size_t count)
{
    const auto call = [&](std::size_t most) { return __real_write(descriptor, bytes, most); };
    if (!currentWatch) {
        return call(count);
    }
    CallRecord record = onDescriptor(SystemCall::write, descriptor);
    record.offset = static_cast<std::uint64_t>(::lseek(descriptor, 0, SEEK_CUR));
    record.data.assign(static_cast<const char*>(bytes), count);
    return moved(std::move(record), count, call);
}

/// Recorded as a write of the copied bytes.
ssize_t __wrap_copy_file_range(int from, off64_t* fromOffset, int to, off64_t* toOffset, size_t count,
                               unsigned flags)
{
    const auto call = [&](std::size_t most) {
        return __real_copy_file_range(from, fromOffset, to, toOffset, most, flags);
    };
    if (!currentWatch) {
        return call(count);
    }
    CallRecord record = onDescriptor(SystemCall::write, to);
    record.offset = static_cast<std::uint64_t>(::lseek(to, 0, SEEK_CUR));
    record.data.resize(count);
    const ssize_t copied = ::pread(from, record.data.data(), count, *fromOffset);
    record.data.resize(static_cast<std::size_t>(std::max<ssize_t>(copied, 0)));
    return moved(std::move(record), count, call);
}

int __wrap_fsync(int descriptor)
{
    return currentWatch ? made(onDescriptor(SystemCall::fsync, descriptor), [] { return 0; })
                        : __real_fsync(descriptor);
}

int __wrap_close(int descriptor)
{
    if (!currentWatch) {
        return __real_close(descriptor);
    }
    // Even a close that reports an error has closed the descriptor.
    CallRecord record = onDescriptor(SystemCall::close, descriptor);
    currentWatch->closed(descriptor);
    const int result = __real_close(descriptor);
    return made(std::move(record), [&] { return result; });
}

int __wrap_rename(const char* from, const char* to)
{
    const auto call = [&] { return __real_rename(from, to); };
    if (!currentWatch) {
        return call();
    }
    CallRecord record = onPath(SystemCall::rename, from);
    record.destination = to;
    return made(std::move(record), call);
}

int __wrap_unlink(const char* path)
{
    const auto call = [&] { return __real_unlink(path); };
    return currentWatch ? made(onPath(SystemCall::unlink, path), call) : call();
}

}  // extern "C"
