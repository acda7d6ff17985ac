#include "QZCCsvConvResultXML.h"

void QZCCsvConvResultXML::Initialize()
{
    m_strResult.clear();
    m_strDetailErrorInfo.clear();
    m_nConformity = 0;
}
