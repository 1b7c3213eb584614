#include "agent/protocol/version.hpp"

#include "agent/protocol/message.hpp"

#include <algorithm>

namespace quillmere::agent::protocol {
namespace {

constexpr const char* versionKey = "io.modelcontextprotocol/protocolVersion";
constexpr const char* capabilitiesKey = "io.modelcontextprotocol/clientCapabilities";

void requireInMeta(bool isThere, const char* key)
{
    if (!isThere) {
        throw ProtocolError(ErrorCode::invalidParams, std::string("params._meta needs ") + key + ".");
    }
}

}  // namespace

Json statelessVersionNames()
{
    Json names = Json::array();
    for (const Version& version : versions) {
        if (version.isStateless) {
            names.push_back(version.name);
        }
    }
    return names;
}

const Version& versionAfterHandshake(std::string_view asked)
{
    const auto hasHandshake = [](const Version& version) { return !version.isStateless; };
    const auto isAsked = [&](const Version& version) {
        return hasHandshake(version) && version.name == asked;
    };
    const auto found = std::find_if(versions.begin(), versions.end(), isAsked);
    return found != versions.end() ? *found : *std::find_if(versions.begin(), versions.end(), hasHandshake);
}

const Version& versionOf(const Json& params, const Version& agreed)
{
    const Json& meta = memberIn(params, "_meta");
    if (!meta.is_object() || !(meta.contains(versionKey) || meta.contains(capabilitiesKey))) {
        return agreed;
    }
    const Json& name = memberIn(meta, versionKey);
    requireInMeta(name.is_string(), versionKey);
    const auto found = std::find_if(versions.begin(), versions.end(), [&](const Version& version) {
        return version.isStateless && name == version.name;
    });
    if (found == versions.end()) {
        throw ProtocolError(ErrorCode::unsupportedVersion, "Unsupported protocol version",
                            {{"supported", statelessVersionNames()}, {"requested", name}});
    }
    requireInMeta(memberIn(meta, capabilitiesKey).is_object(), capabilitiesKey);
    return *found;
}

}  // namespace quillmere::agent::protocol
