// Loading the widget's summary: three ways to fail, and their order.
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <gtest/gtest.h>

#include <limits>

#include "support/file_system.hpp"
#include "support/json_members.hpp"
#include "support/process_settings.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

using Error = WidgetSnapshotLoadError;

const Error notWritten = Error::of<Error::notWritten>();
const Error unreadable = Error::of<Error::unreadable>();
const Error containerUnavailable = Error::of<Error::containerUnavailable>();

class WidgetLoad : public testing::Test {
protected:
    const TemporaryDirectory directory;
    const WidgetSnapshotStore store{directory.path()};
    const WidgetSnapshot sample = WidgetSnapshot::placeholder(moment);
    const std::string sampleText{JsonEncoder(JsonLayout::compact).encode(sample).view()};

    /// The error of a load; absent when it succeeds. Other exceptions are passed on.
    std::optional<WidgetSnapshotLoadError> failure() const
    {
        try {
            store.load();
        } catch (const WidgetSnapshotLoadError& caught) {
            return caught;
        }
        return std::nullopt;
    }

    std::optional<WidgetSnapshotLoadError> failureWith(const std::string& text) const
    {
        writeText(store.snapshotURL(), text);
        const auto result = failure();
        EXPECT_EQ(textOf(store.snapshotURL()), text) << "a load changes nothing";
        return result;
    }
};

TEST_F(WidgetLoad, givesTheSummaryThatWasSaved)
{
    store.save(sample);
    EXPECT_EQ(store.load(), sample);
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        const WidgetSnapshot snapshot = WidgetSnapshot::make(stateIn(workflowState), moment);
        store.save(snapshot);
        EXPECT_EQ(store.load(), snapshot);
    }
}

TEST_F(WidgetLoad, readsTheFileAfreshEachTime)
{
    store.save(sample);
    store.load();
    writeText(store.snapshotURL(), with("energy", "1", sampleText));
    EXPECT_EQ(store.load().energy, 1);
    fs::remove(store.snapshotURL());
    EXPECT_EQ(failure(), notWritten);
}

TEST_F(WidgetLoad, failsAsNotWrittenInAnEmptyDirectory)
{
    EXPECT_EQ(failure(), notWritten);
    EXPECT_TRUE(directory.names().empty());
}

TEST_F(WidgetLoad, failsAsNotWrittenWithoutADirectory)
{
    writeText(directory.path() / "file", "");
    EXPECT_THROW(WidgetSnapshotStore(directory.path() / "missing").load(), WidgetSnapshotLoadError);
    for (const char* name : {"missing", "file"}) {
        SCOPED_TRACE(name);
        try {
            WidgetSnapshotStore(directory.path() / name).load();
        } catch (const WidgetSnapshotLoadError& caught) {
            EXPECT_EQ(caught, notWritten);
        }
    }
    EXPECT_EQ(directory.names(), std::vector<std::string>{"file"});
}

TEST_F(WidgetLoad, failsAsUnreadableForAnEmptyObject) { EXPECT_EQ(failureWith("{}"), unreadable); }

