// A field without a row would not be saved.
#include <quillmere/records/json/encode.hpp>

#include <string>

struct Note {
    std::string title;
    std::string text;
};

template <>
struct quillmere::json::Table<Note> {
#ifdef AS_IT_SHOULD_BE
    using Fields = std::tuple<Field<"title", &Note::title>, Field<"text", &Note::text>>;
#else
    using Fields = std::tuple<Field<"title", &Note::title>>;
#endif
};

template quillmere::Bytes quillmere::JsonEncoder::encode<Note>(const Note&) const;
