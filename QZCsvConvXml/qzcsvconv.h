#ifndef QZCSVCONV_H
#define QZCSVCONV_H

/*
 * The library's operations for C and for any language that calls C.
 *
 * Every text, argument or answer, is UTF-8 and NUL-terminated. A NULL
 * argument, or one that is not valid UTF-8, is a missing argument: the
 * operation answers "E_FAIL" with an error entry for it.
 *
 * Each operation returns a new result that the caller owns and releases
 * with qzc_result_free. Every text an accessor returns belongs to the result
 * and stays valid until the result is freed. An operation returns NULL only
 * when no memory was left for the result; every accessor accepts NULL and
 * then answers NULL (texts) or 0 (numbers).
 *
 * Operations run on the caller's thread and share state inside the library:
 * a process runs one operation at a time. Results may be read, and freed,
 * from any thread.
 */

#include <stdint.h>

#include "QZICsvConvExport.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct qzc_result qzc_result;

/* Checks a detail-statement CSV file; the conformity stays 0. */
QZC_EXPORT qzc_result* qzc_check_detail(const char* csv_path, const char* style_version);
/* Checks a detail-statement CSV file and tells whether it can be converted. */
QZC_EXPORT qzc_result* qzc_check_detail2(const char* csv_path, const char* style_version);
/* Checks an appended-table CSV file and tells whether it can be converted. */
QZC_EXPORT qzc_result* qzc_check_appended(const char* csv_path, const char* style_version);
/* Checks a folder of financial statements CSV files; one record per file. */
QZC_EXPORT qzc_result* qzc_check_statements(const char* csv_folder, const char* style_version);
/* Writes the text as the Shift_JIS file output_path, whole or not at all. */
QZC_EXPORT qzc_result* qzc_write(const char* output_path, const char* text);
/* Checks like qzc_check_detail2 (or qzc_check_appended for a form that is
 * not a detail statement) and, when the file can be converted, keeps its
 * report XML document for qzc_result_report. */
QZC_EXPORT qzc_result* qzc_report(const char* csv_path, const char* style_version);

/* "S_OK" or "E_FAIL". */
QZC_EXPORT const char* qzc_result_code(const qzc_result* result);
/* Error entries "LLLL-CCCCC-HQZnnnnE" joined with ","; "" for none. */
QZC_EXPORT const char* qzc_result_error_info(const qzc_result* result);
/* 0 cannot be converted, 1 passed every check, 2 convertible with errors;
 * only the second detail check, the appended-table check and the report
 * set it. */
QZC_EXPORT int64_t qzc_result_conformity(const qzc_result* result);
/* The report XML document; "" when there is none. */
QZC_EXPORT const char* qzc_result_report(const qzc_result* result);

/* Records of the financial statements check, one per file: index 0 to
 * qzc_result_file_count - 1; any other index answers NULL. */
QZC_EXPORT int64_t qzc_result_file_count(const qzc_result* result);
/* The file's name without its folder. */
QZC_EXPORT const char* qzc_result_file_name(const qzc_result* result, int64_t index);
/* The check result in decimal: "0" complete, "1" incomplete, "2"
 * inconsistent with the other files, "3" format error. */
QZC_EXPORT const char* qzc_result_file_check_result(const qzc_result* result, int64_t index);
QZC_EXPORT const char* qzc_result_file_xbrl_type(const qzc_result* result, int64_t index);
QZC_EXPORT const char* qzc_result_file_style_version(const qzc_result* result, int64_t index);
QZC_EXPORT const char* qzc_result_file_corporate_name(const qzc_result* result, int64_t index);
QZC_EXPORT const char* qzc_result_file_fiscal_year_from(const qzc_result* result, int64_t index);
QZC_EXPORT const char* qzc_result_file_fiscal_year_to(const qzc_result* result, int64_t index);
QZC_EXPORT const char* qzc_result_file_generic_csv(const qzc_result* result, int64_t index);
/* The file's own error entries, joined like qzc_result_error_info. */
QZC_EXPORT const char* qzc_result_file_error_info(const qzc_result* result, int64_t index);

/* Releases the result and every text it handed out; NULL is ignored. */
QZC_EXPORT void qzc_result_free(qzc_result* result);

#ifdef __cplusplus
}
#endif

#endif
