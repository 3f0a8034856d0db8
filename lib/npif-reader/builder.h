/* A reader while it is filled: its options, the problems found so far. */
#ifndef NPIF_BUILDER_H
#define NPIF_BUILDER_H

#include "options.h"

enum { NPIF_KINDS = 3, NPIF_LISTS = 3, NPIF_FLAGS = 3 };

typedef struct npif_problem_node {
    npif_problem problem;
    struct npif_problem_node* next;
} npif_problem_node;

struct npif_reader {
    npif_arena arena;
    npif_options options;
    npif_problem_node* first_problem;
    npif_problem_node* last_problem;
    size_t problem_count;
    const npif_problem** problems;
    npif_command* commands[NPIF_KINDS];
    size_t command_counts[NPIF_KINDS];
    npif_record* records;
    size_t record_count;
    npif_text* papers[NPIF_LISTS];
    size_t paper_counts[NPIF_LISTS];
    bool flags[NPIF_FLAGS];
    int32_t announced;
};

/* Where something is wrong; the members are those of npif_problem. */
typedef struct npif_place {
    npif_text key;
    size_t index;
    size_t field;
    size_t byte;
} npif_place;

/* Notes a problem. `found` is quoted behind the reason, when it is not null. Null when memory has run out. */
const npif_problem* npif_note(npif_reader* reader, npif_problem_code code, npif_place place,
                              const char* reason, const npif_text* found);

/* The option's full name, "com.norvalen.nb.rtz.printsettings." before it and the index, when there is one,
 * behind it. */
npif_text npif_key(npif_reader* reader, const char* name, size_t index);
/* The option of that full name, null when there is none. */
const npif_option* npif_option_of(const npif_reader* reader, const char* name, size_t index);

/* How many entries the option `count_name` announces (a negative number is none), and how many of them are
 * there, one after the other from 0. Notes a count that is no number, and the first entry that is missing. */
size_t npif_count_entries(npif_reader* reader, const char* count_name, const char* entry_name,
                          const char* missing);

void npif_read_commands(npif_reader* reader, npif_kind kind);
void npif_read_records(npif_reader* reader);

#endif
