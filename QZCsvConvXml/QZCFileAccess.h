#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// Files, folders and paths. Paths are UTF-8; a null path counts as missing.
class QZCFileAccess {
public:
    static std::string homeDirectory();
    static std::string getBundlePath();
    static std::string getBundlePathName(const char* resourceName);

    // Something that is not a folder exists at the path.
    static bool pathFileExists(const char* path);
    // The path (or, with parent, the folder that would hold it) is a folder.
    static bool pathDirectoryExists(const char* path, bool parent);
    // Size in bytes; all bits set when the file's attributes cannot be read.
    static uint64_t getFileSize(const char* path);
    // The largest file the readers take (about 682 MiB): its text, at most
    // three UTF-8 bytes per Shift_JIS byte, stays within a 32-bit length, as
    // the field storage of a detail file and the character routines count.
    static constexpr uint64_t kMaxReadableFileSize = INT32_MAX / 3;
    // The file is readable by the current user and, when it is a regular
    // file, not larger than the readers take: a larger one is refused from
    // its size, before any of it is read.
    static bool pathFileIsRead(const char* path);
    // Why a CSV file cannot be read, as the readers log it ("" when it can):
    // missing, unreadable or without data.
    static const char* csvFileProblem(const char* path);

    // Base and component joined by one separator; "" for a missing base.
    static std::string appendFilePath(const char* base, const char* component);
    static std::string getLastPathComponent(const char* path, bool withExtension);
    static std::string getPathExtension(const char* path);
    // The files (not folders, not ".DS_Store") of a folder, sorted by bytes.
    static bool getFilesUnderFolder(const char* folder, std::vector<std::string>& files);

    // Asks for huge pages for the whole 2 MiB blocks inside a large buffer:
    // the first touch of every 4 KiB page costs a fault, and on a virtual
    // machine a fault can cost microseconds, more than filling the page.
    static void adviseHugePages(const void* data, size_t size);
};
