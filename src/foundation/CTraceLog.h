#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace scriv {

// The trace log: XML files in the log folder that a developer reads after a
// failure. Tracing is on while "trace.txt" exists there; its content is not read.
//
// trace.xml holds every message, tracedErrors.xml the errors; both are well
// formed after every message. trace.xml.txt mirrors trace.xml as plain lines.
// No file stays open between messages, so a crash loses nothing and other
// readers can follow the log while it grows.
class CTraceLog {
public:
    // The size of the text part (file length less the closing tag) above which
    // a log is moved to its back file and started anew.
    static constexpr std::uintmax_t kRotationSize = 0x40000;

    // Logs into folder; an empty folder means the log folder of this process.
    explicit CTraceLog(std::string folder = {});

    // With a final separator.
    const std::string& Folder() const { return m_folder; }

    // True while trace.txt exists in the log folder.
    bool IsOn() const;

    // Appends one message (and, for an error, to tracedErrors.xml too). A no-op
    // while the trace is off. Never throws: a failing trace must not become a
    // failure of the work it traces. Answers 0, or 0x80040001 when a file could
    // not be written.
    std::uint32_t addMessage(std::string_view text, bool isError = false);

    // Test runs compare whole logs, so they hold back rotation.
    void SetRotationHeld(bool held) { m_rotationHeld = held; }
    bool RotationHeld() const { return m_rotationHeld; }

    // Verbose tracing adds detail lines (message box answers, capture steps).
    void SetVerbose(bool verbose) { m_verbose = verbose; }
    bool Verbose() const { return m_verbose; }

private:
    bool AppendTo(const std::string& fileName, const std::string& backName, const std::string& line);
    void Mirror(const std::string& line);

    std::string m_folder;
    bool m_rotationHeld { false };
    bool m_verbose { false };
};

// The trace log of this process, created on first use.
CTraceLog& TraceLog();
// Ends the trace log of this process; the next TraceLog() makes a fresh one.
void ReleaseTraceLog();
// TraceLog().addMessage(text, false).
void Trace(std::string_view text);

// The text of a trace line with & " < > escaped, in that order.
std::string TraceEscape(std::string_view text);

}  // namespace scriv
