// The project file: the nodes of the contents tree as XML elements, followed
// by the settings of the project.

#include <map>
#include <string>
#include <vector>

#include "foundation/CTraceLog.h"
#include "foundation/CXMLFile.h"
#include "foundation/ErrorMessage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "model/CAddInProject.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/CScrivantParameters.h"
#include "model/IRunContext.h"
#include "model/ITreeView.h"

namespace scriv {

namespace {

const std::string kCrLfText(kCrLf);

// Index keyword chunks are closed once they grow past this many characters.
constexpr std::size_t kIndexesChunkLength = 80;

// First-line attributes: ` name = "value" `, so that two blanks stand between two of them.
void AppendInline(std::string& out, std::string_view name, const std::string& value)
{
    if (!value.empty())
        out += " " + std::string(name) + " = \"" + value + "\" ";
}

// Continuation attributes: each on a line of its own.
void AppendOnLine(std::string& out, const std::string& indent, std::string_view name, const std::string& value)
{
    out += kCrLfText + indent + std::string(name) + "=\"" + value + "\" ";
}

void AppendFirstBlock(std::string& out, const CHelpPrjTreeNode& node, const std::string& extraAttributes)
{
    if (FindNoCase(extraAttributes, "Name = \"") == std::string::npos)
        AppendInline(out, "name", XmlEncodeChars(node.Name()));
    if (node.ObjectType() != objtype::kNone)
        AppendInline(out, "type", std::to_string(node.ObjectType()));
    AppendInline(out, "caption", XmlEncodeChars(node.Caption()));
    AppendInline(out, "TemplateHtmlFile", node.TemplateHtmlFile());
    AppendInline(out, "GeneratedHtmlFile", node.GeneratedHTMLFile());
    AppendInline(out, "PicsSubfolderName", node.PicsSubfolderName());
    AppendInline(out, "serializer", node.Serializer());
    AppendInline(out, "Charset", node.Charset());
    // Only the file name: a style sheet lives in the project folder.
    AppendInline(out, "CSSFullpath", FileNameOf(node.CSSFullPath()));
    AppendInline(out, "SourceProjectType", node.SourceProjectType());
    AppendInline(out, "SourceProjectName", node.SourceProjectName());
}

// The keys of the neighbours come from the display, where the person may have
// moved items; they are stored on the node before they are written.
void AppendNeighbourKeys(std::string& out, CHelpPrjTreeNode& node, const std::string& indent)
{
    ITreeView* view = node.TreeView();
    if (!view || node.TreeViewNode().empty())
        return;
    std::string previous = view->PreviousKey(node.TreeViewNode());
    if (!previous.empty()) {
        node.SetPreviousNodeKey(previous);
        AppendOnLine(out, indent, "pnodekey", XmlEncodeChars(node.PreviousNodeKey()));
    }
    std::string next = view->NextKey(node.TreeViewNode());
    if (!next.empty()) {
        node.SetNextNodeKey(next);
        AppendOnLine(out, indent, "nnodekey", XmlEncodeChars(node.NextNodeKey()));
    }
}

void AppendSecondBlock(std::string& out, CHelpPrjTreeNode& node, int level)
{
    std::string indent(static_cast<std::size_t>(2 * level + 8), ' ');
    AppendOnLine(out, indent, "key", XmlEncodeChars(node.Key()));
    if (CHelpPrjTreeNode* parent = node.ParentNode())
        AppendOnLine(out, indent, "pkey", XmlEncodeChars(parent->Key()));
    AppendNeighbourKeys(out, node, indent);
    if (!node.Icon().empty())
        AppendOnLine(out, indent, "icon", node.Icon());
    if (!node.HtmlTitle().empty())
        AppendOnLine(out, indent, "title", XmlEncodeChars(node.HtmlTitle()));
    if (node.ProcessCode() != processcode::kPlainTopic)
        AppendOnLine(out, indent, "ProcessCode", std::to_string(node.ProcessCode()));
    if (!node.ExtraValue().empty())
        AppendOnLine(out, indent, "extraValue", XmlEncodeChars(node.ExtraValue()));
    // "stype" belongs to imported contents only; a tree node has no value for it.
    if (node.Skipped())
        out += kCrLfText + indent + "skipped=\"-1\" ";
    if (!node.OriginalKey().empty())
        AppendOnLine(out, indent, "OriginalKey", XmlEncodeChars(node.OriginalKey()));
    if (!node.ParentOriginalKey().empty())
        AppendOnLine(out, indent, "POriginalKey", XmlEncodeChars(node.ParentOriginalKey()));
}

bool EndsWithCrLf(const std::string& text)
{
    return text.size() >= 2 && text.compare(text.size() - 2, 2, kCrLfText) == 0;
}

// No empty lines remain in the file.
std::string CollapseDoubleLineEnds(std::string text)
{
    const std::string doubled = kCrLfText + kCrLfText;
    while (text.find(doubled) != std::string::npos)
        text = ReplaceAll(text, doubled, kCrLfText);
    return text;
}

// The root's name and title and the project's parameters agree before a save:
// a value on the root wins, an empty one is filled from the parameters.
void SyncRootNameAndTitle(CHelpPrjTreeNode& root, CAddInSettingsXmlFile* settings)
{
    CScrivantParameters& parameters = Parameters();
    std::string name = root.Name();
    if (!name.empty()) {
        if (settings)
            settings->SetOptionText("HelpProjectName", name);
        parameters.SetHelpProjectName(name);
    } else {
        root.SetName(parameters.HelpProjectName());
    }
    std::string title = root.HtmlTitle();
    if (!title.empty()) {
        if (settings)
            settings->SetOptionText("HelpProjectTitle", title);
        parameters.SetHelpProjectTitle(title);
        if (CAddInProject* project = CurrentAddInProject())
            project->SetTitle(title);
    } else {
        root.SetHtmlTitle(parameters.HelpProjectTitle());
    }
}

CAddInSettingsXmlFile* CurrentSettings()
{
    IRunContext* context = CurrentRunContext();
    return context ? &context->GetSettings() : nullptr;
}

std::string SettingsText(const CAddInSettingsXmlFile* settings)
{
    // Folders of this machine are not kept in a project that may move.
    const std::vector<std::string> exclusions { "LastUsedFolderForGeneratedHelp", "LastUsedFolderForCapturedImages",
        "DefaultHtmlFullPath" };
    const std::map<std::string, std::string> replacements { { "FolderForGeneratedHelp", "{Project Location}CHM" } };
    if (settings)
        return settings->XMLSTr(exclusions, replacements);
    // Without a server there are no options: the block stands empty.
    CScrivantParameters noParameters;
    return CAddInSettingsXmlFile(noParameters).XMLSTr(exclusions, replacements);
}

}  // namespace

// --- nodes ---

std::string CHelpPrjTreeNode::IndexesXmlStr() const
{
    std::string out;
    std::string chunk;
    int number = 0;
    auto close = [&] {
        out += " Indexes" + (number > 0 ? std::to_string(number) : std::string()) + " = \"" + chunk + "\" ";
        chunk.clear();
        ++number;
    };
    for (const std::string& keyword : IndexesCollection()) {
        if (CharCount(chunk) > kIndexesChunkLength)
            close();
        if (!chunk.empty())
            chunk += "|";
        chunk += XmlEncodeChars(keyword);
    }
    if (!chunk.empty())
        close();
    return out;
}

std::string CHelpPrjTreeNode::XMLSTr(int level, bool excludeSerializerNodes, bool recursive, bool withHeader,
    const std::string& extraAttributes)
{
    // Controls and menus are rebuilt from the XML forms at load.
    if (m_terminated || IsControl || IsMenu)
        return {};
    if (excludeSerializerNodes && HasSerializer())
        return {};

    std::string text;
    try {
        if (withHeader)
            text = std::string(kXmlHeaderUtf8) + kCrLfText;
        std::string indent(static_cast<std::size_t>(2 * level), ' ');
        text += indent + "<" + m_tag + " level = \"" + std::to_string(level) + "\" " + extraAttributes;
        AppendFirstBlock(text, *this, extraAttributes);
        AppendSecondBlock(text, *this, level);
        text += IndexesXmlStr();

        std::string children;
        if (recursive) {
            for (const auto& child : m_children) {
                std::string childText = child->XMLSTr(level + 1, excludeSerializerNodes, recursive, false, {});
                if (childText.empty())
                    continue;
                children += childText;
                if (!EndsWithCrLf(children))
                    children += kCrLfText;
            }
        }
        if (children.empty()) {
            text += " />";
            return text;
        }
        text += " >";
        if (!EndsWithCrLf(text))
            text += kCrLfText;
        text += children + indent + "</" + m_tag + ">" + kCrLfText;
        return text;
    } catch (const ScrivError& error) {
        ReportError(error, "CHelpPrjTreeNode.XMLSTr");
    } catch (const std::exception& error) {
        ReportError(ScrivError(status::kGeneralFailure, "CHelpPrjTreeNode.XMLSTr", error.what()));
    }
    Trace("strXmlStr = " + text);
    return {};
}

// --- the tree ---

std::string CHelpPrjTree::GetXMLStr(bool excludeSerializerNodes, const std::string& extraRootAttributes) const
{
    if (!m_root)
        return {};
    return m_root->XMLSTr(1, excludeSerializerNodes, true, false, extraRootAttributes);
}

std::uint32_t CHelpPrjTree::SaveXml(const std::string& path, bool excludeSerializerNodes,
    const std::string& extraRootAttributes)
{
    CAddInSettingsXmlFile* settings = CurrentSettings();
    if (m_root)
        SyncRootNameAndTitle(*m_root, settings);

    std::string text = std::string(kXmlHeaderUtf8) + kCrLfText + "<ScrivProject>" + kCrLfText
        + GetXMLStr(excludeSerializerNodes, extraRootAttributes) + kCrLfText + SettingsText(settings) + kCrLfText
        + "</ScrivProject>" + kCrLfText;
    text = CollapseDoubleLineEnds(std::move(text));

    bool readOnly = FileExists(path) && IsReadOnly(path);
    CXMLFile writer;
    if (writer.SaveXml(path, text) == status::kOk)
        return status::kOk;

    Trace(text);
    if (readOnly)
        Trace("The file is read-only: " + path);
    const CXmlParseError& parseError = writer.XmlParseError();
    if (parseError.ErrorCode() != 0)
        Raise(status::kGeneralFailure, "SaveXML.CHelpPrjTree", FormatCode(parseError.ErrorCode()) + " - " + parseError.Reason());
    Raise(status::kSecondFailure, "SaveXML.CHelpPrjTree", "Error saving XML file " + path);
}

}  // namespace scriv
