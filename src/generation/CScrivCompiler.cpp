#include "generation/CScrivCompiler.h"

#include "foundation/CTraceLog.h"
#include "foundation/CXMLFile.h"
#include "foundation/ErrorMessage.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/MsgBox.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "generation/CScrivant.h"
#include "generation/ContentsFiles.h"
#include "generation/HtmlHelpCompiler.h"
#include "generation/clsHHK.h"
#include "model/CAddInProject.h"
#include "model/CAddInProjects.h"
#include "model/CHelpPrjCheckSums.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "model/IHelpPrjSourceProject.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"
#include "model/Serializers.h"
#include "uidesc/CFormHTMLManipulator.h"

namespace scriv {

namespace {

const std::string kEol { kCrLf };

// The list nodes a group's new topics go under, by Tag and ProcessCode.
struct ListKind {
    const char* tags[2];
    int processCode;
    const char* typeWord;
};
constexpr ListKind kListKinds[] = {
    { { "Dialogs", "Forms" }, 1, "Form" },
    { { "Reports", nullptr }, 2, "Report" },
    { { "Tables", nullptr }, 3, "Table" },
    { { "Queries", nullptr }, 4, "Query" },
    { { "Macros", nullptr }, 5, "Macro" },
    { { "Worksheets", nullptr }, 81, "Worksheet" },
    { { "Charts", nullptr }, 82, "Chart" },
};

IRunContext& Context()
{
    IRunContext* context = CurrentRunContext();
    if (!context)
        Raise(status::kGeneralFailure, "CScrivCompiler", "Recompiling needs a connected server.");
    return *context;
}

std::unique_ptr<IXmlSerializer> ListObject(IClassFactory& factory, std::size_t group)
{
    switch (group) {
    case 0:
        return factory.CreateFormsListObject();
    case 1:
        return factory.CreateReportsListObject();
    case 2:
        return factory.CreateTablesListObject();
    case 3:
        return factory.CreateQueriesListObject();
    case 4:
        return factory.CreateMacrosListObject();
    case 5:
        return factory.CreateWorksheetsListObject();
    default:
        return factory.CreateChartsListObject();
    }
}

SourceItems& ItemsOf(IHelpPrjSourceProject& source, std::size_t group)
{
    switch (group) {
    case 0:
        return source.Forms();
    case 1:
        return source.Reports();
    case 2:
        return source.Tables();
    case 3:
        return source.Queries();
    case 4:
        return source.Macros();
    case 5:
        return source.Worksheets();
    default:
        return source.Charts();
    }
}

}  // namespace

CScrivCompiler::CScrivCompiler(CScrivant& engine)
    : m_engine(engine)
{
}

CScrivCompiler::~CScrivCompiler() = default;

// --- the compiled file ---

std::string CScrivCompiler::SourceFolderHelpFilePath()
{
    IHostAgent* agent = CurrentHostAgent();
    std::string source = agent ? agent->CurrentSourceProjectFullPath() : std::string();
    if (source.empty())
        return {};
    return AddBackslash(FolderOf(source)) + FileBaseName(Parameters().CompiledHelpFullPath()) + ".chm";
}

bool CScrivCompiler::HelpFileCanBeOverwritten()
{
    std::string target = SourceFolderHelpFilePath();
    if (target.empty() || !FileExists(target))
        return true;
    std::string temporary = FolderOf(target) + "~" + FileBaseName(Parameters().CompiledHelpFullPath()) + ".tmp";
    // Copying the file away and back tells whether it is held or read-only.
    bool writable = CopyFileOver(target, temporary) && !IsReadOnly(target) && CopyFileOver(temporary, target);
    DeleteFileIfExists(temporary);
    return writable;
}

// --- recompiling ---

void CScrivCompiler::ReleaseStep(bool hourglassOff)
{
    IRunContext& context = Context();
    if (m_progressShown)
        context.ProgressBarDispose();
    m_progressShown = false;
    if (hourglassOff)
        context.Agent().HourglassOff();
}

std::uint32_t CScrivCompiler::RecompileHelpProject(bool quiet, bool webOnly)
{
    std::uint32_t result = 0;
    std::uint32_t failure = ErrorFrame("CScrivCompiler.RecompileHelpProject",
        [&] { result = RecompileHelpProject1(quiet, webOnly); });
    if (failure != 0)
        ReleaseStep(true);
    return failure != 0 ? failure : result;
}

std::uint32_t CScrivCompiler::RecompileHelpProject1(bool quiet, bool webOnly)
{
    IRunContext& data = Context();
    if (!data.IsMSAccessDbOpened())
        return status::kGeneralFailure;
    SetErrorCounter(0);
    data.Agent().HourglassOn();
    CAddInProject* project = data.Projects().CurrentProject();
    if (!project) {
        ReleaseStep(true);
        return status::kAbandoned;
    }
    CScrivant& scriv = m_engine;
    CHelpPrjTree& tree = scriv.HelpProjectTree();
    data.ProgressBarInit("Starting recompile...", 6);
    m_progressShown = true;
    data.ProgressBarUpdate("Refreshing and saving control definitions...", 1);
    data.Projects().SaveCurrentProject();
    data.ProgressBarUpdate("Refreshing and saving TOC ...", 2);
    scriv.WriteHHPFile(project->HHPFullPath());
    SaveHHC(tree, project->HHCFullPath(), true);
    data.ProgressBarUpdate("Refreshing and saving HTML help index ...", 3);
    MakeAndSaveHHK(tree, project->HHKFullPath(), scriv.HelpIndex());
    data.ProgressBarUpdate("Generating Browser Based Help...", 3);
    MakeJavaHelp(tree);
    tree.CheckSums().Recalc();
    tree.SaveCheckSums(true);
    tree.SetWasChanged(false);
    tree.SetNewHtmlHelpProject(false);

    if (!webOnly) {
        std::string hhp = project->HHPFullPath();
        if (!TestHelpWorkshopInstalled()) {
            ReleaseStep(true);
            WarningDialog("HTML help workshop is not installed.");
            return status::kAbandoned;
        }
        if (hhp.empty()) {
            ReleaseStep(true);
            WarningDialog("HTML help project was not generated.");
            return status::kAbandoned;
        }
        if (!FileExists(hhp)) {
            ReleaseStep(true);
            WarningDialog("HTML help project doesn't exist '" + hhp + "'.");
            return status::kAbandoned;
        }
        LogicLoop().RunPending();
        data.ProgressBarUpdate("Running HTML help compiler...", 4);
        int code = RunHelpCompiler(hhp);
        if (code != 0) {
            Raise(0x80040002, "CScrivCompiler.RecompileHelpProject1",
                "Cannot recompile help." + kEol + "Please check that help file is closed and try again." + kEol
                    + "Command line: \"" + HelpCompilerProgram() + "\" \"" + hhp + "\"" + kEol
                    + "Return value: " + std::to_string(code));
        }
        data.ProgressBarUpdate("Copying recompiled HTML help...", 5);
        std::string source = data.Agent().CurrentSourceProjectFullPath();
        std::string target = source.empty() ? std::string() : AddBackslash(FolderOf(source)) + FileNameOf(project->CHMFullPath());
        if (!target.empty() && FileExists(project->CHMFullPath()) && target != project->CHMFullPath())
            CopyFileOver(project->CHMFullPath(), target);
        ReleaseStep(true);
        if (ErrorCounter() != 0) {
            MsgBox("Recompiling of the HTML help project" + kEol + kEol + "'" + project->Name + "' failed.",
                msgbox::kCritical, kMessageBoxTitle, "", 0, "CScrivCompiler.RecompileHelpProject");
        } else if (!quiet) {
            std::string question = "Recompiling of the HTML help project" + kEol + kEol + "'" + project->Name
                + "' succeeded." + kEol + kEol + "Would you like to open recompiled HTML help file?";
            if (MsgBox(question, msgbox::kYesNo, kMessageBoxTitle, "", 0, "CScrivCompiler.RecompileHelpProject") == vbYes)
                UserInterface().OpenDocument(project->CHMFullPath());
        }
        return 0;
    }
    ReleaseStep(true);
    return 0;
}

// --- regenerating ---

bool CScrivCompiler::NodeExists(const KeyedCollection<CHelpPrjTreeNode*>& map, const std::string& objectName,
    const std::string& typeWord, const std::string& projectName)
{
    for (std::size_t i = map.Count(); i-- > 0;) {
        const CHelpPrjTreeNode* node = map.At(i).value;
        if (!node || !EqualsNoCase(node->Tag(), typeWord) || node->Name() != objectName)
            continue;
        if (node->SourceProjectName().empty() || node->SourceProjectName() == projectName)
            return true;
    }
    return false;
}

void CScrivCompiler::FindNewSourceObjects()
{
    CHelpPrjTree& tree = m_engine.HelpProjectTree();
    std::unique_ptr<IHelpPrjSourceProject> source = Context().Agent().ParseSourceProject();
    if (!source)
        return;
    // Worksheets come twice, as they always did; the second pass finds nothing.
    const std::pair<std::size_t, const char*> searches[] = { { 0, "Form" }, { 1, "Report" }, { 2, "Table" },
        { 5, "Worksheet" }, { 3, "Query" }, { 4, "Macro" }, { 5, "Worksheet" }, { 6, "Chart" } };
    for (const auto& [group, typeWord] : searches) {
        SourceItems& items = ItemsOf(*source, group);
        for (std::size_t i = items.Count(); i-- > 0;) {
            const CHelpPrjSourceItem& item = *items.At(i).value;
            if (NodeExists(tree.MapItems(), item.FormName, typeWord, item.ProjectName))
                items.RemoveAt(i);
        }
    }
    CHelpPrjObjectsCF factory;
    for (std::size_t group = 0; group < kGroups; ++group) {
        if (ItemsOf(*source, group).Count() == 0)
            continue;
        std::unique_ptr<IXmlSerializer> list = ListObject(factory, group);
        if (!list)
            continue;
        for (const std::string& text : list->XmlCollection(tree, *source)) {
            CXMLFile xml;
            if (xml.LoadXml(text) != 0)
                continue;
            auto node = std::make_unique<CHelpPrjTreeNode>();
            if (node->Build(1, &tree, xml.SharedDocument(), xml.DocumentElement()))
                m_groups[group].nodes.push_back(std::move(node));
        }
    }
}

bool CScrivCompiler::NewObjectFound() const
{
    for (const Group& group : m_groups)
        if (!group.nodes.empty())
            return true;
    return false;
}

std::string CScrivCompiler::DescribeNewObjects() const
{
    std::string text;
    for (std::size_t group = 0; group < kGroups; ++group)
        for (const auto& node : m_groups[group].nodes)
            text += std::string(kListKinds[group].typeWord) + ": " + node->Name() + kEol;
    return text;
}

void CScrivCompiler::LocateListNodes(CHelpPrjTreeNode* node)
{
    if (!node)
        return;
    for (const auto& child : node->ChildNodes()) {
        for (std::size_t group = 0; group < kGroups; ++group) {
            const ListKind& kind = kListKinds[group];
            bool tagMatches = EqualsNoCase(child->Tag(), kind.tags[0])
                || (kind.tags[1] && EqualsNoCase(child->Tag(), kind.tags[1]));
            if (tagMatches && child->ProcessCode() == kind.processCode)
                m_groups[group].parent = child.get();
        }
        LocateListNodes(child.get());
    }
}

void CScrivCompiler::AddNewFormsAndReports()
{
    CHelpPrjTree& tree = m_engine.HelpProjectTree();
    for (Group& group : m_groups) {
        if (group.nodes.empty() || !group.parent)
            continue;
        CFormHTMLManipulator page;
        bool pageLoaded = page.LoadHtmlDocument(group.parent->GeneratedHTMLFileFullPath());
        for (auto& node : group.nodes) {
            node->SetLevel(group.parent->Level() + 1);
            node->SetSkipped(false);
            node->RegenerateHelpFiles = true;
            CHelpPrjTreeNode* added = group.parent->InsertChild(group.parent->ChildCount(), std::move(node));
            tree.AddToMap(added);
            if (pageLoaded)
                page.AddHTMLElementToBody("<LI>" + added->HTMLFileRef(false) + "</LI>");
        }
        group.nodes.clear();
        if (pageLoaded)
            page.SaveDoc(group.parent->GeneratedHTMLFileFullPath());
        page.Terminate();
    }
}

std::uint32_t CScrivCompiler::RegenerateHelpProject()
{
    IRunContext& data = Context();
    IHostAgent& agent = data.Agent();
    CScrivantParameters& parameters = Parameters();
    std::uint32_t result = 0;
    std::uint32_t failure = ErrorFrame("CScrivCompiler.RegenerateHelpProject", [&] {
        CAddInProject* project = data.Projects().CurrentProject();
        if (!parameters.UseProjectGroupAsSource || !project) {
            FindNewSourceObjects();
        } else {
            project->RefreshSourceProjectsList();
            std::string list = project->SourceProjectsList();
            Trace("RegenerateHelpProject: SourceProjectsList = " + list);
            std::string kept = agent.CurrentSourceProjectName();
            for (const std::string& name : Split(list, "|")) {
                if (name.empty())
                    continue;
                agent.SetCurrentSourceProject(name);
                FindNewSourceObjects();
            }
            agent.SetCurrentSourceProject(kept);
        }
        Trace("CScrivCompiler.RegenerateHelpProject, NewObjectFound = " + std::string(NewObjectFound() ? "True" : "False"));
        if (!NewObjectFound()) {
            UserWarningMessage("There are no new objects in the source project");
            result = status::kAbandoned;
            return;
        }
        CHelpPrjTree& tree = m_engine.HelpProjectTree();
        for (Group& group : m_groups)
            group.parent = nullptr;
        LocateListNodes(tree.Root());
        // New reports and the other lists fall back on the forms list, and that on the root.
        if (!m_groups[0].parent)
            m_groups[0].parent = tree.Root();
        for (std::size_t group = 1; group < kGroups; ++group)
            if (!m_groups[group].parent)
                m_groups[group].parent = m_groups[0].parent;
        AddNewFormsAndReports();

        bool openEditor = parameters.OpenHTMLEditor;
        parameters.OpenHTMLEditor = false;
        m_engine.GenerateHelpProject(false, false, true, false, true);
        LogicLoop().RunPending();
        parameters.OpenHTMLEditor = openEditor;
        if (!data.State().GenerationInterrupted && ErrorCounter() == 0 && project)
            data.ReloadScrivProject(project->SVPFullPath(), -1);
        data.State().GenerationInterrupted = false;
        SetErrorCounter(0);
    });
    for (Group& group : m_groups) {
        group.nodes.clear();
        group.parent = nullptr;
    }
    return failure != 0 ? failure : result;
}

}  // namespace scriv
