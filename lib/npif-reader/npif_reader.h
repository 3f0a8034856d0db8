/* What a print job says about its special pages, read from the options of a CUPS job: the NPIF commands for
 * covers, insertions and exceptions with every field named and typed, the pane's own records, the papers and
 * the flags. For filters and back-ends, in C99 and with no dependency but libc.
 *
 * Ownership: a reader is made by npif_reader_from_options or npif_reader_from_pairs and freed once, by
 * npif_reader_free. It keeps copies of all that it needs. Everything that it answers is owned by it and stays
 * as it is until it is freed; nothing else is ever freed by the caller. A reader never changes, so that
 * several threads may ask the same one.
 *
 * A null reader answers as one of an empty job. Nothing here depends on the locale, calls itself, or takes
 * more memory than some twenty times the options' bytes.
 *
 * Damage is never guessed at: what is malformed has a problem that names the place and says in a sentence
 * what was expected. A back-end that must not print a job otherwise than declared refuses it when
 * npif_reader_ok is false. */
#ifndef NPIF_READER_H
#define NPIF_READER_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define NPIF_API __attribute__((visibility("default")))
#else
#define NPIF_API
#endif

/* Options longer than this, or more of them, are refused whole: no CUPS job can carry them. */
#define NPIF_MAX_OPTION_BYTES ((size_t)1048576)
#define NPIF_MAX_OPTIONS ((size_t)16384)

typedef struct npif_reader npif_reader;

/* A text of `length` bytes, followed by a zero byte. It may hold zero bytes itself, since the slash-decimal
 * form can name them. `bytes` is null for a text that is not there, and empty for an empty one. */
typedef struct npif_text {
    const char* bytes;
    size_t length;
} npif_text;

/* One option as CUPS keeps it. Laid out as cups_option_t, so that its arrays may be cast. A null name or
 * value counts as an empty text. */
typedef struct npif_pair {
    const char* name;
    const char* value;
} npif_pair;

/* Reads the fifth argument of a CUPS filter, `length` bytes of name=value pairs with CUPS's own quoting, as
 * cupsParseOptions does: names are compared without case and the last value of a name counts. Null options
 * are empty ones. Null is answered only when memory has run out. */
NPIF_API npif_reader* npif_reader_from_options(const char* options, size_t length);

/* The same for options that are taken apart already. */
NPIF_API npif_reader* npif_reader_from_pairs(const npif_pair* pairs, size_t count);

/* Null is allowed. */
NPIF_API void npif_reader_free(npif_reader* reader);

/* ---- Problems ---------------------------------------------------------------------------------------- */

typedef enum npif_problem_code {
    NPIF_PROBLEM_OPTIONS = 1, /* the options as a whole: too long, too many, or with a zero byte */
    NPIF_PROBLEM_COUNT = 2,   /* a count is no number; it counts as the number at its head, or 0 */
    NPIF_PROBLEM_MISSING = 3, /* a count announces an entry that is not there; those after it are not read */
    NPIF_PROBLEM_FORM = 4,    /* a value begins with "/" and is not in slash-decimal form */
    NPIF_PROBLEM_FIELDS = 5,  /* a command has too few or too many fields */
    NPIF_PROBLEM_FIELD = 6,   /* a field of a command is not what it has to be */
    NPIF_PROBLEM_RECORD = 7,  /* a record has too few fields */
    NPIF_PROBLEM_FLAG = 8     /* a flag is neither "0" nor "1"; it counts as lowered */
} npif_problem_code;

/* `index` of a problem that concerns no numbered entry. */
#define NPIF_NO_INDEX ((size_t)-1)

typedef struct npif_problem {
    npif_problem_code code;
    npif_text key; /* the option's full name; empty for NPIF_PROBLEM_OPTIONS */
    size_t index;  /* number of the command, record or paper, from 0 */
    size_t field;  /* number of the field, from 1; 0 when no field is meant */
    /* Number of the offending byte, from 1, or 0 when no byte is meant: of the options for
     * NPIF_PROBLEM_OPTIONS, of the stored value for NPIF_PROBLEM_FORM, of the command's text (at the head of
     * the field) for NPIF_PROBLEM_FIELD. */
    size_t byte;
    npif_text
        sentence; /* place and reason, printable ASCII, without a line end: "..., byte 7: expected ..." */
} npif_problem;

NPIF_API bool npif_reader_ok(const npif_reader* reader); /* whether there is no problem */
NPIF_API size_t npif_reader_problem_count(const npif_reader* reader);
/* In the order of reading; null past the last. */
NPIF_API const npif_problem* npif_reader_problem(const npif_reader* reader, size_t index);

/* ---- Commands ---------------------------------------------------------------------------------------- */

typedef enum npif_kind { NPIF_COVER = 0, NPIF_INSERTION = 1, NPIF_EXCEPTION = 2 } npif_kind;

typedef enum npif_side { NPIF_FRONT = 0, NPIF_BACK = 1 } npif_side;

typedef enum npif_printing {
    NPIF_PRINT_NONE = 0,  /* "print-none": blank or preprinted */
    NPIF_PRINT_FRONT = 1, /* "print-front": on side one */
    NPIF_PRINT_BACK = 2,  /* "print-back": on side two */
    NPIF_PRINT_BOTH = 3   /* "print-both" */
} npif_printing;

