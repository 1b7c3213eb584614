#include <quillmere/records/base/bytes.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "support/failing_allocations.hpp"

namespace quillmere {
namespace {

/// Appends as writers do: reserve, write, commit.
void append(Bytes& bytes, std::string_view text, std::size_t room)
{
    std::memcpy(bytes.reserve(room), text.data(), text.size());
    bytes.commit(text.size());
}

/// Whether the bytes after the end are zero. Reading them is allowed.
bool hasZeroedSlack(const Bytes& bytes)
{
    const char* const end = bytes.view().data() + bytes.size();
    return std::all_of(end, end + Bytes::slack, [](char byte) { return byte == '\0'; });
}

TEST(Bytes, areEmptyWithoutMemoryAtFirst)
{
    const Bytes bytes;
    EXPECT_EQ(bytes.size(), 0U);
    EXPECT_EQ(bytes.capacity(), 0U);
    EXPECT_EQ(bytes.view(), "");
}

TEST(Bytes, holdACopyOfTheirTextZerosIncluded)
{
    std::string text("a\0b", 3);
    const Bytes bytes(text);
    text[0] = 'x';
    EXPECT_EQ(bytes.view(), std::string_view("a\0b", 3));
    EXPECT_EQ(bytes.size(), 3U);
}

TEST(Bytes, areFollowedByZeroedSlackAtEverySize)
{
    for (std::size_t size = 0; size <= 200; ++size) {
        SCOPED_TRACE(size);
        EXPECT_TRUE(hasZeroedSlack(Bytes(std::string(size, 'x'))));
    }
}

TEST(Bytes, areFollowedByZeroedSlackAfterLessWasCommittedThanWritten)
{
    Bytes bytes;
    std::memset(bytes.reserve(500), 'x', 500);
    bytes.commit(100);
    EXPECT_EQ(bytes.view(), std::string(100, 'x'));
    EXPECT_TRUE(hasZeroedSlack(bytes));
    append(bytes, "yz", 2);
    EXPECT_EQ(bytes.view(), std::string(100, 'x') + "yz");
    EXPECT_TRUE(hasZeroedSlack(bytes));
}

TEST(Bytes, keepTheirContentWhileTheyGrow)
{
    Bytes bytes;
    std::string expected;
    for (int count = 0; count < 2000; ++count) {
        const std::string piece(static_cast<std::size_t>(count % 13), static_cast<char>('a' + count % 26));
        append(bytes, piece, piece.size() + static_cast<std::size_t>(count % 5));
        expected += piece;
        ASSERT_EQ(bytes.view(), expected);
        ASSERT_GE(bytes.capacity(), bytes.size());
        ASSERT_TRUE(hasZeroedSlack(bytes));
    }
}

TEST(Bytes, giveTheRoomThatWasAskedFor)
{
    for (const std::size_t count : {0U, 1U, 63U, 64U, 65U, 4096U, 1'000'000U}) {
        SCOPED_TRACE(count);
        Bytes bytes("abc");
        char* const place = bytes.reserve(count);
        EXPECT_EQ(place, bytes.view().data() + 3);
        EXPECT_GE(bytes.capacity() - bytes.size(), count);
        std::memset(place, 'x', count);
        EXPECT_EQ(bytes.view(), "abc") << "nothing counts before it is committed";
    }
}

TEST(Bytes, growByDoublingSoThatAppendingIsLinear)
{
    Bytes bytes;
    std::size_t growths = 0;
    std::size_t capacity = 0;
    for (int count = 0; count < 100'000; ++count) {
        append(bytes, "x", 1);
        growths += bytes.capacity() != capacity ? 1 : 0;
        capacity = bytes.capacity();
    }
    EXPECT_LE(growths, 20U);
}

TEST(Bytes, stayInPlaceWhileThereIsRoom)
{
    Bytes bytes;
    const char* const place = bytes.reserve(100);
    bytes.commit(40);
    EXPECT_EQ(bytes.reserve(60), place + 40);
    EXPECT_EQ(bytes.view().data(), place);
}

TEST(Bytes, areUnchangedWhenMemoryRunsOut)
{
    Bytes bytes("abc");
    const char* const place = bytes.view().data();
    const std::size_t capacity = bytes.capacity();
    const std::size_t inUse = test::blocksInUse();
    const std::size_t failures = test::failEveryAllocation([&] { bytes.reserve(10'000); },
                                                           [&](bool threw) {
                                                               EXPECT_TRUE(threw);
                                                               EXPECT_EQ(bytes.view(), "abc");
                                                               EXPECT_EQ(bytes.view().data(), place);
                                                               EXPECT_EQ(bytes.capacity(), capacity);
                                                               EXPECT_EQ(test::blocksInUse(), inUse);
                                                               EXPECT_TRUE(hasZeroedSlack(bytes));
                                                           });
    EXPECT_EQ(failures, 1U);
}

TEST(Bytes, refuseMoreThanThereCanBeAndStayUnchanged)
{
    // Their sum with the current size, or with the slack, overflows.
    for (const std::size_t count : {SIZE_MAX, SIZE_MAX - 2, SIZE_MAX - Bytes::slack}) {
        SCOPED_TRACE(count);
        Bytes bytes("abc");
        EXPECT_THROW(bytes.reserve(count), std::bad_alloc);
        EXPECT_EQ(bytes.view(), "abc");
        EXPECT_LT(bytes.capacity(), 1000U);
    }
}

TEST(Bytes, areEmptyAndUsableAfterTheyWereMovedFrom)
{
    Bytes bytes("abc");
    const Bytes moved = std::move(bytes);
    EXPECT_EQ(moved.view(), "abc");
    // NOLINTBEGIN(bugprone-use-after-move): the state after the move is tested.
    EXPECT_EQ(bytes.size(), 0U);
    ASSERT_EQ(bytes.capacity(), 0U);
    append(bytes, "de", 2);
    EXPECT_EQ(bytes.view(), "de");
    // NOLINTEND(bugprone-use-after-move)
}

}  // namespace
}  // namespace quillmere
