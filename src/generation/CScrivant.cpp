#include "generation/CScrivant.h"

#include "foundation/CTraceLog.h"
#include "foundation/CXmlMessages.h"
#include "foundation/DateTime.h"
#include "foundation/Digest.h"
#include "foundation/ErrorMessage.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/LoadedForms.h"
#include "foundation/MsgBox.h"
#include "foundation/ObjectNames.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/System.h"
#include "foundation/TextEncoding.h"
#include "foundation/Version.h"
#include "generation/BrowserHelp.h"
#include "generation/CXmlFormPages.h"
#include "generation/ContentsFiles.h"
#include "generation/HelpLanguage.h"
#include "generation/HtmlHelpCompiler.h"
#include "generation/Templates.h"
#include "generation/clsHHK.h"
#include "generation/clsHTMLFile.h"
#include "model/CAddInProject.h"
#include "model/CAddInProjects.h"
#include "model/CHelpPrjCheckSums.h"
#include "model/CHelpPrjTree.h"
#include "model/CScrivStats.h"
#include "model/CScrivantParameters.h"
#include "model/IHelpPrjSourceProject.h"
#include "model/IHostAgent.h"
#include "model/IRunContext.h"
#include "model/Serializers.h"
#include "screenshots/PictureFileWriter.h"
#include "screenshots/Screenshot.h"
#include "uidesc/CClientUIObjectXml.h"
#include "uidesc/CXmlForm.h"
#include "uidesc/clsFrmRptHelpContextIds.h"

