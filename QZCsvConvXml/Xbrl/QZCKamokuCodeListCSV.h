#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "QZCCsvFile.h"

class QZCAccountBook2;

// One child of an item of the account code list.
struct CHILD_ITEM {
    std::string key;
    std::string name;
    std::string substitutionGroup;
};

// The account code lists of the statement kinds that a file uses, one CSV
// file per kind, keyed by kind code + "_" + element name.
class QZCKamokuCodeListCSV : public QZCCsvFile {
public:
    QZCKamokuCodeListCSV();
    ~QZCKamokuCodeListCSV() override = default;

    void InitMembers() override;

    using QZCCsvFile::ReadCsvFile;
    // Loads the list of every book's statement kind from the folder.
    bool ReadCsvFile(const char* folder, const std::vector<QZCAccountBook2>& books);
    bool MakeMap(const std::string& bookTypeId, const Lines& rows);

    static std::string generateKey(const std::string& bookTypeId, const std::string& name);
    bool GetRow(const std::string& bookTypeId, const std::string& name, std::vector<std::string>& row) const;
    bool GetChildList(const std::string& bookTypeId, const std::string& parentName,
                      std::vector<CHILD_ITEM>& children) const;
    // Throws std::out_of_range when the item's row is shorter than the column.
    std::string GetAttrValue(const std::string& bookTypeId, const std::string& name,
                             const std::string& attribute) const;

private:
    void init();

    std::map<std::string, Lines> m_mapLists;
    std::map<std::string, std::vector<std::string>> m_mapRows;
    std::map<std::string, std::vector<CHILD_ITEM>> m_mapChildren;
    std::map<std::string, std::string> m_mapFiles;
    std::map<std::string, int32_t> m_mapAttrColumns;
};
