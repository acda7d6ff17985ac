#pragma once

#include "QZCDatXMLDefineNode.h"

// An item of type "Kubun"; it behaves as any item, its class records the type.
class QZCDatXMLDefKubun : public QZCDatXMLDefineNode {
public:
    QZCDatXMLDefKubun() = default;
    ~QZCDatXMLDefKubun() override;
};
