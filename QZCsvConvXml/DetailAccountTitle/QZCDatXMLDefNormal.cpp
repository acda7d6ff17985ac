#include "QZCDatXMLDefNormal.h"

QZCDatXMLDefNormal::~QZCDatXMLDefNormal() = default;
