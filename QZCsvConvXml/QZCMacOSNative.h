#pragma once

#include "QZCCalendar.h"
#include "QZCCharacters.h"
#include "QZCFileAccess.h"
#include "QZCShiftJis.h"

// The platform services under one name: files and folders, Shift_JIS text,
// dates, and UTF-16 counting and trimming, each in its own unit. Texts are
// UTF-8; a null pointer counts as a missing text.
class QZCMacOSNative : public QZCFileAccess, public QZCShiftJis, public QZCCalendar, public QZCCharacters {
public:
    virtual ~QZCMacOSNative() = default;
};
