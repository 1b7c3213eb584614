#include "running_out.hpp"

#include "proofs/support/figures.hpp"

namespace quillmere::test {

Tally& Tally::operator+=(const Tally& other)
{
    failed += other.failed;
    recovered += other.recovered;
    leaking += other.leaking;
    changed += other.changed;
    return *this;
}

void expectWhole(const std::string& area, const Tally& tally, std::size_t atLeast, std::size_t mostRecovered)
{
    SCOPED_TRACE(area);
    EXPECT_GE(tally.failed, atLeast);
    EXPECT_LE(tally.recovered, mostRecovered);
    EXPECT_EQ(tally.leaking, 0u);
    EXPECT_EQ(tally.changed, 0u);
    reportFigure("Memory running out at every allocation", "failed allocations, " + area, tally.failed);
}

}  // namespace quillmere::test
