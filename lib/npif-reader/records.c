#include "builder.h"
#include "text.h"

#include <string.h>

enum { kFieldsOfMost = 11 };

typedef struct record_fields {
    size_t count;
    npif_record_key keys[kFieldsOfMost];
} record_fields;

/* By kind. An exception has the type before the colour, the two others the colour first. */
static const record_fields kFields[NPIF_KINDS] = {
    {11,
     {NPIF_RECORD_TYPE, NPIF_RECORD_PAGE, NPIF_RECORD_PRINTINGOPTIONS, NPIF_RECORD_PAGESIZE,
      NPIF_RECORD_PAGECOLOR, NPIF_RECORD_PAGETYPE, NPIF_RECORD_INTERPOSER, NPIF_RECORD_COVERSOPTION,
      NPIF_RECORD_WIDTH, NPIF_RECORD_LENGTH, NPIF_RECORD_LONGMEASURE}},
    {11,
     {NPIF_RECORD_TYPE, NPIF_RECORD_PAGE, NPIF_RECORD_INSERTOPTION, NPIF_RECORD_INSERTQUANTITY,
      NPIF_RECORD_PAGESIZE, NPIF_RECORD_PAGECOLOR, NPIF_RECORD_PAGETYPE, NPIF_RECORD_INTERPOSER,
      NPIF_RECORD_WIDTH, NPIF_RECORD_LENGTH, NPIF_RECORD_LONGMEASURE}},
    {10,
     {NPIF_RECORD_TYPE, NPIF_RECORD_PAGE, NPIF_RECORD_PAGESIZE, NPIF_RECORD_PAGETYPE, NPIF_RECORD_PAGECOLOR,
      NPIF_RECORD_INTERPOSER, NPIF_RECORD_TWOSIDEPRINT, NPIF_RECORD_WIDTH, NPIF_RECORD_LENGTH,
      NPIF_RECORD_LONGMEASURE}},
};

static const char* const kKeyNames[NPIF_RECORD_KEY_COUNT] = {
    "type",           "page",         "printingoptions", "coversoption", "insertoption",
    "insertquantity", "twoSidePrint", "pagesize",        "pagecolor",    "pagetype",
    "interposer",     "width",        "length",          "longmeasure"};

/* Splits a private copy of the value at commas and newlines, and ends each piece with a zero byte. Answers
 * how many pieces were stored, 11 at most; further ones say nothing. None for ill-formed UTF-8. */
static size_t split_record(char* bytes, size_t length, npif_text* pieces) {
    size_t end = 0;
    if (!npif_utf16_prefix((npif_text){bytes, length}, &end)) {
        return 0;
    }
    size_t count = 0;
    size_t start = 0;
    for (size_t at = 0; at <= end && count < kFieldsOfMost; ++at) {
        if (at == end || bytes[at] == ',' || bytes[at] == '\n') {
            bytes[at] = '\0';
            pieces[count++] = (npif_text){bytes + start, at - start};
            start = at + 1;
        }
    }
    return count;
}

/* Fills the next record from one value. */
static void read_record(npif_reader* reader, const npif_option* option, size_t index) {
    const npif_text copy = npif_copy(&reader->arena, option->value.bytes, option->value.length);
    if (copy.bytes == NULL) {
        return;
    }
    npif_text pieces[kFieldsOfMost] = {{NULL, 0}};
    const size_t count = split_record((char*)copy.bytes, copy.length, pieces);
    const int32_t kind = count == 0 ? NPIF_COVER : npif_integer_at_head(pieces[0]);
    if (kind < 0 || kind >= NPIF_KINDS) {
        return;
    }
    if (count < kFields[kind].count) {
        const npif_place place = {npif_key(reader, "NPIFCommandTicket_", index), index, 0, 0};
        npif_note(reader, NPIF_PROBLEM_RECORD, place,
                  "expected 11 fields of a cover or insert, or 10 of an exception", NULL);
        return;
    }
    npif_record* record = &reader->records[reader->record_count++];
    record->kind = (npif_kind)kind;
    for (size_t i = 0; i < kFields[kind].count; ++i) {
        record->texts[kFields[kind].keys[i]] = pieces[i];
    }
}

void npif_read_records(npif_reader* reader) {
    const size_t count = npif_count_entries(reader, "NPIFCommandTicketCount", "NPIFCommandTicket_",
                                            "expected a record, as the count announces");
    reader->records = npif_take_array(&reader->arena, count, sizeof *reader->records);
    for (size_t i = 0; i < count && reader->records != NULL; ++i) {
        read_record(reader, npif_option_of(reader, "NPIFCommandTicket_", i), i);
    }
}

npif_text npif_record_text(const npif_record* record, npif_record_key key) {
    if (record == NULL || (unsigned)key >= NPIF_RECORD_KEY_COUNT) {
        return (npif_text){NULL, 0};
    }
    return record->texts[key];
}

int32_t npif_record_integer(const npif_record* record, npif_record_key key) {
    return npif_integer_at_head(npif_record_text(record, key));
}

const char* npif_record_key_name(npif_record_key key) {
    return (unsigned)key < NPIF_RECORD_KEY_COUNT ? kKeyNames[key] : NULL;
}
