#include "editor/CHTMLFindReplaceAll.h"

#include <optional>

#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/Version.h"
#include "htmldom/HtmlDocument.h"
#include "htmldom/HtmlElement.h"
#include "htmledit/CHtmlStringFormatter.h"
#include "htmledit/HtmlPageFile.h"

namespace scriv {

namespace {

constexpr std::string_view kClass = "CHTMLFindReplaceAll";

std::string Source(std::string_view procedure)
{
    return std::string(kClass) + "." + std::string(procedure);
}

bool IsLetterOrDigit(char32_t c)
{
    return (c >= U'0' && c <= U'9') || IsAlphabetic(c);
}

bool IsWordEdge(std::optional<char32_t> c)
{
    return !c || !IsLetterOrDigit(*c);
}

std::u32string Folded(const std::string& text, bool matchCase)
{
    // Case folds one character to one, so positions in the folded text are
    // positions in the text.
    return Utf8ToUtf32(matchCase ? text : ToLower(text));
}

// Runs body; a failure is reported under this class and procedure and
// answers false, the page left as it was.
bool Trapped(std::string_view procedure, const std::function<bool()>& body)
{
    bool result = false;
    std::string source = Source(procedure);
    ErrorFrame(source, [&] {
        try {
            result = body();
        } catch (const ScrivError& error) {
            throw ScrivError(error.Code(), source, error.Description());
        }
    });
    return result;
}

// Text nodes of these elements are no text a reader edits: the browser
// document held none there (scripts, styles and titles are one text to it).
bool HoldsEditableText(const HtmlElement& element)
{
    return CHtmlStringFormatter::WalksChildren(element);
}

}  // namespace

CHTMLFindReplaceAll::CHTMLFindReplaceAll(IUserInterface& ui)
    : m_ui(ui)
{
}

CHTMLFindReplaceAll::~CHTMLFindReplaceAll()
{
    Dispose();
}

bool CHTMLFindReplaceAll::IsWholeWord(std::u32string_view text, long position, long length)
{
    if (text.empty() || position < 1 || length < 1)
        return false;
    std::size_t start = static_cast<std::size_t>(position - 1);
    std::size_t end = start + static_cast<std::size_t>(length);
    if (end > text.size())
        return false;
    std::optional<char32_t> before = start == 0 ? std::nullopt : std::optional<char32_t>(text[start - 1]);
    std::optional<char32_t> after = end == text.size() ? std::nullopt : std::optional<char32_t>(text[end]);
    return IsWordEdge(before) && IsWordEdge(after);
}

bool CHTMLFindReplaceAll::SearchLoop(const std::string& text, std::string* replaced)
{
    std::u32string original = Utf8ToUtf32(text);
    std::u32string haystack = Folded(text, m_matchCase);
    std::u32string needle = Folded(m_findWhat, m_matchCase);
    std::u32string replacement = Utf8ToUtf32(m_replaceWith);
    if (needle.empty() || haystack.size() != original.size())
        return false;
    // out holds the text up to last with the replacements made; the search
    // goes on behind each replacement, so that a replacement that holds the
    // search text is never found again.
    std::u32string out;
    std::size_t last = 0;
    std::size_t position = 0;
    bool found = false;
    while (true) {
        std::size_t hit = haystack.find(needle, position);
        if (hit == std::u32string::npos)
            break;
        if (m_wholeWord) {
            // The character before the hit is the text's as it stands now, a
            // replacement just made included.
            std::optional<char32_t> before;
            if (replaced && hit == last && last > 0) {
                if (!out.empty())
                    before = out.back();
            } else if (hit > 0) {
                before = original[hit - 1];
            }
            std::size_t end = hit + needle.size();
            std::optional<char32_t> after = end < original.size() ? std::optional<char32_t>(original[end]) : std::nullopt;
            if (!IsWordEdge(before) || !IsWordEdge(after)) {
                position = hit + 1;
                continue;
            }
        }
        found = true;
        ++m_occurrences;
        if (replaced) {
            out.append(original, last, hit - last);
            out += replacement;
            last = hit + needle.size();
        }
        position = hit + needle.size();
    }
    if (replaced && found) {
        out.append(original, last, std::u32string::npos);
        *replaced = Utf32ToUtf8(out);
    }
    return found;
}

bool CHTMLFindReplaceAll::TextSearch(const std::string& page)
{
    HtmlPageText text = ReadHtmlPage(page);
    std::unique_ptr<HtmlDocument> document = ParseHtmlPage(text);
    HtmlElement* body = document->body();
    return body && SearchLoop(body->innerText(), nullptr);
}

bool CHTMLFindReplaceAll::TextSearchInSource(const std::string& page)
{
    HtmlPageText text = ReadHtmlPage(page);
    return SearchLoop(text.text + text.trailer, nullptr);
}

bool CHTMLFindReplaceAll::TextReplace(const std::string& page)
{
    HtmlPageText text = ReadHtmlPage(page);
    std::unique_ptr<HtmlDocument> document = ParseHtmlPage(text);
    bool changed = false;
    for (HtmlElement* element : document->getElementsByTagName("*")) {
        if (!element->hasChildNodes() || !HoldsEditableText(*element))
            continue;
        for (const auto& child : element->childNodes()) {
            if (!child->isText())
                continue;
            auto& node = static_cast<HtmlText&>(*child);
            std::string value;
            if (SearchLoop(node.data(), &value)) {
                node.setData(std::move(value));
                changed = true;
            }
        }
    }
    if (changed)
        SaveHtmlDocument(text, *document);
    return changed;
}

bool CHTMLFindReplaceAll::TextReplaceInSource(const std::string& page)
{
    HtmlPageText text = ReadHtmlPage(page);
    std::string replaced;
    if (!SearchLoop(text.text + text.trailer, &replaced))
        return false;
    // The whole file was searched, the script behind the page too.
    text.trailer.clear();
    WriteHtmlPage(text, replaced);
    return true;
}

std::size_t CHTMLFindReplaceAll::init(const std::vector<std::string>& files, int mode, const std::string& findWhat,
    const std::string& replaceWith, bool wholeWord, bool matchCase, bool htmlMode)
{
    m_occurrences = 0;
    m_mode = mode;
    m_findWhat = findWhat;
    m_replaceWith = replaceWith;
    m_wholeWord = wholeWord;
    m_matchCase = matchCase;
    if (m_reportShown) {
        ReportSetFocus();
        return m_hits.size();
    }
    if (files.empty())
        return 0;
    m_disposed = false;
    m_hits.clear();
    m_ui.ProgressInit(ReplaceAllNoCase("Search \"FindWhat\"", "FindWhat", findWhat), static_cast<int>(files.size()));
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::string& page = files[i];
        m_ui.ProgressUpdate(ReplaceAll("Processing HTML files [FileName]...", "FileName", page), static_cast<int>(i + 1));
        if (!FileExists(page) || FolderExists(page)) {
            Warn("File [" + page + "] does not exist!");
            continue;
        }
        bool hit = false;
        if (mode == kFind && !htmlMode)
            hit = Trapped("TextSearch", [&] { return TextSearch(page); });
        else if (mode == kFind)
            hit = Trapped("TextSearchInSource", [&] { return TextSearchInSource(page); });
        else if (!htmlMode)
            hit = Trapped("TextReplace", [&] { return TextReplace(page); });
        else
            hit = Trapped("TextReplaceInSource", [&] { return TextReplaceInSource(page); });
        if (hit)
            m_hits.push_back(page);
    }
    m_ui.ProgressDispose();
    if (m_hits.empty()) {
        std::string text = "Cannot find \"" + findWhat + "\".";
        Trace(Source("Init") + ": " + text);
        m_ui.MessageBox({ text, msgbox::kInformation, std::string(kMessageBoxTitle), Source("Init") });
    } else {
        OpenReport();
        m_reportShown = true;
    }
    return m_hits.size();
}

