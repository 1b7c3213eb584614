#include "proofs/system_calls/expectation.hpp"

#include <cerrno>
#include <filesystem>

#include "proofs/system_calls/call_errors.hpp"

namespace quillmere::test {
namespace {

bool leadsNowhere(int error) { return error == ENOENT || error == ENOTDIR; }

/// Whether the call operates on a directory: saves open and sync nothing else but temporary files.
bool isOnDirectory(const CallRecord& record)
{
    return std::filesystem::path(record.path).extension() != ".tmp";
}

/// Whether the error says that a directory cannot be synced here, which is no failure.
bool meansNotOffered(const CallRecord& record, int error)
{
    const bool syncs = record.call == SystemCall::open || record.call == SystemCall::fsync;
    return syncs && isOnDirectory(record) && (error == EACCES || error == EINVAL || error == ENOTSUP);
}

/// Whether the save succeeds in spite of the failed call.
bool isAbsorbed(const CallRecord& record, int error)
{
    if (error == 0 || record.error == error) {
        return true;  // a short transfer, or the error that the undisturbed call returns too
    }
    if (error == EINTR && (isContinued(record.call) || record.call == SystemCall::close)) {
        return true;
    }
    // A directory that lstat does not find is created, and mkdir accepts an existing one. A failed removal is
    // ignored.
    return meansNotOffered(record, error) || record.call == SystemCall::unlink ||
           (record.call == SystemCall::lstat && leadsNowhere(error));
}

/// The index of the first call of the fault that fails the save, or the number of calls.
std::size_t firstFailing(const std::vector<CallRecord>& calls, std::size_t index, const Fault& fault)
{
    const std::size_t end = fault.fromThereOn ? calls.size() : index + 1;
    for (std::size_t hit = index; hit < end; ++hit) {
        if (calls[hit].call == fault.call && !isAbsorbed(calls[hit], fault.error)) {
            return hit;
        }
    }
    return calls.size();
}

int reported(const CallRecord& record, int error)
{
    if (record.call == SystemCall::rename && error == unknownError) {
        return EIO;
    }
    // An existing name whose target stat cannot find is an error: EEXIST.
    return record.call == SystemCall::stat && leadsNowhere(error) ? EEXIST : error;
}

}  // namespace

bool isContinued(SystemCall call)
{
    return call == SystemCall::open || call == SystemCall::read || call == SystemCall::write ||
           call == SystemCall::fsync || call == SystemCall::chmod;
}

Expectation expectedOfSave(const Situation& situation, const std::vector<CallRecord>& calls,
                           std::size_t index, const Fault& fault)
{
    const std::size_t fileCount = situation.store == StoreKind::state ? 2 : 1;
    const Version before = situation.before == Before::earlierFile ? Version::older : Version::none;
    Expectation expected{.error = 0, .files = std::vector<Version>(fileCount, Version::newer)};
    const std::size_t failing = firstFailing(calls, index, fault);
    if (failing == calls.size()) {
        return expected;
    }
    expected.error = reported(calls[failing], fault.error);
    std::size_t replaced = 0;
    for (std::size_t earlier = 0; earlier < failing; ++earlier) {
        replaced += calls[earlier].call == SystemCall::rename ? 1 : 0;
    }
    for (std::size_t file = replaced; file < fileCount; ++file) {
        expected.files[file] = before;
    }
    return expected;
}

}  // namespace quillmere::test
