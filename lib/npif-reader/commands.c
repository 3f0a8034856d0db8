#include "builder.h"
#include "text.h"

#include <string.h>

enum { kFieldsOfMost = 10, kWordBytes = 40 };

/* What tells the three kinds of command apart. */
typedef struct command_kind {
    const char* count_name;
    const char* value_name;
    size_t form_field; /* the field that says whether paper follows */
    size_t paper_fields;
    size_t interposer_fields;
    const char* expected_fields;
} command_kind;

static const command_kind kKinds[NPIF_KINDS] = {
    {"NPIFCoverCountTicket", "NPIFCoverValueTicket_", 2, 7, 4,
     "expected 7 fields with paper, or 4 from the interposer"},
    {"NPIFInsertionCountTicket", "NPIFInsertionValueTicket_", 1, 7, 4,
     "expected 7 fields with paper, or 4 from the interposer"},
    {"NPIFExceptionCountTicket", "NPIFExceptionValueTicket_", 1, 10, 7,
     "expected 10 fields with paper, or 7 from the interposer"},
};

static const char* const kPrintings[] = {"print-none", "print-front", "print-back", "print-both"};
static const char* const kSides[] = {"one-sided", "two-sided-long-edge", "two-sided-short-edge"};
static const char* const kCoverSides[] = {"0", "1"};

/* One command while its fields are read. The first field that is refused is noted and ends the reading. */
typedef struct reading {
    npif_reader* reader;
    npif_command* command;
    npif_text key;
    npif_text fields[kFieldsOfMost];
    size_t places[kFieldsOfMost]; /* offset of each field in the command's text */
} reading;

static bool refuse(reading* r, size_t field, const char* reason) {
    const npif_place place = {r->key, r->command->index, field, r->places[field - 1] + 1};
    r->command->problem = npif_note(r->reader, NPIF_PROBLEM_FIELD, place, reason, &r->fields[field - 1]);
    return false;
}

/* The field's position among the words; they are all named in `reason`. */
static bool take_choice(reading* r, size_t field, const char* const* words, size_t count, const char* reason,
                        int* choice) {
    for (size_t i = 0; i < count; ++i) {
        if (npif_text_is(r->fields[field - 1], words[i])) {
            *choice = (int)i;
            return true;
        }
    }
    return refuse(r, field, reason);
}

static bool take_number(reading* r, size_t field, int32_t least, const char* reason, int32_t* number) {
    return (npif_read_digits(r->fields[field - 1], number) && *number >= least) || refuse(r, field, reason);
}

static bool is_word_byte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
}

static bool take_word(reading* r, size_t field, npif_text* word) {
    const npif_text text = r->fields[field - 1];
    for (size_t i = 0; i < text.length; ++i) {
        if (i >= kWordBytes || !is_word_byte(text.bytes[i])) {
            return refuse(r, field, "expected at most 40 letters, digits, \"_\" and \"-\"");
        }
    }
    *word = text;
    return true;
}

/* Width and length, both empty for a size that the pane has no numbers for. */
static bool take_size(reading* r, size_t field) {
    static const char* const kReason = "expected hundredths of a millimetre in digits";
    npif_paper* paper = &r->command->paper;
    if (r->fields[field - 1].length == 0 && r->fields[field].length == 0) {
        return true;
    }
    return take_number(r, field, 0, kReason, &paper->width) &&
           take_number(r, field + 1, 0, kReason, &paper->length);
}

static bool take_tray(reading* r, size_t field) {
    static const char* const kTray[] = {"interposer"};
    int tray = 0;
    r->command->paper.interposer = true;
    return take_choice(r, field, kTray, 1, "expected \"interposer\"", &tray);
}

static bool take_cover(reading* r, bool paper) {
    int side = 0;
    int printing = 0;
    if (!take_choice(r, 1, kCoverSides, 2, "expected \"0\" for a front cover or \"1\" for a back cover",
                     &side) ||
        !take_choice(r, 3, kPrintings, 4,
                     "expected \"print-none\", \"print-front\", \"print-back\" or \"print-both\"",
                     &printing)) {
        return false;
    }
    r->command->cover.side = (npif_side)side;
    r->command->cover.printing = (npif_printing)printing;
    npif_paper* to = &r->command->paper;
    return paper ? take_word(r, 4, &to->type) && take_word(r, 5, &to->color) && take_size(r, 6)
                 : take_tray(r, 4);
}

/* Here the colour comes first and the type last. */
static bool take_insertion(reading* r, bool paper) {
    npif_insertion* insertion = &r->command->insertion;
    if (!take_number(r, 2, 0, "expected a page in digits, 0 for before page one", &insertion->page) ||
        !take_number(r, 3, 1, "expected a number of sheets from 1 on", &insertion->sheets)) {
        return false;
    }
    npif_paper* to = &r->command->paper;
    return paper ? take_word(r, 4, &to->color) && take_size(r, 5) && take_word(r, 7, &to->type)
                 : take_tray(r, 4);
}

