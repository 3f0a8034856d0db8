/* Memory that is taken piece by piece and given back at once. */
#ifndef NPIF_ARENA_H
#define NPIF_ARENA_H

#include "npif_reader.h"

typedef struct npif_chunk npif_chunk;

typedef struct npif_arena {
    npif_chunk* chunks;
    bool failed; /* some piece could not be had; what was made with it is not whole */
} npif_arena;

/* Zeroed and aligned for any object; null when memory has run out. */
void* npif_take(npif_arena* arena, size_t size);
/* `count` objects of that size. */
void* npif_take_array(npif_arena* arena, size_t count, size_t size);
/* A copy with a zero byte behind it; with null bytes when memory has run out. */
npif_text npif_copy(npif_arena* arena, const char* bytes, size_t length);
void npif_give_back(npif_arena* arena);

#endif
