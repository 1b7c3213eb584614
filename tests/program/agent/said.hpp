// What tests hear from the server, kept so that a validator of JSON Schema can look at all of it afterwards.
#pragma once

#include <nlohmann/json.hpp>

#include <fstream>
#include <string>

namespace quillmere::test {

using Json = nlohmann::json;

/// One conversation in a file of its own, named after the test that has it: a line a message, "> " before the
/// client's, "< " before the server's. Check it with check_said.py.
class Transcript {
public:
    Transcript();

    void client(const std::string& line) { file_ << "> " << line << '\n'; }
    void server(const std::string& line) { file_ << "< " << line << '\n' << std::flush; }

private:
    std::ofstream file_;
};

/// Keeps a summary for the validator.
void keepSummary(const std::string& name, const std::string& summary);

/// A request; `params` of the stateless version say so themselves.
Json request(const Json& id, const std::string& method, const Json& params = Json::object());
Json stateless(Json params = Json::object());
Json toolCall(const std::string& name, const Json& arguments);

}  // namespace quillmere::test
