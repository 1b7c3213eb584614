// The target of a standard channel of a child process.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <utility>

namespace quillmere::test {

struct Channel {
    enum class Kind {
        null,        ///< /dev/null
        inherited,   ///< the same as this process's
        closed,      ///< not open
        file,        ///< a file; an output is created where it is missing, and appended to
        descriptor,  ///< an open descriptor of this process
        text,        ///< input only: this text and then the end of input
        captured,    ///< output only: kept in memory, read with `Process::out` and `Process::err`
        pipe,        ///< a pipe between the test and the child
        fullPipe,    ///< output only: a small pipe, filled with line ends
        socket,      ///< a stream socket
        terminal,    ///< the pseudo-terminal of the child (`ProcessOptions::terminal`)
        sameAsOut,   ///< standard error only: the same target as standard output
    };

    static Channel null() { return {}; }
    static Channel inherited() { return {.kind = Kind::inherited}; }
    static Channel closed() { return {.kind = Kind::closed}; }
    static Channel toFile(std::filesystem::path file)
    {
        return {.kind = Kind::file, .file = std::move(file)};
    }
    static Channel to(int descriptor) { return {.kind = Kind::descriptor, .descriptor = descriptor}; }
    static Channel text(std::string text) { return {.kind = Kind::text, .content = std::move(text)}; }
    static Channel captured() { return {.kind = Kind::captured}; }
    static Channel pipe() { return {.kind = Kind::pipe}; }
    static Channel fullPipe() { return {.kind = Kind::fullPipe}; }
    static Channel socket() { return {.kind = Kind::socket}; }
    static Channel terminal() { return {.kind = Kind::terminal}; }
    static Channel sameAsOut() { return {.kind = Kind::sameAsOut}; }

    Kind kind = Kind::null;
    std::filesystem::path file = {};
    int descriptor = -1;
    std::string content = {};
};

}  // namespace quillmere::test
