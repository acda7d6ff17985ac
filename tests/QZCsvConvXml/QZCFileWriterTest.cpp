#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <set>
#include <thread>

#include <grp.h>
#include <pwd.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "QZCMacOSNative.h"
#include "TestSupport.h"

namespace fs = std::filesystem;

namespace {

// The user the writes run as: the tests' own, or nobody when the tests run
// as root, so that the permissions of files and folders apply.
struct Caller {
    uid_t uid;
    gid_t gid;
};

Caller caller()
{
    if (::geteuid() != 0)
        return {::geteuid(), ::getegid()};
    const passwd* nobody = ::getpwnam("nobody");
    return nobody ? Caller{nobody->pw_uid, nobody->pw_gid} : Caller{65534, 65534};
}

constexpr int kCannotDrop = 77;

// How a write runs in its own process.
struct Limits {
    mode_t umask = 022;
    rlim_t maxFileSize = RLIM_INFINITY;
};

// CsvWrite run in a child process as the caller; "Result|DetailErrorInfo",
// or nullopt when the child could not become the caller.
std::optional<std::string> writeAsCaller(const std::string& path, const std::string& data, Limits limits = {})
{
    int channel[2];
    if (::pipe(channel) != 0)
        return "pipe failed";
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(channel[0]);
        ::umask(limits.umask);
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit size{limits.maxFileSize, limits.maxFileSize};
        ::setrlimit(RLIMIT_FSIZE, &size);
        const Caller who = caller();
        if (::geteuid() == 0 && (::setgroups(0, nullptr) != 0 || ::setgid(who.gid) != 0 || ::setuid(who.uid) != 0))
            ::_exit(kCannotDrop);
        if (path.empty())
            ::_exit(0);
        const QZICsvConvResultXML result = QZICsvConvXML().CsvWrite(path.c_str(), data.c_str());
        const std::string answer = result.Result + "|" + result.DetailErrorInfo;
        const bool sent = ::write(channel[1], answer.data(), answer.size()) == static_cast<ssize_t>(answer.size());
        ::_exit(sent ? 0 : 1);
    }
    ::close(channel[1]);
    std::string answer;
    char buffer[256];
    for (ssize_t got; (got = ::read(channel[0], buffer, sizeof buffer)) > 0;)
        answer.append(buffer, static_cast<size_t>(got));
    ::close(channel[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == kCannotDrop)
        return std::nullopt;
    return answer;
}

const std::string kOld = "HOI010,old\r\n";
// What CsvWrite is given (UTF-8) and what the file then holds (Shift_JIS).
const std::string kNew = "HOI010,1,あ\r\n";
const std::string kNewBytes = "HOI010,1,\x82\xa0\r\n";
const std::string kWritten = "S_OK|";
const std::string kRefused = "E_FAIL|0000-00000-HQZ9940E";

// A folder the caller may write in ("w") and one it may not ("ro").
class FileWriter : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!writeAsCaller("", ""))
            GTEST_SKIP() << "the tests run as root and cannot become the user nobody to write as";
        ::chmod(m_dir.path().c_str(), 0755);
        fs::create_directory(w(""));
        fs::create_directory(ro(""));
        give(w(""), 0755);
    }
    void TearDown() override { ::chmod(ro("").c_str(), 0755); }

    std::string w(const std::string& name) const { return m_dir.file("w/" + name); }
    std::string ro(const std::string& name) const { return m_dir.file("ro/" + name); }
    // Hands a file or folder to the caller with that mode.
    static void give(const std::string& path, mode_t mode)
    {
        const Caller who = caller();
        ASSERT_EQ(::lchown(path.c_str(), who.uid, who.gid), 0) << path;
        ASSERT_EQ(::chmod(path.c_str(), mode), 0) << path;
    }
    void makeFolderReadOnly()
    {
        // Owned by root where the tests run as root, else by the caller.
        ::chmod(ro("").c_str(), 0555);
    }
    static std::string write(const std::string& path, const std::string& data = kNew, Limits limits = {})
    {
        return writeAsCaller(path, data, limits).value_or("not run");
    }
    static std::set<std::string> names(const std::string& folder)
    {
        std::set<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder))
            found.insert(entry.path().filename().string());
        return found;
    }
    static mode_t mode(const std::string& path)
    {
        struct stat info {};
        ::stat(path.c_str(), &info);
        return info.st_mode & 07777;
    }

    TempDir m_dir;
};