TEST_F(WidgetLoad, failsAsUnreadableForAFileThatCannotBeDecoded)
{
    const std::string texts[] = {
        "",
        " ",
        "null",
        "[]",
        "not JSON",
        sampleText.substr(0, sampleText.size() - 1),
        sampleText + "}",
        sampleText + sampleText,
        without("phase", sampleText),
        with("phase", "\"napping\"", sampleText),
        with("schema_version", "1.5", sampleText),
        with("schema_version", "9223372036854775808", sampleText),
        with("first_action", "\"\xFF\"", sampleText),
        std::string(100'000, '['),
    };
    for (const std::string& text : texts) {
        SCOPED_TRACE(text.substr(0, 80));
        EXPECT_EQ(failureWith(text), unreadable);
    }
}

TEST_F(WidgetLoad, failsAsUnreadableForAnythingButARegularFile)
{
    fs::create_directory(store.snapshotURL());
    EXPECT_EQ(failure(), unreadable);
    fs::remove(store.snapshotURL());
    makeFifo(store.snapshotURL());
    EXPECT_EQ(failure(), unreadable);
    fs::remove(store.snapshotURL());
    makeSocket(store.snapshotURL());
    EXPECT_EQ(failure(), unreadable);
    fs::remove(store.snapshotURL());
    fs::create_symlink("/dev/null", store.snapshotURL());
    EXPECT_EQ(failure(), unreadable);
}

TEST_F(WidgetLoad, failsAsUnreadableForLinksThatLeadNowhereOrInACircle)
{
    fs::create_symlink("missing", store.snapshotURL());
    EXPECT_EQ(failure(), unreadable);
    fs::remove(store.snapshotURL());
    makeLinkLoop(store.snapshotURL());
    EXPECT_EQ(failure(), unreadable);
}

TEST_F(WidgetLoad, failsAsUnreadableWhenReadingIsForbidden)
{
    fs::permissions(directory.path(), fs::perms(0777));
    store.save(sample);
    fs::permissions(store.snapshotURL(), fs::perms(0));
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "permissions hold nobody back here";
    }
    EXPECT_EQ(failure(), unreadable);
}

TEST_F(WidgetLoad, failsAsUnreadableWhenTheLookUpIsForbidden)
{
    fs::permissions(directory.path(), fs::perms(0));
    std::optional<WidgetSnapshotLoadError> caught;
    {
        const UnprivilegedUser user;
        if (!user.isOne()) {
            GTEST_SKIP() << "permissions hold nobody back here";
        }
        caught = failure();
    }
    fs::permissions(directory.path(), fs::perms(0700));
    EXPECT_EQ(caught, unreadable) << "there may be a summary";
}

TEST_F(WidgetLoad, refusesASummaryOfANewerVersion)
{
    EXPECT_EQ(failureWith(with("schema_version", "2", sampleText)),
              WidgetSnapshotLoadError::unsupported(2, 1));
    EXPECT_EQ(failureWith(with("schema_version", "9223372036854775807", sampleText)),
              WidgetSnapshotLoadError::unsupported(std::numeric_limits<std::int64_t>::max(), 1));
}

TEST_F(WidgetLoad, acceptsASummaryOfAnOlderVersion)
{
    for (const std::int64_t version :
         {std::int64_t{1}, std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()}) {
        SCOPED_TRACE(version);
        EXPECT_EQ(failureWith(with("schema_version", std::to_string(version), sampleText)), std::nullopt);
        EXPECT_EQ(store.load().schemaVersion, version);
    }
}

TEST_F(WidgetLoad, callsANewerSummaryThatDoesNotDecodeUnreadable)
{
    const std::string newer = with("schema_version", "2", sampleText);
    EXPECT_EQ(failureWith(without("phase", newer)), unreadable);
    EXPECT_EQ(failureWith(with("phase", "\"napping\"", newer)), unreadable);
    EXPECT_EQ(failureWith(newer.substr(0, newer.size() - 1)), unreadable);
}

TEST_F(WidgetLoad, takesTheRouteFromThePhaseWhenTheFileHasNone)
{
    const std::string reviewing = with("phase", "\"reviewing\"", sampleText);
    EXPECT_EQ(failureWith(without("route", reviewing)), std::nullopt);
    EXPECT_EQ(store.load().route, WidgetRoute::sessionReview);
}

TEST_F(WidgetLoad, takesNoQuestionsWhenTheFileHasNone)
{
    EXPECT_EQ(failureWith(without("open_questions", sampleText)), std::nullopt);
    EXPECT_TRUE(store.load().openQuestions.empty());
}

TEST(WidgetSnapshotLoadError, isEqualByItsCaseAndItsVersions)
{
    constexpr auto newer = [](std::int64_t found, std::int64_t supported) {
        return WidgetSnapshotLoadError::unsupported(found, supported);
    };
    EXPECT_EQ(newer(2, 1), newer(2, 1));
    EXPECT_NE(newer(2, 1), newer(3, 1));
    EXPECT_NE(newer(2, 1), newer(2, 2));
    EXPECT_EQ(notWritten, Error::of<Error::notWritten>());
    EXPECT_NE(notWritten, unreadable);
    EXPECT_NE(notWritten, containerUnavailable);
}

TEST(WidgetSnapshotLoadError, tellsItsCaseAndItsVersions)
{
    const auto newer = WidgetSnapshotLoadError::unsupported(7, 1);
    EXPECT_EQ(newer.reason(), WidgetSnapshotLoadError::unsupportedSchemaVersion);
    EXPECT_EQ(newer.found(), 7);
    EXPECT_EQ(newer.supported(), 1);
    EXPECT_EQ(notWritten.reason(), WidgetSnapshotLoadError::notWritten);
    EXPECT_EQ(notWritten.found(), 0);
    EXPECT_EQ(notWritten.supported(), 0);
}

TEST(WidgetSnapshotLoadError, saysItsCaseAsItIsSpelledInCode)
{
    EXPECT_STREQ(WidgetSnapshotLoadError::unsupported(2, 1).what(), "unsupportedSchemaVersion");
    EXPECT_STREQ(containerUnavailable.what(), "containerUnavailable");
    EXPECT_STREQ(notWritten.what(), "notWritten");
    EXPECT_STREQ(unreadable.what(), "unreadable");
}

}  // namespace
}  // namespace quillmere::test