namespace scriv {

namespace {

const std::string kCrLfText(kCrLf);

IRunContext& Data()
{
    IRunContext* context = CurrentRunContext();
    if (!context)
        Raise(status::kGeneralFailure, "CScrivant", "The generator needs a connected server.");
    return *context;
}

IHostAgent& Agent()
{
    return Data().Agent();
}

std::string Timestamp()
{
    return FormatLocalTime(std::chrono::system_clock::now(), "%Y-%m-%d %H:%M:%S");
}

}  // namespace

CScrivant::CScrivant()
    : m_helpIndex(std::make_unique<clsHHK>())
    , m_helpContextIds(std::make_unique<clsFrmRptHelpContextIds>())
{
}

CScrivant::~CScrivant()
{
    Terminate();
}

CScrivantParameters& CScrivant::Parameters()
{
    return scriv::Parameters();
}

CHelpPrjTree& CScrivant::HelpProjectTree()
{
    if (!m_tree)
        m_tree = std::make_unique<CHelpPrjTree>();
    return *m_tree;
}

void CScrivant::Terminate()
{
    if (m_terminated)
        return;
    m_terminated = true;
    m_helpContextIds->Terminate();
    if (m_tree) {
        m_tree->Terminate();
        m_tree.reset();
    }
}

void CScrivant::Generate()
{
    const CScrivantParameters& parameters = Parameters();
    GenerateHelpProject(true, false, parameters.SaveApplicationChanges, parameters.OpenHTMLHelp, false);
}

// --- the run ---

std::uint32_t CScrivant::GenerateHelpProject(bool process, bool backup, bool save, bool openHelp, bool regenerating)
{
    std::uint32_t result = 0;
    std::uint32_t failure = ErrorFrame("CScrivant.GenerateHelpProject", [&] {
        CScrivantParameters& parameters = Parameters();
        CAddInProject* project = CurrentAddInProject();
        std::string folder = parameters.FolderForGeneratedHelp();
        std::string helpFile = parameters.CompiledHelpFullPath();
        if (regenerating && project) {
            parameters.SetFolderForGeneratedHelp(project->Folder);
            folder = project->Folder;
            helpFile = project->CHMFullPath();
        }
        if (backup)
            BackupProjectFolder(folder);

        Data().State().GenerationInterrupted = false;
        SetErrorCounter(0);
        result = GenerateHTMLForProject(process, regenerating);

        bool interrupted = Data().State().GenerationInterrupted;
        if (!interrupted && ErrorCounter() == 0) {
            Data().ProgressBarInit("Completing help generation", 5);
            std::string sourceHelpFile;
            if (FileExists(helpFile)) {
                std::string sourceFolder = FolderOf(Agent().CurrentSourceProjectFullPath());
                sourceHelpFile = sourceFolder + FileBaseName(helpFile) + ".chm";
                if (save) {
                    Data().ProgressBarUpdate("Setting HTML help for current source project...", 1);
                    Agent().SetHelpFileForCurrentSourceProject(sourceHelpFile);
                }
            }
            Data().ProgressBarUpdate("Saving changes of the source project", 2);
            Agent().SaveMakeRun(save, false, false);
            if (openHelp && FileExists(helpFile)) {
                Data().ProgressBarUpdate("Opening generated and compiled HTML help...", 3);
                UserInterface().OpenDocument(helpFile);
            }
        } else if (ErrorCounter() > 0 && parameters.OpenHTMLEditor) {
            std::string question = "Errors have been detected during help generation. "
                                   "You can either try to make changes in the source project "
                                   "and regenerate or you may ignore the errors and "
                                   "start the Help Editor. Starting the Help Editor "
                                   "could result in new error messages because the generated "
                                   "help project may be broken."
                + kCrLfText + kCrLfText + "Note: in most cases the generated help project will NOT be broken."
                + kCrLfText + kCrLfText + "Would you like to open Help Editor?";
            if (MsgBox(question, 260, kMessageBoxTitle, "", 0, "CScrivant.GenerateHelpProject") == vbYes) {
                // A negative count keeps the later error check quiet.
                SetErrorCounter(-ErrorCounter());
                Data().State().GenerationInterrupted = false;
                LogicLoop().RunPending();
            }
        }
        Data().ProgressBarDispose();
    });
    return failure != 0 ? failure : result;
}

void CScrivant::BackupProjectFolder(const std::string& folder)
{
    if (folder.empty() || ListFiles(folder, "*").empty())
        return;
    Agent().HourglassOn();
    Agent().ProgressMeterInit("Making backup of existing help project...", 2);
    Agent().ProgressMeterUpdate(1);
    std::string target = ParentFolder(folder) + "BAK_"
        + FormatLocalTime(std::chrono::system_clock::now(), "%Y_%m_%d_%H_%M_%S") + "/";
    MakeFolders(target);
    ShellAndWait({ "cp", "-a", RemoveBackslash(folder) + "/.", target });
    Agent().ProgressMeterRemove();
    Agent().HourglassOff();
}

std::uint32_t CScrivant::GenerateHTMLForProject(bool process, bool regenerating)
{
    CScrivantParameters& parameters = Parameters();
    AdoptApplicationLanguage(Agent().CurrentSourceProjectCodePage());
    Agent().HourglassOn();
    Agent().ProgressMeterInit("Starting help Generation...", 3);
    m_helpIndex = std::make_unique<clsHHK>();

    MakeFolders(parameters.FolderForGeneratedImages());
    Trace(Timestamp() + ": Timestamp - Creating HTML Files.");
    std::uint32_t result = ProcessHelpTreeAndGenerateHelp(regenerating);
    if (result == 0 && !Data().State().GenerationInterrupted) {
        Trace(Timestamp() + ": Timestamp - Creating HHC and HHK Files.");
        SaveHelpProjectFiles();
        if (!Data().State().GenerationInterrupted) {
            Trace(Timestamp() + ": Timestamp - Creating HHO and related Files.");
            WriteHHPFile({});
            if (result != 0 && !Data().State().GenerationInterrupted) {
                MsgBox("Errors occurred during help generation - check the Folder:" + kCrLfText + kCrLfText
                        + parameters.FolderForGeneratedHelp(),
                    msgbox::kCritical, "", "", 0, "CScrivant.GenerateHTMLForProject");
            } else {
                // Deliberately also after an interrupt during the project file step.
                Trace(Timestamp() + ": Timestamp - Compiling HTML Help.");
                Data().ProgressBarInit("Processing generated HTML Help...", 4);
                Data().ProgressBarUpdate("Compiling HTML Help...", 1);
                CompileHtmlHelp();
                Data().ProgressBarUpdate("Copying compiled HTML Help...", 1);
                Agent().ProgressMeterUpdate(2);
                result = CopyCompiledHelp() ? 0 : status::kAbandoned;
            }
        }
    }
    if (CurrentRunContext()) {
        Data().ProgressBarDispose();
        Agent().ProgressMeterRemove();
        Agent().HourglassOff();
    }
    return result;
}

std::uint32_t CScrivant::ProcessHelpTreeAndGenerateHelp(bool regenerating)
{
    CScrivantParameters& parameters = Parameters();
    Agent().HourglassOn();
    CAddInProject* project = CurrentAddInProject();
    if (!project) {
        Agent().HourglassOff();
        return status::kAbandoned;
    }
    if (!regenerating) {
        project->Name = parameters.HelpProjectName();
        project->FileName = GetComponentFileName(parameters.HelpProjectName());
        project->Folder = parameters.FolderForGeneratedHelp();
        project->PicsSubfolderName = RemoveBackslash(parameters.NameOfFolderForGeneratedImages());
    }
    std::string keptSourceProject = Agent().CurrentSourceProjectName();
    CHelpPrjTree& tree = HelpProjectTree();
    CHelpPrjTreeNode* root = tree.Root();
    int total = tree.NodesQty();
    int counter = 0;

    if (root && !Data().State().GenerationInterrupted) {
        if (!regenerating)
            m_helpContextIds->Reset();
        Agent().ProgressMeterUpdate(0);
        Agent().ProgressMeterInit("Processing TOC...", total);
        Agent().SetUseProjectGroupAsSourceFlag(parameters.UseProjectGroupAsSource);
        // A form's pictures are encoded and written while its next tab page
        // or frame is drawn.
        m_pictureWriter = std::make_unique<PictureFileWriter>();
        bool cancelled = ProcessHelpTreeAndGenerateHelp1(0, *root, total, counter, regenerating);
        ReportFailedPictures(m_pictureWriter->Finish());
        m_pictureWriter.reset();
        if (cancelled)
            Data().State().GenerationInterrupted = true;
        else
            ProcessHelpTreeAndGenerateHelp2(*root, regenerating);
        Agent().ProgressMeterRemove();
    }
    if (!keptSourceProject.empty())
        Agent().SetCurrentSourceProject(keptSourceProject);
    std::uint32_t result = Data().State().GenerationInterrupted ? status::kAbandoned : 0;
    Agent().HourglassOff();
    return result;
}

bool CScrivant::ProcessHelpTreeAndGenerateHelp1(int level, CHelpPrjTreeNode& parent, int total, int& counter,
    bool regenerating)
{
    Trace("ProcessHelpTreeAndGenerateHelp1: level = " + std::to_string(level) + ", node = " + parent.Key() + " ["
        + parent.Caption() + "]");
    if (Data().State().GenerationInterrupted)
        return false;
    m_objectTimer = std::chrono::steady_clock::now();

    // The walk may add nodes of its own; it visits the children that were there.
    std::vector<CHelpPrjTreeNode*> children;
    for (const auto& child : parent.ChildNodes())
        children.push_back(child.get());

    for (CHelpPrjTreeNode* child : children) {
        if (regenerating && !child->RegenerateHelpFiles) {
            // A topic left alone still holds its ids, so they are not given again.
            int type = child->ObjectType();
            if (child->ProcessCode() == processcode::kSourceObject && (type == objtype::kForm || type == objtype::kReport))
                if (std::unique_ptr<CXmlForm> form = LoadXmlForm(*child))
                    m_helpContextIds->ExtractUsedHelpContextIds(*form);
            if (ProcessHelpTreeAndGenerateHelp1(level + 1, *child, total, counter, regenerating))
                return true;
            continue;
        }
        CheckGenerationInterrupt();
        if (Data().State().GenerationInterrupted)
            break;
        ++counter;
        ErrorFrame("CScrivant.ProcessHelpTreeAndGenerateHelp1",
            [&] { ProcessNode(*child, level, total, counter, regenerating); });

        if (ProcessHelpTreeAndGenerateHelp1(level + 1, *child, total, counter, regenerating))
            return true;
        if (Data().State().GenerationInterrupted)
            break;

        ErrorFrame("CScrivant.ProcessHelpTreeAndGenerateHelp1", [&] {
            bool writesPage = !child->HasSerializer() && !child->Skipped();
            if (writesPage && processcode::IsListCode(child->ProcessCode()) && !child->TemplateHtmlFile().empty())
                WriteListPage(*child);
            for (const std::string& keyword : child->IndexesCollection())
                m_helpIndex->AddCustomLink(child->Caption(), keyword, child->GeneratedHTMLFile(), "");
            std::string page = child->GeneratedHTMLFileFullPath();
            if (!page.empty() && FileExists(page)) {
                ++Data().GenerationStats().HelpPagesCount;
                // A topic opened alone sends its reader to the browser help's entry page.
                bool inStep = !child->DefinitionsPageDigest().empty()
                    && child->DefinitionsPageDigest() == FileDigest(page);
                AddWBHScript(page);
                // The script leaves the page's controls as they were.
                if (inStep)
                    child->SetDefinitionsPageDigest(FileDigest(page));
            }
        });
    }
    return false;
}

void CScrivant::ProcessNode(CHelpPrjTreeNode& child, int level, int total, int counter, bool regenerating)
{
    std::string typeName = child.NodeComponentTypeName();
    std::string progress = typeName.empty()
        ? "Processing TOC node at level " + std::to_string(child.Level()) + ". [" + child.Caption() + "]..."
        : "Processing TOC node at level " + std::to_string(child.Level()) + " - " + typeName + ". [" + child.Name()
            + "]...";
    Agent().ProgressMeterInit(progress, total);
    Agent().ProgressMeterUpdate(counter);

    std::vector<std::string> replacements;
    if (EqualsNoCase(child.Tag(), "Datamodel")) {
        std::string relationships = Agent().ScreenshotDatamodelWindow();
        if (!relationships.empty()) {
            const CScrivantParameters& parameters = Parameters();
            replacements.push_back("{{DatamodelImage}}|<IMG SRC=\"" + parameters.NameOfFolderForGeneratedImagesWithSlash()
                + "Datamodel" + parameters.ImagesFileExt() + "\" BORDER=0 ALT=\"" + XmlEncodeChars(child.Caption()) + "\">");
            replacements.push_back("{{Relationships}}|" + relationships);
        } else {
            child.SetSkipped(true);
        }
    }
    if (child.HasSerializer() || child.Skipped())
        return;

    int code = child.ProcessCode();
    if (code == processcode::kSourceObject) {
        ProcessSourceObject(child);
    } else if (processcode::IsListCode(code)) {
        NameListPage(child);
    } else if (code == processcode::kPlainTopic) {
        WritePlainTopic(child, replacements);
    } else {
        Raise(status::kGeneralFailure, "CScrivant.ProcessHelpTreeAndGenerateHelp1",
            "Unknown ProcessCode = " + std::to_string(code) + " for " + child.Name());
    }
}

void CScrivant::WritePlainTopic(CHelpPrjTreeNode& node, const std::vector<std::string>& replacements)
{
    const CScrivantParameters& parameters = Parameters();
    CHelpPrjTree& tree = HelpProjectTree();
    if (tree.NewHtmlHelpProject() || node.GeneratedHTMLFile().empty()) {
        node.SetGeneratedHTMLFile(node.TemplateHtmlFileNameExtOnly());
        ReplaceTagsAndCopy(node.TemplateHtmlFileFullPath(), node.GeneratedHTMLFileFullPath(), replacements);
    }
    if (node.HtmlTitle().empty())
        node.SetHtmlTitle(node.Caption());
    clsHTMLFile page;
    if (page.Load(node.GeneratedHTMLFileFullPath()) == 0) {
        page.Title = node.HtmlTitle();
        page.Caption = node.Caption();
        page.CSSFullPath = node.CSSFullPath().empty() ? parameters.CSSFullPath() : node.CSSFullPath();
        page.Charset = node.Charset().empty() ? parameters.Charset : node.Charset();
        page.Save();
    }
}

void CScrivant::NameListPage(CHelpPrjTreeNode& node)
{
    if (!node.TemplateHtmlFile().empty()) {
        node.SetGeneratedHTMLFile(node.TemplateHtmlFileNameExtOnly());
        return;
    }
    std::string name = ReplaceAll(node.Caption(), " ", "_");
    node.SetGeneratedHTMLFile(GetComponentFileName(name) + ".htm");
}

void CScrivant::WriteListPage(CHelpPrjTreeNode& node)
{
    const CScrivantParameters& parameters = Parameters();
    std::vector<std::string> lines;
    for (const auto& item : node.ChildNodes()) {
        if (item->HasSerializer() || item->Skipped())
            continue;
        lines.push_back("<LI>" + item->HTMLFileRef(false) + "</LI>");
    }
    std::string css = node.CSSFullPath().empty() ? parameters.CSSFullPath() : node.CSSFullPath();
    std::string charset = node.Charset().empty() ? parameters.Charset : node.Charset();
    std::vector<std::string> replacements = {
        "{{StyleSheetLinkHtml}}|" + StyleSheetLinkHtml(StyleSheetHref(css, FolderOf(node.GeneratedHTMLFileFullPath()))),
        "{{charset}}|" + charset,
        "{{HtmlPageTitle}}|" + node.Caption(),
        "{{HtmlTopicCaption}}|" + node.Caption(),
        "{{BODY}}|" + Join(lines, kCrLfText),
    };
    if (node.GeneratedHTMLFile().empty() && !HelpProjectTree().HtmlFileNameIsUsed(FileBaseName(node.TemplateHtmlFile())))
        node.SetGeneratedHTMLFile(node.TemplateHtmlFileNameExtOnly());
    ReplaceTagsAndCopy(node.TemplateHtmlFileFullPath(), node.GeneratedHTMLFileFullPath(), replacements);
}

void CScrivant::ProcessSourceObject(CHelpPrjTreeNode& node)
{
    const CScrivantParameters& parameters = Parameters();
    CScrivStats& stats = Data().GenerationStats();
    if (!node.SourceProjectName().empty()) {
        Agent().SetCurrentSourceProject(node.SourceProjectName());
        Trace("ProcessHelpTreeAndGenerateHelp1.SetCurrentSourceProject " + node.SourceProjectName());
    }
    int type = node.ObjectType();
    bool exists = Agent().ComponentExistsTest(type, node.Name());
    double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - m_objectTimer).count();
    Trace(TimeOfDayText() + ": ComponentName = " + node.Name() + ", ObjectType = " + std::to_string(type)
        + ", Exists = " + (exists ? "True" : "False") + "Timestamp: elapsed time = " + std::to_string(elapsed)
        + " seconds.");
    m_objectTimer = std::chrono::steady_clock::now();
    if (!exists) {
        // An object deleted from the application drops out of the help.
        node.SetSkipped(true);
        return;
    }
    if (type == objtype::kForm) {
        ++stats.HelpProvidersCount;
        ++stats.FormContextIdsCount;
    } else if (type == objtype::kReport) {
        ++stats.ReportContextIdsCount;
    }
    std::string oldPage = node.GeneratedHTMLFileFullPath();
    if (!node.GeneratedHTMLFile().empty() && FileExists(oldPage))
        DeleteFileIfExists(oldPage);

