#pragma once

#include "QZCDatXMLDefineNode.h"

class QZCDatITData;

// Root of the tree of one format kubun: named after the form's report id,
// with the format kubun as id. It writes no element of its own.
class QZCDatXMLDefReport : public QZCDatXMLDefineNode {
public:
    QZCDatXMLDefReport() = default;
    ~QZCDatXMLDefReport() override;

    using QZCDatXMLDefineNode::Initialize;
    using QZCDatXMLDefineNode::WriteNode;

    // The sibling is kept only when given.
    void Initialize(const char* name, const char* id, const char* sibling);
    // The children's elements for one record.
    std::string WriteNode(const QZCDatCsvFile* csv, long row, const QZCDatITData* itData);
};
