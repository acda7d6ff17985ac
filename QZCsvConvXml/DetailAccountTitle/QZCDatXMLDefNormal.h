#pragma once

#include "QZCDatXMLDefineNode.h"

// An item of type "Normal"; it behaves as any item, its class records the type.
class QZCDatXMLDefNormal : public QZCDatXMLDefineNode {
public:
    QZCDatXMLDefNormal() = default;
    ~QZCDatXMLDefNormal() override;
};
