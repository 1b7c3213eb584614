// Sounds of the desktop's theme.
#pragma once

#include <memory>
#include <string>

struct ca_context;  // of libcanberra

namespace quillmere::notices {

/// Plays sounds by their names at freedesktop.org, for notification services that play none. A computer
/// without a sound server or without the sound stays silent: the notice is given all the same.
class SoundPlayer {
public:
    /// Begins to play the sound and does not wait for its end. An empty name is silence.
    void play(const std::string& name);

private:
    struct Delete {
        void operator()(::ca_context* context) const;
    };

    std::unique_ptr<::ca_context, Delete> context_;  ///< null until the first sound
};

}  // namespace quillmere::notices
