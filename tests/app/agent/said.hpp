// Keeps the output of the server, so that a validator of JSON Schema can check all of it afterwards.
#pragma once

#include "base/json.hpp"

#include <nlohmann/json.hpp>

#include <fstream>
#include <mutex>
#include <string>

namespace quillmere::test {

using Json = base::SortedJson;

/// One conversation in a file of its own, named after the test that has it: one line for each message, "> "
/// before the client's, "< " before the server's. Check it with check_said.py.
class Transcript {
public:
    Transcript();

    void client(const std::string& line) { keep("> ", line); }
    void server(const std::string& line) { keep("< ", line); }

private:
    void keep(const char* side, const std::string& line)
    {
        const std::lock_guard held(mutex_);
        file_ << side << line << '\n' << std::flush;
    }

    std::mutex mutex_;
    std::ofstream file_;
};

/// Keeps a summary for the validator.
void keepSummary(const std::string& name, const std::string& summary);

/// A request; `stateless` adds the version to its params.
Json request(const Json& id, const std::string& method, const Json& params = Json::object());
Json stateless(Json params = Json::object());
Json toolCall(const std::string& name, const Json& arguments);

}  // namespace quillmere::test
