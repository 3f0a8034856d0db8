/* All of npif_reader.h from a program in C: what it answers of a small job, or the number of the line where
 * it answers something else. */
#include "npif_reader.h"

#include <stdio.h>
#include <string.h>

#define KEY "com.norvalen.nb.rtz.printsettings."

static const char* const kJob =
    "media=A4 " KEY "NPIFCommandTicketCount=1 " KEY
    "NPIFCommandTicket_0=1,3,0,2,2,0,0,false,210.0,297.0,1 " KEY "SpecialPageRecordCountTicket=1 " KEY
    "NPIFCoverCountTicket= " KEY "NPIFInsertionCountTicket=2 " KEY
    "NPIFInsertionValueTicket_0=1,3,2,white,21000,29700,NORMAL " KEY "NPIFInsertionValueTicket_1=/49/44 " KEY
    "pageSizeArrayTicket=A4 " KEY "whetherMediaTypeTabTicket=1";

static int check(const npif_reader* job) {
    if (npif_reader_ok(job) || npif_reader_problem_count(job) != 1) {
        return __LINE__;
    }
    const npif_problem* problem = npif_reader_problem(job, 0);
    if (problem->code != NPIF_PROBLEM_FIELDS || problem->index != 1 || strlen(problem->sentence.bytes) == 0) {
        return __LINE__;
    }
    if (npif_reader_command_count(job, NPIF_INSERTION) != 2 ||
        npif_reader_command_count(job, NPIF_COVER) != 0) {
        return __LINE__;
    }
    const npif_command* insertion = npif_reader_command(job, NPIF_INSERTION, 0);
    if (insertion->problem != NULL || insertion->insertion.page != 3 || insertion->insertion.sheets != 2 ||
        insertion->paper.width != 21000 || strcmp(insertion->paper.type.bytes, "NORMAL") != 0) {
        return __LINE__;
    }
    if (npif_reader_command(job, NPIF_INSERTION, 1)->problem != problem) {
        return __LINE__;
    }
    if (npif_reader_record_count(job) != 1) {
        return __LINE__;
    }
    const npif_record* record = npif_reader_record(job, 0);
    if (record->kind != NPIF_INSERTION || npif_record_integer(record, NPIF_RECORD_INSERTQUANTITY) != 2 ||
        npif_record_text(record, NPIF_RECORD_COVERSOPTION).bytes != NULL ||
        strcmp(npif_record_text(record, NPIF_RECORD_WIDTH).bytes, "210.0") != 0 ||
        strcmp(npif_record_key_name(NPIF_RECORD_WIDTH), "width") != 0) {
        return __LINE__;
    }
    if (npif_reader_paper_count(job, NPIF_SIZES) != 1 || npif_reader_paper_count(job, NPIF_TYPES) != 0 ||
        strcmp(npif_reader_paper(job, NPIF_SIZES, 0).bytes, "A4") != 0) {
        return __LINE__;
    }
    if (!npif_reader_flag(job, NPIF_TAB) || npif_reader_flag(job, NPIF_A5) ||
        npif_reader_announced(job) != 1 || strcmp(npif_reader_option(job, "MEDIA").bytes, "A4") != 0) {
        return __LINE__;
    }
    return 0;
}

int main(void) {
    const npif_pair pair = {"media", "A3"};
    npif_reader* pairs = npif_reader_from_pairs(&pair, 1);
    npif_reader* job = npif_reader_from_options(kJob, strlen(kJob));
    int line = check(job);
    if (line == 0 && strcmp(npif_reader_option(pairs, "media").bytes, "A3") != 0) {
        line = __LINE__;
    }
    npif_reader_free(job);
    npif_reader_free(pairs);
    if (line != 0) {
        printf("line %d does not hold\n", line);
    }
    return line == 0 ? 0 : 1;
}
