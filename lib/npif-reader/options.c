#include "options.h"

#include <string.h>

static const char* const kTooLong = "expected at most 1048576 bytes of options";
static const char* const kTooMany = "expected at most 16384 options";
static const char* const kZeroByte = "expected no zero byte among the options";

static char lower(char c) {
    if (c >= 'A' && c <= 'Z') {
        return (char)(c - 'A' + 'a');
    }
    return c;
}

static bool same_name(npif_text a, const char* bytes, size_t length) {
    if (a.length != length) {
        return false;
    }
    for (size_t i = 0; i < length; ++i) {
        if (lower(a.bytes[i]) != lower(bytes[i])) {
            return false;
        }
    }
    return true;
}

static size_t hash_of(const char* bytes, size_t length) {
    uint32_t hash = 2166136261U;
    for (size_t i = 0; i < length; ++i) {
        hash = (hash ^ (unsigned char)lower(bytes[i])) * 16777619U;
    }
    return hash;
}

/* The slot of that name, or the free one where it belongs. There is always a free one. */
static size_t slot_of(const npif_options* options, const char* name, size_t length) {
    size_t slot = hash_of(name, length) & (options->slot_count - 1);
    while (options->slots[slot] != 0 &&
           !same_name(options->items[options->slots[slot] - 1].name, name, length)) {
        slot = (slot + 1) & (options->slot_count - 1);
    }
    return slot;
}

/* Room for `room` options, 16384 at most. False when memory has run out. */
static bool make_room(npif_options* options, npif_arena* arena, size_t room) {
    options->room = room > NPIF_MAX_OPTIONS ? NPIF_MAX_OPTIONS : room;
    options->slot_count = 2;
    while (options->slot_count < 2 * options->room) {
        options->slot_count *= 2;
    }
    options->items = npif_take_array(arena, options->room, sizeof *options->items);
    options->slots = npif_take_array(arena, options->slot_count, sizeof *options->slots);
    return !arena->failed;
}

/* False when there is no room. An option without a name is left out, as CUPS does. */
static bool add(npif_options* options, npif_text name, npif_text value) {
    if (name.length == 0) {
        return true;
    }
    const size_t slot = slot_of(options, name.bytes, name.length);
    if (options->slots[slot] != 0) {
        options->items[options->slots[slot] - 1].value = value;
        return true;
    }
    if (options->count == options->room) {
        return false;
    }
    options->items[options->count].name = name;
    options->items[options->count].value = value;
    options->slots[slot] = (uint32_t)++options->count;
    return true;
}

static npif_refusal refused(npif_options* options, const char* reason, size_t byte) {
    const npif_refusal refusal = {reason, byte};
    options->count = 0;
    options->slot_count = 0;
    return refusal;
}

static const npif_refusal kAccepted = {NULL, 0};

const npif_option* npif_find_option(const npif_options* options, const char* name, size_t length) {
    if (options->slot_count == 0) {
        return NULL;
    }
    const uint32_t number = options->slots[slot_of(options, name, length)];
    return number == 0 ? NULL : &options->items[number - 1];
}

/* ---- Pairs ---- */

static size_t length_of(const char* text) {
    return text == NULL ? 0 : strlen(text);
}

npif_refusal npif_take_pairs(npif_options* options, npif_arena* arena, const npif_pair* pairs, size_t count) {
    if (pairs == NULL) {
        count = 0;
    }
    if (count > NPIF_MAX_OPTIONS) {
        return refused(options, kTooMany, 0);
    }
    size_t bytes = 0;
    for (size_t i = 0; i < count; ++i) {
        bytes += length_of(pairs[i].name) + length_of(pairs[i].value);
        if (bytes > NPIF_MAX_OPTION_BYTES) {
            return refused(options, kTooLong, 0);
        }
    }
    if (!make_room(options, arena, count)) {
        return kAccepted;
    }
    for (size_t i = 0; i < count && !arena->failed; ++i) {
        add(options, npif_copy(arena, pairs[i].name, length_of(pairs[i].name)),
            npif_copy(arena, pairs[i].value, length_of(pairs[i].value)));
    }
    return kAccepted;
}

/* ---- The option string ---- */

/* Where reading stands in a private copy of the options. A value only gets shorter by being unescaped, so
 * that it is written where it was read. */
typedef struct cursor {
    char* at;
    char* end;
    char* out; /* end of the value that is being written, never past `at` */
} cursor;

static bool is_blank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

