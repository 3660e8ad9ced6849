#include "wordexport/WordPdf.h"

#include <filesystem>
#include <random>

#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/System.h"

namespace scriv {

namespace {

// The Basic module that opens the document hidden, updates its indexes and
// fields, and stores it as PDF. It lives in the private profile's own
// library, where LibreOffice runs macros without asking.
constexpr const char* kMacroModule = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE script:module PUBLIC "-//OpenOffice.org//DTD OfficeDocument 1.0//EN" "module.dtd">
<script:module xmlns:script="http://openoffice.org/2000/script" script:name="Module1" script:language="StarBasic">
Sub ExportPdf(sIn As String, sOut As String)
  Dim aLoad(0) As New com.sun.star.beans.PropertyValue
  aLoad(0).Name = &quot;Hidden&quot;
  aLoad(0).Value = True
  oDoc = StarDesktop.loadComponentFromURL(ConvertToURL(sIn), &quot;_blank&quot;, 0, aLoad())
  If IsNull(oDoc) Then Exit Sub
  oIndexes = oDoc.getDocumentIndexes()
  For i = 0 To oIndexes.getCount() - 1
    oIndexes.getByIndex(i).update()
  Next
  oDoc.getTextFields().refresh()
  Dim aStore(0) As New com.sun.star.beans.PropertyValue
  aStore(0).Name = &quot;FilterName&quot;
  aStore(0).Value = &quot;writer_pdf_Export&quot;
  oDoc.storeToURL(ConvertToURL(sOut), aStore())
  oDoc.close(True)
End Sub
</script:module>
)";

[[noreturn]] void Fail(const std::string& pdf, const std::string& reason)
{
    Raise(status::kGeneralFailure, "ConvertToPdf", "The PDF '" + pdf + "' was not made: " + reason);
}

// A fresh folder below the temporary folder, removed with the object.
class ScratchFolder {
public:
    ScratchFolder()
    {
        std::random_device device;
        std::mt19937_64 random(device());
        for (int attempt = 0; attempt < 100 && m_path.empty(); ++attempt) {
            std::string candidate = TempFolder() + "scrivant-pdf-" + std::to_string(random() % 1000000000ULL) + "/";
            std::error_code error;
            if (std::filesystem::create_directory(candidate, error))
                m_path = candidate;
        }
    }
    ~ScratchFolder()
    {
        std::error_code error;
        if (!m_path.empty())
            std::filesystem::remove_all(m_path, error);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

}  // namespace

std::string FindLibreOffice()
{
    for (const char* name : { "soffice", "libreoffice" })
        if (std::string path = FindProgramOnPath(name); !path.empty())
            return path;
    return {};
}

void ConvertToPdf(const std::string& document, const std::string& pdf)
{
    std::string program = FindLibreOffice();
    if (program.empty())
        Fail(pdf, "LibreOffice (soffice) is not installed.");
    if (!FileExists(document))
        Fail(pdf, "the document '" + document + "' does not exist.");
    ScratchFolder scratch;
    if (scratch.Path().empty())
        Fail(pdf, "no temporary folder could be made.");
    // Paths inside the scratch folder need no quoting in the macro call.
    std::string profile = scratch.Path() + "profile";
    std::string input = scratch.Path() + "in.docx";
    std::string output = scratch.Path() + "out.pdf";
    if (!CopyFileOver(document, input))
        Fail(pdf, "the document '" + document + "' cannot be read.");

    std::string profileUrl = "-env:UserInstallation=file://" + profile;
    std::string log;
    int code = ShellAndWait({ program, "--headless", "--norestore", profileUrl, "--terminate_after_init" }, &log);
    std::string library = profile + "/user/basic/Standard/";
    if (code != 0 || !FolderExists(library))
        Fail(pdf, "LibreOffice could not start (" + std::to_string(code) + "): " + log);
    if (!WriteFileBytes(library + "Module1.xba", kMacroModule))
        Fail(pdf, "the profile of LibreOffice cannot be written.");

    std::string call = "macro:///Standard.Module1.ExportPdf(\"" + input + "\",\"" + output + "\")";
    Trace("ConvertToPdf: " + program + " " + call);
    code = ShellAndWait({ program, "--headless", "--norestore", profileUrl, call }, &log);
    if (!FileExists(output))
        Fail(pdf, "LibreOffice ended with " + std::to_string(code) + " and wrote no PDF. " + log);
    if (!CopyFileOver(output, pdf))
        Fail(pdf, "it cannot be written.");
}

}  // namespace scriv
