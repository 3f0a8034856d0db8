#include "builder.h"
#include "text.h"

#include <stdio.h>
#include <string.h>

static const char* const kPrefix = "com.norvalen.nb.rtz.printsettings.";

enum {
    kNameBytes = 128,     /* no name here is longer, its index included */
    kSentenceBytes = 512, /* place, reason and quotation together */
    kQuotedBytes = 40
};

static size_t write_name(char* buffer, const char* name, size_t index) {
    const int length = index == NPIF_NO_INDEX ? snprintf(buffer, kNameBytes, "%s%s", kPrefix, name)
                                              : snprintf(buffer, kNameBytes, "%s%s%zu", kPrefix, name, index);
    return length < 0 ? 0 : (size_t)length;
}

npif_text npif_key(npif_reader* reader, const char* name, size_t index) {
    char buffer[kNameBytes];
    return npif_copy(&reader->arena, buffer, write_name(buffer, name, index));
}

const npif_option* npif_option_of(const npif_reader* reader, const char* name, size_t index) {
    char buffer[kNameBytes];
    return npif_find_option(&reader->options, buffer, write_name(buffer, name, index));
}

/* A text being written; what does not fit is left out. */
typedef struct sentence {
    char bytes[kSentenceBytes];
    size_t length;
} sentence;

static void say(sentence* s, const char* text) {
    for (; *text != '\0' && s->length < kSentenceBytes; ++text) {
        s->bytes[s->length++] = *text;
    }
}

static void say_number(sentence* s, const char* before, size_t number) {
    char digits[24];
    snprintf(digits, sizeof digits, "%zu", number);
    say(s, before);
    say(s, digits);
}

static void say_quoted(sentence* s, npif_text text) {
    say(s, ", found \"");
    for (size_t i = 0; i < text.length && i < kQuotedBytes && s->length < kSentenceBytes; ++i) {
        const unsigned char byte = (unsigned char)text.bytes[i];
        const bool printable = byte >= 0x20 && byte < 0x7F;
        s->bytes[s->length++] = (char)(printable ? byte : '?');
    }
    say(s, text.length > kQuotedBytes ? "...\"" : "\"");
}

static npif_text sentence_of(npif_arena* arena, npif_place place, const char* reason,
                             const npif_text* found) {
    sentence s;
    s.length = 0;
    say(&s, place.key.length == 0 ? "the options" : place.key.bytes);
    if (place.field > 0) {
        say_number(&s, ", field ", place.field);
    }
    if (place.byte > 0) {
        say_number(&s, ", byte ", place.byte);
    }
    say(&s, ": ");
    say(&s, reason);
    if (found != NULL) {
        say_quoted(&s, *found);
    }
    return npif_copy(arena, s.bytes, s.length);
}

const npif_problem* npif_note(npif_reader* reader, npif_problem_code code, npif_place place,
                              const char* reason, const npif_text* found) {
    const npif_text sentence_text = sentence_of(&reader->arena, place, reason, found);
    npif_problem_node* node = npif_take(&reader->arena, sizeof *node);
    if (node == NULL || place.key.bytes == NULL) {
        return NULL;
    }
    node->problem.code = code;
    node->problem.key = place.key;
    node->problem.index = place.index;
    node->problem.field = place.field;
    node->problem.byte = place.byte;
    node->problem.sentence = sentence_text;
    if (reader->last_problem == NULL) {
        reader->first_problem = node;
    } else {
        reader->last_problem->next = node;
    }
    reader->last_problem = node;
    ++reader->problem_count;
    return &node->problem;
}

size_t npif_count_entries(npif_reader* reader, const char* count_name, const char* entry_name,
                          const char* missing) {
    const npif_option* option = npif_option_of(reader, count_name, NPIF_NO_INDEX);
    if (option == NULL) {
        return 0;
    }
    int32_t count = 0;
    if (option->value.length > 0 && !npif_read_digits(option->value, &count)) {
        const npif_place place = {npif_key(reader, count_name, NPIF_NO_INDEX), NPIF_NO_INDEX, 0, 0};
        npif_note(reader, NPIF_PROBLEM_COUNT, place, "expected a number in digits", &option->value);
        count = npif_integer_at_head(option->value);
    }
    size_t there = 0;
    while (count > 0 && there < (size_t)count && npif_option_of(reader, entry_name, there) != NULL) {
        ++there;
    }
    if (count > 0 && there < (size_t)count) {
        const npif_place place = {npif_key(reader, entry_name, there), there, 0, 0};
        npif_note(reader, NPIF_PROBLEM_MISSING, place, missing, NULL);
    }
    return there;
}
