#include "QZICsvConvXbrlResultXML.h"

void QZICsvConvXbrlResultXML::initialize()
{
    *this = QZICsvConvXbrlResultXML();
}
