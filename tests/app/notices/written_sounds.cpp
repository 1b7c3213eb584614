// A libcanberra that writes the names of sounds to the file $QUILLMERE_SOUNDS, one a line, and plays none.
#include <canberra.h>

#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string_view>

struct ca_context {};

extern "C" {

[[gnu::visibility("default")]] int ca_context_create(ca_context** context)
{
    *context = new ca_context;
    return CA_SUCCESS;
}

[[gnu::visibility("default")]] int ca_context_destroy(ca_context* context)
{
    delete context;
    return CA_SUCCESS;
}

/// Takes pairs of a property and its value, ended by a null.
[[gnu::visibility("default")]] int ca_context_play(ca_context*, std::uint32_t number, ...)
{
    va_list properties;
    va_start(properties, number);
    while (const char* const property = va_arg(properties, const char*)) {
        const char* const value = va_arg(properties, const char*);
        if (std::string_view(property) == CA_PROP_EVENT_ID) {
            std::ofstream(std::getenv("QUILLMERE_SOUNDS"), std::ios::app) << value << '\n';
        }
    }
    va_end(properties);
    return CA_SUCCESS;
}
}