    // A page that shows no picture needs none taken.
    bool screenshots = (type == objtype::kForm && parameters.AddImageForForm)
        || (type == objtype::kReport && parameters.AddImageForReport);
    std::unique_ptr<CXmlForm> form = DescribeSourceObject(type, node.Name(), node.GeneratedHTMLFileFullPath(),
        node.SourceProjectName(), node.SourceProjectType(), screenshots);
    stats.ControlSectionsCount += static_cast<int>(form->Controls().Count());
    if (node.SourceProjectName().empty())
        node.SetSourceProjectName(form->SourceProjectName);
    if (node.SourceProjectType().empty())
        node.SetSourceProjectType(form->SourceProjectType);
    if (node.GeneratedHTMLFile().empty())
        node.SetGeneratedHTMLFile(FileNameOf(form->HtmlFullPath()));
    if (form->GUIObjectSubType.empty())
        form->GUIObjectSubType = node.PropertyValue("GUIObjectSubType");
    if (!form->Name.empty())
        m_helpContextIds->ExtractUsedHelpContextIds(*form);

    std::string page = form->HtmlFullPath();
    WriteObjectPage(*form, type, page);
    // The description is kept with the project, where the editor and the
    // regeneration read it again.
    if (CAddInProject* project = CurrentAddInProject()) {
        std::string folder = project->XmlFormsFolder();
        MakeFolders(folder);
        form->SaveXml(folder, folder + node.XmlFormFileName());
    }
    SetPageTitle(*form, page);
    // The page and its description were just made from each other.
    node.SetDefinitionsPageDigest(FileDigest(page));
    Trace("ProcessHelpTreeAndGenerateHelp1: " + node.Name() + " has " + std::to_string(form->Controls().Count())
        + " controls");
}

