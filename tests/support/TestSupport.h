#pragma once

#include <string>
#include <vector>

#include "QZICsvConvXML.h"

// A temporary folder that is removed with everything in it at the end of
// the test.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return m_path; }
    // Path of a file or folder inside the temporary folder.
    std::string file(const std::string& name) const;

private:
    std::string m_path;
};

// Writes bytes as they are.
void writeBytes(const std::string& path, const std::string& bytes);
// Writes UTF-8 text converted to Shift_JIS (fails the test when it has no
// Shift_JIS form).
void writeShiftJis(const std::string& path, const std::string& utf8Text);
std::string readBytes(const std::string& path);
// The bytes of a file under tests/data.
std::string testData(const std::string& name);

// Points the library at a bundle folder for the life of the object and
// restores the previous setting afterwards.
class ScopedBundle {
public:
    explicit ScopedBundle(const std::string& bundle);
    ~ScopedBundle();

private:
    std::string m_previous;
    bool m_hadPrevious;
};

// The error list joined, as the host sees it; empties the list.
std::string takeErrors();

// Every field of a result object in one text, so that two answers compare
// (and print) as a whole.
std::string describe(const QZICsvConvResultXML& result);
std::string describe(const QZICsvConvXbrlResultXML& result);

// One case of a table under tests/data: its fields and where it stands, to
// print when the case fails.
struct Case {
    std::vector<std::string> fields;
    std::string where;  // "FILE:LINE"
    const std::string& operator[](size_t i) const { return fields.at(i); }
    // The field, or a null pointer where the table writes "(null)".
    const char* text(size_t i) const { return fields.at(i) == "(null)" ? nullptr : fields[i].c_str(); }
    // The expected answer of a case: "ok" stands for none.
    std::string expected(size_t i) const { return fields.at(i) == "ok" ? "" : fields[i]; }
};

// The cases of tests/data/NAME: one a line, fields split by tabs; blank lines
// and lines starting with '#' are skipped. For what a table cannot hold a
// field writes \t \r \n \\ \xHH (a byte) \uHHHH \UHHHHHHHH (a character in
// UTF-8), and {N*TEXT} for TEXT written N times. A case has at most
// `columns` fields; those it leaves out at the end are empty.
std::vector<Case> readCases(const std::string& name, size_t columns);
