#pragma once

#include <cstdint>
#include <string>

// Debug trace for support staff. Off unless the host's environment holds the
// switch variable; when off, a record costs one flag test. The switch and the
// log file are per thread: every operation switches logging on, when asked
// for, on its own thread as it starts, never under another thread's reads.
class QZCLog {
public:
    virtual ~QZCLog() = default;

    // Name of the environment variable that switches logging on.
    static constexpr const char* kSwitchVariable = "org.qzcsvconvxml.QZFylaCsvConv.DebugOutput";
    // The record of an exception no check expected.
    static constexpr const char* kUnexpected = "予期せぬ例外が発生しました。";

    static void InitDebugDump();
    static void OutputLog(const char* sourceFile, int64_t line, const char* label, const char* message);

    static thread_local bool m_bOutput;
    static thread_local std::string m_strOutputPath;
};

// Records the caller's source position with the label and message.
#define QZC_LOG(label, message) QZCLog::OutputLog(__FILE__, __LINE__, (label), (message))
