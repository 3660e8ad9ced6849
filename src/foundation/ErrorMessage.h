#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/ScrivError.h"

// How failures reach the person: warnings, error reports (with an offer to mail
// them to support), the count of errors of a run, and the error frame that every
// public operation runs its work in.
namespace scriv {

// --- warnings and error reports ---

// Shows text with the exclamation icon under the program's title and version,
// and traces "UserWarningMessage: " + text.
void UserWarningMessage(std::string_view text);

// Reports a failure in a box titled "Error: <program> v.<version>" and counts
// it. With showMail and a support contact, the box asks whether to report the
// problem, and on Yes the report is written to a file in the temporary folder
// and handed to the mail program. Answers the button pressed.
int rErrorMessage(std::uint32_t number, long line, std::string_view description, std::string_view source,
    std::string_view procedure, bool showMail);

// "<number>: <source>.<procedure> line <line> <description>" - the report as mailed.
std::string ErrorReportText(std::uint32_t number, long line, std::string_view description, std::string_view source,
    std::string_view procedure);

// --- the error counter: every error report raises it ---
int ErrorCounter();
void SetErrorCounter(int count);

// --- the installation's choices for error reports ---

// Where reports are mailed; empty (the default) means reports are never mailed.
void SetSupportContact(std::string contact);
const std::string& SupportContact();
// Makes No the default answer of the "report the problem?" box.
void SetReportDefaultNo(bool defaultNo);
bool ReportDefaultNo();

// How the mail hand-off runs a program: argv[0] looked up on PATH, no shell;
// answers the exit code, -1 when it could not be started. By default
// ShellAndWait; tests replace it. An empty launcher restores the default; the
// previous one is returned.
using ProcessLauncher = std::function<int(const std::vector<std::string>& argv)>;
ProcessLauncher SetProcessLauncher(ProcessLauncher launcher);

// "mailto:" + address with subject and body percent-encoded.
std::string MailToUrl(std::string_view address, std::string_view subject, std::string_view body);

// --- the error frame ---

// Runs body. A failure it raises (a ScrivError, any std::exception or anything
// else) is traced as an error, reported with rErrorMessage under the error's
// source (or else the frame's "Class.Procedure"), and counted; the answer is the
// error's code (0x80040001 for anything but a ScrivError), 0 when body ends
// normally. A ScrivError with 0x8003FE09 has been shown already: it is traced
// and answered, not reported again. Nothing is thrown out of the frame.
std::uint32_t ErrorFrame(std::string_view source, const std::function<void()>& body);

// Reports a failure that the caller caught itself, as ErrorFrame would; answers
// its code. frameSource stands in when the error has no source.
std::uint32_t ReportError(const ScrivError& error, std::string_view frameSource = "");

}  // namespace scriv
