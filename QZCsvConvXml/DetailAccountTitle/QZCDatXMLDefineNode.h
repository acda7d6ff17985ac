#pragma once

#include <memory>
#include <string>
#include <vector>

class QZCDOMParser;
class QZCDatCsvFile;
class QZCDatValidator;

// One "item" of a validation definition: the CSV column it reads, the checks
// on it, the record kind it belongs to and the XML element it writes. Nodes
// form a flat validation tree or a nested print tree under a report root.
class QZCDatXMLDefineNode {
public:
    QZCDatXMLDefineNode();
    virtual ~QZCDatXMLDefineNode();
    QZCDatXMLDefineNode(const QZCDatXMLDefineNode&) = delete;
    QZCDatXMLDefineNode& operator=(const QZCDatXMLDefineNode&) = delete;

    // The node of the "item" element at the cursor, by its "type"; null on failure.
    static std::unique_ptr<QZCDatXMLDefineNode> CreateNode(QZCDOMParser* dom);

    virtual int Initialize(QZCDOMParser* dom);
    // Runs the node's checks and those of the children that the record's
    // kind selects; every failure is recorded. 0 or -1. The checks may
    // rewrite values of the record.
    virtual int ValidateCsv(QZCDatCsvFile* csv, long row);
    // The checks of a total row: the node's own, then those of the total
    // children, stopping at the first failure.
    virtual int ValidateCsvOfGoukei(QZCDatCsvFile* csv, long row);
    // The node's element for the record, or "" when it has nothing to write.
    virtual std::string WriteNode(const QZCDatCsvFile* csv, long row);
    virtual std::string MakeNodeValue(const QZCDatCsvFile* csv, long row);

    const char* GetName() const;
    const char* GetId() const;
    const char* GetParentName() const;
    const char* GetMeisaiGoukei() const;
    const char* GetSibling() const;
    long GetColumn() const;

    std::string MakeUnitValue(const QZCDatCsvFile* csv, long row);
    // Hang node into the tree; on success the tree owns it (node is emptied),
    // otherwise notFound is returned and node stays with the caller.
    int LocateValidNode(std::unique_ptr<QZCDatXMLDefineNode>& node, int notFound);
    int LocatePrintNode(std::unique_ptr<QZCDatXMLDefineNode>& node, int notFound);

protected:
    // Whether child takes part in a record: with the detail statement flag on,
    // a child of one record kind only in records of that kind.
    static bool TakesPart(const QZCDatXMLDefineNode& child, const QZCDatCsvFile* csv, long row, bool utiwake);
    static void RequireCsv(const QZCDatCsvFile* csv, const char* label);
    std::string WriteChildren(const QZCDatCsvFile* csv, long row, bool utiwake);

    std::string m_strName;
    std::string m_strId;
    std::string m_strParentName;
    long m_nColumn = -1;
    bool m_bZeroSuppress = false;
    std::string m_strMeisaiGoukei;
    std::string m_strSibling;
    std::vector<std::unique_ptr<QZCDatXMLDefineNode>> m_vecChildren;
    std::unique_ptr<QZCDatValidator> m_pValidator;
    bool m_bUnit = false;
};
