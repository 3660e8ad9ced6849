#include "editor/frmHelpEditor.h"

#include "editor/CXmlFormDescriptions.h"
#include "foundation/CTraceLog.h"
#include "foundation/CUTF8File.h"
#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "htmldom/HtmlDocument.h"
#include "htmldom/HtmlSerializer.h"
#include "model/CHelpPrjTree.h"
#include "model/CHelpPrjTreeNode.h"
#include "model/ITreeView.h"
#include "uidesc/CXmlForm.h"

namespace scriv {

namespace {

bool SamePage(const std::string& a, const std::string& b)
{
    return !a.empty() && EqualsNoCase(ToNativePath(a), ToNativePath(b));
}

// The editor commands that save the open page before they run.
bool SavesFirst(std::string_view name)
{
    return name == "Recompile" || name == "ExportToWord" || name == "GetNewObjects";
}

}  // namespace

// --- opening and closing ---

void frmHelpEditor::Form_Load(CHelpPrjTree& tree, ITreeView& view, HelpEditorSetup setup)
{
    m_tree = &tree;
    m_view = &view;
    m_setup = std::move(setup);
    m_page = EditorPage();
    m_dirty = false;
    m_closing = false;
    m_settingUp = true;
    ErrorFrame("frmHelpEditor.Form_Load", [&] {
        Trace("baseFolder = " + m_setup.baseFolder + ", imageFolder = " + m_setup.imageFolder);
        UserInterface().ProgressInit("Filling treeview...", 1);
        view.Clear();
        tree.DisplayInTreeview(&view);
        m_treeMenu.init(&view, &tree, m_setup.tree, this);
        UserInterface().ProgressDispose();
    });
    m_settingUp = false;
    m_open = true;
    OpenRootDocument();
}

void frmHelpEditor::OpenRootDocument()
{
    CHelpPrjTreeNode* root = m_tree ? m_tree->Root() : nullptr;
    if (!root)
        return;
    if (!root->TreeViewNode().empty())
        m_view->Select(root->TreeViewNode());
    std::string page = root->GeneratedHTMLFileFullPath();
    if (!page.empty() && FileExists(page))
        HtmlFileSelected(page, "");
    else
        HtmlFileIsAbsentForCurrentNode(root->TemplateHtmlFileFullPath());
}

void frmHelpEditor::Form_Unload()
{
    if (!m_open)
        return;
    IUserInterface& ui = UserInterface();
    ErrorFrame("frmHelpEditor.Form_Unload", [&] {
        ui.ProgressInit("Start project unloading...", 3);
        ui.ProgressUpdate("Saving current document...", 1);
        Save_CurrentDocumentIfDirty();
        m_closing = true;
        if (m_tree && m_tree->WasChanged()) {
            ui.ProgressUpdate("Saving current project...", 2);
            if (m_setup.commands.saveCurrentProject) {
                std::uint32_t code = m_setup.commands.saveCurrentProject();
                if (code != 0)
                    Trace("frmHelpEditor.Form_Unload: the project was not saved, " + FormatCode(code));
            } else {
                Trace("frmHelpEditor.Form_Unload: nothing saves the changed project");
            }
        }
        ui.ProgressDispose();
    });
    m_closing = true;
    m_open = false;
    m_treeMenu.Terminate();
    if (m_tree)
        m_tree->Terminate();
    m_tree = nullptr;
    m_view = nullptr;
}

// --- the page ---

void frmHelpEditor::SelectNode(const std::string& key)
{
    if (m_open)
        m_treeMenu.TreeViewMouseDown(key);
}

void frmHelpEditor::DocumentChanged(const std::string& pageText)
{
    if (!m_open)
        return;
    m_page.text = pageText;
    m_dirty = true;
}

void frmHelpEditor::TraceState(std::string_view step) const
{
    Trace("frmHelpEditor." + std::string(step) + " -> OpenedFileURL = " + m_page.openedFileUrl
        + ", LoadedDocURL = " + m_page.loadedDocUrl + ", Dirty = " + (m_dirty ? "True" : "False"));
}

bool frmHelpEditor::SaveDocument(const std::string& pageText)
{
    if (!m_open || m_closing)
        return false;
    // An absent page is created at its first save; a template is never written.
    std::string target = m_page.fromTemplate ? m_page.openedFileUrl : m_page.loadedDocUrl;
    if (target.empty()) {
        Trace("frmHelpEditor.SaveDocument: the topic has no page to save to");
        return false;
    }
    if (!m_page.fromTemplate && m_pageExisted && !FileExists(target)) {
        // The page was deleted with its node: the held text goes with it.
        Trace("frmHelpEditor.SaveDocument: '" + target + "' was deleted; its changes are dropped");
        m_dirty = false;
        return false;
    }
    if (!m_setup.writePage) {
        Trace("frmHelpEditor.SaveDocument: no page writer; '" + target + "' is not saved");
        return false;
    }
    bool written = false;
    ErrorFrame("frmHelpEditor.SaveDocument", [&] { written = m_setup.writePage(target, pageText); });
    if (!written) {
        Trace("frmHelpEditor.SaveDocument: '" + target + "' could not be written");
        return false;
    }
    m_page.text = pageText;
    m_page.loadedDocUrl = target;
    m_page.fromTemplate = false;
    m_pageExisted = true;
    m_dirty = false;
    m_treeMenu.DocumentSaved(target);
    return true;
}

void frmHelpEditor::Save_CurrentDocumentIfDirty()
{
    if (m_settingUp || m_closing || !m_dirty)
        return;
    std::string target = m_page.fromTemplate ? m_page.openedFileUrl : m_page.loadedDocUrl;
    Trace("Save_CurrentDocumentIfDirty(1) -> HTMLEditor.SaveDocument, " + target);
    SaveDocument(m_page.text);
    Trace("Save_CurrentDocumentIfDirty(2) -> HTMLEditor.SaveDocument, " + target);
}

void frmHelpEditor::ReloadDocument()
{
    if (!m_open || m_page.loadedDocUrl.empty())
        return;
    std::string bookmark = m_page.bookmark;
    Open_Document(m_page.loadedDocUrl, m_page.openedFileUrl, m_page.fromTemplate);
    m_page.bookmark = bookmark;
}

void frmHelpEditor::Open_Document(const std::string& path, const std::string& asked, bool fromTemplate)
{
    if (m_settingUp || m_closing)
        return;
    TraceState("Open_Document(1)");
    EditorPage page;
    page.openedFileUrl = asked;
    page.loadedDocUrl = path;
    page.fromTemplate = fromTemplate;
    page.text = ReadTextFile(path);
    m_page = std::move(page);
    m_pageExisted = !fromTemplate && FileExists(path);
    m_dirty = false;
    TraceState("Open_Document(2)");
}

void frmHelpEditor::DocumentNavigated(const std::string& path, const std::string& bookmark)
{
    if (!m_open || path.empty())
        return;
    if (!SamePage(path, m_page.loadedDocUrl)) {
        Save_CurrentDocumentIfDirty();
        Open_Document(path, path, false);
    }
    m_page.bookmark = bookmark;
    m_treeMenu.SyncTOCTreeview(path, bookmark);
}

// ^ITreeMenuEvents

void frmHelpEditor::HtmlFileSelected(const std::string& path, const std::string& bookmark)
{
    if (!m_open)
        return;
    if (SamePage(path, m_page.loadedDocUrl) && !m_page.fromTemplate) {
        m_page.bookmark = bookmark;
        m_page.findUrl.clear();
        m_page.findText.clear();
        return;
    }
    Save_CurrentDocumentIfDirty();
    CHelpPrjTreeNode* node = m_treeMenu.SelectedNode();
    if (node && node->Terminated())
        return;
    Open_Document(path, path, false);
    m_page.bookmark = bookmark;
}

void frmHelpEditor::HtmlFileIsAbsentForCurrentNode(const std::string& templateFile)
{
    if (!m_open)
        return;
    Save_CurrentDocumentIfDirty();
    CHelpPrjTreeNode* node = m_treeMenu.SelectedNode();
    std::string asked = node ? node->GeneratedHTMLFileFullPath() : std::string();
    // The save may just have made the page.
    if (!asked.empty() && FileExists(asked)) {
        Open_Document(asked, asked, false);
        return;
    }
    std::string shown = m_setup.contentsTemplate.empty() ? templateFile : m_setup.contentsTemplate;
    Open_Document(shown, asked, true);
}

void frmHelpEditor::HtmlFindUrlWithinCurrentPage(const std::string& url)
{
    m_page.findUrl = url;
}

void frmHelpEditor::FindFirst(const std::string& text)
{
    m_page.findText = text;
}

void frmHelpEditor::NodeCaptionChanged(const std::string& key, const std::string& caption)
{
    CHelpPrjTreeNode* node = m_tree ? m_tree->MapItem(key) : nullptr;
    if (!node || node->IsControl || node->IsMenu)
        return;
    int type = node->ObjectType();
    if (type == objtype::kForm || type == objtype::kReport) {
        CXmlFormDescriptions descriptions(m_setup.tree.xmlFormsFolder);
        if (std::unique_ptr<CXmlForm> form = descriptions.LoadXmlForm(*node)) {
            form->Text = caption;
            descriptions.SaveXmlForm(*node, *form);
        }
    }
    if (SamePage(node->GeneratedHTMLFileFullPath(), m_page.openedFileUrl))
        RetitleOpenPage(caption);
}

void frmHelpEditor::RetitleOpenPage(const std::string& caption)
{
    if (m_page.text.empty())
        return;
    std::unique_ptr<HtmlDocument> document = HtmlDocument::Parse(m_page.text);
    // The title heading: the first H1, else (on older pages) the first H2; a
    // bookmark anchor inside it keeps its place and takes the text.
    std::vector<HtmlElement*> headings = document->getElementsByTagName("h1");
    if (headings.empty())
        headings = document->getElementsByTagName("h2");
    bool changed = false;
    if (!headings.empty()) {
        std::vector<HtmlElement*> anchors = headings.front()->getElementsByTagName("a");
        (anchors.empty() ? headings.front() : anchors.front())->setTextContent(caption);
        changed = true;
    }
    std::vector<HtmlElement*> titles = document->getElementsByTagName("title");
    if (!titles.empty()) {
        titles.front()->setTextContent(caption);
        changed = true;
    }
    if (!changed)
        return;
    m_page.text = SerializeHtml(*document);
    m_dirty = true;
}

// --- commands ---

const std::function<void()>* frmHelpEditor::CommandOf(std::string_view name) const
{
    const HelpEditorCommands& commands = m_setup.commands;
    const std::function<void()>* command = nullptr;
    if (name == "About")
        command = &commands.about;
    else if (name == "Contents")
        command = &commands.contents;
    else if (name == "Index")
        command = &commands.index;
    else if (name == "Search")
        command = &commands.search;
    else if (name == "Recompile")
        command = &commands.recompile;
    else if (name == "GetNewObjects")
        command = &commands.getNewObjects;
    else if (name == "OpenHelp")
        command = &commands.openHelp;
    else if (name == "OpenWebHelp")
        command = &commands.openWebHelp;
    else if (name == "OpenHelpFolder")
        command = &commands.openHelpFolder;
    else if (name == "ExportToWord")
        command = &commands.exportToWord;
    return command && *command ? command : nullptr;
}

std::vector<std::string> frmHelpEditor::EditorCommands() const
{
    std::vector<std::string> names;
    for (const char* name : { "About", "Contents", "Index", "Search", "Recompile", "GetNewObjects", "OpenHelp",
             "OpenWebHelp", "OpenHelpFolder", "ExportToWord" })
        if (CommandOf(name))
            names.push_back(name);
    names.push_back("Close");
    names.push_back("Exit");
    return names;
}

bool frmHelpEditor::MenuClick(std::string_view name)
{
    if (!m_open)
        return false;
    if (name == "Close" || name == "Exit") {
        std::function<void()> closed = m_setup.commands.close;
        Form_Unload();
        if (closed)
            ErrorFrame("frmHelpEditor.HTMLEditTarnwick_MenuClick", closed);
        return true;
    }
    const std::function<void()>* command = CommandOf(name);
    if (!command)
        return false;
    if (SavesFirst(name))
        Save_CurrentDocumentIfDirty();
    ErrorFrame("frmHelpEditor.HTMLEditTarnwick_MenuClick", *command);
    return true;
}

bool frmHelpEditor::Command(std::string_view name)
{
    if (!m_open)
        return false;
    if (name.rfind("mnu", 0) == 0)
        return m_treeMenu.MenuClick(name);
    return MenuClick(name);
}

HelpEditorState frmHelpEditor::State() const
{
    HelpEditorState state;
    state.open = m_open;
    state.page = m_page;
    state.dirty = m_dirty;
    if (!m_open)
        return state;
    state.selectedKey = m_view ? m_view->SelectedKey() : std::string();
    state.treeMenu = m_treeMenu.PopupMenu();
    state.editorCommands = EditorCommands();
    state.undoStackLength = m_treeMenu.Manipulator().UndoStackLength();
    state.infoText = m_treeMenu.InfoText();
    state.renaming = m_treeMenu.Renaming();
    return state;
}

}  // namespace scriv
