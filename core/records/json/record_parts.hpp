// The coding of the records inside other records. It is compiled once, in record_coding.cpp, and every other
// file that codes a type with these records in it includes this header.
#pragma once

#include <quillmere/records/json/instantiate.hpp>
#include <quillmere/records/json/record_tables.hpp>

/// The functions that do not depend on the place of the record in the document.
#define QUILLMERE_RECORD_PARTS(KEYWORD, Record)                                   \
    KEYWORD template void readInto(Node<ondemand::value>&, Record&, std::size_t); \
    KEYWORD template void requireEncodable(const Record&);                        \
    KEYWORD template std::size_t expectedSize(const Record&)

/// The writing of a record at one nesting depth.
#define QUILLMERE_RECORD_WRITING(KEYWORD, Record, depth)                                          \
    KEYWORD template char* writeRecord<JsonLayout::pretty, depth>(Writer&, char*, const Record&); \
    KEYWORD template char* writeRecord<JsonLayout::compact, depth>(Writer&, char*, const Record&)

/// Everything that the state and the agent's summary have in common.
#define QUILLMERE_ALL_RECORD_PARTS(KEYWORD)            \
    QUILLMERE_RECORD_PARTS(KEYWORD, Outcome);          \
    QUILLMERE_RECORD_PARTS(KEYWORD, SessionPlan);      \
    QUILLMERE_RECORD_PARTS(KEYWORD, WorkSession);      \
    QUILLMERE_RECORD_PARTS(KEYWORD, Block);            \
    QUILLMERE_RECORD_PARTS(KEYWORD, AgentQuestion);    \
    QUILLMERE_RECORD_WRITING(KEYWORD, Block, 1);       \
    QUILLMERE_RECORD_WRITING(KEYWORD, SessionPlan, 1); \
    QUILLMERE_RECORD_WRITING(KEYWORD, AgentQuestion, 2)

namespace quillmere::json {

QUILLMERE_ALL_RECORD_PARTS(extern);

}  // namespace quillmere::json