void CScrivant::WriteObjectPage(CXmlForm& form, int type, const std::string& page)
{
    switch (type) {
    case objtype::kForm:
        SaveHTMLEx(form, page, false);
        break;
    case objtype::kReport:
        SaveHTMLEx(form, page, true);
        break;
    case objtype::kTable:
        SaveHTML4Table(form, page, "table.htm");
        break;
    case objtype::kQuery:
        SaveHTML4Table(form, page, "query.htm", Agent().GetQueryXmlStr(form.Name));
        break;
    case objtype::kMacro:
        SaveHTML4Table(form, page, "macro.htm");
        break;
    case objtype::kWorksheet:
        SaveHTML4Worksheet(form, page, "worksheet.htm", Agent().GetWksHtml(form.Name));
        break;
    case objtype::kChart:
        SaveHTML4Worksheet(form, page, "chart.htm", Agent().GetWksHtml(form.Name));
        break;
    default:
        Raise(status::kGeneralFailure, "CScrivant.ProcessHelpTreeAndGenerateHelp1",
            "Unknown ProcessCode = " + std::to_string(type) + " for " + form.Name);
    }
}

void CScrivant::SetPageTitle(CXmlForm& form, const std::string& page)
{
    const CScrivantParameters& parameters = Parameters();
    clsHTMLFile file;
    if (file.Load(page) != 0)
        return;
    // Titles of compiled help want a doubled ampersand.
    std::string title = EscapeHtmlEntities(parameters.IdentifyControls() == 0 ? form.Caption() : form.Name, true);
    file.Title = title;
    file.Caption = title;
    file.CSSFullPath = parameters.CSSFullPath();
    file.Charset = form.Charset.empty() ? parameters.Charset : form.Charset;
    file.Save();
}

