// With two rows for one field, another field has no row.
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
    using Fields = std::tuple<Field<"title", &Note::title>, Field<"text", &Note::title>>;
#endif
};

template quillmere::Bytes quillmere::JsonEncoder::encode<Note>(const Note&) const;
