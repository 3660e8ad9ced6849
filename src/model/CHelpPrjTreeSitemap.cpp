// The contents file, the index file and the browser contents tree: three
// walks over the same tree that list the same topics.
#include <algorithm>

#include "foundation/CTraceLog.h"
#include "foundation/CodePage.h"
#include "foundation/FileBackups.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "generation/CScrivantParameters.h"
#include "generation/BrowserHelp.h"
#include "generation/clsHHK.h"
#include "model/CAddInProject.h"
#include "model/CHelpPrjCheckSums.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerData.h"
#include "uidesc/CFormHTMLControlDef.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

namespace {

const std::string kEol { kCrLf };

std::string Indent(int level)
{
    return std::string(static_cast<std::size_t>(std::max(level, 0)) * 8, ' ');
}

std::string EntryText(const CHelpPrjTreeNode& node)
{
    std::string name = node.Name();
    return CaptionFilter(Parameters().IdentifyControls() == 1 && !name.empty() ? name : node.Caption());
}

std::string HhcEntry(int level, const std::string& text, const std::string& local)
{
    std::string outer = Indent(level);
    std::string inner = Indent(level + 1);
    return outer + "<LI>  <OBJECT type=\"text/sitemap\">" + kEol + inner + "<param name=\"Name\" value=\"" + text
        + "\">" + kEol + inner + "<param name=\"Local\" value=\"" + local + "\">" + kEol + outer + "</OBJECT>" + kEol;
}

std::string TreeLine(int level, const std::string& href, const std::string& text)
{
    return Indent(level) + "<li>  <a href=\"" + href + "\" target=\"right\">" + text + "</a> </li>" + kEol;
}

std::string OptionLine(const std::string& href, const std::string& text)
{
    return Indent(1) + "<option value=\"" + href + "\">" + text + "</option>" + kEol;
}

bool ChildListed(const CHelpPrjTreeNode& child, bool excludeControls)
{
    if (EqualsNoCase(child.Tag(), "Label") || child.Skipped())
        return false;
    return !excludeControls || (!child.IsControl && !child.IsMenu);
}

// Documented menus first, then controls: text and link of each.
std::vector<std::pair<std::string, std::string>> DocumentedEntries(const CXmlForm& form, const std::string& file)
{
    std::vector<std::pair<std::string, std::string>> entries;
    bool byName = Parameters().IdentifyControls() == 1;
    for (const auto* list : { &form.DocumentedMenus(), &form.DocumentedControls() })
        for (const auto& entry : *list) {
            const CFormHTMLControlDef& definition = entry.value;
            std::string text = CaptionFilter(byName ? definition.ControlName : definition.TopicCaption);
            entries.push_back({ text, file + "#" + GetComponentFileName(form.Name, definition.ControlName, "") });
        }
    return entries;
}

// Whether the documented controls of form topics are entries of their own.
bool DocumentedControlsListed()
{
    CScrivServer* server = CurrentServer();
    return server && server->Data().ControlTopicsInContents;
}

// Contents and index files are read by the help compiler in the project's charset.
std::string InProjectCharset(const std::string& text)
{
    std::string charset = Parameters().Charset;
    if (charset.empty() || EqualsNoCase(charset, "utf-8") || !IsKnownEncoding(charset))
        return text;
    return ConvertFromUtf8(text, charset);
}

std::uint32_t WriteSitemap(const std::string& path, const std::string& text, const char* source)
{
    if (path.empty())
        return status::kGeneralFailure;
    if (FileExists(path) && IsReadOnly(path)) {
        Trace(std::string(source) + ": '" + path + "' is read-only");
        return status::kGeneralFailure;
    }
    RotateBackups(path);
    if (!WriteFileBytes(path, InProjectCharset(text))) {
        Trace(std::string(source) + ": cannot write '" + path + "'");
        return status::kGeneralFailure;
    }
    return 0;
}

}  // namespace

// --- nodes ---

bool CHelpPrjTreeNode::IsObjectTopic() const
{
    if (ProcessCode() != processcode::kSourceObject)
        return false;
    int type = ObjectType();
    return (type >= objtype::kTable && type <= objtype::kMacro) || type == objtype::kWorksheet
        || type == objtype::kChart;
}

std::string CHelpPrjTreeNode::LocalLink() const
{
    std::string file = GeneratedHTMLFile();
    if (!IsControl && !IsMenu)
        return file;
    std::string bookmark = Bookmark();
    if (bookmark.empty())
        bookmark = GetComponentFileName(FileBaseName(XmlFormFileName()), Name(), "");
    return file + "#" + bookmark;
}

std::unique_ptr<CXmlForm> CHelpPrjTreeNode::LoadXmlForm() const
{
    std::string path = XmlFormFullPath();
    if (path.empty() || !FileExists(path))
        return nullptr;
    auto form = std::make_unique<CXmlForm>();
    if (!form->Load(path)) {
        Trace("CHelpPrjTreeNode.LoadXmlForm: " + form->XmlParseError().Reason());
        return nullptr;
    }
    return form;
}

