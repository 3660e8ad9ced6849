#include "studio/EditorSession.h"

#include <algorithm>

#include "editor/CHTMLFindReplaceAll.h"
#include "editor/CHelpPrjTreeMenu.h"
#include "editor/CXmlFormDescriptions.h"
#include "editor/frmHHCEntryIndexKeywords.h"
#include "editor/frmHelpEditor.h"
#include "foundation/CTraceLog.h"
#include "foundation/ErrorMessage.h"
#include "foundation/EventLoop.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "foundation/TextEncoding.h"
#include "generation/BrowserHelp.h"
#include "generation/clsHTMLFile.h"
#include "model/CAddInProject.h"
#include "model/CAddInProjects.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/CScrivantParameters.h"
#include "model/TemplateFolders.h"
#include "server/CScrivServer.h"
#include "server/CScrivServerData.h"
#include "studio/EditorPages.h"
#include "studio/EditorTreeView.h"
#include "studio/StudioEvents.h"
#include "studio/StudioShell.h"
#include "wordexport/clsMSWordExport.h"

namespace scriv::studio {

namespace {

using json = nlohmann::json;

// How many earlier texts the find and replace dialog offers.
constexpr std::size_t kEarlierTexts = 12;
// A step that took longer (it asked the person something) tells the page
// afterwards, since the page's request may have stopped waiting for it.
constexpr std::chrono::seconds kLongStep { 1 };
constexpr const char* kIndexDialogKey = "editor-index-entries";

bool SamePath(const std::string& a, const std::string& b)
{
    return !a.empty() && EqualsNoCase(ToNativePath(a), ToNativePath(b));
}

CScrivServerData* ServerData()
{
    CScrivServer* server = CurrentServer();
    return server && server->HasData() ? &server->Data() : nullptr;
}

CAddInProject* CurrentProject()
{
    CScrivServerData* data = ServerData();
    return data && data->HasProjects() ? data->Projects().CurrentProject() : nullptr;
}

// A new topic's page from the template: title and heading, charset, style
// sheet, an empty body and the browser-help script.
bool WriteNewTopicPage(const NewTopicPage& page)
{
    clsHTMLFile file;
    if (file.Load(page.templatePath) != 0)
        return false;
    std::string title = XmlEncodeChars(page.title);
    file.Title = title;
    file.Caption = title;
    file.Charset = page.charset;
    file.CSSFullPath = page.cssFullPath;
    file.Body.clear();
    file.HTML = WithWBHScript(file.HTML);
    return file.Save(page.targetPath) == 0;
}

// A page that was added to the project: its style sheet and its own links.
void AdoptAddedPage(const std::string& pagePath, const std::string& cssFullPath)
{
    LinkStyleSheet(cssFullPath, pagePath);
    MakeRelativeFileLinks(pagePath);
}

bool HasControlNodes(const CHelpPrjTreeNode& node)
{
    for (const auto& child : node.ChildNodes())
        if (child->IsControl || child->IsMenu)
            return true;
    return false;
}

void Remember(std::vector<std::string>& texts, const std::string& text)
{
    if (text.empty())
        return;
    std::erase(texts, text);
    texts.insert(texts.begin(), text);
    if (texts.size() > kEarlierTexts)
        texts.resize(kEarlierTexts);
}

json RowsJson(const std::vector<CBrokenLinkRow>& rows)
{
    json out = json::array();
    for (const CBrokenLinkRow& row : rows) {
        out.push_back({
            { "page", row.PageFileName },
            { "pageTip", row.PageToolTip },
            { "url", row.UrlText },
            { "urlTip", row.UrlToolTip },
            { "tag", row.UrlTag },
            { "problem", row.ProblemText },
            { "problemTip", row.ProblemToolTip },
        });
    }
    return out;
}

class DepthGuard {
public:
    explicit DepthGuard(int& depth)
        : m_depth(depth)
    {
        ++m_depth;
    }
    ~DepthGuard() { --m_depth; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

private:
    int& m_depth;
};

}  // namespace

EditorSession::EditorSession(StudioEvents& events, StudioShell& shell)
    : m_events(events)
    , m_shell(shell)
{
}

EditorSession::~EditorSession()
{
    if (IsOpen())
        Unload();
    m_closed.clear();
}

bool EditorSession::IsOpen() const
{
    return m_editor && m_editor->IsOpen();
}

void EditorSession::Publish(const json& event) const
{
    m_events.Publish(event);
}

void EditorSession::Changed() const
{
    Publish({ { "type", "editor" }, { "open", IsOpen() } });
}

// --- opening and closing ---

std::uint32_t EditorSession::Open()
{
    if (m_depth == 0)
        ForgetClosedEditors();
    if (IsOpen()) {
        SetVisible(true);
        return status::kOk;
    }
    CScrivServerData* data = ServerData();
    CAddInProject* project = CurrentProject();
    if (!data || !project)
        return status::kAbandoned;
    std::uint32_t loaded = data->LoadTreeOfActiveProject(true);
    CHelpPrjTree* tree = data->LoadedTree();
    if (loaded != 0 || !tree || !tree->Root())
        return loaded != 0 ? loaded : status::kAbandoned;

    const CScrivantParameters& parameters = Parameters();
    m_projectName = project->Name;
    m_projectFolder = AddBackslash(project->Folder);
    m_imageFolder = project->PicsSubfolderPath();
    // The tree keeps the descriptions: those of an earlier opening stay with it.
    if (m_descriptions)
        m_oldDescriptions.push_back(std::move(m_descriptions));
    m_descriptions = std::make_unique<CXmlFormDescriptions>(project->XmlFormsFolder());
    // The documented controls and menus of form topics show below them.
    bool useControlNames = parameters.IdentifyControls() == 1;
    tree->SetFormDescriptions(m_descriptions.get(), useControlNames);
    for (CHelpPrjTreeNode* node : tree->ObjectNodes())
        if (!HasControlNodes(*node))
            tree->AddControls(*node, node->Level(), *m_descriptions, useControlNames);

    HelpEditorSetup setup;
    setup.tree.projectFolder = m_projectFolder;
    setup.tree.xmlFormsFolder = project->XmlFormsFolder();
    setup.tree.newTopicTemplate = TemplateFullPath("Default.htm");
    setup.tree.charset = parameters.Charset;
    setup.tree.cssFullPath = parameters.CSSFullPath();
    setup.tree.useControlNames = useControlNames;
    setup.tree.writeNewTopicPage = WriteNewTopicPage;
    setup.tree.adoptAddedPage = AdoptAddedPage;
    setup.tree.formDescriptions = m_descriptions.get();
    setup.tree.showIndexEntries = [this](frmHHCEntryIndexKeywords& dialog) { ShowIndexEntries(dialog); };
    setup.baseFolder = m_projectFolder;
    setup.imageFolder = m_imageFolder;
    setup.contentsTemplate = TemplateFullPath("Contents.htm");
    setup.writePage = [this](const std::string& path, const std::string& text) {
        WriteEditedPage(path, text, m_heldIsSource);
        KillTempPage(path);
        m_heldIsSource = false;
        return true;
    };
    InstallCommands(setup);

    m_view = std::make_unique<EditorTreeView>();
    m_editor = std::make_unique<frmHelpEditor>();
    m_heldIsSource = false;
    {
        DepthGuard depth(m_depth);
        m_editor->Form_Load(*tree, *m_view, std::move(setup));
    }
    InstallTools();
    LoadedForms().Register(this);
    NoteShownPage();
    ++m_pageVersion;
    Trace("Studio: the Help Editor opened on " + m_projectName);
    Changed();
    return status::kOk;
}

void EditorSession::InstallCommands(HelpEditorSetup& setup)
{
    HelpEditorCommands& commands = setup.commands;
    auto run = [this](const char* command) { return [this, command] { m_shell.Run(command); }; };
    commands.about = run("AboutForm");
    commands.contents = run("HelpTopics");
    commands.recompile = run("RecompileHelpProject");
    commands.getNewObjects = run("RegenerateHelpProject");
    commands.openHelp = run("OpenHelpOfActiveProject");
    commands.openWebHelp = run("OpenWebHelpOfActiveProject");
    commands.openHelpFolder = run("OpenHelpFolder");
    commands.exportToWord = [this] {
        Publish({ { "type", "editor-dialog" }, { "dialog", "word-export" }, { "target", DefaultWordTarget() } });
    };
    commands.close = [this] {
        Closed();
        // The closed editor ended the project's tree; the commands of the
        // help project work on it again as it was saved.
        if (CScrivServerData* data = ServerData())
            data->LoadTreeOfActiveProject(true);
    };
    commands.saveCurrentProject = []() -> std::uint32_t {
        CScrivServerData* data = ServerData();
        return data && data->HasProjects() ? data->Projects().SaveCurrentProject() : status::kAbandoned;
    };
}

void EditorSession::InstallTools()
{
    m_editor->TreeMenu().SetBrokenLinksCheck([this]() -> std::size_t {
        if (m_linkChecker && !m_linkChecker->ReportShown())
            m_linkChecker.reset();
        if (!m_linkChecker) {
            m_linkChecker = std::make_unique<CHtmlRefsChecker>(UserInterface());
            m_linkChecker->SetBaseFolder(m_projectFolder);
            m_linkChecker->ShowReport = [this](const std::vector<CBrokenLinkRow>& rows) {
                m_brokenLinks = rows;
                m_brokenLinksShown = true;
                Publish({ { "type", "editor-report" }, { "report", "broken-links" }, { "rows", RowsJson(rows) } });
            };
            m_linkChecker->BringReportToFront = [this] {
                Publish({ { "type", "editor-report" }, { "report", "broken-links" }, { "rows", RowsJson(m_brokenLinks) } });
            };
            m_linkChecker->CloseReport = [this] {
                m_brokenLinks.clear();
                m_brokenLinksShown = false;
                Publish({ { "type", "editor-report" }, { "report", "broken-links" }, { "closed", true } });
            };
            m_linkChecker->GoToBrokenLink
                = [this](const std::string& page, const std::string&, const std::string& reference) {
                      if (IsOpen())
                          m_editor->TreeMenu().GoToBrokenLink(page, reference);
                  };
        }
        CHelpPrjTree* tree = ServerData() ? ServerData()->LoadedTree() : nullptr;
        return tree ? m_linkChecker->init(tree->GetFilesHTMLCollection()) : 0;
    });
}

void EditorSession::SetVisible(bool visible)
{
    if (visible && IsOpen())
        Publish({ { "type", "editor" }, { "open", true }, { "focus", true } });
}

void EditorSession::Unload()
{
    if (!m_editor)
        return;
    if (m_editor->IsOpen()) {
        DepthGuard depth(m_depth);
        m_editor->Form_Unload();
    }
    Closed();
}

void EditorSession::Closed()
{
    if (!m_editor)
        return;
    LoadedForms().Unregister(this);
    if (m_linkChecker) {
        m_linkChecker->Dispose();
        m_linkChecker.reset();
    }
    if (m_search) {
        m_search->Dispose();
        m_search.reset();
    }
    std::string page = m_editor->Page().loadedDocUrl;
    if (!page.empty())
        KillTempPage(page);
    // A close can come from inside one of the editor's own calls (a
    // regeneration reopens the editor): the form ends when that call has.
    m_closed.push_back(std::move(m_editor));
    if (m_depth == 0)
        ForgetClosedEditors();
    Trace("Studio: the Help Editor closed");
    Changed();
}

void EditorSession::ForgetClosedEditors()
{
    m_closed.clear();
}

// --- the page's requests ---

void EditorSession::TakePage(const json& request)
{
    if (!IsOpen() || !request.is_object() || !request.contains("page") || !request["page"].is_object())
        return;
    const json& page = request["page"];
    std::string text = page.value("text", "");
    if (text.empty())
        return;
    m_heldIsSource = page.value("source", false);
    m_shownText = text;
    m_editor->DocumentChanged(text);
}

void EditorSession::NoteShownPage()
{
    if (!m_editor)
        return;
    const EditorPage& page = m_editor->Page();
    std::string shown = page.openedFileUrl + "|" + page.loadedDocUrl;
    if (shown != m_shownPage || page.text != m_shownText) {
        m_shownPage = shown;
        m_shownText = page.text;
        ++m_pageVersion;
        if (!page.findUrl.empty() || !page.findText.empty())
            ++m_findSerial;
    }
}

template<typename F>
json EditorSession::Step(const json& request, F step)
{
    if (!IsOpen())
        return State();
    auto started = std::chrono::steady_clock::now();
    {
        DepthGuard depth(m_depth);
        TakePage(request);
        ErrorFrame("EditorSession.Step", [&] { step(); });
        NoteShownPage();
    }
    if (m_depth == 0)
        ForgetClosedEditors();
    if (std::chrono::steady_clock::now() - started > kLongStep)
        Changed();
    return State();
}

json EditorSession::Select(const json& request, const std::string& key)
{
    return Step(request, [&] { m_editor->SelectNode(key); });
}

json EditorSession::Expand(const json& request, const std::string& key, bool expanded)
{
    return Step(request, [&] {
        CHelpPrjTree* tree = ServerData() ? ServerData()->LoadedTree() : nullptr;
        if (!tree)
            return;
        if (expanded)
            tree->Expand(key);
        else
            tree->Collapse(key);
    });
}

json EditorSession::Key(const json& request, int keyCode, int shift)
{
    return Step(request, [&] { m_editor->TreeMenu().KeyDown(keyCode, shift); });
}

json EditorSession::TreeMenu(const json& request, const std::string& item)
{
    return Step(request, [&] { m_editor->Command(item); });
}

json EditorSession::Rename(const json& request, const std::optional<std::string>& text)
{
    return Step(request, [&] {
        if (text)
            m_editor->TreeMenu().EndRename(*text);
        else
            m_editor->TreeMenu().CancelRename();
    });
}

json EditorSession::Drop(const json& request, const std::string& sourceKey, const std::string& targetKey)
{
    return Step(request, [&] { m_editor->TreeMenu().OLEDragDrop(sourceKey, targetKey); });
}

json EditorSession::Hold(const json& request)
{
    return Step(request, [] {});
}

json EditorSession::Save(const json& request)
{
    bool saved = false;
    json state = Step(request, [&] {
        const json page = request.is_object() ? request.value("page", json::object()) : json::object();
        std::string text = page.is_object() ? page.value("text", "") : "";
        if (text.empty())
            text = m_editor->Page().text;
        saved = m_editor->SaveDocument(text);
        if (saved)
            m_shownText = m_editor->Page().text;
    });
    state["saved"] = saved;
    return state;
}

json EditorSession::Navigated(const json& request, const std::string& path)
{
    return Step(request, [&] {
        std::size_t hash = path.find('#');
        std::string file = hash == std::string::npos ? path : path.substr(0, hash);
        std::string bookmark = hash == std::string::npos ? std::string() : path.substr(hash + 1);
        // The temporary page stands for the page it was made of.
        if (EqualsNoCase(FileNameOf(file), kTempPageName))
            return;
        m_editor->DocumentNavigated(file, bookmark);
    });
}

bool EditorSession::Command(const json& request, const std::string& name)
{
    if (!IsOpen())
        return false;
    bool ran = false;
    Step(request, [&] {
        if (name == "SearchForBrokenLinks") {
            m_editor->Save_CurrentDocumentIfDirty();
            UserInterface().ClearCancelRequest();
            m_editor->TreeMenu().SearchForBrokenLinks();
            ran = true;
            return;
        }
        ran = m_editor->MenuClick(name);
    });
    Changed();
    return ran;
}

// --- the source view ---

std::string EditorSession::SourceText(const std::string& html) const
{
    if (!IsOpen())
        return {};
    const EditorPage& page = m_editor->Page();
    std::string path = page.fromTemplate ? page.openedFileUrl : page.loadedDocUrl;
    return studio::SourceViewText(html, path.empty() ? page.loadedDocUrl : path);
}

std::string EditorSession::TempPage(const std::string& text)
{
    if (!IsOpen())
        return {};
    const EditorPage& page = m_editor->Page();
    std::string path = page.fromTemplate ? page.openedFileUrl : page.loadedDocUrl;
    if (path.empty())
        return {};
    std::string written;
    ErrorFrame("HTMLEdit.WriteTempFile", [&] { written = WriteTempPage(path, text); });
    return written;
}

// --- the project tools ---

std::size_t EditorSession::FindReplace(const json& request)
{
    if (!IsOpen())
        return 0;
    int mode = request.value("mode", 0) == 1 ? CHTMLFindReplaceAll::kReplace : CHTMLFindReplaceAll::kFind;
    std::string findWhat = request.value("findWhat", "");
    std::string replaceWith = request.value("replaceWith", "");
    m_wholeWord = request.value("wholeWord", false);
    m_matchCase = request.value("matchCase", false);
    bool htmlMode = request.value("htmlMode", false);
    Remember(m_findTexts, findWhat);
    if (mode == CHTMLFindReplaceAll::kReplace)
        Remember(m_replaceTexts, replaceWith);
    if (findWhat.empty())
        return 0;
    std::size_t hits = 0;
    Step(request, [&] {
        m_editor->Save_CurrentDocumentIfDirty();
        if (m_search) {
            m_search->Dispose();
            m_search.reset();
        }
        m_search = std::make_unique<CHTMLFindReplaceAll>(UserInterface());
        m_search->ShowReport = [this](const std::vector<std::string>& pages, const std::string& statusText,
                                   int occurrences) {
            json rows = json::array();
            for (const std::string& page : pages)
                rows.push_back({ { "page", FileNameOf(page) }, { "path", page } });
            m_findReport = { { "rows", rows }, { "status", statusText }, { "occurrences", occurrences } };
            json event = m_findReport;
            event["type"] = "editor-report";
            event["report"] = "find-replace";
            Publish(event);
        };
        m_search->BringReportToFront = [this] {
            json event = m_findReport;
            event["type"] = "editor-report";
            event["report"] = "find-replace";
            Publish(event);
        };
        m_search->CloseReport = [this] {
            m_findReport = nullptr;
            Publish({ { "type", "editor-report" }, { "report", "find-replace" }, { "closed", true } });
        };
        m_search->Find = [this](const std::string& page, const std::string& text) {
            if (IsOpen())
                m_editor->TreeMenu().LoadHTMLPageAndFindFirstSearchedEntry(page, text);
        };
        m_search->CallHelp = [this] { m_shell.Run("HelpTopics"); };
        UserInterface().ClearCancelRequest();
        CHelpPrjTree* tree = ServerData() ? ServerData()->LoadedTree() : nullptr;
        if (tree)
            hits = m_search->init(tree->GetFilesHTMLCollection(), mode, findWhat, replaceWith, m_wholeWord,
                m_matchCase, htmlMode);
        // A replacement may have changed the open page's file.
        if (mode == CHTMLFindReplaceAll::kReplace && hits > 0)
            m_editor->ReloadDocument();
    });
    Changed();
    return hits;
}

json EditorSession::Report(const std::string& report, const std::string& action, std::size_t row)
{
    return Step(json::object(), [&] {
        if (report == "broken-links" && m_linkChecker) {
            if (action == "open") {
                m_linkChecker->CommandOpen(row);
                ++m_findSerial;
            } else if (action == "close") {
                m_linkChecker->Dispose();
                m_linkChecker.reset();
            } else if (action == "help") {
                m_shell.Run("HelpTopics");
            }
        } else if (report == "find-replace" && m_search) {
            if (action == "open") {
                m_search->CommandOpen(row);
                ++m_findSerial;
            } else if (action == "close") {
                m_search->Dispose();
                m_search.reset();
            } else if (action == "help") {
                m_search->CommandHelp();
            }
        }
    });
}

std::string EditorSession::DefaultWordTarget() const
{
    WordExportProject project { m_projectName, m_projectName, m_projectFolder };
    return clsMSWordExport::DefaultTargetPath(project);
}

std::uint32_t EditorSession::WordExport(const std::string& target, bool savePictures)
{
    if (!IsOpen() || target.empty())
        return status::kAbandoned;
    std::uint32_t result = status::kAbandoned;
    Step(json::object(), [&] {
        m_editor->Save_CurrentDocumentIfDirty();
        CHelpPrjTree* tree = ServerData() ? ServerData()->LoadedTree() : nullptr;
        CAddInProject* project = CurrentProject();
        if (!tree || !tree->Root() || !project)
            return;
        WordExportProject exported { project->Name, project->Title(), m_projectFolder };
        UserInterface().ClearCancelRequest();
        clsMSWordExport exporter(UserInterface());
        result = exporter.ExportAndReport(*tree->Root(), exported, target, savePictures);
        UserInterface().ClearCancelRequest();
    });
    return result;
}

// --- the index entries dialog ---

json EditorSession::IndexDialogJson() const
{
    if (!m_indexDialog)
        return { { "open", false } };
    const frmHHCEntryIndexKeywords& dialog = *m_indexDialog;
    frmHHCEntryIndexKeywords::ButtonStates buttons = dialog.ToggleButtons();
    std::optional<std::size_t> selected = dialog.ListIndex();
    return {
        { "open", true },
        { "title", std::string(frmHHCEntryIndexKeywords::kTitle) },
        { "entries", dialog.IndexesCollection() },
        { "selected", selected ? json(*selected) : json(nullptr) },
        { "text", dialog.txtIndexEntry() },
        { "textFocus", dialog.TextBoxHasFocus() },
        { "buttons",
            { { "add", buttons.addEntry }, { "delete", buttons.deleteEntry }, { "up", buttons.moveUp },
                { "down", buttons.moveDown } } },
    };
}

void EditorSession::ShowIndexEntries(frmHHCEntryIndexKeywords& dialog)
{
    m_indexDialog = &dialog;
    json event = IndexDialogJson();
    event["type"] = "editor-dialog";
    event["dialog"] = "index-entries";
    m_events.Publish(event, kIndexDialogKey);
    EventLoop& loop = LogicLoop();
    while (!dialog.Closed()) {
        bool pageGone = m_events.SubscriberCount() == 0
            && StudioEvents::Clock::now() - m_events.NoSubscriberSince() >= kNoPageGrace;
        if (pageGone) {
            Trace("Studio: no page is connected; the index entries dialog is cancelled.");
            dialog.cmdCancel_Click();
            break;
        }
        loop.RunUntil([&] { return dialog.Closed(); }, std::chrono::milliseconds(200));
    }
    m_indexDialog = nullptr;
    m_events.Forget(kIndexDialogKey);
    Publish({ { "type", "editor-dialog" }, { "dialog", "index-entries" }, { "closed", true } });
}

json EditorSession::IndexEntries(const json& request)
{
    if (!m_indexDialog)
        return IndexDialogJson();
    frmHHCEntryIndexKeywords& dialog = *m_indexDialog;
    ErrorFrame("frmHHCEntryIndexKeywords.Click", [&] {
        if (request.contains("text") && request["text"].is_string())
            dialog.SetTxtIndexEntry(request["text"].get<std::string>());
        if (request.contains("selected")) {
            const json& selected = request["selected"];
            bool index = selected.is_number_integer() && selected.get<long long>() >= 0;
            dialog.SetListIndex(index ? std::optional<std::size_t>(selected.get<std::size_t>()) : std::nullopt);
        }
        std::string action = request.value("action", "select");
        if (action == "add")
            dialog.cmdAddEntry_Click();
        else if (action == "delete")
            dialog.cmdDeleteEntry_Click();
        else if (action == "up")
            dialog.cmdMoveUp_Click();
        else if (action == "down")
            dialog.cmdMoveDown_Click();
        else if (action == "ok")
            dialog.cmdOK_Click();
        else if (action == "cancel")
            dialog.cmdCancel_Click();
    });
    json state = IndexDialogJson();
    // OK and Cancel close it; the editor takes it down once the click is done.
    state["open"] = !dialog.Closed();
    return state;
}

// --- for the page ---

json EditorSession::State() const
{
    json state = { { "open", IsOpen() }, { "title", std::string(frmHelpEditor::kTitle) } };
    if (!IsOpen())
        return state;
    HelpEditorState editor = m_editor->State();
    const EditorPage& page = editor.page;
    std::string target = page.fromTemplate ? page.openedFileUrl : page.loadedDocUrl;
    json menu = json::array();
    for (const TreeMenuItem& item : editor.treeMenu)
        menu.push_back({ { "name", item.name }, { "caption", item.caption }, { "enabled", item.enabled } });
    std::string renameKey = editor.renaming && m_editor ? m_view->SelectedKey() : std::string();
    state["project"] = { { "name", m_projectName }, { "folder", m_projectFolder }, { "imageFolder", m_imageFolder } };
    state["treeVersion"] = m_view->Version();
    state["pageVersion"] = m_pageVersion;
    state["selectedKey"] = editor.selectedKey;
    state["dirty"] = editor.dirty;
    state["renaming"] = editor.renaming;
    state["renameKey"] = renameKey;
    state["page"] = {
        { "openedFileUrl", page.openedFileUrl },
        { "loadedDocUrl", page.loadedDocUrl },
        { "path", target },
        { "fromTemplate", page.fromTemplate },
        { "bookmark", page.bookmark },
        { "readOnly", !page.fromTemplate && IsReadOnlyFile(page.loadedDocUrl) },
    };
    state["find"] = { { "serial", m_findSerial }, { "url", page.findUrl }, { "text", page.findText } };
    state["treeMenu"] = menu;
    state["editorCommands"] = editor.editorCommands;
    state["undoStackLength"] = editor.undoStackLength;
    state["infoText"] = editor.infoText;
    state["findDialog"] = {
        { "findTexts", m_findTexts },
        { "replaceTexts", m_replaceTexts },
        { "wholeWord", m_wholeWord },
        { "matchCase", m_matchCase },
    };
    state["reports"] = {
        { "brokenLinks", m_brokenLinksShown ? RowsJson(m_brokenLinks) : json(nullptr) },
        { "findReplace", m_findReport },
    };
    return state;
}

json EditorSession::Tree() const
{
    if (!IsOpen())
        return { { "version", 0 }, { "items", json::array() } };
    CScrivServerData* data = ServerData();
    CHelpPrjTree* tree = data ? data->LoadedTree() : nullptr;
    EditorTreeView::PageOf pageOf = [tree](const std::string& key) -> std::string {
        CHelpPrjTreeNode* node = tree ? tree->MapItem(key) : nullptr;
        return node ? node->GeneratedHTMLFileFullPath() : std::string();
    };
    return { { "version", m_view->Version() }, { "items", m_view->Json(pageOf) } };
}

std::optional<std::string> EditorSession::HeldPageText(const std::string& path) const
{
    if (!IsOpen() || !m_editor->Dirty())
        return std::nullopt;
    const EditorPage& page = m_editor->Page();
    if (!SamePath(path, page.loadedDocUrl))
        return std::nullopt;
    return PageTextForEditing(page.text);
}

}  // namespace scriv::studio
