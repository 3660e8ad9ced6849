#include "foundation/ErrorMessage.h"

#include <atomic>
#include <chrono>

#include "foundation/CTraceLog.h"
#include "foundation/DateTime.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "foundation/Version.h"

namespace scriv {

namespace {

int RunProgram(const std::vector<std::string>& argv)
{
    return ShellAndWait(argv);
}

struct ReportSettings {
    std::string supportContact;
    bool defaultNo { false };
    ProcessLauncher launcher { RunProgram };
};

ReportSettings& Settings()
{
    static ReportSettings settings;
    return settings;
}

std::atomic<int> g_errorCounter { 0 };

std::string TitleAndVersion()
{
    return std::string(kProgramTitle) + " v." + kProgramVersion;
}

// "Class.Procedure", or whichever of the two is given.
std::string SourceText(std::string_view source, std::string_view procedure)
{
    if (source.empty() || procedure.empty())
        return std::string(source) + std::string(procedure);
    return std::string(source) + "." + std::string(procedure);
}

// What the box shows: the description, then the code and where it arose.
std::string BoxText(std::uint32_t number, std::string_view description, std::string_view source,
    std::string_view procedure)
{
    std::string place = SourceText(source, procedure);
    std::string line = FormatCode(number) + (place.empty() ? std::string() : " in " + place);
    if (description.empty())
        return line;
    return std::string(description) + std::string(kCrLf) + std::string(kCrLf) + line;
}

std::string MailBody(const std::string& report)
{
    std::string crlf(kCrLf);
    return report + crlf + crlf + "DESCRIBE WHAT YOU TRY TO DO: " + crlf + crlf + crlf + "DESCRIBE WHAT HAPPENS: " + crlf;
}

std::string ReportFileName()
{
    return "~" + FormatLocalTime(std::chrono::system_clock::now(), "%Y%m%d%H%M%S") + ".txt";
}

// Writes the report where the person can find it even when no mail program
// takes it, then hands it to the mail program; failing that, to a viewer.
void SendReport(const std::string& subject, const std::string& body)
{
    const ReportSettings& settings = Settings();
    std::string crlf(kCrLf);
    std::string file = TempFolder() + ReportFileName();
    WriteFileBytes(file, "Please send the following error to " + settings.supportContact + crlf + "---" + crlf + body);
    if (settings.launcher({ "xdg-email", MailToUrl(settings.supportContact, subject, body) }) == 0)
        return;
    Trace("rErrorMessage: no mail program took the report; it is in " + file);
    settings.launcher({ "xdg-open", file });
}

void ReportQuietly(std::uint32_t code, std::string_view source, std::string_view description)
{
    try {
        TraceLog().addMessage(FormatCode(code) + " in " + std::string(source) + ": " + std::string(description), true);
        if (code == status::kAbandoned)
            return;
        std::size_t dot = source.rfind('.');
        std::string_view className = dot == std::string_view::npos ? source : source.substr(0, dot);
        std::string_view procedure = dot == std::string_view::npos ? std::string_view() : source.substr(dot + 1);
        rErrorMessage(code, 0, description, className, procedure, true);
    } catch (...) {
        // The report itself failed (a broken console, say); the code still goes back.
    }
}

}  // namespace

void UserWarningMessage(std::string_view text)
{
    Trace("UserWarningMessage: " + std::string(text));
    MsgBox(text, msgbox::kExclamation, TitleAndVersion(), "", 0, "mErrorMessage.UserWarningMessage");
}

std::string ErrorReportText(std::uint32_t number, long line, std::string_view description, std::string_view source,
    std::string_view procedure)
{
    return FormatCode(number) + ": " + SourceText(source, procedure) + " line " + std::to_string(line) + " "
        + std::string(description);
}

int rErrorMessage(std::uint32_t number, long line, std::string_view description, std::string_view source,
    std::string_view procedure, bool showMail)
{
    ++g_errorCounter;
    std::string text = BoxText(number, description, source, procedure);
    std::string boxTitle = "Error: " + TitleAndVersion();
    std::string boxSource = "mErrorMessage.rErrorMessage";
    const ReportSettings& settings = Settings();
    if (!showMail || settings.supportContact.empty())
        return MsgBox(text, msgbox::kCritical, boxTitle, "", 0, boxSource);

    std::string report = ErrorReportText(number, line, description, source, procedure);
    std::string subject = "Runtime error in " + TitleAndVersion() + " (" + std::string(source) + ")";
    std::string body = MailBody(report);
    Trace(body);
    int flags = msgbox::kYesNo | msgbox::kCritical | (settings.defaultNo ? msgbox::kDefaultButton2 : 0);
    int answer = MsgBox(text + std::string(kCrLf) + std::string(kCrLf) + "Do you want to report the problem?", flags, boxTitle,
        "", 0, boxSource);
    if (answer == vbYes)
        SendReport(RemoveAll(subject, "&"), RemoveAll(body, "&"));
    return answer;
}

int ErrorCounter()
{
    return g_errorCounter.load();
}

void SetErrorCounter(int count)
{
    g_errorCounter.store(count);
}

void SetSupportContact(std::string contact)
{
    Settings().supportContact = Trim(contact);
}

const std::string& SupportContact()
{
    return Settings().supportContact;
}

void SetReportDefaultNo(bool defaultNo)
{
    Settings().defaultNo = defaultNo;
}

bool ReportDefaultNo()
{
    return Settings().defaultNo;
}

ProcessLauncher SetProcessLauncher(ProcessLauncher launcher)
{
    ProcessLauncher previous = std::move(Settings().launcher);
    Settings().launcher = launcher ? std::move(launcher) : ProcessLauncher(RunProgram);
    return previous;
}

std::string MailToUrl(std::string_view address, std::string_view subject, std::string_view body)
{
    auto encode = [](std::string_view text) {
        static constexpr char kHex[] = "0123456789ABCDEF";
        std::string encoded;
        for (unsigned char c : text) {
            bool unreserved = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-'
                || c == '.' || c == '_' || c == '~';
            if (unreserved) {
                encoded += static_cast<char>(c);
            } else {
                encoded += '%';
                encoded += kHex[c >> 4];
                encoded += kHex[c & 15];
            }
        }
        return encoded;
    };
    return "mailto:" + std::string(address) + "?subject=" + encode(subject) + "&body=" + encode(body);
}

std::uint32_t ErrorFrame(std::string_view source, const std::function<void()>& body)
{
    try {
        body();
        return status::kOk;
    } catch (const ScrivError& error) {
        return ReportError(error, source);
    } catch (const std::exception& error) {
        ReportQuietly(status::kGeneralFailure, source, error.what());
    } catch (...) {
        ReportQuietly(status::kGeneralFailure, source, "Unknown failure");
    }
    return status::kGeneralFailure;
}

std::uint32_t ReportError(const ScrivError& error, std::string_view frameSource)
{
    ReportQuietly(error.Code(), error.Source().empty() ? frameSource : std::string_view(error.Source()), error.Description());
    return error.Code();
}

}  // namespace scriv
