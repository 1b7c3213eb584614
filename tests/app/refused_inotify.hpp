// A system that offers no more watches of directories.
#pragma once

namespace quillmere::test {

/// During its lifetime, inotify_init1(2) and inotify_add_watch(2) fail with these errors; 0: no failure. Only
/// one may exist. For tests that link quillmere_refused_inotify, whose linker option --wrap redirects the
/// calls.
class RefusedInotify {
public:
    explicit RefusedInotify(int errorOfInit, int errorOfAdd = 0);
    RefusedInotify(const RefusedInotify&) = delete;
    RefusedInotify& operator=(const RefusedInotify&) = delete;
    ~RefusedInotify();
};

}  // namespace quillmere::test
