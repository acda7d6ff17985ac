#include "QZCFileAccess.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include <dirent.h>
#include <pwd.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QZCLoadResource.h"
#include "QZCUtility.h"

namespace {

bool statPath(const char* path, struct stat& info)
{
    return path && *path && ::stat(path, &info) == 0;
}

size_t lastSeparator(const std::string& path)
{
    return path.find_last_of('/');
}

// Removes trailing separators except a lone root "/".
std::string withoutTrailingSeparators(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

}  // namespace

std::string QZCFileAccess::homeDirectory()
{
    if (const char* home = std::getenv("HOME"); home && *home)
        return home;
    // The reentrant lookup: operations on other threads may ask at once.
    passwd entry{};
    passwd* user = nullptr;
    std::vector<char> buffer(16384);
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &user) == 0 && user && user->pw_dir)
        return user->pw_dir;
    return "";
}

std::string QZCFileAccess::getBundlePath()
{
    return QZCLoadResource().getBundlePath();
}

std::string QZCFileAccess::getBundlePathName(const char* resourceName)
{
    return QZCLoadResource().getPathName(resourceName);
}

bool QZCFileAccess::pathFileExists(const char* path)
{
    struct stat info;
    return statPath(path, info) && !S_ISDIR(info.st_mode);
}

bool QZCFileAccess::pathDirectoryExists(const char* path, bool parent)
{
    if (!path || !*path)
        return false;
    std::string folder = path;
    if (parent) {
        folder = withoutTrailingSeparators(folder);
        size_t separator = lastSeparator(folder);
        if (separator == std::string::npos)
            folder = ".";
        else
            folder = separator == 0 ? "/" : folder.substr(0, separator);
    }
    struct stat info;
    return statPath(folder.c_str(), info) && S_ISDIR(info.st_mode);
}

uint64_t QZCFileAccess::getFileSize(const char* path)
{
    struct stat info;
    return statPath(path, info) ? static_cast<uint64_t>(info.st_size) : UINT64_MAX;
}

bool QZCFileAccess::pathFileIsRead(const char* path)
{
    struct stat info;
    return path && *path && ::access(path, R_OK) == 0 &&
           !(statPath(path, info) && S_ISREG(info.st_mode) &&
             static_cast<uint64_t>(info.st_size) > kMaxReadableFileSize);
}

void QZCFileAccess::adviseHugePages(const void* data, size_t size)
{
    constexpr uintptr_t kHugePage = uintptr_t{2} << 20;
    const auto start = reinterpret_cast<uintptr_t>(data);
    const uintptr_t begin = (start + kHugePage - 1) & ~(kHugePage - 1);
    const uintptr_t end = (start + size) & ~(kHugePage - 1);
    if (end > begin)
        ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
}

const char* QZCFileAccess::csvFileProblem(const char* path)
{
    if (!pathFileExists(path))
        return "CSVファイルが存在しません。";
    if (!pathFileIsRead(path))
        return "CSVファイルリードエラーが発生しました。";
    if (static_cast<int64_t>(getFileSize(path)) <= 0)
        return "CSVファイルにデータがありません。";
    return "";
}

std::string QZCFileAccess::appendFilePath(const char* base, const char* component)
{
    if (!base)
        return "";
    std::string joined = withoutTrailingSeparators(base);
    std::string tail = QZCUtility::OrEmpty(component);
    size_t skip = tail.find_first_not_of('/');
    tail = skip == std::string::npos ? std::string() : tail.substr(skip);
    if (tail.empty())
        return joined;
    if (joined.empty())
        return tail;
    if (joined.back() != '/')
        joined += '/';
    return joined + tail;
}

std::string QZCFileAccess::getLastPathComponent(const char* path, bool withExtension)
{
    std::string trimmed = withoutTrailingSeparators(QZCUtility::OrEmpty(path));
    size_t separator = lastSeparator(trimmed);
    std::string name = separator == std::string::npos || trimmed == "/" ? trimmed : trimmed.substr(separator + 1);
    if (withExtension)
        return name;
    size_t dot = name.find_last_of('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

std::string QZCFileAccess::getPathExtension(const char* path)
{
    std::string name = getLastPathComponent(path, true);
    size_t dot = name.find_last_of('.');
    return dot == std::string::npos || dot == 0 ? std::string() : name.substr(dot + 1);
}

bool QZCFileAccess::getFilesUnderFolder(const char* folder, std::vector<std::string>& files)
{
    files.clear();
    DIR* directory = folder && *folder ? ::opendir(folder) : nullptr;
    if (!directory)
        return false;
    bool ok = true;
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(directory);
        if (!entry) {
            ok = errno == 0;
            break;
        }
        std::string name = entry->d_name;
        if (name == "." || name == ".." || name == ".DS_Store")
            continue;
        std::string path = appendFilePath(folder, name.c_str());
        struct stat info;
        if (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode))
            continue;
        files.push_back(path);
    }
    ::closedir(directory);
    std::sort(files.begin(), files.end());
    return ok;
}
