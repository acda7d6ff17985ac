#pragma once

#include <string>
#include <vector>

#include "QZCValidateFile.h"

// Checks the file names of a folder of statements: first a survey of all
// names (PreCheck), then each file against the survey.
class QZCValidateFolderFiles : public QZCValidateFile {
public:
    QZCValidateFolderFiles() = default;

    void clear();
    void PreCheck(const std::vector<std::string>& paths);
    bool DoCheck(QZCAccountFile& file) override;

private:
    // 0 no matching file yet, 1 the first had no known type, 2 it had one.
    int m_nFirstFileMode = 0;
    bool m_bSS = false;
    bool m_bSR = false;
    bool m_bSE = false;
    std::vector<std::string> m_vTypes;
    std::vector<std::string> m_vDuplicatedTypes;
    bool m_bMixed = false;
};
