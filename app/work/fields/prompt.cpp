#include "work/fields/prompt.hpp"

namespace quillmere::work {

std::string helpText(const Prompt& prompt)
{
    return std::string(prompt.question) + (prompt.format.empty() ? "" : " ") + std::string(prompt.format);
}

std::string promptText(const Prompt& prompt)
{
    return std::string(prompt.question) +
           (prompt.hint.empty() ? std::string() : " (" + std::string(prompt.hint) + ")");
}

}  // namespace quillmere::work
