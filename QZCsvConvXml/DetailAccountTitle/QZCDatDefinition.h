#pragma once

// The validation definition of the form being converted.
class QZCDatDefinition {
public:
    QZCDatDefinition();
    virtual ~QZCDatDefinition();
    QZCDatDefinition(const QZCDatDefinition&) = delete;
    QZCDatDefinition& operator=(const QZCDatDefinition&) = delete;
};
