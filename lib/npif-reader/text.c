#include "text.h"

#include <string.h>

static bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

/* Reads one "/" and its number at `*at`, and moves behind them. */
static npif_form_error read_piece(const char* bytes, size_t length, size_t* at, unsigned char* out) {
    const size_t first = *at + 1; /* past the slash */
    unsigned value = 0;
    size_t i = first;
    for (; i < length && bytes[i] != '/'; ++i) {
        if (!is_digit(bytes[i])) {
            return (npif_form_error){"expected digits after each \"/\"", i + 1};
        }
        value = value * 10 + (unsigned)(bytes[i] - '0');
        if (value > 255) {
            return (npif_form_error){"expected a number of 255 at most", first + 1};
        }
    }
    if (i == first) {
        return (npif_form_error){"expected a number after each \"/\"", i + 1};
    }
    *at = i;
    *out = (unsigned char)value;
    return (npif_form_error){NULL, 0};
}

npif_form_error npif_undo_slash_decimal(char* bytes, size_t* length) {
    npif_form_error error = {NULL, 0};
    unsigned char byte = 0;
    if (*length == 0 || bytes[0] != '/') {
        return error;
    }
    for (size_t at = 0; at < *length && error.reason == NULL;) { /* first a look at the whole */
        error = read_piece(bytes, *length, &at, &byte);
    }
    if (error.reason != NULL) {
        return error;
    }
    size_t written = 0;
    for (size_t at = 0; at < *length;) {
        error = read_piece(bytes, *length, &at, &byte);
        bytes[written++] = (char)byte;
    }
    bytes[written] = '\0'; /* every piece had two bytes at least */
    *length = written;
    return error;
}

/* The number that the digits from `at` on are, held at `limit`. */
static int64_t digits_from(npif_text text, size_t at, int64_t limit) {
    int64_t value = 0;
    for (; at < text.length && is_digit(text.bytes[at]); ++at) {
        value = value * 10 + (text.bytes[at] - '0');
        if (value > limit) {
            value = limit;
        }
    }
    return value;
}

int32_t npif_integer_at_head(npif_text text) {
    size_t at = 0;
    while (at < text.length &&
           (text.bytes[at] == ' ' || (text.bytes[at] >= '\t' && text.bytes[at] <= '\r'))) {
        ++at;
    }
    bool negative = false;
    if (at < text.length && (text.bytes[at] == '+' || text.bytes[at] == '-')) {
        negative = text.bytes[at] == '-';
        ++at;
    }
    const int64_t limit = negative ? -(int64_t)INT32_MIN : INT32_MAX;
    const int64_t value = digits_from(text, at, limit);
    return (int32_t)(negative ? -value : value);
}

bool npif_read_digits(npif_text text, int32_t* value) {
    const int64_t past = (int64_t)INT32_MAX + 1;
    for (size_t i = 0; i < text.length; ++i) {
        if (!is_digit(text.bytes[i])) {
            return false;
        }
    }
    const int64_t number = digits_from(text, 0, past);
    if (text.length == 0 || number == past) {
        return false;
    }
    *value = (int32_t)number;
    return true;
}

bool npif_text_is(npif_text text, const char* word) {
    return text.length == strlen(word) && (text.length == 0 || memcmp(text.bytes, word, text.length) == 0);
}

/* ---- UTF-8 ---- */

static bool is_between(unsigned char byte, unsigned char low, unsigned char high) {
    return byte >= low && byte <= high;
}

/* Bytes of the well-formed character at the head, 0 when there is none. `length` is 1 at least. */
static size_t character_length(const unsigned char* bytes, size_t length) {
    const unsigned char lead = bytes[0];
    if (lead < 0x80) {
        return 1;
    }
    const size_t wanted = is_between(lead, 0xC2, 0xDF)   ? 2
                          : is_between(lead, 0xE0, 0xEF) ? 3
                          : is_between(lead, 0xF0, 0xF4) ? 4
                                                         : 0;
    if (wanted == 0 || length < wanted) {
        return 0;
    }
    /* The second byte keeps out overlong forms, surrogates, and what lies past U+10FFFF. */
    const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (!is_between(bytes[1], low, high)) {
        return 0;
    }
    for (size_t i = 2; i < wanted; ++i) {
        if (!is_between(bytes[i], 0x80, 0xBF)) {
            return 0;
        }
    }
    return wanted;
}

bool npif_utf16_prefix(npif_text text, size_t* prefix) {
    const unsigned char* const bytes = (const unsigned char*)text.bytes;
    size_t units = 0;
    for (size_t at = 0; at < text.length;) {
        const size_t step = character_length(bytes + at, text.length - at);
        if (step == 0) {
            return false;
        }
        units += step == 4 ? 2 : 1;
        at += step;
    }
    if (units < text.length) {
        while (units > 0 && (bytes[units] & 0xC0U) == 0x80U) {
            --units;
        }
    }
    *prefix = units;
    return true;
}
