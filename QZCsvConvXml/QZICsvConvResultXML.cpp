#include "QZICsvConvResultXML.h"

void QZICsvConvResultXML::initialize()
{
    *this = QZICsvConvResultXML();
}
