#include "statefile/composition.hpp"

#include "refused_copies.hpp"
#include "support/temporary_directory.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <system_error>

namespace quillmere::test {
namespace {

using statefile::Composition;
using statefile::OpenFile;

class WrittenComposition : public testing::Test {
protected:
    WrittenComposition() { writeText(older(), older_); }

    std::string written(const Composition& composition) const
    {
        writeText(newer(), "");
        statefile::write(composition, OpenFile(older()), newer());
        return textOf(newer());
    }

    const std::string& text() const { return older_; }
    /// A text, most of the older file, a text.
    Composition usual() const
    {
        return {std::string("head"), statefile::Run{1, older_.size() - 1}, std::string("tail")};
    }
    std::string expected() const { return "head" + older_.substr(1, older_.size() - 2) + "tail"; }

private:
    std::filesystem::path older() const { return directory_.path() / "older"; }
    std::filesystem::path newer() const { return directory_.path() / "newer"; }

    TemporaryDirectory directory_;
    std::string older_ = "<" + std::string(1 << 18, 'o') + ">";
};

TEST_F(WrittenComposition, hasItsTextsAndTheRunsOfTheOlderFile) { EXPECT_EQ(written(usual()), expected()); }

TEST_F(WrittenComposition, isWholeWhenTheSystemCopiesInParts)
{
    const RefusedCopies parts(0, 1000);
    EXPECT_EQ(written(usual()), expected());
}

TEST_F(WrittenComposition, isReadAndWrittenWhereTheSystemDoesNotCopy)
{
    for (const int error : {EXDEV, EINVAL, ENOSYS, EOPNOTSUPP, EPERM}) {
        const RefusedCopies none(error);
        EXPECT_EQ(written(usual()), expected()) << error;
    }
}

TEST_F(WrittenComposition, isRefusedWithTheErrorOfTheSystem)
{
    for (const int error : {EIO, ENOSPC, EDQUOT, EFBIG, ENOMEM}) {
        const RefusedCopies none(error);
        try {
            written(usual());
            ADD_FAILURE() << error;
        } catch (const std::system_error& failure) {
            EXPECT_EQ(failure.code().value(), error);
        }
    }
}

TEST_F(WrittenComposition, isRefusedWhenTheOlderFileEndsEarly)
{
    const Composition beyond = {statefile::Run{0, text().size() + 1}};
    EXPECT_THROW(written(beyond), std::system_error);
    const RefusedCopies none(EXDEV);
    EXPECT_THROW(written(beyond), std::system_error);
}

}  // namespace
}  // namespace quillmere::test
