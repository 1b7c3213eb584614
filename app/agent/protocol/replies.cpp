#include "agent/protocol/replies.hpp"

namespace quillmere::agent::protocol {
namespace {

SortedJson implementation(const Offer& offer, const ProtocolVersion& version)
{
    SortedJson json = {{"name", offer.name}, {"version", offer.version}};
    if (version.hasStructures) {
        json["title"] = offer.title;
    }
    return json;
}

/// The lists never change, and there are no subscriptions, so neither capability has options.
SortedJson capabilities() { return {{"tools", SortedJson::object()}, {"resources", SortedJson::object()}}; }

SortedJson toolJson(const Tool& tool, const ProtocolVersion& version)
{
    SortedJson json = {{"name", tool.name},
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

SortedJson textContent(const std::string& text)
{
    return SortedJson::array({{{"type", "text"}, {"text", text}}});
}

}  // namespace

SortedJson initializeResult(const Offer& offer, const ProtocolVersion& version)
{
    return {{"protocolVersion", version.name},
            {"capabilities", capabilities()},
            {"serverInfo", implementation(offer, version)},
            {"instructions", offer.instructions}};
}

SortedJson discoverResult(const Offer& offer)
{
    return {{"supportedVersions", statelessVersionNames()},
            {"capabilities", capabilities()},
            {"instructions", offer.instructions}};
}

SortedJson toolList(const Offer& offer, const ProtocolVersion& version)
{
    SortedJson tools = SortedJson::array();
    for (const Tool& tool : offer.tools) {
        tools.push_back(toolJson(tool, version));
    }
    return {{"tools", std::move(tools)}};
}

SortedJson resourceList(const Offer& offer, const ProtocolVersion& version)
{
    SortedJson resources = SortedJson::array();
    for (const Resource& resource : offer.resources) {
        SortedJson json = {{"uri", resource.uri},
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

SortedJson resourceTemplateList() { return {{"resourceTemplates", SortedJson::array()}}; }

SortedJson resourceContents(const Resource& resource)
{
    const SortedJson content = {
        {"uri", resource.uri}, {"mimeType", resource.mimeType}, {"text", resource.read()}};
    return {{"contents", SortedJson::array({content})}};
}

SortedJson callResult(const ToolResult& result, const ProtocolVersion& version)
{
    if (!result.refusal.empty()) {
        return {{"content", textContent(result.refusal)}, {"isError", true}};
    }
    SortedJson json = {{"content", textContent(result.value.dump())}};
    if (version.hasStructures) {
        json["structuredContent"] = result.value;
    }
    return json;
}

SortedJson complete(SortedJson result, const std::optional<Caching>& caching, const Offer& offer,
                    const ProtocolVersion& version)
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
