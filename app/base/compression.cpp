#include "base/compression.hpp"

#include "base/refusal.hpp"

#include <zstd.h>
#include <zstd_errors.h>

#include <memory>
#include <new>

namespace quillmere::base {
namespace {

constexpr int fastestUsualLevel = 1;

/// The count that a call of the library returned. Throws when it is the code of an error.
std::size_t checkedCount(std::size_t result)
{
    if (::ZSTD_isError(result) == 0) {
        return result;
    }
    if (::ZSTD_getErrorCode(result) == ZSTD_error_memory_allocation) {
        throw std::bad_alloc();
    }
    throw Refusal(Refusal::Kind::unusableData,
                  std::string("The compressed data cannot be read: ") + ::ZSTD_getErrorName(result));
}

}  // namespace

Bytes compressed(std::string_view content)
{
    const std::unique_ptr<ZSTD_CCtx, decltype(&::ZSTD_freeCCtx)> context(::ZSTD_createCCtx(),
                                                                         ::ZSTD_freeCCtx);
    if (!context) {
        throw std::bad_alloc();
    }
    checkedCount(::ZSTD_CCtx_setParameter(context.get(), ZSTD_c_compressionLevel, fastestUsualLevel));
    checkedCount(::ZSTD_CCtx_setParameter(context.get(), ZSTD_c_checksumFlag, 1));
    const std::size_t room = ::ZSTD_compressBound(content.size());
    Bytes frame;
    char* const place = frame.reserve(room);
    frame.commit(checkedCount(::ZSTD_compress2(context.get(), place, room, content.data(), content.size())));
    return frame;
}

Bytes decompressed(std::string_view frame)
{
    const unsigned long long size = ::ZSTD_getFrameContentSize(frame.data(), frame.size());
    // A frame cannot announce more than its bytes can hold: a damaged size must not take all memory.
    constexpr unsigned long long highestRatio = 100'000;
    if (size == ZSTD_CONTENTSIZE_ERROR || size == ZSTD_CONTENTSIZE_UNKNOWN ||
        size / highestRatio > frame.size()) {
        throw Refusal(Refusal::Kind::unusableData,
                      "The compressed data cannot be read: its beginning is damaged");
    }
    Bytes content;
    char* const place = content.reserve(size);
    content.commit(checkedCount(::ZSTD_decompress(place, size, frame.data(), frame.size())));
    return content;
}

}  // namespace quillmere::base