std::unique_ptr<CXmlForm> CScrivant::DescribeSourceObject(int type, const std::string& name,
    const std::string& pageFullPath, const std::string& sourceProjectName, const std::string& sourceProjectType,
    bool takeScreenshots)
{
    CScrivantParameters& parameters = Parameters();
    std::string base;
    std::string page = pageFullPath;
    if (page.empty()) {
        base = parameters.FolderForGeneratedImages() + GetComponentFileName(name);
        page = parameters.FolderForGeneratedHelp() + GetComponentFileName(name) + ".htm";
    } else {
        base = FolderOf(page) + parameters.NameOfFolderForGeneratedImagesWithSlash() + FileBaseName(page);
    }
    std::string picture = base + parameters.ImagesFileExt();
    std::string hostType = Agent().CurrentSourceProjectTypeName();
    int hwnd = Agent().HostAppMainWindowHWnd();
    std::unique_ptr<CXmlForm> form = CreateNormalizedXmlDef(type, name, hwnd, !parameters.MakeNormalViewScreenshots,
        picture, page, parameters.NoReportsScreenShots(), hostType, false);
    if (!form)
        Raise(status::kGeneralFailure, "CScrivant.ProcessHelpTreeAndGenerateHelp1",
            "Error processing source project component [" + name + "]");

    if (!form->Name.empty()) {
        // The source project is known to whichever of form and caller has it.
        if (form->SourceProjectName.empty())
            form->SourceProjectName = sourceProjectName.empty() ? Agent().CurrentSourceProjectName() : sourceProjectName;
        if (form->SourceProjectType.empty())
            form->SourceProjectType = sourceProjectType.empty() ? hostType : sourceProjectType;
        if (takeScreenshots) {
            // Opening the designer draws the form: only a picture needs it.
            Agent().ActivateComponent(type, name, false, false);
            Screenshot screenshot;
            screenshot.SetPictureWriter(m_pictureWriter.get());
            screenshot.LocateObjectsAndTakeScreenshots(*form, FolderOf(form->PicFullPath()));
            // The topic shows the form's picture only when it is there; the
            // pictures of its frames and pages are written meanwhile.
            if (m_pictureWriter) {
                m_pictureWriter->WaitFor(form->PicFullPath());
                ReportFailedPictures(m_pictureWriter->TakeFailures());
            }
            Data().GenerationStats().ScreenshotsCount += screenshot.PicturesTaken() > 0 ? 1 : 0;
        }
    }
    Agent().CloseComponent(type, name, false);
    form->hWnd = 0;
    if (form->StylesheetFullPath().empty())
        form->SetStylesheetFullPath(parameters.CSSFullPath());
    if (form->Charset.empty())
        form->Charset = parameters.Charset;
    if (form->HtmlFullPath().empty())
        form->SetHtmlFullPath(page);
    return form;
}