typedef enum npif_sides {
    NPIF_ONE_SIDED = 0,           /* "one-sided" */
    NPIF_TWO_SIDED_LONG_EDGE = 1, /* "two-sided-long-edge" */
    NPIF_TWO_SIDED_SHORT_EDGE = 2 /* "two-sided-short-edge" */
} npif_sides;

/* What the sheet is taken from. A word is at most 40 letters, digits, "_" and "-". The pane has no word for a
 * PPD choice that it does not know: then the text is empty, or width and length are 0. */
typedef struct npif_paper {
    bool interposer; /* the sheet comes from the interposer; there is no paper then */
    npif_text type;  /* as in NORMAL */
    npif_text color; /* as in white */
    int32_t width;   /* hundredths of a millimetre */
    int32_t length;  /* hundredths of a millimetre */
} npif_paper;

typedef struct npif_cover {
    npif_side side;
    npif_printing printing;
} npif_cover;

typedef struct npif_insertion {
    int32_t page;   /* page after which the sheets go; 0: before page one */
    int32_t sheets; /* 1 or more */
} npif_insertion;

typedef struct npif_exception {
    int32_t first; /* 1 or more */
    int32_t last;  /* not below first */
    npif_sides sides;
} npif_exception;

typedef struct npif_command {
    npif_kind kind;
    size_t index;                /* from 0, among the commands of its kind */
    npif_text text;              /* the command as plain text; as stored when its form is malformed */
    const npif_problem* problem; /* null for a well-formed command; otherwise all below is zero */
    npif_paper paper;
    npif_cover cover; /* only this one of the three is filled, by the kind */
    npif_insertion insertion;
    npif_exception exception;
} npif_command;

/* Commands that are there; never more than announced, and none after a missing one. */
NPIF_API size_t npif_reader_command_count(const npif_reader* reader, npif_kind kind);
/* Null past the last and for an unknown kind. */
NPIF_API const npif_command* npif_reader_command(const npif_reader* reader, npif_kind kind, size_t index);

/* ---- Records: the pane's own memory, by menu index ---------------------------------------------------- */

typedef enum npif_record_key {
    NPIF_RECORD_TYPE,            /* "0" cover, "1" insert, "2" exception */
    NPIF_RECORD_PAGE,            /* cover: "0" front, "1" back; insert: after this page; exception: "5-7" */
    NPIF_RECORD_PRINTINGOPTIONS, /* covers only */
    NPIF_RECORD_COVERSOPTION,    /* covers only */
    NPIF_RECORD_INSERTOPTION,    /* inserts only: "1" before page one */
    NPIF_RECORD_INSERTQUANTITY,  /* inserts only */
    NPIF_RECORD_TWOSIDEPRINT,    /* exceptions only */
    NPIF_RECORD_PAGESIZE,
    NPIF_RECORD_PAGECOLOR,
    NPIF_RECORD_PAGETYPE,
    NPIF_RECORD_INTERPOSER, /* "true" or "false" */
    NPIF_RECORD_WIDTH,
    NPIF_RECORD_LENGTH,
    NPIF_RECORD_LONGMEASURE,
    NPIF_RECORD_KEY_COUNT
} npif_record_key;

typedef struct npif_record {
    npif_kind kind; /* an insert is NPIF_INSERTION */
    npif_text texts[NPIF_RECORD_KEY_COUNT];
} npif_record;

/* Records of an unknown kind are left out. A job may come without records: only the pane needs them. */
NPIF_API size_t npif_reader_record_count(const npif_reader* reader);
/* Null past the last. */
NPIF_API const npif_record* npif_reader_record(const npif_reader* reader, size_t index);
/* The text, with null bytes for a key that a record of its kind does not have. */
NPIF_API npif_text npif_record_text(const npif_record* record, npif_record_key key);
/* The integer at the text's head: blanks skipped, held at the ends of 32 bits, 0 when there is none. */
NPIF_API int32_t npif_record_integer(const npif_record* record, npif_record_key key);
/* The key's own name, as in "insertquantity"; null for an unknown one. */
NPIF_API const char* npif_record_key_name(npif_record_key key);

/* ---- Papers, flags, and any other option -------------------------------------------------------------- */

typedef enum npif_list { NPIF_SIZES = 0, NPIF_TYPES = 1, NPIF_COLORS = 2 } npif_list;

/* The PPD keywords of the papers that the commands use. A list travels as one value: its entries joined by
 * commas, an entry with a comma in slash-decimal form. An empty value is an empty list. */
NPIF_API size_t npif_reader_paper_count(const npif_reader* reader, npif_list list);
/* Null bytes past the last. An entry whose slash-decimal form is malformed is answered as it stands. */
NPIF_API npif_text npif_reader_paper(const npif_reader* reader, npif_list list, size_t index);

typedef enum npif_flag { NPIF_TAB = 0, NPIF_INTERPOSER = 1, NPIF_A5 = 2 } npif_flag;

NPIF_API bool npif_reader_flag(const npif_reader* reader, npif_flag flag);

/* How many special pages the job was declared with; -1 when it does not say. */
NPIF_API int32_t npif_reader_announced(const npif_reader* reader);

/* The value of any option of the job, as it travelled; null bytes when there is none. */
NPIF_API npif_text npif_reader_option(const npif_reader* reader, const char* name);

#ifdef __cplusplus
}
#endif

#endif
