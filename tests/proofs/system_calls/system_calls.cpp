#include "proofs/system_calls/system_calls.hpp"

#include <cerrno>
#include <utility>

#include "proofs/system_calls/wrappers.hpp"

namespace quillmere::test {

std::string_view nameOf(SystemCall call)
{
    switch (call) {
        case SystemCall::mkdir: return "mkdir";
        case SystemCall::chmod: return "chmod";
        case SystemCall::stat: return "stat";
        case SystemCall::lstat: return "lstat";
        case SystemCall::fstat: return "fstat";
        case SystemCall::open: return "open";
        case SystemCall::read: return "read";
        case SystemCall::write: return "write";
        case SystemCall::fsync: return "fsync";
        case SystemCall::close: return "close";
        case SystemCall::rename: return "rename";
        case SystemCall::unlink: return "unlink";
    }
    return "unknown";
}

SystemCallWatch::SystemCallWatch(std::vector<Fault> faults) : faults_(std::move(faults))
{
    currentWatch = this;
}

SystemCallWatch::~SystemCallWatch() { currentWatch = nullptr; }

std::optional<Fault> SystemCallWatch::nextFault(SystemCall call)
{
    const std::size_t ordinal = callCounts_[static_cast<std::size_t>(call)]++;
    for (const Fault& fault : faults_) {
        const bool isMeant = fault.fromThereOn ? ordinal >= fault.ordinal : ordinal == fault.ordinal;
        if (fault.call != call || !isMeant) {
            continue;
        }
        if (fault.error == EINTR && interruptions_++ >= mostInterruptions) {
            continue;
        }
        ++faultCount_;
        return fault;
    }
    return std::nullopt;
}

void SystemCallWatch::opened(int descriptor, std::string path)
{
    const auto index = static_cast<std::size_t>(descriptor);
    if (open_.size() <= index) {
        open_.resize(index + 1);
    }
    open_[index] = std::move(path);
}

void SystemCallWatch::closed(int descriptor)
{
    const auto index = static_cast<std::size_t>(descriptor);
    if (descriptor < 0 || index >= open_.size() || !open_[index]) {
        sawInvalidClose_ = true;
    } else {
        open_[index].reset();
    }
}

const std::string& SystemCallWatch::pathOf(int descriptor) const
{
    static const std::string unknown;
    const auto index = static_cast<std::size_t>(descriptor);
    return descriptor >= 0 && index < open_.size() && open_[index] ? *open_[index] : unknown;
}

}  // namespace quillmere::test
