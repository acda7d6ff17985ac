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

// Owner of the CSV file, the definition and the filer data of the running
// detail conversion, so that every class reaches them without passing them
// around. There is one per thread: one conversion runs at a time on each
// thread, and conversions on different threads have their own.
class QZCDatConvertInfo {
public:
    virtual ~QZCDatConvertInfo();
    QZCDatConvertInfo(const QZCDatConvertInfo&) = delete;
    QZCDatConvertInfo& operator=(const QZCDatConvertInfo&) = delete;

    // The calling thread's instance, created on its first call there.
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
};
