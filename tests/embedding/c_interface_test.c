/* The C interface from a C program: every operation on the bundled examples,
 * results that outlive later operations, and what NULL gives.
 *   c_interface_test EXAMPLES_FOLDER SCRATCH_FOLDER */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "qzcsvconv.h"

static int failures;

#define CHECK(condition)                                                   \
    do {                                                                   \
        if (!(condition)) {                                                \
            fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition); \
            ++failures;                                                    \
        }                                                                  \
    } while (0)

static int same(const char* text, const char* expected)
{
    return text && strcmp(text, expected) == 0;
}

static char* join(const char* folder, const char* name)
{
    char* path = malloc(strlen(folder) + strlen(name) + 2);
    sprintf(path, "%s/%s", folder, name);
    return path;
}

static void checkDetailOperations(const char* examples)
{
    static const struct {
        qzc_result* (*operation)(const char*, const char*);
        const char* file;
        const char* version;
        const char* code;
        int64_t conformity;
        int hasErrors;
    } cases[] = {
        {qzc_check_detail, "detail/earlier-versions/HOI020_1.1_受取手形.csv", "1.1", "S_OK", 0, 0},
        {qzc_check_detail, "detail/HOI010_4.0_預貯金等.csv", "4.0", "E_FAIL", 0, 1},
        {qzc_check_detail2, "detail/HOI010_4.0_預貯金等.csv", "4.0", "S_OK", 1, 0},
        {qzc_check_detail2, "detail/with-errors/HOI010_4.0_預貯金等.csv", "4.0", "S_OK", 2, 1},
        {qzc_check_appended, "detail/HOB016_6.0_控除所得税額.csv", "6.0", "S_OK", 1, 0},
        {qzc_check_detail2, NULL, "4.0", "E_FAIL", 0, 1},
        {qzc_check_appended, "detail/HOB016_6.0_控除所得税額.csv", "\xff", "E_FAIL", 0, 1},
    };
    for (size_t i = 0; i < sizeof cases / sizeof cases[0]; ++i) {
        char* path = cases[i].file ? join(examples, cases[i].file) : NULL;
        qzc_result* result = cases[i].operation(path, cases[i].version);
        if (!same(qzc_result_code(result), cases[i].code) || qzc_result_conformity(result) != cases[i].conformity ||
            (*qzc_result_error_info(result) != '\0') != cases[i].hasErrors || qzc_result_file_count(result) != 0 ||
            !same(qzc_result_report(result), "")) {
            fprintf(stderr, "case %zu: %s %lld \"%s\"\n", i, qzc_result_code(result),
                    (long long)qzc_result_conformity(result), qzc_result_error_info(result));
            ++failures;
        }
        qzc_result_free(result);
        free(path);
    }
}

static void checkReport(const char* examples)
{
    char* path = join(examples, "detail/HOI110_3.0_借入金.csv");
    qzc_result* result = qzc_report(path, "3.0");
    CHECK(same(qzc_result_code(result), "S_OK"));
    CHECK(qzc_result_conformity(result) == 1);
    CHECK(strncmp(qzc_result_report(result), "<?xml", 5) == 0);
    CHECK(strstr(qzc_result_report(result), "</CONTENTS>") != NULL);
    qzc_result_free(result);
    free(path);
}

static void checkWrite(const char* scratch)
{
    char* path = join(scratch, "HOI010_4.0.csv");
    /* "HOI010,0,みなと銀行,1200000" in UTF-8, then in Shift_JIS. */
    qzc_result* result =
        qzc_write(path, "HOI010,0,\xe3\x81\xbf\xe3\x81\xaa\xe3\x81\xa8\xe9\x8a\x80\xe8\xa1\x8c,1200000\r\n");
    CHECK(same(qzc_result_code(result), "S_OK"));
    qzc_result_free(result);

    static const char expected[] = "HOI010,0,\x82\xdd\x82\xc8\x82\xc6\x8b\xe2\x8d\x73,1200000\r\n";
    char bytes[64] = {0};
    FILE* file = fopen(path, "rb");
    size_t length = file ? fread(bytes, 1, sizeof bytes, file) : 0;
    if (file)
        fclose(file);
    CHECK(length == sizeof expected - 1 && memcmp(bytes, expected, length) == 0);
    free(path);
}

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    char* folder = join(argv[1], "financial-statements");
    qzc_result* statements = qzc_check_statements(folder, "3.0");

    checkDetailOperations(argv[1]);
    checkReport(argv[1]);
    checkWrite(argv[2]);

    /* The statements result is read after the other operations ran. */
    CHECK(same(qzc_result_code(statements), "S_OK"));
    CHECK(same(qzc_result_error_info(statements), ""));
    CHECK(qzc_result_file_count(statements) == 4);
    CHECK(same(qzc_result_file_name(statements, 0), "HOT010_3.0_BS.csv"));
    CHECK(same(qzc_result_file_name(statements, 3), "HOT010_3.0_SS.csv"));
    CHECK(same(qzc_result_file_check_result(statements, 3), "0"));
    CHECK(same(qzc_result_file_style_version(statements, 0), "3.0"));
    CHECK(same(qzc_result_file_fiscal_year_from(statements, 1), "2024-04-01"));
    CHECK(same(qzc_result_file_error_info(statements, 2), ""));
    CHECK(qzc_result_file_xbrl_type(statements, 0) && qzc_result_file_corporate_name(statements, 0) &&
          qzc_result_file_fiscal_year_to(statements, 0) && qzc_result_file_generic_csv(statements, 0));
    CHECK(qzc_result_file_name(statements, 4) == NULL && qzc_result_file_error_info(statements, -1) == NULL);
    qzc_result_free(statements);
    free(folder);

    CHECK(qzc_result_code(NULL) == NULL && qzc_result_file_count(NULL) == 0 && qzc_result_file_name(NULL, 0) == NULL);
    qzc_result_free(NULL);

    if (failures)
        return 1;
    puts("C interface: passed");
    return 0;
}