void CScrivant::ReportFailedPictures(const std::vector<std::string>& paths)
{
    for (const std::string& failed : paths)
        TraceLog().addMessage("CScrivant.DescribeSourceObject: cannot write the picture " + failed, true);
}

std::unique_ptr<CXmlForm> CScrivant::CreateNormalizedXmlDef(int objectType, const std::string& name, int hwnd,
    bool designView, const std::string& picFullPath, const std::string& htmlFullPath, bool noScreenshots,
    const std::string& hostProjectType, bool keepOpen)
{
    const CScrivantParameters& parameters = Parameters();
    std::string text = CreateXmlDefForComponent(objectType, name, hwnd, designView, picFullPath, htmlFullPath,
        noScreenshots, hostProjectType, keepOpen);
    if (text.empty())
        return nullptr;
    bool isAccess = EqualsNoCase(hostProjectType, "MS ACCESS");
    std::unique_ptr<CXmlForm> form = CClientUIObjectXml().AdjustForm(text, objectType, isAccess,
        parameters.ImagesFormat(), picFullPath, htmlFullPath, parameters.NameOfFolderForGeneratedImages(), false);
    if (!form)
        return nullptr;
    if (parameters.HotSpots())
        form->HasMap = true;
    form->SortControlsUsingTabIndex();
    if (!htmlFullPath.empty())
        form->SetHtmlFullPath(htmlFullPath);
    if (!picFullPath.empty())
        form->SetPicFullPath(picFullPath);
    return form;
}

