// Keeps the many thousand temporary files of the proofs in memory where the system offers that, unless TMPDIR
// is set.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

namespace quillmere::test {
namespace {

class PlaceInMemory : public testing::Environment {
public:
    void SetUp() override
    {
        constexpr const char* place = "/dev/shm";
        if (::access(place, W_OK | X_OK) == 0) {
            constexpr int overwrite = 0;
            ::setenv("TMPDIR", place, overwrite);
        }
    }
};

[[maybe_unused]] const testing::Environment* const placeInMemory =
    testing::AddGlobalTestEnvironment(new PlaceInMemory);

}  // namespace
}  // namespace quillmere::test
