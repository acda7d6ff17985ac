#include "QZCFileWriter.h"

#include <cerrno>
#include <climits>
#include <functional>
#include <optional>
#include <random>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A descriptor closed when it goes out of scope.
class Descriptor {
public:
    explicit Descriptor(int fd = -1) : m_fd(fd) {}
    ~Descriptor() { reset(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return m_fd; }
    void reset(int fd = -1)
    {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = fd;
    }

private:
    int m_fd;
};

std::string folderOf(const std::string& path)
{
    const size_t separator = path.find_last_of('/');
    if (separator == std::string::npos)
        return ".";
    return separator == 0 ? "/" : path.substr(0, separator);
}

// The file that writing through path changes: symbolic links of the last
// component followed, also to a file that is not there yet.
std::optional<std::string> followLinks(std::string path)
{
    for (int hops = 0; hops < 40; ++hops) {
        struct stat info;
        if (::lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode))
            return path;
        char target[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
        if (length <= 0 || static_cast<size_t>(length) >= sizeof target)
            return std::nullopt;
        const std::string next(target, static_cast<size_t>(length));
        path = next[0] == '/' ? next : folderOf(path) + "/" + next;
    }
    return std::nullopt;
}

bool writeAll(int fd, const std::string& bytes)
{
    for (size_t done = 0; done < bytes.size();) {
        const ssize_t written = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        done += static_cast<size_t>(written);
    }
    return true;
}

// A rename or a new link lasts a crash only once its folder is synced.
void syncFolder(const std::string& folder)
{
    Descriptor fd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd.get() >= 0)
        ::fsync(fd.get());
}

// Calls create with short hidden names in the folder until one is not taken;
// the name that create accepted, or "" when it failed for another reason.
std::string withFreshName(const std::string& folder, const std::function<bool(const std::string&)>& create)
{
    static const char kLetters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string path = folder + "/.qzc";
        for (int i = 0; i < 8; ++i)
            path += kLetters[random() % (sizeof kLetters - 1)];
        if (create(path))
            return path;
        if (errno != EEXIST)
            break;
    }
    return "";
}

// A new file in a folder that gets its name only once it is complete:
// unnamed (O_TMPFILE) where the file system offers it, else under a short
// hidden name, so that a name of the longest length still fits beside it.
// Either is created with the mode the umask leaves, and removed when it is
// not published.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& folder);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    int fd() const { return m_fd.get(); }
    // errno of a failed creation.
    int error() const { return m_error; }
    // Gives the written file the name path, over whatever has that name when
    // replace is true (an unnamed file is linked only where the name is free).
    bool publish(const std::string& path, bool replace);

private:
    bool link(const std::string& path) const;  // the unnamed file

    std::string m_folder;
    std::string m_name;  // empty while the file has no name
    Descriptor m_fd;
    int m_error = 0;
};

TemporaryFile::TemporaryFile(const std::string& folder) : m_folder(folder)
{
    m_fd.reset(::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666));
    if (m_fd.get() >= 0)
        return;
    m_error = errno;
    if (m_error != EOPNOTSUPP && m_error != EISDIR && m_error != EINVAL)
        return;
    m_name = withFreshName(folder, [this](const std::string& path) {
        m_fd.reset(::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666));
        m_error = m_fd.get() >= 0 ? 0 : errno;
        return m_fd.get() >= 0;
    });
}

TemporaryFile::~TemporaryFile()
{
    if (!m_name.empty())
        ::unlink(m_name.c_str());
}

