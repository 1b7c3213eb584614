#include "served_program.hpp"

#include "real_program.hpp"

namespace quillmere::test {
namespace {

ProcessOptions serving(const std::filesystem::path& directory, const Words& options)
{
    Words words = {"--directory", directory.string(), "agent", "serve"};
    words.insert(words.end(), options.begin(), options.end());
    // Some clients give the program a socket, others a pipe.
    return realProgram(words, {.in = Channel::socket(), .out = Channel::pipe()});
}

}  // namespace

ServedProgram::ServedProgram(const std::filesystem::path& directory, const Words& options)
    : process_(serving(directory, options))
{
}

ServedProgram::~ServedProgram()
{
    closeInput();
    end();
}

void ServedProgram::send(const Json& message)
{
    note(message);
    write(message.dump() + '\n');
}

Json ServedProgram::receive()
{
    const std::string line = process_.line();
    transcript_.server(line);
    return Json::parse(line);
}

Json ServedProgram::asked(const Json& request)
{
    send(request);
    return receive();
}

Json ServedProgram::called(const std::string& tool, const Json& arguments)
{
    const Json answer = asked(request(++requests_, "tools/call", toolCall(tool, arguments)));
    EXPECT_EQ(answer.at("id"), requests_);
    return answer.at("result").at("structuredContent");
}

}  // namespace quillmere::test
