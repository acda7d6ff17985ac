#pragma once

#include <memory>

class QZCDatCsvFile;
class QZCDatDefinition;
class QZCDatITData;

// The three objects of one conversion, in the order the singleton holds them.
struct QZCDatConvertTable_t {
    QZCDatCsvFile* csvFile;
    QZCDatDefinition* definition;
    QZCDatITData* itData;
};

// Process-wide owner of the CSV file, the definition and the filer data of
// the running detail conversion, so that every class reaches them without
// passing them around. One conversion runs at a time.
class QZCDatConvertInfo {
public:
    virtual ~QZCDatConvertInfo();
    QZCDatConvertInfo(const QZCDatConvertInfo&) = delete;
    QZCDatConvertInfo& operator=(const QZCDatConvertInfo&) = delete;

    // The instance, created on the first call.
    static QZCDatConvertInfo* instance();
    static void destroy();

    void Terminate();
    QZCDatCsvFile* GetCsvFile() const;
    QZCDatDefinition* GetDefinition() const;
    QZCDatITData* GetITData() const;
    QZCDatConvertTable_t GetConvertTable() const;

private:
    QZCDatConvertInfo();

    std::unique_ptr<QZCDatCsvFile> m_pCsvFile;
    std::unique_ptr<QZCDatDefinition> m_pDefinition;
    std::unique_ptr<QZCDatITData> m_pITData;

    static QZCDatConvertInfo* m_pInstance;
};
