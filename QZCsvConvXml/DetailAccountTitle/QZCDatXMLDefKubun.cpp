#include "QZCDatXMLDefKubun.h"

QZCDatXMLDefKubun::~QZCDatXMLDefKubun() = default;
