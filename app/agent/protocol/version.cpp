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

SortedJson statelessVersionNames()
{
    SortedJson names = SortedJson::array();
    for (const ProtocolVersion& version : versions) {
        if (version.isStateless) {
            names.push_back(version.name);
        }
    }
    return names;
}

const ProtocolVersion& versionAfterHandshake(std::string_view asked)
{
    const auto hasHandshake = [](const ProtocolVersion& version) { return !version.isStateless; };
    const auto isAsked = [&](const ProtocolVersion& version) {
        return hasHandshake(version) && version.name == asked;
    };
    const auto found = std::find_if(versions.begin(), versions.end(), isAsked);
    return found != versions.end() ? *found : *std::find_if(versions.begin(), versions.end(), hasHandshake);
}

const ProtocolVersion& versionOf(const SortedJson& params, const ProtocolVersion& agreed)
{
    const SortedJson& meta = memberIn(params, "_meta");
    if (!meta.is_object() || !(meta.contains(versionKey) || meta.contains(capabilitiesKey))) {
        return agreed;
    }
    const SortedJson& name = memberIn(meta, versionKey);
    requireInMeta(name.is_string(), versionKey);
    const auto found = std::find_if(versions.begin(), versions.end(), [&](const ProtocolVersion& version) {
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