// The unnamed file is linked through its /proc entry, which any caller may
// do; linking the descriptor itself needs the privilege to read any file.
bool TemporaryFile::link(const std::string& path) const
{
    const std::string entry = "/proc/self/fd/" + std::to_string(m_fd.get());
    return ::linkat(AT_FDCWD, entry.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0 ||
           (errno == ENOENT && ::linkat(m_fd.get(), "", AT_FDCWD, path.c_str(), AT_EMPTY_PATH) == 0);
}

bool TemporaryFile::publish(const std::string& path, bool replace)
{
    if (m_name.empty()) {
        if (!replace)
            return link(path);
        // No call links an unnamed file over an existing one: it takes a
        // short hidden name for the moment of the rename.
        m_name = withFreshName(m_folder, [this](const std::string& name) { return link(name); });
        if (m_name.empty())
            return false;
    }
    if (::rename(m_name.c_str(), path.c_str()) != 0)
        return false;
    m_name.clear();
    return true;
}

enum class Outcome { Written, Failed, NotBeside };

// The replacement keeps the owner and the mode of the file it replaces.
bool keepOwnerAndMode(int fd, const struct stat& existing)
{
    struct stat created;
    if (::fstat(fd, &created) != 0)
        return false;
    if ((created.st_uid != existing.st_uid || created.st_gid != existing.st_gid) &&
        ::fchown(fd, existing.st_uid, existing.st_gid) != 0)
        return false;
    return ::fchmod(fd, existing.st_mode & 07777) == 0;
}

// Writes the bytes into a temporary file beside path and gives it the name
// path; existing is the file there now. NotBeside when the folder takes no
// new file from the caller or the owner cannot be kept.
Outcome writeBeside(const std::string& path, const std::string& bytes, const struct stat* existing)
{
    const std::string folder = folderOf(path);
    TemporaryFile temporary(folder);
    if (temporary.fd() < 0)
        return temporary.error() == EACCES || temporary.error() == EPERM ? Outcome::NotBeside : Outcome::Failed;
    if (existing && !keepOwnerAndMode(temporary.fd(), *existing))
        return Outcome::NotBeside;
    if (!writeAll(temporary.fd(), bytes) || ::fsync(temporary.fd()) != 0 ||
        !temporary.publish(path, existing != nullptr))
        return Outcome::Failed;
    syncFolder(folder);
    return Outcome::Written;
}

// Writes over the open file itself. Room for the new content is taken before
// the old is touched, so a full disk leaves a regular file as it was.
bool writeInPlace(int fd, const std::string& bytes, const struct stat& info)
{
    if (!S_ISREG(info.st_mode)) {
        // A device or a pipe takes the bytes as they come.
        const int flags = ::fcntl(fd, F_GETFL);
        return flags >= 0 && ::fcntl(fd, F_SETFL, flags & ~O_NONBLOCK) == 0 && writeAll(fd, bytes);
    }
    const off_t size = static_cast<off_t>(bytes.size());
    if (size > info.st_size && ::fallocate(fd, FALLOC_FL_KEEP_SIZE, 0, size) != 0 &&
        (errno == ENOSPC || errno == EDQUOT || errno == EFBIG))
        return false;
    return writeAll(fd, bytes) && ::ftruncate(fd, size) == 0 && ::fsync(fd) == 0;
}

// bytes null: create an empty file, but leave an existing one alone.
bool writeFile(const char* path, const std::string* bytes)
{
    if (!path || !*path)
        return false;
    const std::optional<std::string> target = followLinks(path);
    if (!target)
        return false;
    // Opening for writing is the permission check; nothing is changed yet.
    Descriptor existing(::open(target->c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (existing.get() < 0)
        return errno == ENOENT && writeBeside(*target, bytes ? *bytes : std::string(), nullptr) == Outcome::Written;
    struct stat info;
    if (!bytes || ::fstat(existing.get(), &info) != 0)
        return false;
    if (S_ISREG(info.st_mode) && info.st_nlink == 1) {
        const Outcome outcome = writeBeside(*target, *bytes, &info);
        if (outcome != Outcome::NotBeside)
            return outcome == Outcome::Written;
    }
    return writeInPlace(existing.get(), *bytes, info);
}

}  // namespace

bool QZCFileWriter::Write(const char* path, const std::string& bytes)
{
    return writeFile(path, &bytes);
}

bool QZCFileWriter::CreateEmpty(const char* path)
{
    return writeFile(path, nullptr);
}
