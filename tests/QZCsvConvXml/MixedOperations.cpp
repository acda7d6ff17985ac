#include "MixedOperations.h"

#include <algorithm>
#include <filesystem>
#include <regex>

#include <gtest/gtest.h>

#include "QZCMacOSNative.h"
#include "QZICsvConvXML.h"

std::vector<MixedOperation> MixedOperations(const TempDir& dir, QZICsvConvXML& library)
{
    const std::string examples = std::string(QZC_SOURCE_DIR) + "/examples";
    std::vector<MixedOperation> operations;
    for (const char* folder : {"financial-statements", "financial-statements-with-errors"}) {
        const std::string path = examples + "/" + folder;
        operations.push_back({std::string("xbrl ") + folder,
                              [path, &library] { return describe(library.CsvCheckToXbrl2(path.c_str(), "3.0")); }});
    }
    const std::regex versionPattern("_([0-9]+\\.[0-9]+)");
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(examples + "/detail")) {
        if (entry.path().extension() == ".csv")
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    for (const auto& file : files) {
        std::smatch match;
        const std::string name = file.filename().string();
        EXPECT_TRUE(std::regex_search(name, match, versionPattern)) << name;
        const std::string version = match[1];
        const std::string path = file.string();
        operations.push_back({"detail " + name, [=, &library] {
                                  return describe(library.CsvCheckToDetailAccountTitle(path.c_str(), version.c_str()));
                              }});
        operations.push_back({"detail2 " + name, [=, &library] {
                                  return describe(library.CsvCheckToDetailAccountTitle2(path.c_str(), version.c_str()));
                              }});
        operations.push_back({"appended " + name, [=, &library] {
                                  return describe(library.CsvCheckToAppendedTable(path.c_str(), version.c_str()));
                              }});
        operations.push_back({"report " + name, [=, &library] {
                                  std::string report;
                                  const std::string answer =
                                      describe(library.CsvReportToXml(path.c_str(), version.c_str(), report));
                                  return answer + "|" + report;
                              }});
    }
    const std::string clean = *QZCMacOSNative::sjisToUtf8(readBytes(examples + "/detail/HOI010_4.0_預貯金等.csv"));
    const struct {
        std::string name, path, data;
    } writes[] = {{"write clean", dir.file("clean.csv"), clean},
                  {"write without Shift_JIS form", dir.file("refused.csv"), "HOI010,0,\U0001F3E6,1\r\n"},
                  {"write into missing folder", dir.file("missing/x.csv"), clean}};
    // The refused write must leave this content in place.
    writeBytes(dir.file("refused.csv"), "earlier");
    for (const auto& write : writes) {
        operations.push_back({write.name, [write, &library] {
                                  const std::string answer =
                                      describe(library.CsvWrite(write.path.c_str(), write.data.c_str()));
                                  return answer + "|" + readBytes(write.path);
                              }});
    }
    return operations;
}
