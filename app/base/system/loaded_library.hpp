// Libraries that only some commands need, loaded when they are first used: a program loads the libraries that
// it is linked to at each of its starts.
#pragma once

#include <initializer_list>
#include <type_traits>

namespace quillmere::base {

/// A shared library of the system. It stays loaded as long as the process lives: libraries have handlers and
/// data that outlive their use.
class LoadedLibrary {
public:
    /// A function or an object of the library, as a pointer of the type that its header gives it.
    class Symbol {
    public:
        template <class Pointer>
        requires std::is_pointer_v<Pointer>
        operator Pointer() const  // NOLINT(google-explicit-constructor): it initialises members of that type
        {
            return reinterpret_cast<Pointer>(address_);
        }

    private:
        friend class LoadedLibrary;
        explicit Symbol(void* address) : address_(address) {}

        void* address_;
    };

    /// The first of the names that dlopen(3) finds. Throws Refusal (`fileError`).
    explicit LoadedLibrary(std::initializer_list<const char*> names);

    /// By its name in C. Throws Refusal (`fileError`).
    Symbol operator[](const char* name) const;

private:
    void* handle_ = nullptr;
};

}  // namespace quillmere::base
