// An optional field needs its row too.
#include <quillmere/records/json/encode.hpp>

#include <optional>
#include <string>

struct Note {
    std::string title;
    std::optional<quillmere::Instant> writtenAt;
};

template <>
struct quillmere::json::Table<Note> {
#ifdef AS_IT_SHOULD_BE
    using Fields = std::tuple<Field<"title", &Note::title>, Field<"writtenAt", &Note::writtenAt>>;
#else
    using Fields = std::tuple<Field<"title", &Note::title>>;
#endif
};

template quillmere::Bytes quillmere::JsonEncoder::encode<Note>(const Note&) const;
