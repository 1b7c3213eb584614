// Compiles the writing and reading of one type; used once for each, beside the others of its folder.
#pragma once

#include <quillmere/records/json/decode.hpp>
#include <quillmere/records/json/encode.hpp>

#define QUILLMERE_INSTANTIATE_CODING(Type)                            \
    template Bytes JsonEncoder::encode<Type>(const Type&) const;      \
    template ByteSource JsonEncoder::source<Type>(const Type&) const; \
    template Type JsonDecoder::decode<Type>(const Bytes&) const
