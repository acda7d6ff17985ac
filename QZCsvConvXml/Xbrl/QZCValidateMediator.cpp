#include "QZCValidateMediator.h"

#include "QZCLog.h"
#include "QZCUtility.h"

bool QZCValidateMediator::CheckLinesWithinLimits(const QZCCsvFile& csv)
{
    if (csv.GetLineCount() <= kMaxLines) {
        return true;
    }
    QZCUtility::AddParamErrorInfoDefinition("HQZ9900E");
    return false;
}

bool QZCValidateMediator::ExecCheck(const QZCCsvFile& csv)
{
    try {
        const bool passed = ExecFormatCheck(csv.GetCsvLineItelator(), csv.GetCsvLineEndItelator())
                            && ExecSpecificCheck(csv.GetCsvLineItelator(), csv.GetCsvLineEndItelator());
        return passed && g_mlErrors.empty();
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCValidateMediator::ExecCheck", QZCLog::kUnexpected);
        return false;
    }
}
