// Only an optional field can be absent, and so be written as null.
#include <quillmere/records/json/encode.hpp>

#include <optional>
#include <string>

struct Note {
#ifdef AS_IT_SHOULD_BE
    std::optional<std::string> title;
#else
    std::string title;
#endif
};

template <>
struct quillmere::json::Table<Note> {
    using Fields = std::tuple<Field<"title", &Note::title, NullWhenAbsent>>;
};

template quillmere::Bytes quillmere::JsonEncoder::encode<Note>(const Note&) const;
