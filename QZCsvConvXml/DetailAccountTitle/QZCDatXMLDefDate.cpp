#include "QZCDatXMLDefDate.h"

QZCDatXMLDefDate::~QZCDatXMLDefDate() = default;
