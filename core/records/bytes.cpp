#include <quillmere/records/bytes.hpp>

#include <algorithm>
#include <cstring>

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
        const std::size_t capacity = std::max(size_ + count, capacity_ * 2);
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
