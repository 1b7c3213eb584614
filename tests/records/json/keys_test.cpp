// Every key of every record: missing, null, and of each wrong type.
#include <quillmere/records/identifier.hpp>
#include <quillmere/records/json/coding_error.hpp>

#include <gtest/gtest.h>

#include <set>

#include "records/json/record_keys.hpp"

namespace quillmere {
namespace {

using nlohmann::json;
using test::Document;
using test::Key;
using test::Kind;
using test::Place;
using test::Presence;

/// Calls `check` with every document, place and key.
template <class Check>
void forEveryKey(Check check)
{
    for (const Document& document : test::documents()) {
        for (const Place& place : document.places) {
            for (const Key& key : place.keys) {
                SCOPED_TRACE(document.name + ": " + place.pathOf(key.name));
                check(document, place, key);
            }
        }
    }
}

json without(const Document& document, const Place& place, const Key& key)
{
    json changed = document.json;
    changed.at(place.pointer()).erase(std::string(key.name));
    return changed;
}

json with(const Document& document, const Place& place, const Key& key, const json& value)
{
    json changed = document.json;
    changed.at(place.pointer())[std::string(key.name)] = value;
    return changed;
}

void expectError(const Document& document, const json& changed, const std::string& path,
                 const std::string& expected, const std::string& found)
{
    try {
        document.readAndWrite(changed.dump());
        ADD_FAILURE() << "accepted";
    } catch (const DecodingError& error) {
        EXPECT_EQ(error.path(), path);
        EXPECT_EQ(error.expected(), expected);
        EXPECT_EQ(error.found(), found);
    }
}

/// The document that is written after a field was missing or null: the agent's summary always has all its own
/// keys, everywhere else the key is omitted.
json afterAbsence(const Document& document, const Place& place, const Key& key)
{
    const bool nullWhenAbsent = document.name == "agent" && place.path.empty();
    return nullWhenAbsent ? with(document, place, key, nullptr) : without(document, place, key);
}

TEST(Keys, areThoseOfTheRecordAndNoOthers)
{
    for (const Document& document : test::documents()) {
        for (const Place& place : document.places) {
            SCOPED_TRACE(document.name + ": " + place.path);
            std::set<std::string> expected;
            for (const Key& key : place.keys) {
                expected.emplace(key.name);
            }
            std::set<std::string> written;
            for (const auto& member : document.json.at(place.pointer()).items()) {
                written.insert(member.key());
            }
            EXPECT_EQ(written, expected);
        }
    }
}

TEST(Keys, allPresentReadBackToTheSameRecord)
{
    for (const Document& document : test::documents()) {
        SCOPED_TRACE(document.name);
        EXPECT_EQ(document.readAndWrite(document.json.dump()), document.json);
    }
}

TEST(RequiredKey, failsTheWholeDocumentWhenMissing)
{
    forEveryKey([](const Document& document, const Place& place, const Key& key) {
        if (key.presence == Presence::required) {
            expectError(document, without(document, place, key), place.pathOf(key.name), expectedOf(key.kind),
                        "nothing");
        }
    });
}

TEST(RequiredKey, failsTheWholeDocumentWhenNull)
{
    forEveryKey([](const Document& document, const Place& place, const Key& key) {
        if (key.presence == Presence::required) {
            expectError(document, with(document, place, key, nullptr), place.pathOf(key.name),
                        expectedOf(key.kind), "null");
        }
    });
}

TEST(OptionalKey, isAbsentWhenMissing)
{
    forEveryKey([](const Document& document, const Place& place, const Key& key) {
        if (key.presence == Presence::optional) {
            EXPECT_EQ(document.readAndWrite(without(document, place, key).dump()),
                      afterAbsence(document, place, key));
        }
    });
}

TEST(OptionalKey, isAbsentWhenNullAndOmittedWhenWrittenBack)
{
    forEveryKey([](const Document& document, const Place& place, const Key& key) {
        if (key.presence == Presence::optional) {
            EXPECT_EQ(document.readAndWrite(with(document, place, key, nullptr).dump()),
                      afterAbsence(document, place, key));
        }
    });
}

TEST(SuppliedKey, mayBeMissingOrNullAndChangesNoOtherValue)
{
    forEveryKey([](const Document& document, const Place& place, const Key& key) {
        if (key.presence != Presence::supplied) {
            return;
        }
        for (const json& changed : {without(document, place, key), with(document, place, key, nullptr)}) {
            json written = document.readAndWrite(changed.dump());
            ASSERT_TRUE(written.at(place.pointer()).contains(std::string(key.name)));
            written.at(place.pointer()).erase(std::string(key.name));
            EXPECT_EQ(written, without(document, place, key));
        }
    });
}

TEST(ToleratedIdentifier, isANewRandomOneOnEveryLoad)
{
    forEveryKey([](const Document& document, const Place& place, const Key& key) {
        if (key.presence != Presence::supplied || key.kind != Kind::identifier) {
            return;
        }
        std::set<std::string> drawn = {document.json.at(place.pointer()).at("id").get<std::string>()};
        for (const json& changed : {without(document, place, key), with(document, place, key, nullptr)}) {
            for (int load = 0; load < 3; ++load) {
                const json written = document.readAndWrite(changed.dump());
                const auto id = written.at(place.pointer()).at("id").get<std::string>();
                EXPECT_EQ(id.substr(14, 1), "4") << "not of version 4: " << id;
                EXPECT_NE(std::string("89AB").find(id[19]), std::string::npos)
                    << "of another variant: " << id;
                drawn.insert(id);
            }
        }
        EXPECT_EQ(drawn.size(), 7U);
    });
}

TEST(ToleratedIdentifiers, areThoseOfTheStateAndOfSessionReviewsOnly)
{
    std::set<std::string> tolerated;
    forEveryKey([&](const Document& document, const Place& place, const Key& key) {
        if (key.name == "id") {
            const std::string last = place.path.substr(place.path.rfind('.') + 1);
            try {
                document.readAndWrite(without(document, place, key).dump());
                tolerated.insert(last.empty() ? document.name : last);
            } catch (const DecodingError&) {
                // Required.
            }
        }
    });
    EXPECT_EQ(tolerated, (std::set<std::string>{"state", "review"}));
}

TEST(Key, ofAnyPresenceFailsTheWholeDocumentWithAValueOfAnotherType)
{
    forEveryKey([](const Document& document, const Place& place, const Key& key) {
        for (const json& value : test::wrongValues(key.kind)) {
            const std::string text = value.dump();
            SCOPED_TRACE(text);
            const std::string found = value.is_object() ? "an object" : value.is_array() ? "a list" : text;
            expectError(document, with(document, place, key, value), place.pathOf(key.name),
                        expectedOf(key.kind), found);
        }
    });
}

TEST(ListOfRecords, failsForAnElementThatIsNone)
{
    forEveryKey([](const Document& document, const Place& place, const Key& key) {
        const json elements = document.json.at(place.pointer()).at(std::string(key.name));
        if (key.kind != Kind::list || !elements.at(0).is_object()) {
            return;
        }
        for (const json& value : {json(nullptr), json(true), json(3), json("abc"), json::array()}) {
            json changed = elements;
            changed.push_back(value);
            SCOPED_TRACE(value.dump());
            expectError(document, with(document, place, key, changed),
                        place.pathOf(key.name) + '[' + std::to_string(elements.size()) + ']', "an object",
                        value.is_array() ? "a list" : value.dump());
        }
    });
}

TEST(UnknownKey, isIgnoredAnywhereAndDroppedWhenWrittenBack)
{
    const json values[] = {nullptr, 3, "abc", json::array({1, json::object()}), json::object({{"id", 5}})};
    for (const Document& document : test::documents()) {
        for (const Place& place : document.places) {
            for (const json& value : values) {
                SCOPED_TRACE(document.name + ": " + place.path + " " + value.dump());
                for (const char* key :
                     {"zzz", "aaa", "", "idx", "i", "block_outcome_i_d", "\xC3\xA4\n\"\\"}) {
                    json changed = document.json;
                    changed.at(place.pointer())[key] = value;
                    EXPECT_EQ(document.readAndWrite(changed.dump()), document.json) << key;
                }
            }
        }
    }
}

TEST(FirstBadKey, isTheFirstInFieldOrderForAnyOrderInTheFile)
{
    for (const Document& document : test::documents()) {
        for (const Place& place : document.places) {
            for (std::size_t first = 0; first + 1 < place.keys.size(); ++first) {
                json changed = document.json;
                for (std::size_t bad = first; bad < place.keys.size(); ++bad) {
                    changed.at(place.pointer())[std::string(place.keys[bad].name)] =
                        place.keys[bad].kind == Kind::boolean ? json("true") : json(true);
                }
                SCOPED_TRACE(document.name + ": " + place.pathOf(place.keys[first].name));
                expectError(document, changed, place.pathOf(place.keys[first].name),
                            expectedOf(place.keys[first].kind),
                            place.keys[first].kind == Kind::boolean ? "\"true\"" : "true");
            }
        }
    }
}

TEST(FirstBadKey, mayBeAMissingOne)
{
    const Document& document = test::documents().front();
    const Place& block = document.places.at(1);
    json changed = document.json;
    changed.at(block.pointer()).erase("created_at");
    changed.at(block.pointer())["why_value"] = 3;
    expectError(document, changed, "current_block.created_at", expectedOf(Kind::instant), "nothing");
    changed.at(block.pointer())["id"] = 3;
    expectError(document, changed, "current_block.id", expectedOf(Kind::identifier), "3");
}

}  // namespace
}  // namespace quillmere
