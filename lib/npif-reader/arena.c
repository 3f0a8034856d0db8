#include "arena.h"

#include <stdlib.h>
#include <string.h>

enum { kAlignment = 16, kChunkBytes = 16384 };

struct npif_chunk {
    npif_chunk* next;
    size_t room;
    size_t used;
    size_t unused; /* keeps the bytes that follow aligned */
};

static char* bytes_of(npif_chunk* chunk) {
    return (char*)chunk + sizeof(npif_chunk);
}

static npif_chunk* add_chunk(npif_arena* arena, size_t size) {
    const size_t room = size > kChunkBytes ? size : kChunkBytes;
    npif_chunk* chunk = room > SIZE_MAX - sizeof(npif_chunk) ? NULL : calloc(1, sizeof(npif_chunk) + room);
    if (chunk == NULL) {
        arena->failed = true;
        return NULL;
    }
    chunk->room = room;
    chunk->next = arena->chunks;
    arena->chunks = chunk;
    return chunk;
}

void* npif_take(npif_arena* arena, size_t size) {
    if (size > SIZE_MAX - kAlignment) {
        arena->failed = true;
        return NULL;
    }
    size = (size + kAlignment - 1) / kAlignment * kAlignment;
    npif_chunk* chunk = arena->chunks;
    if (chunk == NULL || chunk->room - chunk->used < size) {
        chunk = add_chunk(arena, size);
    }
    if (chunk == NULL) {
        return NULL;
    }
    char* piece = bytes_of(chunk) + chunk->used;
    chunk->used += size;
    return piece;
}

void* npif_take_array(npif_arena* arena, size_t count, size_t size) {
    if (size != 0 && count > SIZE_MAX / size) {
        arena->failed = true;
        return NULL;
    }
    return npif_take(arena, count * size);
}

npif_text npif_copy(npif_arena* arena, const char* bytes, size_t length) {
    npif_text text = {NULL, 0};
    char* copy = npif_take(arena, length + 1);
    if (copy == NULL) {
        return text;
    }
    if (length > 0) {
        memcpy(copy, bytes, length);
    }
    text.bytes = copy;
    text.length = length;
    return text;
}

void npif_give_back(npif_arena* arena) {
    npif_chunk* chunk = arena->chunks;
    while (chunk != NULL) {
        npif_chunk* next = chunk->next;
        free(chunk);
        chunk = next;
    }
    arena->chunks = NULL;
}
