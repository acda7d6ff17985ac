#pragma once

#include "QZCDatXMLDefineNode.h"

// An item of type "Date"; it behaves as any item, its class records the type.
class QZCDatXMLDefDate : public QZCDatXMLDefineNode {
public:
    QZCDatXMLDefDate() = default;
    ~QZCDatXMLDefDate() override;
};
