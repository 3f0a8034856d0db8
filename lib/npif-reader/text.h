/* Texts read: slash-decimal form, numbers at the head of a text, pieces between separators. */
#ifndef NPIF_TEXT_H
#define NPIF_TEXT_H

#include "npif_reader.h"

/* What is wrong with a slash-decimal text; `reason` is null when nothing is. */
typedef struct npif_form_error {
    const char* reason;
    size_t byte; /* from 1 */
} npif_form_error;

/* Undoes the slash-decimal form in place: the text gets shorter, and a zero byte follows it. A text that does
 * not begin with "/" is left alone, and so is a malformed one. */
npif_form_error npif_undo_slash_decimal(char* bytes, size_t* length);

/* The integer at the head: blanks skipped, one sign, digits; 0 for none, held at the ends of 32 bits. */
int32_t npif_integer_at_head(npif_text text);
/* Whether the text is digits alone, and the number that they are. False as well for one past 32 bits. */
bool npif_read_digits(npif_text text, int32_t* value);

bool npif_text_is(npif_text text, const char* word);

/* Well-formed UTF-8: as many bytes as the text has UTF-16 units, less a character that the cut would go
 * through. False for ill-formed UTF-8. Records are read so, since the pane reads them so. */
bool npif_utf16_prefix(npif_text text, size_t* prefix);

#endif
