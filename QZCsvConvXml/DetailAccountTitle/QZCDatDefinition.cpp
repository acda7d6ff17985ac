#include "QZCDatDefinition.h"

QZCDatDefinition::QZCDatDefinition() = default;

QZCDatDefinition::~QZCDatDefinition() = default;
