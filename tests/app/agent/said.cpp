#include "said.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace quillmere::test {
namespace {

std::filesystem::path placeOf(const std::string& kind)
{
    const std::filesystem::path place = std::filesystem::path(QUILLMERE_SAID_DIRECTORY) / kind;
    std::filesystem::create_directories(place);
    return place;
}

/// A test may have several conversations.
std::filesystem::path nextTranscript()
{
    static std::map<std::string, int> counts;
    const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test->test_suite_name()) + "." + test->name();
    return placeOf("transcripts") / (name + "." + std::to_string(++counts[name]) + ".txt");
}

}  // namespace

Transcript::Transcript() : file_(nextTranscript()) {}

void keepSummary(const std::string& name, const std::string& summary)
{
    std::ofstream(placeOf("summaries") / (name + ".json")) << summary;
}

Json request(const Json& id, const std::string& method, const Json& params)
{
    return {{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", params}};
}

Json stateless(Json params)
{
    params["_meta"]["io.modelcontextprotocol/protocolVersion"] = "2026-07-28";
    params["_meta"]["io.modelcontextprotocol/clientCapabilities"] = Json::object();
    return params;
}

Json toolCall(const std::string& name, const Json& arguments)
{
    return {{"name", name}, {"arguments", arguments}};
}

}  // namespace quillmere::test
