#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

class QZCDatValidator;

// Type case of a detail conversion: bit 0x0001 marks a detail statement,
// bit 0x0100 the first detail operation.
constexpr uint16_t TYPECASE_WRITE = 0x0000;
constexpr uint16_t TYPECASE_DETAIL = 0x0101;
constexpr uint16_t TYPECASE_APPENDED = 0x0202;
constexpr uint16_t TYPECASE_DETAIL2 = 0x0401;

// Kinds of call argument. The value picks the argument's table of checks and
// is the column of an error about the argument.
enum QZCDatArgValid_t : int64_t {
    ARG_CSV = 1,
    ARG_PROPFOLDER = 2,
    ARG_VR = 3,
    ARG_SOFTNM = 4,
    ARG_SAKUSEINM = 5,
    ARG_XML = 6,
    ARG_PAGENO = 28,
    ARG_CSVPAGENO = 48,
    ARG_XMLPAGENO = 49,
    ARG_CSVWRITE = 51,
    ARG_GETFILENAME = 61
};

// One argument: the last value its checks accepted, and the checks.
struct QZCDataValid_t {
    std::string value;
    std::unique_ptr<QZCDatValidator> validator;
};

// The arguments of one detail conversion, each guarded by its checks, with
// the CSV text, its file name, the type case and the page numbers.
class QZCDatITData {
public:
    QZCDatITData();
    virtual ~QZCDatITData();
    QZCDatITData(const QZCDatITData&) = delete;
    QZCDatITData& operator=(const QZCDatITData&) = delete;

    // Sets up the checks of a kind; parameter is the definition file path for
    // ARG_VR. A kind already set up keeps its entry; a failure inserts nothing.
    void Initialize(QZCDatArgValid_t kind, const char* parameter);
    // Stores value when the kind's checks accept it (errors at line 9999,
    // column kind); -1 for a kind never set up.
    int SetITData(QZCDatArgValid_t kind, const char* value);
    // The stored value; "" for a kind never set.
    const char* GetITData(QZCDatArgValid_t kind) const;

    void SetCsvData(const std::string& data);
    const std::string& GetCsvData() const;
    void SetCsvFileName(const std::string& name);
    const std::string& GetCsvFileName() const;

    void SetTypeCase(uint16_t typeCase);
    bool IsUtiwakeOn() const;
    bool IsD15HO001On() const;

    // A null or empty value means page 1.
    void SetPageNo(QZCDatArgValid_t kind, const char* value);
    int64_t GetXmlPageNo() const;
    int64_t GetCsvPageNo() const;

    void Clear();

private:
    std::map<int64_t, QZCDataValid_t> m_mapArguments;
    std::string m_strCsvData;
    std::string m_strCsvFileName;
    uint16_t m_nTypeCase = 0;
    int64_t m_nXmlPageNo = 1;
    int64_t m_nCsvPageNo = 1;
};
