#include "notices/sound_player.hpp"

#include <canberra.h>

#include <cstdint>

namespace quillmere::notices {

void SoundPlayer::Delete::operator()(::ca_context* context) const { ::ca_context_destroy(context); }

void SoundPlayer::play(const std::string& name)
{
    if (name.empty()) {
        return;
    }
    if (!context_) {
        ::ca_context* context = nullptr;
        if (::ca_context_create(&context) != CA_SUCCESS) {
            return;
        }
        context_.reset(context);
    }
    constexpr std::uint32_t anyNumber = 0;
    ::ca_context_play(context_.get(), anyNumber, CA_PROP_APPLICATION_ID, "quillmere", CA_PROP_EVENT_ID,
                      name.c_str(), CA_PROP_MEDIA_ROLE, "event", nullptr);
}

}  // namespace quillmere::notices
