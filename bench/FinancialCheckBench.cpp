// The financial statements check of the largest legal folder against only
// reading and splitting the same files. A folder may hold at most 5000 lines
// in all and five statements (SS, SE and SR exclude one another): BS, PL,
// SC, SS and NT, padded with the filer's own sub-accounts.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

#include <benchmark/benchmark.h>

#include "QZCFinancialStatementsCSV.h"
#include "QZCLoadResource.h"
#include "QZCMacOSNative.h"
#include "QZICsvConvXML.h"

namespace {

const std::string kExample = std::string(QZC_SOURCE_DIR) + "/examples/financial-statements/HOT010_3.0_";

const char* const kManufacturingCost =
    "A,SC,,,\nB,株式会社みなと商事,,,\nC1,2024-04-01,,,\nC2,2025-03-31,,,\n製造原価報告書,,,,\n"
    "材料費,,T,2,MaterialCostAbstract\n期首材料棚卸高,3200000,1,3,BeginningRawMaterialsMFG\n"
    "当期材料仕入高,41800000,1,3,PurchasesOfRawMaterialsMFG\n合計,45000000,1,3,TotalBeginningRawMaterialsAndPurchasesMFG\n"
    "期末材料棚卸高,3500000,1,3,EndingRawMaterialsMFG\n当期材料費,41500000,1,3,MaterialCost\n"
    "労務費,,T,2,LaborCostAbstract\n賃金,18600000,1,3,WagesAndSalariesMFG\n当期労務費,18600000,1,3,LaborCost\n"
    "経費,,T,2,OverheadCostAbstract\n外注加工費,9400000,1,3,OutsourcingCostMFG\n当期経費,9400000,1,3,OverheadCost\n"
    "当期総製造費用,69500000,1,2,ManufacturingCostForPeriod\n当期製品製造原価,69500000,1,2,CostOfFinishedGoodsManufacturedMFG\n";

// A sub-account line of the filer's own for each statement kind.
std::string padding(const std::string& kind, int n)
{
    std::string id = std::to_string(n);
    if (kind == "BS")
        return "売掛金（得意先" + id + "）,1250000,1,2,AccountsReceivableTrade-C" + id + "\n";
    if (kind == "PL")
        return "雑収入（内訳" + id + "）,38000,1,2,MiscellaneousIncomeNOI-R" + id + "\n";
    if (kind == "SC")
        return "外注加工費（外注先" + id + "）,420000,1,2,OutsourcingCostMFG-S" + id + "\n";
    if (kind == "SS")
        return "その他の変動（内訳" + id + "）,10000,1,2,NetAssetsSS-V" + id + "\n";
    return "その他の注記" + id + ",該当事項はありません。,2,2,OtherNotes-N" + id + "\n";
}

// Writes a folder of five statements with the given number of lines in all.
std::string makeFolder(int totalLines)
{
    static std::map<int, std::string> folders;
    auto found = folders.find(totalLines);
    if (found != folders.end())
        return found->second;
    std::string folder = (std::filesystem::temp_directory_path() / ("qzc-bench-" + std::to_string(totalLines))).string();
    std::filesystem::create_directories(folder);
    std::map<std::string, std::string> texts;
    for (const char* kind : {"BS", "PL", "SS", "NT"})
        texts[kind] = QZCMacOSNative::readSJISFile((kExample + kind + ".csv").c_str());
    texts["SC"] = kManufacturingCost;
    int lines = 0;
    for (auto& [kind, text] : texts)
        lines += static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    for (int n = 0; lines < totalLines; ++n)
        for (auto& [kind, text] : texts)
            if (lines < totalLines) {
                text += padding(kind, n);
                ++lines;
            }
    for (const auto& [kind, text] : texts)
        QZCMacOSNative::writeSJISFile((folder + "/HOT010_3.0_" + kind + ".csv").c_str(), text, true);
    return folders[totalLines] = folder;
}

void CheckFolder(benchmark::State& state)
{
    ::setenv(QZCLoadResource::kBundleVariable, QZC_SOURCE_DIR "/resources/QZCsvConvXml.bundle", 1);
    std::string folder = makeFolder(static_cast<int>(state.range(0)));
    QZICsvConvXbrlResultXML result;
    for (auto _ : state)
        result = QZICsvConvXML().CsvCheckToXbrl2(folder.c_str(), "3.0");
    if (result.CheckResultArray != std::vector<std::string>(5, "0"))
        state.SkipWithError(("the generated folder is not clean: " + result.DetailErrorInfoArray[0]).c_str());
}

void ReadAndSplit(benchmark::State& state)
{
    std::string folder = makeFolder(static_cast<int>(state.range(0)));
    std::vector<std::string> files;
    QZCMacOSNative::getFilesUnderFolder(folder.c_str(), files);
    for (auto _ : state) {
        for (const std::string& file : files) {
            QZCFinancialStatementsCSV csv;
            csv.ParseCsvData(QZCMacOSNative::readSJISFile(file.c_str()).c_str());
            benchmark::DoNotOptimize(csv.GetLineCount());
        }
    }
}

}  // namespace

BENCHMARK(CheckFolder)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAndSplit)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);
