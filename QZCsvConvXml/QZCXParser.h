#pragma once

// Base of the XML readers: its own operations do nothing.
class QZCXParser {
public:
    virtual ~QZCXParser() = default;
    virtual bool Initialize() { return false; }
    virtual void Terminate() {}
    virtual bool Parse(const char* text, const char* bufferId, const char* encoding);
};
