#include "builder.h"
#include "text.h"

#include <stdlib.h>
#include <string.h>

static const char* const kListNames[NPIF_LISTS] = {"pageSizeArrayTicket", "mediaTypeArrayTicket",
                                                   "mediaColorArrayTicket"};
static const char* const kFlagNames[NPIF_FLAGS] = {"whetherMediaTypeTabTicket", "whetherInterposerTicket",
                                                   "whetherMediaSizeA5Ticket"};
static const npif_text kNoText = {NULL, 0};

static void read_papers(npif_reader* reader, npif_list list) {
    const npif_option* option = npif_option_of(reader, kListNames[list], NPIF_NO_INDEX);
    if (option == NULL || option->value.length == 0) {
        return;
    }
    const size_t length = option->value.length;
    const npif_text copy = npif_copy(&reader->arena, option->value.bytes, length);
    if (copy.bytes == NULL) {
        return;
    }
    char* const bytes = (char*)copy.bytes;
    size_t count = 1;
    for (size_t i = 0; i < length; ++i) {
        count += bytes[i] == ',' ? 1 : 0;
    }
    npif_text* papers = npif_take_array(&reader->arena, count, sizeof *papers);
    if (papers == NULL) {
        return;
    }
    size_t start = 0;
    for (size_t i = 0; i < count; ++i) {
        size_t end = start;
        while (end < length && bytes[end] != ',') {
            ++end;
        }
        bytes[end] = '\0';
        papers[i] = (npif_text){bytes + start, end - start};
        start = end + 1;
    }
    reader->papers[list] = papers;
    reader->paper_counts[list] = count;
}

static void read_flag(npif_reader* reader, npif_flag flag) {
    const npif_option* option = npif_option_of(reader, kFlagNames[flag], NPIF_NO_INDEX);
    if (option == NULL) {
        return;
    }
    reader->flags[flag] = npif_text_is(option->value, "1");
    if (!reader->flags[flag] && !npif_text_is(option->value, "0")) {
        const npif_place place = {npif_key(reader, kFlagNames[flag], NPIF_NO_INDEX), NPIF_NO_INDEX, 0, 0};
        npif_note(reader, NPIF_PROBLEM_FLAG, place, "expected \"0\" or \"1\"", &option->value);
    }
}

static void read_announced(npif_reader* reader) {
    static const char* const kName = "SpecialPageRecordCountTicket";
    const npif_option* option = npif_option_of(reader, kName, NPIF_NO_INDEX);
    reader->announced = -1;
    if (option != NULL && !npif_read_digits(option->value, &reader->announced)) {
        const npif_place place = {npif_key(reader, kName, NPIF_NO_INDEX), NPIF_NO_INDEX, 0, 0};
        npif_note(reader, NPIF_PROBLEM_COUNT, place, "expected a number in digits", &option->value);
        reader->announced = -1;
    }
}

static void list_problems(npif_reader* reader) {
    reader->problems = npif_take_array(&reader->arena, reader->problem_count, sizeof(void*));
    size_t i = 0;
    for (const npif_problem_node* node = reader->first_problem; node != NULL && reader->problems != NULL;
         node = node->next) {
        reader->problems[i++] = &node->problem;
    }
}

static npif_reader* new_reader(void) {
    return calloc(1, sizeof(npif_reader));
}

/* Reads everything once the options are there. */
static npif_reader* finish(npif_reader* reader, npif_refusal refusal) {
    if (refusal.reason != NULL) {
        const npif_place place = {{"", 0}, NPIF_NO_INDEX, 0, refusal.byte};
        npif_note(reader, NPIF_PROBLEM_OPTIONS, place, refusal.reason, NULL);
    }
    read_announced(reader);
    npif_read_records(reader);
    for (int kind = 0; kind < NPIF_KINDS; ++kind) {
        npif_read_commands(reader, (npif_kind)kind);
    }
    for (int list = 0; list < NPIF_LISTS; ++list) {
        read_papers(reader, (npif_list)list);
    }
    for (int flag = 0; flag < NPIF_FLAGS; ++flag) {
        read_flag(reader, (npif_flag)flag);
    }
    list_problems(reader);
    if (reader->arena.failed) {
        npif_reader_free(reader);
        return NULL;
    }
    return reader;
}

npif_reader* npif_reader_from_options(const char* options, size_t length) {
    npif_reader* reader = new_reader();
    return reader == NULL
               ? NULL
               : finish(reader, npif_parse_options(&reader->options, &reader->arena, options, length));
}

npif_reader* npif_reader_from_pairs(const npif_pair* pairs, size_t count) {
    npif_reader* reader = new_reader();
    return reader == NULL ? NULL
                          : finish(reader, npif_take_pairs(&reader->options, &reader->arena, pairs, count));
}

void npif_reader_free(npif_reader* reader) {
    if (reader != NULL) {
        npif_give_back(&reader->arena);
        free(reader);
    }
}

/* ---- What is answered ---- */

bool npif_reader_ok(const npif_reader* reader) {
    return npif_reader_problem_count(reader) == 0;
}

size_t npif_reader_problem_count(const npif_reader* reader) {
    return reader == NULL ? 0 : reader->problem_count;
}

const npif_problem* npif_reader_problem(const npif_reader* reader, size_t index) {
    return index < npif_reader_problem_count(reader) ? reader->problems[index] : NULL;
}

size_t npif_reader_command_count(const npif_reader* reader, npif_kind kind) {
    return reader == NULL || (unsigned)kind >= NPIF_KINDS ? 0 : reader->command_counts[kind];
}

const npif_command* npif_reader_command(const npif_reader* reader, npif_kind kind, size_t index) {
    return index < npif_reader_command_count(reader, kind) ? &reader->commands[kind][index] : NULL;
}

size_t npif_reader_record_count(const npif_reader* reader) {
    return reader == NULL ? 0 : reader->record_count;
}

const npif_record* npif_reader_record(const npif_reader* reader, size_t index) {
    return index < npif_reader_record_count(reader) ? &reader->records[index] : NULL;
}

size_t npif_reader_paper_count(const npif_reader* reader, npif_list list) {
    return reader == NULL || (unsigned)list >= NPIF_LISTS ? 0 : reader->paper_counts[list];
}

npif_text npif_reader_paper(const npif_reader* reader, npif_list list, size_t index) {
    return index < npif_reader_paper_count(reader, list) ? reader->papers[list][index] : kNoText;
}

bool npif_reader_flag(const npif_reader* reader, npif_flag flag) {
    return reader != NULL && (unsigned)flag < NPIF_FLAGS && reader->flags[flag];
}

int32_t npif_reader_announced(const npif_reader* reader) {
    return reader == NULL ? -1 : reader->announced;
}

npif_text npif_reader_option(const npif_reader* reader, const char* name) {
    const npif_option* option =
        reader == NULL || name == NULL ? NULL : npif_find_option(&reader->options, name, strlen(name));
    return option == NULL ? kNoText : option->value;
}
