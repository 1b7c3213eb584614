#include <quillmere/records/base/bytes.hpp>

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace quillmere {

Bytes::Bytes(std::string_view text)
{
    char* destination = reserve(text.size());
    if (!text.empty()) {
        std::memcpy(destination, text.data(), text.size());
    }
    commit(text.size());
}

char* Bytes::reserve(std::size_t count)
{
    if (!storage_ || capacity_ - size_ < count) {
        constexpr std::size_t most =
            static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) - slack;
        if (count > most - size_) {
            throw std::bad_alloc();
        }
        const std::size_t capacity = std::max(size_ + count, std::min(capacity_ * 2, most));
        auto storage = std::make_unique_for_overwrite<char[]>(capacity + slack);
        if (size_ > 0) {
            std::memcpy(storage.get(), storage_.get(), size_);
        }
        storage_ = std::move(storage);
        capacity_ = capacity;
    }
    return storage_.get() + size_;
}

void Bytes::commit(std::size_t count) noexcept
{
    size_ += count;
    if (storage_) {
        std::memset(storage_.get() + size_, 0, slack);
    }
}

}  // namespace quillmere
