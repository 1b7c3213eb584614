#include "failing_run.hpp"

#include <array>
#include <istream>
#include <ostream>
#include <streambuf>

#include "support/failing_allocations.hpp"

namespace quillmere::test {
namespace {

/// Collects the output without allocating memory, as standard output does.
class FixedBuffer final : public std::streambuf {
public:
    FixedBuffer() { setp(characters_.data(), characters_.data() + characters_.size()); }
    std::string_view text() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

private:
    std::array<char, 16'384> characters_;
};

}  // namespace

FailingRun runFailing(std::size_t allocation, const Words& words, Instant now)
{
    FixedBuffer in;
    FixedBuffer out;
    FixedBuffer err;
    std::istream input(&in);
    std::ostream output(&out);
    std::ostream errors(&err);
    base::Environment environment{.in = input,
                                  .out = output,
                                  .err = errors,
                                  .clock = [now] { return now; },
                                  .inputIsTerminal = false,
                                  .outputIsTerminal = false};
    const std::size_t blocks = blocksInUse();
    const std::size_t made = allocationsMade();
    failAllocationAfter(allocation);
    const ExitCode code = cli::run(words, environment);
    const bool failed = stopFailingAllocations();
    return {.code = code,
            .failed = failed,
            .leaks = blocksInUse() != blocks,
            .allocations = allocationsMade() - made,
            .err = std::string(err.text())};
}

}  // namespace quillmere::test
