// The rows must be in the order of the fields.
#include <quillmere/records/json/encode.hpp>

#include <string>

struct Note {
    std::string title;
    double durationSeconds;
};

template <>
struct quillmere::json::Table<Note> {
#ifdef AS_IT_SHOULD_BE
    using Fields = std::tuple<Field<"title", &Note::title>, Field<"durationSeconds", &Note::durationSeconds>>;
#else
    using Fields = std::tuple<Field<"durationSeconds", &Note::durationSeconds>, Field<"title", &Note::title>>;
#endif
};

template quillmere::Bytes quillmere::JsonEncoder::encode<Note>(const Note&) const;
