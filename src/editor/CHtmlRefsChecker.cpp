#include "editor/CHtmlRefsChecker.h"

#include <filesystem>

#include "foundation/ErrorMessage.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "htmldom/HtmlDocument.h"
#include "htmldom/HtmlElement.h"
#include "htmledit/HtmlPageFile.h"
#include "htmledit/PageUrls.h"

namespace scriv {

namespace {

constexpr std::string_view kClass = "CHtmlRefsChecker";
constexpr std::string_view kBrokenHyperlink = "Broken hyperlink";
constexpr std::string_view kImageMissing = "Image missing";
constexpr std::string_view kBrokenLink = "Broken link";
constexpr std::string_view kLessSuitableLocation = "Less suitable location";
constexpr std::string_view kLessSuitableExplanation = "The file should be contained in the folder of help project.";

std::string Source(std::string_view procedure)
{
    return std::string(kClass) + "." + std::string(procedure);
}

bool StartsWithDrive(std::string_view text)
{
    return text.size() >= 2 && ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z'))
        && text[1] == ':';
}

// Runs body; a failure is reported under this class and procedure, and the
// walk goes on.
void Trapped(std::string_view procedure, const std::function<void()>& body)
{
    std::string source = Source(procedure);
    ErrorFrame(source, [&] {
        try {
            body();
        } catch (const ScrivError& error) {
            throw ScrivError(error.Code(), source, error.Description());
        }
    });
}

}  // namespace

CHtmlRefsChecker::CHtmlRefsChecker(IUserInterface& ui)
    : m_ui(ui)
{
}

CHtmlRefsChecker::~CHtmlRefsChecker()
{
    Dispose();
}

std::size_t CHtmlRefsChecker::init(const std::vector<std::string>& files)
{
    if (m_reportShown) {
        if (BringReportToFront)
            BringReportToFront();
        return m_brokenLinks.size();
    }
    if (files.empty())
        return 0;
    m_disposed = false;
    m_brokenLinks.clear();
    m_ui.ProgressInit("Search broken hyperlinks", static_cast<int>(files.size()));
    for (std::size_t i = 0; i < files.size(); ++i) {
        m_ui.ProgressUpdate(ReplaceAll("Processing HTML files [FileName]...", "FileName", files[i]), static_cast<int>(i + 1));
        if (FileExistsNotFolder(files[i]))
            CheckLinksInFile(files[i]);
    }
    m_ui.ProgressDispose();
    if (!m_brokenLinks.empty()) {
        OpenReport();
        m_reportShown = true;
    }
    return m_brokenLinks.size();
}

void CHtmlRefsChecker::CheckLinksInFile(const std::string& path)
{
    Trapped("CheckLinksInFile", [&] {
        // A page read from its file is complete once parsed and runs no
        // script; nor can it have gone to another address.
        std::string page = std::filesystem::absolute(path).lexically_normal().string();
        HtmlPageText text = ReadHtmlPage(page);
        std::unique_ptr<HtmlDocument> document = ParseHtmlPage(text);
        for (const HtmlElement* link : document->links())
            CheckReference(ResolveUrl(text.url, link->getAttribute("href")), page, "A", std::string(kBrokenHyperlink));
        for (const HtmlElement* image : document->images()) {
            // The address the browser gives an image is its src, resolved.
            const std::string* src = image->findAttribute("src");
            CheckReference(src ? ResolveUrl(text.url, *src) : std::string(), page, "IMG", std::string(kImageMissing));
        }
    });
}

void CHtmlRefsChecker::CheckStyleSheetLinks(const HtmlDocument& document, const std::string& page)
{
    HtmlElement* head = document.head();
    if (!head)
        return;
    for (const HtmlElement* link : head->getElementsByTagName("link"))
        CheckReference(link->getAttribute("href"), page, "LINK", std::string(kBrokenLink));
}

void CHtmlRefsChecker::CheckReference(const std::string& reference, const std::string& page, const std::string& tag,
    const std::string& problem)
{
    if (reference.empty())
        return;
    std::string target;
    if (tag != "LINK")
        target = FilePathOfUrl(reference);
    else if (IsAbsolutePath(reference) || StartsWithDrive(reference) || reference.starts_with("\\\\"))
        target = reference;
    else
        target = JoinPath(FolderOf(page), reference);
    // Web and mail addresses are no files; a bookmark of the page itself is no
    // finding either.
    if (target.empty() || EqualsNoCase(target, page))
        return;
    bool exists = FileExistsNotFolder(target);
    if (exists && StartsWithNoCase(target, m_baseFolder))
        return;
    CBrokenLink finding;
    finding.Page = page;
    finding.Url = reference;
    finding.Tag = tag;
    finding.Problem = exists ? std::string(kLessSuitableLocation) : problem;
    finding.Explanation = exists ? std::string(kLessSuitableExplanation) : problem;
    m_brokenLinks.push_back(std::move(finding));
}

std::vector<CBrokenLinkRow> CHtmlRefsChecker::ReportRows() const
{
    std::vector<CBrokenLinkRow> rows;
    for (const CBrokenLink& link : m_brokenLinks) {
        CBrokenLinkRow row;
        row.PageFileName = FileNameOf(link.Page);
        row.PageToolTip = link.Page;
        row.UrlText = link.Tag != "LINK" ? FilePathOfUrl(link.Url) : link.Url;
        row.UrlToolTip = link.Url;
        row.UrlTag = link.Tag;
        row.ProblemText = link.Problem;
        row.ProblemToolTip = link.Explanation;
        row.ProblemTag = link.Url;
        rows.push_back(std::move(row));
    }
    return rows;
}

void CHtmlRefsChecker::OpenReport()
{
    Trapped("OpenReport", [&] {
        if (ShowReport)
            ShowReport(ReportRows());
        if (SetFocusToHTMLEditor)
            SetFocusToHTMLEditor();
    });
}

void CHtmlRefsChecker::CommandOpen(std::size_t row)
{
    Trapped("CommandOpen_Click", [&] {
        if (row >= m_brokenLinks.size())
            return;
        const CBrokenLink& link = m_brokenLinks[row];
        if (GoToBrokenLink)
            GoToBrokenLink(link.Page, link.Tag, link.Url);
        LogicLoop().RunPending();
    });
}

void CHtmlRefsChecker::Dispose()
{
    if (m_disposed)
        return;
    m_disposed = true;
    Trapped("FormBrokenLinks_Unload", [&] {
        if (m_reportShown && CloseReport)
            CloseReport();
    });
    m_reportShown = false;
    m_brokenLinks.clear();
}

std::string CHtmlRefsChecker::FilePathOfUrl(std::string_view url)
{
    if (!StartsWithNoCase(url, "file:///"))
        return {};
    std::string path(url.substr(8));
    for (char& c : path)
        if (c == '\\')
            c = '/';
    // "file:///C:/x" is a Windows path; every other one is rooted at "/".
    if (!StartsWithDrive(path))
        path.insert(path.begin(), '/');
    std::size_t dot = path.rfind('.');
    std::size_t hash = dot == std::string::npos ? std::string::npos : path.find('#', dot);
    if (hash != std::string::npos)
        path.resize(hash);
    static constexpr std::pair<std::string_view, std::string_view> kSteps[] = { { "%20", " " }, { "%23", "#" },
        { "%26", "&" }, { "%5E", "^" }, { "%5B", "[" }, { "%5D", "]" }, { "%7B", "{" }, { "%7D", "}" }, { "%25", "%" } };
    for (const auto& [from, to] : kSteps)
        if (path.find(from) != std::string::npos)
            path = ReplaceAll(path, from, to);
    return path;
}

bool CHtmlRefsChecker::FileExistsNotFolder(const std::string& path)
{
    namespace fs = std::filesystem;
    std::error_code error;
    fs::path found(FindPathNoCase(path));
    fs::file_status status = fs::status(found, error);
    if (error || !fs::exists(status) || fs::is_directory(status))
        return false;
    std::uintmax_t length = fs::file_size(found, error);
    return !error && length != static_cast<std::uintmax_t>(-1);
}

}  // namespace scriv
