#include "wordexport/clsMSWordExportFile.h"

#include <cctype>
#include <vector>

#include "foundation/CTraceLog.h"
#include "foundation/CUTF8File.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "htmldom/HtmlDocument.h"
#include "htmldom/HtmlElement.h"
#include "htmldom/HtmlNames.h"
#include "htmldom/HtmlSerializer.h"
#include "htmldom/HtmlTreeWalk.h"
#include "wordexport/UriText.h"

namespace scriv {

namespace {

constexpr std::string_view kCopyPrefix = "ZZZ_";

// The generator puts the lists of a form's menus and controls, and their
// sections, between comments such as "<!-- + CONTROLS LIST + -->" and
// "<!-- - CONTROLS LIST - -->".
constexpr std::string_view kListSections[] = { "MENUS LIST", "CONTROLS LIST", "MENUS", "CONTROLS" };

// +1 for a comment that opens a list section, -1 for one that closes it, else 0.
int SectionMarker(const HtmlNode& node)
{
    if (node.nodeType() != HtmlNodeType::Comment)
        return 0;
    std::string text = TrimWhitespace(static_cast<const HtmlComment&>(node).data());
    for (std::string_view section : kListSections) {
        if (EqualsNoCase(text, "+ " + std::string(section) + " +"))
            return 1;
        if (EqualsNoCase(text, "- " + std::string(section) + " -"))
            return -1;
    }
    return 0;
}

// The name of the form a page documents, from its SCRIVANT-FORM-NAME meta, or "".
std::string FormNameOf(const HtmlDocument& document)
{
    for (HtmlElement* meta : document.getElementsByTagName("meta"))
        if (EqualsNoCase(meta->getAttribute("name"), "SCRIVANT-FORM-NAME"))
            return TrimWhitespace(meta->getAttribute("content"));
    return {};
}

// The lower-case file name a link points to on this machine, or "" for a
// link elsewhere (another scheme, an anchor of the same page).
std::string LinkedFileName(std::string href)
{
    href = TrimWhitespace(href);
    if (StartsWithNoCase(href, "file:"))
        href = href.substr(5);
    else {
        std::size_t colon = href.find(':');
        std::size_t slash = href.find_first_of("/\\");
        // A scheme ("http:") comes before any separator; "C:\x" is a drive.
        if (colon != std::string::npos && colon > 1 && (slash == std::string::npos || colon < slash))
            return {};
    }
    href = href.substr(0, href.find_first_of("#?"));
    return ToLower(FileNameOf(PercentDecode(href)));
}

void MoveChildren(HtmlNode& from, HtmlNode& to)
{
    while (HtmlNode* child = from.firstChild())
        to.appendChild(from.removeChild(*child));
}

}  // namespace

bool IsHeadingElement(const HtmlElement& element)
{
    const std::string& tag = element.tagName();
    if (tag.size() < 2 || tag.size() > 3 || (tag[0] != 'h' && tag[0] != 'H'))
        return false;
    for (std::size_t i = 1; i < tag.size(); ++i)
        if (!std::isdigit(static_cast<unsigned char>(tag[i])))
            return false;
    int level = std::stoi(tag.substr(1));
    return level >= 1 && level <= 10;
}

std::string RemoveScriptBlocks(std::string_view html)
{
    std::string out;
    std::size_t at = 0;
    while (at < html.size()) {
        std::size_t open = FindNoCase(html, "<script", at);
        if (open == std::string_view::npos) {
            out.append(html.substr(at));
            break;
        }
        out.append(html.substr(at, open - at));
        std::size_t close = FindNoCase(html, "</script>", open);
        if (close == std::string_view::npos)
            break;
        at = close + std::string_view("</script>").size();
    }
    return out;
}

clsMSWordExportFile::clsMSWordExportFile(std::string fullPath, int level, std::string bookmark)
    : m_fullPath(std::move(fullPath))
    , m_level(level)
    , m_bookmark(std::move(bookmark))
{
}

clsMSWordExportFile::~clsMSWordExportFile() = default;

std::string clsMSWordExportFile::HTag() const
{
    return m_level >= 2 ? "H" + std::to_string(m_level) : "H1";
}

std::string clsMSWordExportFile::FileNameNoExt() const
{
    return FileBaseName(m_fullPath);
}

std::string clsMSWordExportFile::RefactoredFullPath() const
{
    return FolderOf(m_fullPath) + std::string(kCopyPrefix) + FileNameOf(m_fullPath);
}

bool clsMSWordExportFile::HTMLFileExists() const
{
    return FileExists(m_fullPath);
}

std::size_t clsMSWordExportFile::HtmlDocNodesCount() const
{
    if (!m_document)
        return 0;
    std::size_t count = 0;
    WalkHtmlTree(static_cast<const HtmlNode&>(*m_document), [&count](const HtmlNode&) {
        ++count;
        return true;
    });
    return count;
}

bool clsMSWordExportFile::Load()
{
    m_document.reset();
    CUTF8FileReader reader;
    if (reader.LoadFile(m_fullPath) != 0)
        return false;
    m_document = HtmlDocument::Parse(reader.Text());
    return true;
}

bool clsMSWordExportFile::IsExcludedHeading(const HtmlElement& heading, bool insideListSection,
    const std::string& formName) const
{
    if (insideListSection)
        return true;
    std::string text = heading.innerText();
    if (ContainsNoCase(text, "controls:") || ContainsNoCase(text, "menus:"))
        return true;
    std::string markup = heading.innerHTML();
    std::string mark = "_" + (m_bookmark.empty() ? FileNameNoExt() : m_bookmark);
    if (ContainsNoCase(markup, mark))
        return true;
    if (!formName.empty())
        for (HtmlElement* anchor : heading.getElementsByTagName("a"))
            if (StartsWithNoCase(anchor->getAttribute("name"), formName + "_"))
                return true;
    return false;
}

void clsMSWordExportFile::RefactorHeadings(const std::unordered_map<std::string, std::string>& exportedFiles)
{
    if (!m_document)
        return;
    HtmlElement* body = m_document->body();
    if (!body)
        return;
    std::string formName = FormNameOf(*m_document);

    struct Found {
        HtmlElement* heading;
        bool excluded;
    };
    std::vector<Found> headings;
    int sectionDepth = 0;
    // The exclusion is decided on the page as it was read, before anything moves.
    WalkHtmlTree(static_cast<HtmlNode&>(*body), [&](HtmlNode& node) {
        sectionDepth = std::max(0, sectionDepth + SectionMarker(node));
        HtmlElement* element = node.asElement();
        if (element && IsHeadingElement(*element))
            headings.push_back({ element, IsExcludedHeading(*element, sectionDepth > 0, formName) });
        return true;
    });

    // The lists of controls and menus stay in the text as bold paragraphs.
    std::vector<bool> replaced(headings.size(), false);
    for (std::size_t i = headings.size(); i-- > 0;) {
        HtmlElement& heading = *headings[i].heading;
        HtmlNode* first = heading.firstChild();
        bool startsWithTextOrLink = first && (first->isText() || (first->isElement() && first->asElement()->is("a")));
        if (!headings[i].excluded || !startsWithTextOrLink || !heading.parentNode())
            continue;
        auto paragraph = HtmlDocument::createElement("p");
        auto bold = HtmlDocument::createElement("b");
        MoveChildren(heading, *bold);
        paragraph->appendChild(std::move(bold));
        heading.parentNode()->replaceChild(std::move(paragraph), heading);
        replaced[i] = true;
    }

    // The first heading left carries the topic's depth, with the page's anchor in front.
    auto anchor = HtmlDocument::createElement("a");
    anchor->setAttribute("name", FileNameNoExt());
    HtmlElement* topHeading = nullptr;
    for (std::size_t i = 0; i < headings.size(); ++i) {
        if (replaced[i])
            continue;
        HtmlElement& heading = *headings[i].heading;
        auto renamed = HtmlDocument::createElement(AsciiLower(HTag()));
        for (const HtmlAttribute& attribute : heading.attributes())
            renamed->setAttribute(attribute.name, attribute.value);
        MoveChildren(heading, *renamed);
        HtmlNode* parent = heading.parentNode();
        topHeading = renamed.get();
        parent->replaceChild(std::move(renamed), heading);
        parent->insertBefore(std::move(anchor), topHeading);
        break;
    }
    // A page without headings still gets its anchor, at its start.
    if (!topHeading)
        body->insertBefore(std::move(anchor), body->firstChild());

    // Links to pages of the export lead to their anchors.
    for (HtmlElement* link : m_document->links()) {
        std::string file = LinkedFileName(link->getAttribute("href"));
        if (file.empty())
            continue;
        if (auto page = exportedFiles.find(file); page != exportedFiles.end())
            link->setAttribute("href", "#" + page->second);
    }
}

bool clsMSWordExportFile::SaveFile() const
{
    if (!m_document)
        return false;
    // The copy is UTF-8 whatever the page declares, so that no character is lost
    // on the way; only the export reads it.
    std::string html = RemoveScriptBlocks(SerializeHtml(*m_document));
    return WriteUtf8File(RefactoredFullPath(), html);
}

void clsMSWordExportFile::Terminate()
{
    m_document.reset();
}

}  // namespace scriv