std::string CScrivant::CreateXmlDefForComponent(int objectType, const std::string& name, int hwnd, bool designView,
    const std::string& picFullPath, const std::string& htmlFullPath, bool noScreenshots,
    const std::string& hostProjectType, bool keepOpen)
{
    const CScrivantParameters& parameters = Parameters();
    ProcessComponentRequest request;
    request.objectType = objectType;
    request.componentName = name;
    request.hostAppIdeHwnd = hwnd;
    request.isInDesignView = designView;
    request.pictureSaveType = parameters.ImagesFormat();
    request.picFullPath = picFullPath;
    request.htmlFullPath = htmlFullPath;
    request.replaceHtml = false;
    request.picSubFolder = parameters.NameOfFolderForGeneratedImages();
    request.captureRptPreviewAreaOnly = parameters.CapturePreviewAreaOnly;
    request.noReportsScreenShots = noScreenshots;
    request.sourceProjectTypeName = hostProjectType;
    request.keepSourceObjectOpened = keepOpen;
    return Agent().ProcessComponent(request);
}

void CScrivant::ProcessHelpTreeAndGenerateHelp2(CHelpPrjTreeNode& root, bool regenerating)
{
    CScrivantParameters& parameters = Parameters();
    if (Data().State().GenerationInterrupted)
        return;
    if (root.GeneratedHTMLFile().empty())
        root.SetGeneratedHTMLFile(root.TemplateHtmlFileNameExtOnly());
    if (HelpProjectTree().NewHtmlHelpProject()) {
        std::vector<std::string> replacements;
        // A database host calls its windows forms, not dialogs; the broken tag stays as it always was.
        if (EqualsNoCase(root.TemplateHtmlFileNameExtOnly(), "Welcome.htm") && Data().HostIsMSAccess())
            replacements = { "<a href=\"Dialogs.htm\">|<a href=\"Forms.htm\">", "Dialogs</a>|Forms<a>" };
        ReplaceTagsAndCopy(root.TemplateHtmlFileFullPath(), root.GeneratedHTMLFileFullPath(), replacements);
    }
    if (root.HtmlTitle().empty())
        root.SetHtmlTitle(root.Caption());

    if (!regenerating) {
        clsHTMLFile page;
        if (page.Load(root.GeneratedHTMLFileFullPath()) == 0) {
            page.Title = root.HtmlTitle();
            page.Caption = root.Caption();
            if (!parameters.CSSFullPath().empty())
                root.SetCSSFullPath(parameters.CSSFullPath());
            if (!parameters.Charset.empty())
                root.SetCharset(parameters.Charset);
            page.CSSFullPath = root.CSSFullPath().empty() ? parameters.CSSFullPath() : root.CSSFullPath();
            page.Charset = root.Charset().empty() ? parameters.Charset : root.Charset();
            page.Save();
        }
        AddWBHScript(root.GeneratedHTMLFileFullPath());
    }

    clsHTMLFile contents;
    if (contents.Load(ParameterizedFolder() + "Contents.htm") == 0) {
        std::string target = parameters.FolderForGeneratedHelp() + GetComponentFileName(parameters.HelpProjectName())
            + "TOC.htm";
        std::string toc = "<UL>" + root.ContentsHTML(1, true) + "</UL>" + kCrLfText;
        contents.HTML = ReplaceAllNoCase(contents.HTML, "{{TOC}}", toc);
        contents.Charset = parameters.Charset;
        contents.CSSFullPath = parameters.CSSFullPath();
        if (CXmlMessages* messages = CurrentMessages())
            contents.HTML = messages->ReplaceParameters(contents.HTML);
        contents.Save(target);
    }
    CopyStyleSheet();
    Trace(Timestamp() + ": Timestamp - Assigning Help Context Ids.");
    m_helpContextIds->AssignHelpContextIds();
    Trace(Timestamp() + ": Timestamp - Setting Help Context Ids.");
    m_helpContextIds->SetHelpContextIds();
}

void CScrivant::CopyStyleSheet()
{
    const CScrivantParameters& parameters = Parameters();
    std::string css = parameters.CSSFullPath();
    if (css.empty())
        return;
    std::string source = css;
    if (!FileExists(source))
        source = CommonFolder() + FileNameOf(css);
    if (!FileExists(source))
        source = CommonFolder() + "Office10.css";
    std::string target = parameters.FolderForGeneratedHelp() + FileNameOf(css);
    if (FileExists(source) && !FileExists(target))
        CopyFileOver(source, target);
}

