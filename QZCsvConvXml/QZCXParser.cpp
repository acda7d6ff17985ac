#include "QZCXParser.h"

bool QZCXParser::Parse(const char*, const char*, const char*)
{
    return false;
}