static void skip_blanks(cursor* c) {
    while (c->at < c->end && is_blank(*c->at)) {
        ++c->at;
    }
}

static void keep(cursor* c) {
    *c->out++ = *c->at++;
}

/* Keeps one byte, or the byte behind a backslash. A last backslash stands for itself. */
static void keep_unescaped(cursor* c) {
    if (*c->at == '\\' && c->at + 1 < c->end) {
        ++c->at;
    }
    keep(c);
}

static void read_quoted(cursor* c) {
    const char quote = *c->at++;
    while (c->at < c->end && *c->at != quote) {
        keep_unescaped(c);
    }
    if (c->at < c->end) {
        ++c->at;
    }
}

/* A collection keeps its braces, and its blanks between them. */
static void read_braces(cursor* c) {
    size_t depth = 0;
    while (c->at < c->end) {
        if (*c->at == '{') {
            ++depth;
        } else if (*c->at == '}') {
            --depth;
        }
        const bool last = depth == 0;
        keep_unescaped(c);
        if (last) {
            return;
        }
    }
}

static void read_plain(cursor* c) {
    while (c->at < c->end && !is_blank(*c->at)) {
        keep_unescaped(c);
    }
}

static npif_text read_value(cursor* c) {
    char* const start = c->at;
    c->out = start;
    while (c->at < c->end && !is_blank(*c->at)) {
        if (*c->at == ',') {
            keep(c);
        } else if (*c->at == '\'' || *c->at == '"') {
            read_quoted(c);
        } else if (*c->at == '{') {
            read_braces(c);
        } else {
            read_plain(c);
        }
    }
    if (c->at < c->end) {
        ++c->at; /* the blank that ended it */
    }
    *c->out = '\0'; /* over that blank, a byte read before, or the copy's own zero byte */
    const npif_text value = {start, (size_t)(c->out - start)};
    return value;
}

/* A name without a value is "true", or "false" behind a leading "no". */
static bool add_bare(npif_options* options, npif_text name) {
    static const npif_text kTrue = {"true", 4};
    static const npif_text kFalse = {"false", 5};
    if (name.length >= 2 && same_name((npif_text){name.bytes, 2}, "no", 2)) {
        return add(options, (npif_text){name.bytes + 2, name.length - 2}, kFalse);
    }
    return add(options, name, kTrue);
}

/* Reads the next option; false at the end, and at an "=" without a name, where CUPS stops as well. `full` is
 * set when there was no room for it. */
static bool read_option(cursor* c, npif_options* options, bool* full) {
    char* const start = c->at;
    while (c->at < c->end && *c->at != '=' && !is_blank(*c->at)) {
        ++c->at;
    }
    const npif_text name = {start, (size_t)(c->at - start)};
    if (name.length == 0) {
        return false;
    }
    char* const name_end = c->at;
    skip_blanks(c);
    const bool has_value = c->at < c->end && *c->at == '=';
    if (has_value) {
        ++c->at;
    }
    *name_end = '\0'; /* over a blank, the "=", or the copy's own zero byte */
    if (!has_value) {
        *full = !add_bare(options, name);
        return true;
    }
    const npif_text value = read_value(c);
    skip_blanks(c);
    *full = !add(options, name, value);
    return true;
}

npif_refusal npif_parse_options(npif_options* options, npif_arena* arena, const char* bytes, size_t length) {
    if (bytes == NULL) {
        length = 0;
    }
    if (length > NPIF_MAX_OPTION_BYTES) {
        return refused(options, kTooLong, NPIF_MAX_OPTION_BYTES + 1);
    }
    const char* const zero = length == 0 ? NULL : memchr(bytes, '\0', length);
    if (zero != NULL) {
        return refused(options, kZeroByte, (size_t)(zero - bytes) + 1);
    }
    char* const copy = npif_take(arena, length + 1);
    if (copy == NULL || !make_room(options, arena, length / 2 + 1)) {
        return kAccepted;
    }
    if (length > 0) {
        memcpy(copy, bytes, length);
    }
    cursor c = {copy, copy + length, copy};
    if (length >= 2 && copy[0] == '{' && copy[length - 1] == '}') { /* braces around the whole */
        ++c.at;
        *--c.end = '\0';
    }
    skip_blanks(&c);
    bool full = false;
    while (c.at < c.end) {
        const size_t place = (size_t)(c.at - copy) + 1;
        if (!read_option(&c, options, &full)) {
            break;
        }
        if (full) {
            return refused(options, kTooMany, place);
        }
    }
    return kAccepted;
}
