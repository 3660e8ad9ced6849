#include <algorithm>

#include "foundation/CTraceLog.h"
#include "foundation/CXMLFile.h"
#include "foundation/StringUtil.h"
#include "model/CAddInProject.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/CScrivantParameters.h"
#include "model/IHelpPrjSourceProject.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"
#include "model/ITreeView.h"
#include "model/Serializers.h"

namespace scriv {

namespace {

bool IsObjectTag(std::string_view tag)
{
    for (const char* name : { "Form", "Report", "Table", "Query", "Macro", "Worksheet", "Chart" })
        if (EqualsNoCase(tag, name))
            return true;
    return false;
}

}  // namespace

// --- serializer expansion ---

void CHelpPrjTree::ExpandSerializerNodes(IClassFactory& factory, const SourceProjectProvider& provider)
{
    if (!m_root)
        return;
    // Expansions become siblings of their serializer node, so the walk works on
    // a list taken before any is added.
    std::vector<CHelpPrjTreeNode*> serializers;
    std::function<void(CHelpPrjTreeNode&)> collect = [&](CHelpPrjTreeNode& node) {
        for (const auto& child : node.ChildNodes()) {
            if (child->HasSerializer())
                serializers.push_back(child.get());
            else
                collect(*child);
        }
    };
    if (m_root->HasSerializer())
        serializers.push_back(m_root.get());
    else
        collect(*m_root);
    for (CHelpPrjTreeNode* node : serializers)
        node->ExpandSerializerNodes(factory, *this, provider);
}

void CHelpPrjTreeNode::ExpandSerializerNodes(IClassFactory& factory, CHelpPrjTree& tree,
    const std::function<std::unique_ptr<IHelpPrjSourceProject>()>& provider)
{
    CAddInProject* project = CurrentAddInProject();
    bool several = project && project->HasSeveralSourceProjects;
    bool useGroup = Parameters().UseProjectGroupAsSource;
    Trace(std::string("HasSeveralSourceProjects = ") + (several ? "True" : "False") + ", UseProjectGroupAsSource = "
        + (useGroup ? "True" : "False"));
    std::unique_ptr<IXmlSerializer> serializer = factory.CreateObject(Serializer());
    if (!serializer)
        return;
    SetSkipped(true);
    if (!m_parent)
        return;
    std::size_t insertAt = IndexInParent().value_or(m_parent->ChildCount()) + 1;

    IHostAgent* agent = CurrentHostAgent();
    if (several && useGroup && agent) {
        project->RefreshSourceProjectsList();
        std::string list = project->SourceProjectsList();
        Trace("SourceProjectsList = " + list);
        std::string remembered = agent->CurrentSourceProjectName();
        for (const std::string& name : Split(list, "|")) {
            if (Trim(name).empty())
                continue;
            agent->SetCurrentSourceProject(name);
            serializer->Reset();
            if (std::unique_ptr<IHelpPrjSourceProject> source = provider())
                ExpandSerializerNodes4CurrentProject(*serializer, tree, *source, insertAt);
        }
        agent->SetCurrentSourceProject(remembered);
    } else if (std::unique_ptr<IHelpPrjSourceProject> source = provider()) {
        ExpandSerializerNodes4CurrentProject(*serializer, tree, *source, insertAt);
    }
}

void CHelpPrjTreeNode::ExpandSerializerNodes4CurrentProject(IXmlSerializer& serializer, CHelpPrjTree& tree,
    IHelpPrjSourceProject& source, std::size_t& insertAt)
{
    IHostAgent* agent = CurrentHostAgent();
    std::string projectName = agent ? agent->CurrentSourceProjectName() : source.Name();
    for (const std::string& text : serializer.XmlCollection(tree, source)) {
        CXMLFile xml;
        if (xml.LoadXml(text) != 0) {
            Trace("ProjectName = " + projectName + ", ExpandSerializerNodes4CurrentProject(1) = " + text
                + " does not parse: " + xml.XmlParseError().Reason());
            continue;
        }
        Trace("ProjectName = " + projectName + ", ExpandSerializerNodes4CurrentProject(1) = " + text);
        auto node = std::make_unique<CHelpPrjTreeNode>();
        if (!node->Build(1, &tree, xml.SharedDocument(), xml.DocumentElement()))
            continue;
        if (agent)
            agent->ProgressMeterInit("Expanding node [" + node->Caption() + "]...", 2);
        node->SetLevel(m_level);
        node->NewUIObject = true;
        node->SetKey(tree.GetNewKeyIfGivenExists(node->Key(), projectName));
        // The expansions stand behind the serializer node, in the order they come.
        CHelpPrjTreeNode* added = m_parent->InsertChild(insertAt++, std::move(node));
        tree.AddToMap(added);
        Trace(added->XMLSTr(m_level, false, true, false, "") + ", ExpandSerializerNodes4CurrentProject(2) = ");
    }
}

// --- group flags ---

void CHelpPrjTree::SetGroupFlagsFromTree()
{
    CScrivantParameters& parameters = Parameters();
    Traverse(
        [&](CHelpPrjTreeNode& node) {
            std::string name = ToLower(node.TemplateHtmlFileNameExtOnly());
            bool generate = !node.Skipped();
            if (name == "dialogs.htm" || name == "forms.htm")
                parameters.GenerateHelpForForms = generate;
            else if (name == "reports.htm")
                parameters.GenerateHelpForReports = generate;
            else if (name == "macros.htm")
                parameters.GenerateHelpForMacros = generate;
            else if (name == "tables.htm")
                parameters.GenerateHelpForTables = generate;
            else if (name == "queries.htm")
                parameters.GenerateHelpForQueries = generate;
        },
        false);
}

bool CHelpPrjTree::IsGroupTemplate(const CHelpPrjTreeNode& node)
{
    std::string name = ToLower(node.TemplateHtmlFileNameExtOnly());
    for (const char* group :
        { "dialogs.htm", "forms.htm", "reports.htm", "macros.htm", "tables.htm", "queries.htm", "worksheets.htm", "charts.htm" })
        if (name == group)
            return true;
    return false;
}

std::vector<CHelpPrjTreeNode*> CHelpPrjTree::ObjectNodes() const
{
    std::vector<CHelpPrjTreeNode*> nodes;
    if (m_root)
        m_root->Traverse(
            [&](CHelpPrjTreeNode& node) {
                if (IsObjectTag(node.Tag()))
                    nodes.push_back(&node);
            },
            false);
    return nodes;
}

void CHelpPrjTreeNode::SetFormsReportsProcessCode(int code)
{
    for (const auto& child : m_children) {
        if (child->HasSerializer())
            continue;
        std::string caption = child->Caption();
        if (EqualsNoCase(caption, "Reports") || EqualsNoCase(caption, "Forms") || EqualsNoCase(caption, "Dialogs")) {
            child->SetFormsReportsProcessCode(code);
            if (code != -1)
                child->SetProcessCode(code);
        }
    }
}

void CHelpPrjTreeNode::SwitchNameCaption(bool useName)
{
    for (const auto& child : m_children) {
        if (!child->Name().empty() && child->m_treeView && !child->m_treeViewNode.empty()) {
            std::string text = useName ? child->Name() : child->Caption();
            if (!child->Caption().empty())
                child->m_treeView->SetText(child->m_treeViewNode, text);
        }
        child->SwitchNameCaption(useName);
    }
}

}  // namespace scriv
