#include "generation/clsHTMLFile.h"

#include "foundation/CUTF8File.h"
#include "foundation/CXmlMessages.h"
#include "foundation/FileBackups.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "generation/Templates.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"

namespace scriv {

namespace {

// The text between the first open tag and the close tag after it, or "".
std::string Between(const std::string& text, std::string_view open, std::string_view close)
{
    std::size_t start = FindNoCase(text, open);
    if (start == std::string::npos)
        return {};
    start += open.size();
    std::size_t end = FindNoCase(text, close, start);
    if (end == std::string::npos)
        return {};
    return text.substr(start, end - start);
}

// Replaces the stretch between the first open tag and the close tag after it.
void ReplaceBetween(std::string& text, std::string_view open, std::string_view close, const std::string& value)
{
    std::size_t start = FindNoCase(text, open);
    if (start == std::string::npos)
        return;
    start += open.size();
    std::size_t end = FindNoCase(text, close, start);
    if (end == std::string::npos)
        return;
    text.replace(start, end - start, value);
}

std::string Message(const std::string& code)
{
    CXmlMessages* messages = CurrentMessages();
    return messages ? messages->GetMessage(code) : std::string();
}

}  // namespace

std::uint32_t clsHTMLFile::Load(std::string_view path)
{
    if (path.empty())
        return status::kGeneralFailure;
    if (!FileExists(path))
        return status::kSecondFailure;
    m_fullPath = std::string(path);
    CUTF8FileReader reader;
    if (reader.LoadFile(path) != status::kOk)
        return status::kSecondFailure;
    HTML = Parameters().ReplaceTags(reader.Text());
    Title = Between(HTML, "<title>", "</title>");
    Caption = Between(HTML, "<h1>", "</h1>");
    return status::kOk;
}

std::string clsHTMLFile::Render() const
{
    const CScrivantParameters& parameters = Parameters();
    std::string text = HTML;
    if (FindNoCase(text, "<title>") != std::string::npos)
        ReplaceBetween(text, "<title>", "</title>", parameters.ReplaceTags(Title));
    if (FindNoCase(text, "<h1>") != std::string::npos)
        ReplaceBetween(text, "<h1>", "</h1>", parameters.ReplaceTags(Caption));
    text = ReplaceAllNoCase(text, "{{charset}}", Charset);
    std::string link = StyleSheetLinkHtml(StyleSheetHref(CSSFullPath, FolderOf(m_fullPath)));
    if (!ZoomFactor.empty()) {
        link = "<style type=\"text/css\" media=\"screen\">body {zoom: " + ZoomFactor + "}</style>" + std::string(kCrLf)
            + link;
    }
    text = ReplaceAllNoCase(text, "{{StyleSheetLinkHtml}}", link);
    text = ReplaceAllNoCase(text, "{{BODY}}", Body);

    if (text.find("{{MAP}}") != std::string::npos) {
        std::size_t afterCaption = FindNoCase(text, "</h1>");
        std::size_t bodyEnd = FindNoCase(text, "</body>");
        if (afterCaption != std::string::npos && bodyEnd != std::string::npos && bodyEnd > afterCaption) {
            afterCaption += 5;
            text.replace(afterCaption, bodyEnd - afterCaption, Message("{{HelpScreenshots}}"));
        }
    }
    if (FindNoCase(text, "{{Datamodelimage}}") != std::string::npos) {
        text = ReplaceAllNoCase(text, "{{Datamodelimage}}", "");
        text = ReplaceAllNoCase(text, "{{Relationships}}", "<p>" + Message("{{DatamodelScreenshot}}") + "</p>");
    }
    text = WithHtmlLanguage(text, ProjectPageLanguage());
    std::string caption = parameters.ReplaceTags(Caption);
    return WithPageTitle(text, Trim(caption).empty() ? XmlEncodeChars(FileBaseName(m_fullPath)) : caption);
}

std::uint32_t clsHTMLFile::Save(std::string_view path)
{
    if (!path.empty())
        m_fullPath = std::string(path);
    if (m_fullPath.empty())
        return status::kGeneralFailure;

    std::string text = Render();
    bool saved = ReplaceFileSafely(m_fullPath, [&] {
        CUTF8FileWriter writer;
        writer.AddText(text);
        writer.SaveFile(m_fullPath);
    });
    if (!saved)
        return status::kGeneralFailure;
    return status::kOk;
}

}  // namespace scriv