std::uint32_t CScrivant::SaveHelpProjectFiles()
{
    Agent().HourglassOn();
    Data().ProgressBarInit("Generating HTML help contents and index files...", 5);
    std::uint32_t result = 0;
    if (!CurrentAddInProject()) {
        result = status::kAbandoned;
    } else {
        CHelpPrjTree& tree = HelpProjectTree();
        CAddInProject& project = *CurrentAddInProject();
        Data().ProgressBarUpdate("Saving project...", 1);
        result = Data().Projects().Save();
        Data().ProgressBarUpdate("Generating contents...", 2);
        SaveHHC(tree, project.HHCFullPath());
        Data().ProgressBarUpdate("Generating index...", 3);
        MakeAndSaveHHK(tree, project.HHKFullPath(), *m_helpIndex);
        std::string index = m_helpIndex->HHKContents();
        int entries = 0;
        for (std::size_t at = index.find("<LI>"); at != std::string::npos; at = index.find("<LI>", at + 1))
            ++entries;
        Data().GenerationStats().IndexEntriesCount = entries;
        Data().ProgressBarUpdate("Generating and saving checksums...", 4);
        // The browser help marks every topic; the checksums are taken of the
        // pages as they are left.
        MakeJavaHelp(tree);
        tree.CheckSums().Recalc();
        tree.SaveCheckSums(true);
        tree.SetWasChanged(false);
        tree.SetNewHtmlHelpProject(false);
    }
    Data().ProgressBarDispose();
    Agent().HourglassOff();
    return result;
}

// --- loading the tree ---

void CScrivant::ShowStep(const std::string& text)
{
    Agent().ProgressMeterInit(text, 2);
    Agent().ProgressMeterUpdate(1);
}

void CScrivant::HideStep()
{
    Agent().ProgressMeterRemove();
}

void CScrivant::UnLoadTreviewForActiveProject()
{
    if (m_tree && m_tree->Root()) {
        m_tree->Terminate();
        m_tree.reset();
    }
}

std::uint32_t CScrivant::LoadTreviewForActiveProject(bool keep, IHostForm* progressForm)
{
    if (keep && m_tree && m_tree->Root())
        return 0;
    if (m_tree) {
        m_tree->Terminate();
        m_tree.reset();
    }
    CAddInProject* project = CurrentAddInProject();
    std::string hhc = project ? project->HHCFullPath() : std::string();
    std::string svp = project ? project->SVPFullPath() : std::string();
    if (Data().State().GenerationInterrupted)
        return status::kAbandoned;
    CHelpPrjTree& tree = HelpProjectTree();
    tree.Reset();
    std::uint32_t result = 0;
    if (!hhc.empty() && !svp.empty() && FileExists(svp)) {
        ShowStep("Loading TOC treeview...");
        result = tree.Load(svp, !FileExists(hhc), {}, true);
    } else {
        auto closed = [&] { return progressForm && !progressForm->Visible(); };
        if (closed())
            return status::kAbandoned;
        ShowStep("Parsing source project...");
        std::unique_ptr<IHelpPrjSourceProject> source = Agent().ParseSourceProject();
        if (closed())
            return status::kAbandoned;
        ShowStep("Loading TOC treeview...");
        std::string contents = ParameterizedFolder() + kProgramBaseName + "Contents.xml";
        // A database or workbook has contents of its own: its tables, queries, worksheets ...
        std::string ofType = ParameterizedFolder() + kProgramBaseName + "Contents."
            + RemoveAll(ToUpper(Agent().CurrentSourceProjectTypeName()), " ") + ".xml";
        if (FileExists(ofType))
            contents = ofType;
        std::string settings = Data().SettingsFilePath();
        // A settings file may carry the user's own default contents.
        bool fromSettings = (!hhc.empty() || !svp.empty()) && FileExists(settings)
            && ContainsNoCase(ReadFileText(settings).value_or(""), "<Project");
        result = tree.Load(fromSettings ? settings : contents, true, {}, false);
        if (closed())
            return status::kAbandoned;
        ShowStep("Expanding serializer nodes...");
        CHelpPrjObjectsCF factory;
        bool first = true;
        tree.ExpandSerializerNodes(factory, [&]() -> std::unique_ptr<IHelpPrjSourceProject> {
            // The project parsed above serves the first expansion; a group's
            // other projects are parsed when they are made current.
            if (first && source) {
                first = false;
                return std::move(source);
            }
            return Agent().ParseSourceProject();
        });
    }
    HideStep();
    return result;
}

void CScrivant::SaveFormPage(CXmlForm& form, const std::string& htmlFullPath)
{
    SaveHTMLEx(form, htmlFullPath, false);
}

}  // namespace scriv
