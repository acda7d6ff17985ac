#pragma once

#include <string>

// Writes a whole file the way opening it for writing, truncating and
// writing would, but keeps the file complete or as it was wherever the file
// system allows it:
// - a symbolic link is followed to the file it names;
// - a file the caller may not open for writing is refused and left alone;
// - the new content is written to an unnamed temporary file beside the real
//   one (a short hidden name where unnamed files are not offered), synced,
//   given the file's owner and mode and renamed over it, then the folder is
//   synced;
// - a file with more than one name, a file whose owner cannot be kept and a
//   file in a folder the caller may not write in are written in place, and
//   anything that is not a regular file is written as it is opened;
// - a new file is created with the mode the umask leaves;
// - nothing is left behind when a step fails.
class QZCFileWriter {
public:
    // Replaces the content of the file at path with the bytes, or creates it.
    static bool Write(const char* path, const std::string& bytes);
    // Creates the file empty when nothing is at path; an existing file is left
    // as it was and the answer is false. For data that has no form to write.
    static bool CreateEmpty(const char* path);
};
