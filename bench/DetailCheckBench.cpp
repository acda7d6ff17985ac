// The whole check of a detail statement (CsvCheckToDetailAccountTitle2)
// against only reading and splitting the same file (readSJISFile and the
// tokenizer), at 100,000 and 1,000,000 records, with the peak memory of each.
// Each run is a child process of its own, so that its CPU time and peak
// resident size are those of one operation in a fresh process; the best of
// five runs counts. Targets: check at most 5 times the read, and 1,000,000
// records at most 11 times the cost of 100,000.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "QZCDatCsvFile.h"
#include "QZCLoadResource.h"
#include "QZCMacOSNative.h"
#include "QZICsvConvXML.h"

namespace {

// A deposits form with checks on every column, as a real definition has.
const char* kDefinition = R"(<?xml version="1.0" encoding="UTF-8"?>
<root>
  <report id="HOI010" reportId="HOI010" reportVR="4.0" columnNum="8" maxOccurs="1000000000">
    <item id="bank" column="3" meisaiGoukei="0">
      <valid id="exist"/><valid id="charlength" max="20"/>
    </item>
    <item id="branch" column="4" meisaiGoukei="0"><valid id="charlength" max="20"/></item>
    <item id="kind" column="5" meisaiGoukei="0"><valid id="contain" value="普通 当座 定期 通知 別段"/></item>
    <item id="account" column="6" meisaiGoukei="0"><valid id="number"/><valid id="charlength" max="10"/></item>
    <item id="amount" column="7" meisaiGoukei="0">
      <valid id="number"/><valid id="range" min="-999999999999" max="999999999999"/>
    </item>
    <item id="remark" column="8" meisaiGoukei="0"><valid id="charlength" max="40"/></item>
    <item id="total" column="7" meisaiGoukei="1"><valid id="number"/></item>
  </report>
</root>
)";

const std::filesystem::path kFolder = std::filesystem::temp_directory_path() / "qzc_bench_detail_check";

std::string CsvFile(int64_t records)
{
    const std::string path = (kFolder / "csv" / std::to_string(records) / "HOI010_4.0.csv").string();
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::string text;
    for (int64_t i = 0; i < records; ++i) {
        text += "HOI010,0,みなと銀行,本店営業部,普通," + std::to_string(1000000 + i % 9000000) + "," +
                std::to_string(i * 37 % 100000000) + ",\"運転資金,決済用\"\r\n";
    }
    QZCMacOSNative::writeSJISFile(path.c_str(), text, true);
    return path;
}

struct Measure {
    double milliseconds;
    long peakKilobytes;
};

// Runs the work once in a child process of its own and measures its CPU
// time (user and system, page faults included) and peak resident size:
// every run starts from a fresh heap, as at 100,000 records the allocator
// would otherwise hand back the pages of the previous run and hide their
// cost, while at 1,000,000 its large blocks are always mapped anew. CPU time
// rather than wall time keeps the figures steady on a busy machine.
template <typename Work>
Measure InChild(Work work)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work() ? 0 : 1);
    int status = 0;
    struct rusage usage {};
    ::wait4(child, &status, 0, &usage);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return {-1, 0};
    const auto ms = [](const timeval& t) { return t.tv_sec * 1000.0 + t.tv_usec / 1000.0; };
    return {ms(usage.ru_utime) + ms(usage.ru_stime), usage.ru_maxrss};
}

// Best time and highest peak of several runs.
template <typename Work>
Measure Best(int runs, Work work)
{
    Measure best{1e300, 0};
    for (int i = 0; i < runs; ++i) {
        const Measure run = InChild(work);
        if (run.milliseconds < 0)
            return run;
        best.milliseconds = std::min(best.milliseconds, run.milliseconds);
        best.peakKilobytes = std::max(best.peakKilobytes, run.peakKilobytes);
    }
    return best;
}

}  // namespace

int main()
{
    const std::string bundle = (kFolder / "QZCsvConvXml.bundle").string();
    std::filesystem::create_directories(bundle + "/AccountTitle");
    std::ofstream(bundle + "/AccountTitle/HOI010_4.0_vld.xml", std::ios::binary) << kDefinition;
    ::setenv(QZCLoadResource::kBundleVariable, bundle.c_str(), 1);

    std::printf("%10s %18s %14s %10s %16s %16s\n", "records", "read+split cpu ms", "check cpu ms", "check/read",
                "read peak MB", "check peak MB");
    double checkOf100k = 0;
    for (int64_t records : {int64_t{100000}, int64_t{1000000}}) {
        const std::string path = CsvFile(records);
        const int runs = 5;
        const Measure read = Best(runs, [&] {
            const std::string text = QZCMacOSNative::readSJISFile(path.c_str());
            return QZCDatCsvFile().ParseSimply(text.c_str()) == 0;
        });
        const Measure check = Best(runs, [&] {
            QZICsvConvResultXML result = QZICsvConvXML().CsvCheckToDetailAccountTitle2(path.c_str(), "4.0");
            if (result.Conformity != 1)
                std::fprintf(stderr, "unexpected result %s %s\n", result.Result.c_str(),
                             result.DetailErrorInfo.substr(0, 200).c_str());
            return result.Conformity == 1;
        });
        if (read.milliseconds < 0 || check.milliseconds < 0)
            return 1;
        std::printf("%10lld %18.1f %14.1f %10.2f %16.1f %16.1f\n", static_cast<long long>(records), read.milliseconds,
                    check.milliseconds, check.milliseconds / read.milliseconds, read.peakKilobytes / 1024.0,
                    check.peakKilobytes / 1024.0);
        if (records == 100000)
            checkOf100k = check.milliseconds;
        else
            std::printf("check of 1,000,000 records / check of 100,000: %.2f (target at most 11); "
                        "check/read target at most 5\n",
                        check.milliseconds / checkOf100k);
    }
    return 0;
}
