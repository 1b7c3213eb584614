// A key must convert to snake_case and back, otherwise its value could not be read again.
#include <quillmere/records/json/encode.hpp>

#include <string>

struct Note {
    std::string pageURL;
};

template <>
struct quillmere::json::Table<Note> {
#ifdef AS_IT_SHOULD_BE
    using Fields = std::tuple<Field<"pageUrl", &Note::pageURL>>;
#else
    using Fields = std::tuple<Field<"pageURL", &Note::pageURL>>;
#endif
};

template quillmere::Bytes quillmere::JsonEncoder::encode<Note>(const Note&) const;
