#pragma once

#include <string>
#include <vector>

#include "QZCCsvFile.h"

class QZCDOMParser;

// The line-by-line pass over a statements file: the line limit and the
// order of its checks. QZCValidateMediator2 supplies the checks.
class QZCValidateMediator {
public:
    using Line = QZCCsvFile::Line;
    using LineIterator = QZCCsvFile::Lines::const_iterator;

    // Files of more lines are not checked at all.
    static constexpr size_t kMaxLines = 5000;

    virtual ~QZCValidateMediator() = default;

    virtual bool BuildValidItem(QZCDOMParser& parser) = 0;
    virtual bool ConstructValidators() = 0;
    virtual bool ExecFormatCheck(LineIterator first, LineIterator last) = 0;
    virtual bool ExecLayerTypeCheck(const Line& line, bool& titlePending, int rowNo) = 0;
    virtual bool ExecRequiredFormCheck(const Line& line, int rowNo, bool& titlePending) = 0;
    virtual bool ExecSpecificCheck(LineIterator first, LineIterator last) = 0;

    bool CheckLinesWithinLimits(const QZCCsvFile& csv);
    // Format checks of every line, then the specific checks; true only when
    // no error was recorded at all.
    bool ExecCheck(const QZCCsvFile& csv);

protected:
    bool m_bExistB = false;
    bool m_bExistC1 = false;
    bool m_bExistC2 = false;
};