std::string CHTMLFindReplaceAll::StatusText() const
{
    std::string text = m_occurrences == 1 ? std::string("1 occurrence is ")
                                          : std::to_string(m_occurrences) + " occurrences are ";
    return text + (m_mode == kReplace ? "replaced" : "found");
}

void CHTMLFindReplaceAll::OpenReport()
{
    Trapped("OpenReport", [&] {
        if (ShowReport)
            ShowReport(m_hits, StatusText(), m_occurrences);
        if (SetFocusToHTMLEditor)
            SetFocusToHTMLEditor();
        return true;
    });
}

void CHTMLFindReplaceAll::CommandOpen(std::size_t row)
{
    Trapped("CommandOpen_Click", [&] {
        if (row >= m_hits.size())
            return false;
        if (Find)
            Find(m_hits[row], m_findWhat);
        LogicLoop().RunPending();
        return true;
    });
}

void CHTMLFindReplaceAll::CommandHelp()
{
    if (CallHelp)
        CallHelp();
}

void CHTMLFindReplaceAll::ReportSetFocus()
{
    if (m_reportShown && BringReportToFront)
        BringReportToFront();
}

void CHTMLFindReplaceAll::Dispose()
{
    if (m_disposed)
        return;
    m_disposed = true;
    Trapped("FormReport_Unload", [&] {
        if (m_reportShown && CloseReport)
            CloseReport();
        return true;
    });
    m_reportShown = false;
    m_hits.clear();
}

void CHTMLFindReplaceAll::Warn(const std::string& text)
{
    Trace("UserWarningMessage: " + text);
    m_ui.MessageBox({ text, msgbox::kExclamation, std::string(kMessageBoxTitle), Source("Init") });
}

}  // namespace scriv
