#include "agent/protocol/replies.hpp"

namespace quillmere::agent::protocol {
namespace {

Json implementation(const Offer& offer, const Version& version)
{
    Json json = {{"name", offer.name}, {"version", offer.version}};
    if (version.hasStructures) {
        json["title"] = offer.title;
    }
    return json;
}

/// Nothing that is listed ever changes, and nobody can subscribe.
Json capabilities() { return {{"tools", Json::object()}, {"resources", Json::object()}}; }

Json toolJson(const Tool& tool, const Version& version)
{
    Json json = {{"name", tool.name},
                 {"description", tool.description},
                 {"inputSchema", tool.inputSchema},
                 {"annotations",
                  {{"readOnlyHint", tool.hints.readOnly},
                   {"destructiveHint", tool.hints.destructive},
                   {"idempotentHint", tool.hints.idempotent},
                   {"openWorldHint", tool.hints.openWorld}}}};
    if (version.hasStructures) {
        json["title"] = tool.title;
        json["outputSchema"] = tool.outputSchema;
    }
    return json;
}

Json textContent(const std::string& text) { return Json::array({{{"type", "text"}, {"text", text}}}); }

}  // namespace

Json initializeResult(const Offer& offer, const Version& version)
{
    return {{"protocolVersion", version.name},
            {"capabilities", capabilities()},
            {"serverInfo", implementation(offer, version)},
            {"instructions", offer.instructions}};
}

Json discoverResult(const Offer& offer)
{
    return {{"supportedVersions", statelessVersionNames()},
            {"capabilities", capabilities()},
            {"instructions", offer.instructions}};
}

Json toolList(const Offer& offer, const Version& version)
{
    Json tools = Json::array();
    for (const Tool& tool : offer.tools) {
        tools.push_back(toolJson(tool, version));
    }
    return {{"tools", std::move(tools)}};
}

Json resourceList(const Offer& offer, const Version& version)
{
    Json resources = Json::array();
    for (const Resource& resource : offer.resources) {
        Json json = {{"uri", resource.uri},
                     {"name", resource.name},
                     {"description", resource.description},
                     {"mimeType", resource.mimeType}};
        if (version.hasStructures) {
            json["title"] = resource.title;
        }
        resources.push_back(std::move(json));
    }
    return {{"resources", std::move(resources)}};
}

Json resourceTemplateList() { return {{"resourceTemplates", Json::array()}}; }

Json resourceContents(const Resource& resource)
{
    const Json content = {{"uri", resource.uri}, {"mimeType", resource.mimeType}, {"text", resource.read()}};
    return {{"contents", Json::array({content})}};
}

Json callResult(const ToolResult& result, const Version& version)
{
    if (!result.refusal.empty()) {
        return {{"content", textContent(result.refusal)}, {"isError", true}};
    }
    Json json = {{"content", textContent(result.value.dump())}};
    if (version.hasStructures) {
        json["structuredContent"] = result.value;
    }
    return json;
}

Json complete(Json result, const std::optional<Caching>& caching, const Offer& offer, const Version& version)
{
    if (version.isStateless) {
        result["resultType"] = "complete";
        result["_meta"]["io.modelcontextprotocol/serverInfo"] = implementation(offer, version);
        if (caching) {
            result["ttlMs"] = caching->milliseconds;
            result["cacheScope"] = caching->isPublic ? "public" : "private";
        }
    }
    return result;
}

}  // namespace quillmere::agent::protocol
