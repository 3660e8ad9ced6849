// The contents file, the index file and the browser contents tree: three
// walks over the same tree that list the same topics.
#include "generation/ContentsFiles.h"

#include <algorithm>

#include "foundation/CTraceLog.h"
#include "foundation/CodePage.h"
#include "foundation/Digest.h"
#include "foundation/FileBackups.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "generation/BrowserHelp.h"
#include "generation/HelpLanguage.h"
#include "generation/clsHHK.h"
#include "model/CAddInProject.h"
#include "model/CHelpPrjCheckSums.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"
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
    IRunContext* context = CurrentRunContext();
    return context && context->State().ControlTopicsInContents;
}


// Whether the node's page is as it was when its definitions were last derived from it.
bool DefinitionsInStepWithPage(const CHelpPrjTreeNode& node)
{
    const std::string& digest = node.DefinitionsPageDigest();
    return !digest.empty() && digest == FileDigest(node.GeneratedHTMLFileFullPath());
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
    if (!WriteFileBytes(path, SitemapInHelpCompilerCodePage(text))) {
        Trace(std::string(source) + ": cannot write '" + path + "'");
        return status::kGeneralFailure;
    }
    return 0;
}

}  // namespace

std::string HHCStr(CHelpPrjTreeNode& node, int level, bool skipSerializerNodes, bool excludeControls)
{
    if (skipSerializerNodes && node.HasSerializer())
        return {};
    std::string out = HhcEntry(level, EntryText(node), node.LocalLink());
    std::string children;
    if (node.IsObjectTopic() && node.HelpPrjTree() && !DefinitionsInStepWithPage(node)) {
        CHelpPrjFileCheckSum* checkSum = node.HelpPrjTree()->GetCheckSumObject(node.GeneratedHTMLFileFullPath(), false);
        if (!checkSum || checkSum->CheckSumChanged()) {
            if (MakeXmlFormControlDefs(node) && node.ChildCount() > 0)
                node.DropChildrenControls();
        }
    }
    for (const auto& child : node.ChildNodes())
        if (ChildListed(*child, excludeControls))
            children += HHCStr(*child, level + 1, skipSerializerNodes, excludeControls);
    if (node.IsObjectTopic() && DocumentedControlsListed() && node.ChildCount() == 0) {
        if (std::unique_ptr<CXmlForm> form = LoadXmlForm(node))
            for (const auto& [text, local] : DocumentedEntries(*form, node.GeneratedHTMLFile()))
                children += HhcEntry(level + 1, text, local);
    }
    if (!children.empty())
        out += Indent(level) + "<UL>" + kEol + children + Indent(level) + "</UL>" + kEol;
    return out;
}

std::string TreeStr(CHelpPrjTreeNode& node, int level, std::string& options, bool skipSerializerNodes,
    bool excludeControls)
{
    if (skipSerializerNodes && node.HasSerializer())
        return {};
    std::string out;
    if (level > 1) {
        std::string text = EntryText(node);
        std::string href = node.LocalLink();
        out = TreeLine(level, href, text);
        options += OptionLine(href, text);
        for (const std::string& keyword : node.IndexesCollection())
            if (!Trim(keyword).empty())
                options += OptionLine(href, CaptionFilter(Trim(keyword)));
    }
    std::string children;
    for (const auto& child : node.ChildNodes())
        if (ChildListed(*child, excludeControls))
            children += TreeStr(*child, level + 1, options, skipSerializerNodes, excludeControls);
    if (node.IsObjectTopic() && DocumentedControlsListed() && node.ChildCount() == 0) {
        if (std::unique_ptr<CXmlForm> form = LoadXmlForm(node))
            for (const auto& [text, local] : DocumentedEntries(*form, node.GeneratedHTMLFile())) {
                children += TreeLine(level + 1, local, text);
                options += OptionLine(local, text);
            }
    }
    if (!children.empty())
        out += Indent(level) + "<UL>" + kEol + children + Indent(level) + "</UL>" + kEol;
    return out;
}

void AddIndexLinks(CHelpPrjTreeNode& node, clsHHK& hhk)
{
    if (node.Skipped())
        return;
    CAddInProject* project = CurrentAddInProject();
    if (node.IsObjectTopic() && project && FolderExists(project->XmlFormsFolder())) {
        if (std::unique_ptr<CXmlForm> form = LoadXmlForm(node))
            hhk.AddXmlFormLinks(*form, node.GeneratedHTMLFile());
    }
    for (const std::string& keyword : node.IndexesCollection())
        hhk.AddCustomLink(node.Caption(), keyword, node.GeneratedHTMLFile(), "");
    for (const auto& child : node.ChildNodes())
        AddIndexLinks(*child, hhk);
}

std::string GetHHCStr(CHelpPrjTree& tree, bool excludeControls)
{
    std::string out = "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">" + kEol + "<HTML>" + kEol + "<HEAD>" + kEol
        + "<meta name=\"GENERATOR\" content=\"Microsoft&reg; HTML Help Workshop 4.1\">" + kEol
        + "<!-- Sitemap 1.0 -->" + kEol + "<!-- Put Java help object tag here -->" + kEol + "</HEAD>" + kEol
        + "<BODY>" + kEol + "<UL>" + kEol;
    if (CHelpPrjTreeNode* root = tree.Root())
        out += HHCStr(*root, 1, true, excludeControls);
    return out + "</UL>" + kEol + "</BODY>" + kEol + "</HTML>" + kEol;
}

std::uint32_t SaveHHC(CHelpPrjTree& tree, const std::string& path, bool excludeControls)
{
    std::uint32_t result = WriteSitemap(path, GetHHCStr(tree, excludeControls), "CHelpPrjTree.SaveHHC");
    tree.SetNewHtmlHelpProject(false);
    return result;
}

std::uint32_t MakeAndSaveHHK(CHelpPrjTree& tree, const std::string& path, clsHHK& hhk)
{
    hhk = clsHHK();
    if (CHelpPrjTreeNode* root = tree.Root())
        AddIndexLinks(*root, hhk);
    return WriteSitemap(path, hhk.HHKContents(), "CHelpPrjTree.MakeAndSaveHHK");
}

std::string GetTreeStr(CHelpPrjTree& tree, std::string& options, bool excludeControls)
{
    options.clear();
    return tree.Root() ? TreeStr(*tree.Root(), 1, options, true, excludeControls) : std::string();
}

std::uint32_t MakeJavaHelp(CHelpPrjTree& tree)
{
    CAddInProject* project = CurrentAddInProject();
    if (!project || !tree.Root())
        return status::kAbandoned;
    BrowserHelpInput input;
    input.folder = AddBackslash(project->Folder);
    input.projectFileName = project->FileName;
    input.treeText = GetTreeStr(tree, input.optionsText, false);
    input.rootPage = tree.Root()->GeneratedHTMLFile();
    std::string css = Parameters().CSSFullPath();
    input.cssFullPath = css.empty() ? std::string() : input.folder + FileNameOf(css);
    input.charset = Parameters().Charset;
    // The project's own data folder keeps what the site search read of each page.
    if (FolderExists(project->XmlFormsFolder()))
        input.searchCacheFile = AddBackslash(project->XmlFormsFolder()) + "SiteSearch.cache";
    return scriv::MakeJavaHelp(input);
}

bool MakeXmlFormControlDefs(CHelpPrjTreeNode& node)
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
    node.SetDefinitionsPageDigest(FileDigest(page));
    return changed;
}

}  // namespace scriv
