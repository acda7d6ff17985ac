// The detail CSV file in full mode: read and frame-checked against a shipped
// definition, then every record validated.
#include "FuzzSupport.h"
#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatDefinition.h"
#include "QZCDatITData.h"

namespace {

const char* const kDefinition = QZC_BUNDLE_DIR "/AccountTitle/HOI010_4.0_vld.xml";

QZCDOMParser& Definition()
{
    static QZCDOMParser* dom = [] {
        auto* parsed = new QZCDOMParser;
        if (!parsed->Initialize() || !parsed->Parse(kDefinition))
            std::abort();
        return parsed;
    }();
    return *dom;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QZCDOMParser& dom = Definition();
    dom.MoveRoot();
    const std::string csvPath = (ScratchDir() / "HOI010_4.0.csv").string();
    WriteFile(csvPath, Bytes(data, size));

    // The filer data of a check of this form.
    QZCDatConvertInfo::destroy();
    QZCDatITData* filer = QZCDatConvertInfo::instance()->GetITData();
    filer->SetTypeCase(TYPECASE_DETAIL2);
    filer->Initialize(ARG_VR, kDefinition);
    if (filer->SetITData(ARG_VR, "4.0") != 0)
        std::abort();
    filer->SetCsvFileName("HOI010_4.0.csv");

    ResetErrors();
    try {
        QZCDatCsvFile csv;
        if (csv.ReadFile(csvPath.c_str(), &dom) == 0) {
            QZCDatDefinition definition;
            if (definition.CreateValidDefinition(csv.GetFormatKubun(), &dom) == 0)
                definition.ValidateCsv(&csv);
        }
    } catch (int) {
        // The failure path of the reading and checking layers: logged and recorded.
    }
    QZCDatConvertInfo::destroy();
    return 0;
}
