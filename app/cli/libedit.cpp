#include "cli/libedit.hpp"

namespace quillmere::cli {

const Libedit& libedit()
{
    static const Libedit library;
    return library;
}

}  // namespace quillmere::cli
