// Observes the system calls of the library and makes them fail.
//
// The linker option --wrap (see CMakeLists.txt) redirects each of these calls here; the library is unchanged.
// While no SystemCallWatch exists, the real calls are made. Not thread-safe.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::test {

/// Every call that a save or a load may make.
enum class SystemCall { mkdir, chmod, stat, lstat, fstat, open, read, write, fsync, close, rename, unlink };

inline constexpr std::size_t systemCallCount = 12;

std::string_view nameOf(SystemCall call);

/// A recorded call.
struct CallRecord {
    SystemCall call;
    std::string path;              ///< the argument, or the path that the descriptor was opened with
    std::string destination = {};  ///< of a rename
    int error = 0;                 ///< 0 when it succeeded
    bool creates = false;          ///< an open that creates the file
    bool isExclusive = false;      ///< an open that fails when the file exists
    std::uint64_t offset = 0;      ///< of a write
    std::string data = {};         ///< the written bytes
};

/// The part of a transfer that is left out.
enum class Shortfall { none, oneByte, half, allButOneByte, everything };

/// A fault to inject into a call.
struct Fault {
    SystemCall call;
    std::size_t ordinal;  ///< index among the calls of the same name, from 0
    int error = 0;        ///< the error; the call has no effect, but close still closes
    Shortfall shortfall = Shortfall::none;
    bool fromThereOn = false;  ///< this call and all later ones; otherwise once
};

/// A signal cannot interrupt forever: a lasting fault with EINTR ends after so many calls.
inline constexpr std::size_t mostInterruptions = 25;

/// Records the calls of this process during its lifetime; only one may exist. Syncs are recorded but not
/// made, for speed.
class SystemCallWatch {
public:
    explicit SystemCallWatch(std::vector<Fault> faults = {});
    SystemCallWatch(const SystemCallWatch&) = delete;
    SystemCallWatch& operator=(const SystemCallWatch&) = delete;
    ~SystemCallWatch();

    const std::vector<CallRecord>& calls() const { return calls_; }

    /// How often the fault occurred.
    std::size_t faultCount() const { return faultCount_; }

    /// Whether a descriptor that was not open was closed.
    bool sawCloseOfNothing() const { return sawCloseOfNothing_; }

    // Called by the wrappers.
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
