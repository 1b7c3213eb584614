// Compiles the reading and writing of one type. Each type is compiled once, in a file of its own folder.
#pragma once

#include <quillmere/records/json/decode.hpp>
#include <quillmere/records/json/encode.hpp>

#define QUILLMERE_INSTANTIATE_CODING(Type)                            \
    template Bytes JsonEncoder::encode<Type>(const Type&) const;      \
    template ByteSource JsonEncoder::source<Type>(const Type&) const; \
    template Type JsonDecoder::decode<Type>(const Bytes&) const