TEST_F(FileWriter, LinksAreFollowedToTheFileTheyName)
{
    writeBytes(w("real.csv"), kOld);
    fs::create_symlink("real.csv", w("link.csv"));
    fs::create_symlink("made.csv", w("dangling.csv"));
    writeBytes(w("a.csv"), kOld);
    fs::create_hard_link(w("a.csv"), w("b.csv"));
    for (const char* name : {"real.csv", "a.csv"})
        give(w(name), 0644);

    EXPECT_EQ(write(w("link.csv")), kWritten);
    EXPECT_EQ(write(w("dangling.csv")), kWritten);
    EXPECT_EQ(write(w("a.csv")), kWritten);
    EXPECT_TRUE(fs::is_symlink(w("link.csv")));
    EXPECT_TRUE(fs::is_symlink(w("dangling.csv")));
    for (const char* name : {"real.csv", "made.csv", "b.csv"})
        EXPECT_EQ(readBytes(w(name)), kNewBytes) << name;
    EXPECT_EQ(names(w("")), (std::set<std::string>{"real.csv", "link.csv", "dangling.csv", "made.csv", "a.csv", "b.csv"}));
}

TEST_F(FileWriter, PermissionsAreThoseOfOpeningTheFile)
{
    writeBytes(w("readonly.csv"), kOld);
    give(w("readonly.csv"), 0444);
    // Written in place where the caller cannot give a new file its owner.
    writeBytes(w("shared.csv"), kOld);
    ::chmod(w("shared.csv").c_str(), 0666);
    writeBytes(ro("writable.csv"), kOld);
    ::chmod(ro("writable.csv").c_str(), 0666);
    makeFolderReadOnly();

    EXPECT_EQ(write(w("readonly.csv")), kRefused);
    EXPECT_EQ(readBytes(w("readonly.csv")), kOld);
    EXPECT_EQ(write(w("shared.csv")), kWritten);
    EXPECT_EQ(readBytes(w("shared.csv")), kNewBytes);
    struct stat shared {};
    ::stat(w("shared.csv").c_str(), &shared);
    EXPECT_EQ(shared.st_uid, ::geteuid());
    EXPECT_EQ(write(ro("writable.csv")), kWritten);
    EXPECT_EQ(readBytes(ro("writable.csv")), kNewBytes);
    EXPECT_EQ(write(ro("new.csv")), kRefused);
    EXPECT_EQ(names(ro("")), std::set<std::string>{"writable.csv"});
    EXPECT_EQ(names(w("")), (std::set<std::string>{"readonly.csv", "shared.csv"}));
}

TEST_F(FileWriter, ModesNamesAndFailedWrites)
{
    writeBytes(w("private.csv"), kOld);
    give(w("private.csv"), 0600);
    const std::string longName = std::string(251, 'n') + ".csv";  // the longest name a folder holds
    writeBytes(w("full.csv"), kOld);
    give(w("full.csv"), 0644);

    EXPECT_EQ(write(w("private.csv")), kWritten);
    EXPECT_EQ(mode(w("private.csv")), 0600u);
    EXPECT_EQ(write(w("umask.csv"), kNew, Limits{027}), kWritten);
    EXPECT_EQ(mode(w("umask.csv")), 0640u);
    EXPECT_EQ(write(w(longName)), kWritten);
    EXPECT_EQ(write(w(longName), kOld), kWritten);
    EXPECT_EQ(readBytes(w(longName)), kOld);
    // A write the file system refuses half-way leaves the old bytes.
    const std::string big(100000, 'x');
    EXPECT_EQ(write(w("full.csv"), big, Limits{022, 4096}), kRefused);
    EXPECT_EQ(readBytes(w("full.csv")), kOld);
    EXPECT_EQ(write(w("partial.csv"), big, Limits{022, 4096}), kRefused);
    EXPECT_EQ(names(w("")), (std::set<std::string>{"private.csv", "umask.csv", longName, "full.csv"}));
}

TEST(FileWriterKilled, LeavesNoFileBehindButAComplete)
{
    // A new file is written unnamed and linked once complete: whenever the
    // writer is killed, the folder holds nothing or the whole file. The kills
    // are spread over the time one whole write takes.
    TempDir dir;
    const std::string path = dir.file("new.csv");
    const std::string text(1 << 20, 'x');
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(QZCMacOSNative::writeSJISFile(path.c_str(), text, true));
    const auto whole = std::chrono::steady_clock::now() - start;
    constexpr int kRuns = 20;
    for (int run = 0; run < kRuns; ++run) {
        fs::remove(path);
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(QZCMacOSNative::writeSJISFile(path.c_str(), text, true) ? 0 : 1);
        std::this_thread::sleep_for(whole * run / kRuns);
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        for (const auto& entry : fs::directory_iterator(dir.path())) {
            ASSERT_EQ(entry.path(), path) << "run " << run;
            ASSERT_EQ(fs::file_size(path), text.size()) << "run " << run;
        }
    }
}

}  // namespace
