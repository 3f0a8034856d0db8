/* The options of a job by name, and the two ways to fill them. */
#ifndef NPIF_OPTIONS_H
#define NPIF_OPTIONS_H

#include "arena.h"

typedef struct npif_option {
    npif_text name;
    npif_text value;
} npif_option;

/* Names are compared without case, in ASCII; the last value of a name counts. */
typedef struct npif_options {
    npif_option* items;
    size_t count;
    size_t room;
    uint32_t* slots; /* open hashing: number of an item, from 1; 0 is free */
    size_t slot_count;
} npif_options;

/* Why options are refused whole; `reason` is null when they are not. */
typedef struct npif_refusal {
    const char* reason;
    size_t byte; /* from 1; 0 when no byte is meant */
} npif_refusal;

npif_refusal npif_parse_options(npif_options* options, npif_arena* arena, const char* bytes, size_t length);
npif_refusal npif_take_pairs(npif_options* options, npif_arena* arena, const npif_pair* pairs, size_t count);

/* Null when there is none of that name. */
const npif_option* npif_find_option(const npif_options* options, const char* name, size_t length);

#endif
