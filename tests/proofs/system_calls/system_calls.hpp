// The system calls of the library, watched and made to fail.
//
// A program that is linked with --wrap for each of these calls (see the CMakeLists.txt) sends them through
// here; the library knows nothing of it. While no watch lives, every call is the system's own. One thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::test {

/// Every call that a save or a load makes.
enum class SystemCall { mkdir, chmod, stat, lstat, fstat, open, read, write, fsync, close, rename, unlink };

inline constexpr std::size_t systemCallCount = 12;

std::string_view nameOf(SystemCall call);

/// A call that was made.
struct CallRecord {
    SystemCall call;
    std::string path;              ///< given, or that which the descriptor was opened with
    std::string destination = {};  ///< of a rename
    int error = 0;                 ///< 0 when it succeeded
    bool creates = false;          ///< an open that makes the file
    bool isExclusive = false;      ///< and fails when it is there
    std::uint64_t offset = 0;      ///< of a write
    std::string data = {};         ///< what was written
};

/// How much of a transfer is left out.
enum class Shortfall { none, oneByte, half, allButOneByte, everything };

/// What happens to a call.
struct Fault {
    SystemCall call;
    std::size_t ordinal;  ///< among those of the same name, from 0
    int error = 0;        ///< that it fails with, undone; closing is done all the same
    Shortfall shortfall = Shortfall::none;
    bool fromThereOn = false;  ///< or once
};

/// A signal cannot interrupt for ever: a fault with EINTR from there on ends after so many calls.
inline constexpr std::size_t mostInterruptions = 25;

/// Watches the calls of this process for as long as it lives. There is one at a time. Syncs are taken note
/// of and not made: nobody cuts the power.
class SystemCallWatch {
public:
    explicit SystemCallWatch(std::vector<Fault> faults = {});
    SystemCallWatch(const SystemCallWatch&) = delete;
    SystemCallWatch& operator=(const SystemCallWatch&) = delete;
    ~SystemCallWatch();

    const std::vector<CallRecord>& calls() const { return calls_; }

    /// How often a fault came to pass.
    std::size_t faultCount() const { return faultCount_; }

    /// Whether a descriptor was closed that was not open.
    bool sawCloseOfNothing() const { return sawCloseOfNothing_; }

    // For the wrappers.
    std::optional<Fault> nextFault(SystemCall call);
    void add(CallRecord record) { calls_.push_back(std::move(record)); }
    void opened(int descriptor, std::string path);
    void closed(int descriptor);
    const std::string& pathOf(int descriptor) const;

private:
    std::vector<Fault> faults_;
    std::vector<std::size_t> callCounts_ = std::vector<std::size_t>(systemCallCount);
    std::vector<CallRecord> calls_;
    std::vector<std::optional<std::string>> open_;  ///< paths by descriptor
    std::size_t faultCount_ = 0;
    std::size_t interruptions_ = 0;
    bool sawCloseOfNothing_ = false;
};

}  // namespace quillmere::test
