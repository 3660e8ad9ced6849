#include "generation/BrowserHelp.h"

#include <algorithm>
#include <vector>

#include "foundation/CUTF8File.h"
#include "foundation/CodePage.h"
#include "foundation/ErrorMessage.h"
#include "foundation/KeyedCollection.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "generation/SiteSearch.h"
#include "generation/Templates.h"
#include "htmldom/HtmlDocument.h"

namespace scriv {

namespace {

constexpr std::string_view kMakeSource = "CHelpPrjTree.MakeJavaHelp2";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr int kOptionsIndent = 8;

// A page as read from disk, with what it takes to write it back in the same
// encoding: the pages are rewritten in place, and a page must not change its
// encoding because one script was added to it.
struct PageFile {
    std::string text;
    std::string encoding;
    bool byteOrderMark { false };
};

std::optional<PageFile> ReadPage(const std::string& path)
{
    if (!FileExists(path))
        return std::nullopt;
    CUTF8FileReader reader;
    if (reader.LoadFile(path) != status::kOk)
        return std::nullopt;
    return PageFile { reader.Text(), reader.Encoding(), reader.HasUTF8Header() };
}

void WritePage(const std::string& path, const PageFile& page, std::string_view procedure)
{
    std::string bytes;
    if (EqualsNoCase(page.encoding, "utf-8"))
        bytes = (page.byteOrderMark ? std::string(kByteOrderMark) : std::string()) + page.text;
    else
        bytes = ConvertFromUtf8(page.text, page.encoding);
    if (!WriteFileBytes(path, bytes))
        Raise(status::kGeneralFailure, "modScrivUtils." + std::string(procedure), "Can't save file '" + path + "'.");
}

void CopyMatchingFiles(const std::string& from, const std::string& to, std::string_view pattern)
{
    for (const std::string& name : ListFiles(from, pattern))
        if (!CopyFileOver(from + name, to + name))
            Raise(status::kGeneralFailure, std::string(kMakeSource), "Can't copy file '" + from + name + "' to '" + to + name + "'.");
}

std::vector<std::string> Replacements(const BrowserHelpInput& input, const std::string& folder)
{
    std::string charset = Trim(input.charset).empty() ? std::string("utf-8") : Trim(input.charset);
    // Captions go in last, so that no other replacement reaches into them.
    return {
        "{{StyleSheetLinkHtml}}|" + StyleSheetLinkHtml(StyleSheetHref(input.cssFullPath, folder)),
        "{{charset}}|" + charset,
        "{{rootpage}}|" + input.rootPage,
        "{{ProjectTree}}|" + input.treeText,
        "{{Options}}|" + BuildOptionsList(input.optionsText, kOptionsIndent),
    };
}

// The template with its placeholders filled, written in the charset that the
// page declares (a page filled with project captions must say truly what its
// bytes are). A missing template writes nothing.
void WriteFromTemplate(const std::string& source, const std::string& target, const std::vector<std::string>& replacements)
{
    std::string text = ReplaceTagsAndCopy(source, "", replacements);
    if (text.empty())
        return;
    if (!WriteTextFile(target, text))
        Raise(status::kGeneralFailure, std::string(kMakeSource), "Error saving file " + target);
}

// The text between the first ">" and the next "<".
std::string CaptionOf(std::string_view line)
{
    std::size_t open = line.find('>');
    if (open == std::string_view::npos)
        return {};
    std::size_t close = line.find('<', open + 1);
    std::string_view caption = line.substr(open + 1, close == std::string_view::npos ? std::string_view::npos : close - open - 1);
    return TrimWhitespace(caption);
}

std::string UseLineEndsOf(std::string_view original, std::string text)
{
    if (original.find("\r\n") == std::string_view::npos)
        return text;
    return ReplaceAll(text, "\n", "\r\n");
}

}  // namespace

std::uint32_t MakeJavaHelp2(const BrowserHelpInput& input)
{
    const std::string folder = AddBackslash(input.folder);
    const std::string images = folder + "images/";
    if (!MakeFolders(images))
        Raise(status::kGeneralFailure, std::string(kMakeSource), "Can't create folder '" + images + "'.");
    const std::string common = CommonFolder();
    CopyMatchingFiles(common + "images/", images, "*");
    CopyMatchingFiles(common, folder, "*.js");
    CopyMatchingFiles(common, folder, "*.css");

    std::vector<std::string> replacements = Replacements(input, folder);
    WriteFromTemplate(LocalizedFolder() + std::string(kEntryPage), folder + std::string(kEntryPage), replacements);
    WriteFromTemplate(common + std::string(kContentsFrame), folder + std::string(kContentsFrame), replacements);
    WriteFromTemplate(common + std::string(kIndexFrame), folder + std::string(kIndexFrame), replacements);

    WriteSiteSearch(folder, input.projectFileName, input.searchCacheFile);
    return status::kOk;
}

std::uint32_t MakeJavaHelp(const BrowserHelpInput& input)
{
    return ErrorFrame("CHelpPrjTree.MakeJavaHelp", [&input]() { MakeJavaHelp2(input); });
}

std::string BuildOptionsList(std::string_view treeText, int indent)
{
    KeyedCollection<std::string> lines;
    for (const std::string& line : SplitLines(treeText)) {
        std::string trimmed = TrimWhitespace(line);
        std::string caption = CaptionOf(trimmed);
        if (!caption.empty())
            lines.Add(caption, trimmed);
    }
    std::vector<const KeyedCollection<std::string>::Entry*> sorted;
    for (const auto& entry : lines)
        sorted.push_back(&entry);
    std::stable_sort(sorted.begin(), sorted.end(), [](const auto* a, const auto* b) { return CompareNoCase(a->key, b->key) < 0; });

    std::string blanks(static_cast<std::size_t>(std::max(indent, 0)), ' ');
    std::vector<std::string> out;
    for (const auto* entry : sorted)
        out.push_back(blanks + entry->value);
    return Join(out, kCrLf);
}

std::string WBHScriptText(std::string_view entryPage)
{
    // "Inherit" is what older engines report outside design mode, "off" what
    // current ones do; an editor sets "on", and a frame has a top of its own.
    return "<script type=\"text/javascript\" id=\"wbh\">\r\n"
           "<!--\r\n"
           "try {\r\n"
           "var ext = window.external;\r\n"
           "if (top == self) if (window.document.designMode == \"Inherit\" || window.document.designMode == \"off\") "
           "top.location.href=\""
        + std::string(entryPage)
        + "?\"+String.fromCharCode(34)+location.href+String.fromCharCode(34);\r\n"
          "}\r\n"
          "catch(e) {}\r\n"
          "//-->\r\n"
          "</script>";
}

std::string WithWBHScript(std::string_view pageText)
{
    if (pageText.find("wbh") != std::string_view::npos)
        return std::string(pageText);
    return std::string(pageText) + std::string(kCrLf) + std::string(kCrLf) + WBHScriptText();
}

std::optional<std::string> WithoutWBHScript(std::string_view pageText)
{
    constexpr std::string_view kEndTag = "</html>";
    std::size_t end = FindNoCase(pageText, kEndTag);
    if (end == std::string_view::npos)
        return std::nullopt;
    std::size_t cut = end + kEndTag.size();
    if (FindNoCase(pageText, "<script", cut) == std::string_view::npos)
        return std::nullopt;
    return std::string(pageText.substr(0, cut));
}

void AddWBHScript(const std::string& pageFullPath)
{
    std::optional<PageFile> page = ReadPage(pageFullPath);
    if (!page)
        return;
    std::string text = WithWBHScript(page->text);
    if (text == page->text)
        return;
    page->text = std::move(text);
    WritePage(pageFullPath, *page, "AddWBHScript");
}

bool RemoveWBHScript(const std::string& pageFullPath)
{
    std::optional<PageFile> page = ReadPage(pageFullPath);
    if (!page)
        return false;
    std::optional<std::string> cut = WithoutWBHScript(page->text);
    if (!cut)
        return false;
    page->text = std::move(*cut);
    WritePage(pageFullPath, *page, "RemoveWBHScript");
    return true;
}

void MakeRelativeFileLinks(const std::string& pageFullPath)
{
    std::string folder = FolderOf(pageFullPath);
    std::optional<PageFile> page = ReadPage(pageFullPath);
    if (folder.empty() || !page || !ContainsNoCase(page->text, folder))
        return;
    std::string text = page->text;
    for (const std::string& prefix : { "file:///" + folder, "file://" + folder, folder })
        text = ReplaceAllNoCase(text, prefix, "");
    page->text = std::move(text);
    WritePage(pageFullPath, *page, "MakeRelativeFileLinks");
}

void LinkStyleSheet(const std::string& styleSheetFullPath, const std::string& pageFullPath)
{
    if (!FileExists(styleSheetFullPath) || !FileExists(pageFullPath))
        return;
    bool hadScript = RemoveWBHScript(pageFullPath);
    std::string href = StyleSheetHref(styleSheetFullPath, FolderOf(pageFullPath));
    if (std::optional<PageFile> page = ReadPage(pageFullPath)) {
        auto document = HtmlDocument::Parse(page->text);
        if (document->outerHTML().find(href) == std::string::npos) {
            document->createStyleSheet(href);
            page->text = UseLineEndsOf(page->text, document->outerHTML());
            WritePage(pageFullPath, *page, "LinkStyleSheet");
        }
    }
    if (hadScript)
        AddWBHScript(pageFullPath);
}

}  // namespace scriv