static bool take_exception(reading* r, bool paper) {
    static const char* const kOne[] = {"1"};
    npif_exception* exception = &r->command->exception;
    int choice = 0;
    if (!take_choice(r, 2, kOne, 1, "expected \"1\"", &choice) ||
        !take_choice(r, 3, kOne, 1, "expected \"1\"", &choice) ||
        !take_number(r, 4, 1, "expected a page from 1 on", &exception->first) ||
        !take_number(r, 5, exception->first, "expected a page not before the first", &exception->last) ||
        !take_choice(r, 6, kSides, 3,
                     "expected \"one-sided\", \"two-sided-long-edge\" or \"two-sided-short-edge\"",
                     &choice)) {
        return false;
    }
    exception->sides = (npif_sides)choice;
    npif_paper* to = &r->command->paper;
    return paper ? take_word(r, 7, &to->type) && take_word(r, 8, &to->color) && take_size(r, 9)
                 : take_tray(r, 7);
}

/* Splits a private copy at its commas and ends each field with a zero byte. Answers how many fields there
 * are; those past the tenth are only counted. */
static size_t split_fields(reading* r, char* bytes, size_t length) {
    size_t count = 0;
    size_t start = 0;
    for (size_t at = 0; at <= length; ++at) {
        if (at < length && bytes[at] != ',') {
            continue;
        }
        bytes[at] = '\0';
        if (count < kFieldsOfMost) {
            r->fields[count] = (npif_text){bytes + start, at - start};
            r->places[count] = start;
        }
        ++count;
        start = at + 1;
    }
    return count;
}

/* Fills the fields of a command whose text is known. */
static bool take_fields(reading* r) {
    const command_kind* kind = &kKinds[r->command->kind];
    const npif_text copy = npif_copy(&r->reader->arena, r->command->text.bytes, r->command->text.length);
    if (copy.bytes == NULL) {
        return false;
    }
    const size_t count = split_fields(r, (char*)copy.bytes, copy.length);
    if (count != kind->paper_fields && count != kind->interposer_fields) {
        const npif_place place = {r->key, r->command->index, 0, 0};
        r->command->problem =
            npif_note(r->reader, NPIF_PROBLEM_FIELDS, place, kind->expected_fields, &r->command->text);
        return false;
    }
    const bool paper = count == kind->paper_fields;
    if (!npif_text_is(r->fields[kind->form_field - 1], paper ? "1" : "0")) {
        return refuse(r, kind->form_field,
                      paper ? "expected \"1\", as paper follows" : "expected \"0\", as no paper follows");
    }
    switch (r->command->kind) {
    case NPIF_COVER:
        return take_cover(r, paper);
    case NPIF_INSERTION:
        return take_insertion(r, paper);
    case NPIF_EXCEPTION:
        return take_exception(r, paper);
    }
    return false;
}

/* Undoes the slash-decimal form of the stored value; false when it is malformed. */
static bool take_text(reading* r, npif_text stored) {
    r->command->text = npif_copy(&r->reader->arena, stored.bytes, stored.length);
    if (r->command->text.bytes == NULL) {
        return false;
    }
    const npif_form_error error =
        npif_undo_slash_decimal((char*)r->command->text.bytes, &r->command->text.length);
    if (error.reason != NULL) {
        const npif_place place = {r->key, r->command->index, 0, error.byte};
        r->command->problem = npif_note(r->reader, NPIF_PROBLEM_FORM, place, error.reason, NULL);
        return false;
    }
    return true;
}

static void read_command(npif_reader* reader, npif_command* command) {
    const char* const name = kKinds[command->kind].value_name;
    reading r;
    memset(&r, 0, sizeof r);
    r.reader = reader;
    r.command = command;
    r.key = npif_key(reader, name, command->index);
    if (!take_text(&r, npif_option_of(reader, name, command->index)->value) || !take_fields(&r)) {
        const npif_command refused = {.kind = command->kind,
                                      .index = command->index,
                                      .text = command->text,
                                      .problem = command->problem};
        *command = refused;
    }
}

void npif_read_commands(npif_reader* reader, npif_kind kind) {
    const size_t count = npif_count_entries(reader, kKinds[kind].count_name, kKinds[kind].value_name,
                                            "expected a command, as the count announces");
    npif_command* commands = npif_take_array(&reader->arena, count, sizeof *commands);
    if (commands == NULL) {
        return;
    }
    reader->commands[kind] = commands;
    reader->command_counts[kind] = count;
    for (size_t i = 0; i < count; ++i) {
        commands[i].kind = kind;
        commands[i].index = i;
        read_command(reader, &commands[i]);
    }
}
