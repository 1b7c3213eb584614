#include "proofs/crowds/asking_process.hpp"

namespace quillmere::test {

Process startAsking(const std::filesystem::path& directory, const std::string& question)
{
    return Process({.words = {QUILLMERE_PROGRAM, "--directory", directory.string(), "ask", question},
                    .output = Channel::null(),
                    .error = Channel::null()});
}

int ask(const std::filesystem::path& directory, const std::string& question)
{
    int code = isLockedOut;
    while (code == isLockedOut) {
        code = startAsking(directory, question).wait().code;
    }
    return code;
}

// The address sanitizer normally insists on being the first library. Leaks are checked by other tests.
Preloaded::Preloaded(const char* library, const char* variable, const std::string& value)
    : library_("LD_PRELOAD", library),
      value_(variable, value),
      sanitizer_("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0")
{
}

}  // namespace quillmere::test