std::string CHelpPrjTreeNode::HHCStr(int level, bool skipSerializerNodes, bool excludeControls)
{
    if (skipSerializerNodes && HasSerializer())
        return {};
    std::string out = HhcEntry(level, EntryText(*this), LocalLink());
    std::string children;
    if (IsObjectTopic() && m_tree) {
        CHelpPrjFileCheckSum* checkSum = m_tree->GetCheckSumObject(GeneratedHTMLFileFullPath(), false);
        if (!checkSum || checkSum->CheckSumChanged()) {
            if (m_tree->MakeXmlFormControlDefs(*this) && !m_children.empty())
                DropChildrenControls();
        }
    }
    for (const auto& child : m_children)
        if (ChildListed(*child, excludeControls))
            children += child->HHCStr(level + 1, skipSerializerNodes, excludeControls);
    if (IsObjectTopic() && DocumentedControlsListed() && m_children.empty()) {
        if (std::unique_ptr<CXmlForm> form = LoadXmlForm())
            for (const auto& [text, local] : DocumentedEntries(*form, GeneratedHTMLFile()))
                children += HhcEntry(level + 1, text, local);
    }
    if (!children.empty())
        out += Indent(level) + "<UL>" + kEol + children + Indent(level) + "</UL>" + kEol;
    return out;
}

std::string CHelpPrjTreeNode::TreeStr(int level, std::string& options, bool skipSerializerNodes, bool excludeControls)
{
    if (skipSerializerNodes && HasSerializer())
        return {};
    std::string out;
    if (level > 1) {
        std::string text = EntryText(*this);
        std::string href = LocalLink();
        out = TreeLine(level, href, text);
        options += OptionLine(href, text);
        for (const std::string& keyword : IndexesCollection())
            if (!Trim(keyword).empty())
                options += OptionLine(href, CaptionFilter(Trim(keyword)));
    }
    std::string children;
    for (const auto& child : m_children)
        if (ChildListed(*child, excludeControls))
            children += child->TreeStr(level + 1, options, skipSerializerNodes, excludeControls);
    if (IsObjectTopic() && DocumentedControlsListed() && m_children.empty()) {
        if (std::unique_ptr<CXmlForm> form = LoadXmlForm())
            for (const auto& [text, local] : DocumentedEntries(*form, GeneratedHTMLFile())) {
                children += TreeLine(level + 1, local, text);
                options += OptionLine(local, text);
            }
    }
    if (!children.empty())
        out += Indent(level) + "<UL>" + kEol + children + Indent(level) + "</UL>" + kEol;
    return out;
}

void CHelpPrjTreeNode::AddIndexLinks(clsHHK& hhk)
{
    if (Skipped())
        return;
    CAddInProject* project = CurrentAddInProject();
    if (IsObjectTopic() && project && FolderExists(project->XmlFormsFolder())) {
        if (std::unique_ptr<CXmlForm> form = LoadXmlForm())
            hhk.AddXmlFormLinks(*form, GeneratedHTMLFile());
    }
    for (const std::string& keyword : IndexesCollection())
        hhk.AddCustomLink(Caption(), keyword, GeneratedHTMLFile(), "");
    for (const auto& child : m_children)
        child->AddIndexLinks(hhk);
}

// --- the tree ---

std::string CHelpPrjTree::GetHHCStr(bool excludeControls)
{
    std::string out = "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">" + kEol + "<HTML>" + kEol + "<HEAD>" + kEol
        + "<meta name=\"GENERATOR\" content=\"Microsoft&reg; HTML Help Workshop 4.1\">" + kEol
        + "<!-- Sitemap 1.0 -->" + kEol + "<!-- Put Java help object tag here -->" + kEol + "</HEAD>" + kEol
        + "<BODY>" + kEol + "<UL>" + kEol;
    if (m_root)
        out += m_root->HHCStr(1, true, excludeControls);
    return out + "</UL>" + kEol + "</BODY>" + kEol + "</HTML>" + kEol;
}

std::uint32_t CHelpPrjTree::SaveHHC(const std::string& path, bool excludeControls)
{
    std::uint32_t result = WriteSitemap(path, GetHHCStr(excludeControls), "CHelpPrjTree.SaveHHC");
    m_newHtmlHelpProject = false;
    return result;
}

std::uint32_t CHelpPrjTree::MakeAndSaveHHK(const std::string& path, clsHHK& hhk)
{
    hhk = clsHHK();
    if (m_root)
        m_root->AddIndexLinks(hhk);
    return WriteSitemap(path, hhk.HHKContents(), "CHelpPrjTree.MakeAndSaveHHK");
}

std::string CHelpPrjTree::GetTreeStr(std::string& options, bool excludeControls)
{
    options.clear();
    return m_root ? m_root->TreeStr(1, options, true, excludeControls) : std::string();
}

std::uint32_t CHelpPrjTree::MakeJavaHelp()
{
    CAddInProject* project = CurrentAddInProject();
    if (!project || !m_root)
        return status::kAbandoned;
    BrowserHelpInput input;
    input.folder = AddBackslash(project->Folder);
    input.projectFileName = project->FileName;
    input.treeText = GetTreeStr(input.optionsText, false);
    input.rootPage = m_root->GeneratedHTMLFile();
    std::string css = Parameters().CSSFullPath();
    input.cssFullPath = css.empty() ? std::string() : input.folder + FileNameOf(css);
    input.charset = Parameters().Charset;
    return scriv::MakeJavaHelp(input);
}

bool CHelpPrjTree::MakeXmlFormControlDefs(CHelpPrjTreeNode& node)
{
    std::string xmlPath = node.XmlFormFullPath();
    std::string page = node.GeneratedHTMLFileFullPath();
    if (xmlPath.empty() || !FileExists(xmlPath) || page.empty() || !FileExists(page))
        return false;
    CXmlForm form;
    if (!form.Load(xmlPath))
        return false;
    bool changed = form.MakeDefs(page, true);
    if (changed)
        form.SaveXml(FolderOf(xmlPath), xmlPath);
    return changed;
}

}  // namespace scriv
