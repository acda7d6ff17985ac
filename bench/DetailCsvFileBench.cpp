// Reading and frame-checking a detail CSV file against its definition, at
// 10,000 and 100,000 records: the cost should grow linearly with the file.
#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>

#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatCsvFile.h"
#include "QZCDatITData.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"

namespace {

const char* kDefinition = R"(<?xml version="1.0" encoding="UTF-8"?>
<root>
  <report id="HOI020" reportId="HOI010" reportVR="2.0" columnNum="6"><item meisaiGoukei="0"/></report>
  <report id="HOI010" reportId="HOI010" reportVR="1.0" columnNum="6"><item meisaiGoukei="0"/></report>
  <report id="HOI010" reportId="HOI010" reportVR="2.0" columnNum="6" columnNumEx="7 8" maxOccurs="20" bracketed="1">
    <item id="kind" meisaiGoukei="0"/>
    <item id="total" meisaiGoukei="1"/>
  </report>
</root>
)";

const std::filesystem::path& Folder()
{
    static const std::filesystem::path folder = [] {
        auto path = std::filesystem::temp_directory_path() / "qzc_bench_detail_csv";
        std::filesystem::create_directories(path);
        return path;
    }();
    return folder;
}

// A file of the given number of records, twenty to a page.
std::string CsvFile(int64_t records)
{
    const std::string path = (Folder() / ("HOI010_2.0_" + std::to_string(records) + ".csv")).string();
    std::string text;
    for (int64_t i = 0; i < records; ++i) {
        text += "HOI010(" + std::to_string(i / 20 + 1) + ")," + (i % 20 == 19 ? "1" : "0") +
                ",株式会社テスト商事,東京都千代田区霞が関３－１－１,1234567,\"摘要,備考\"\r\n";
    }
    QZCMacOSNative::writeSJISFile(path.c_str(), text, true);
    return path;
}

void ReadDetailCsvFile(benchmark::State& state)
{
    const std::string definitionPath = (Folder() / "HOI010_2.0_vld.xml").string();
    QZCMacOSNative::writeSJISFile(definitionPath.c_str(), kDefinition, true);
    QZCDOMParser definition;
    if (!definition.Initialize() || !definition.Parse(definitionPath.c_str())) {
        state.SkipWithError("definition not parsed");
        return;
    }
    QZCDatITData* data = QZCDatConvertInfo::instance()->GetITData();
    data->SetTypeCase(TYPECASE_DETAIL);
    data->Initialize(ARG_VR, definitionPath.c_str());
    data->SetITData(ARG_VR, "2.0");
    const std::string path = CsvFile(state.range(0));
    for (auto _ : state) {
        QZCDatCsvFile csv;
        if (csv.ReadFile(path.c_str(), &definition) != 0) {
            state.SkipWithError(QZCUtility::GetError().c_str());
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    QZCDatConvertInfo::destroy();
}

BENCHMARK(ReadDetailCsvFile)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
