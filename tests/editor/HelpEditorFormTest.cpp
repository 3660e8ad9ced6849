#include <gtest/gtest.h>

#include "editor/CXmlFormDescriptions.h"
#include "editor/frmHelpEditor.h"
#include "foundation/Paths.h"
#include "model/CHeadlessTreeView.h"
#include "model/CHelpPrjTree.h"
#include "support/CoreFixture.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

const char* kProject = R"(<Project Key="P" Caption="Help" GeneratedHtmlFile="Welcome.htm">
    <Topic Key="A" Caption="Alpha" GeneratedHtmlFile="Alpha.htm"/>
    <Topic Key="B" Caption="Beta" GeneratedHtmlFile="Beta.htm">
      <Form Key="B.frmMain" Name="frmMain" Caption="Main" type="2" ProcessCode="999" GeneratedHtmlFile="frmMain.htm"/>
    </Topic>
    <Topic Key="C" Caption="Gamma" GeneratedHtmlFile="Gamma.htm"/>
  </Project>)";

const char* kContentsTemplate = "<html><head><title>{{HelpProjectTitle}}</title></head><body>{{TOC}}</body></html>";

class HelpEditorFormTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        for (const char* page : { "Welcome.htm", "Alpha.htm", "Beta.htm" })
            m_pages.Write(page, std::string("<html><body><p>") + page + "</p></body></html>");
        m_pages.Write("frmMain.htm", "<html><head><title>Main</title></head><body><h1>Main</h1>"
                                     "<h2><a name=\"frmMain_cmdOK\">OK</a></h2></body></html>");
        m_pages.Write("xml/frmMain.xml", R"(<Form Name="frmMain" Text="Main" HtmlFileName="frmMain.htm"><Controls/></Form>)");
        m_template = m_templates.Write("Contents.htm", kContentsTemplate);

        m_tree.HTMLHelpProjectRootDir = m_pages.Path();
        ASSERT_EQ(m_tree.Load("", false, kProject), 0u);

        m_setup.tree.projectFolder = m_pages.Path();
        m_setup.tree.xmlFormsFolder = m_pages.Path() + "xml/";
        m_setup.baseFolder = m_pages.Path();
        m_setup.imageFolder = m_pages.Path() + "images/";
        m_setup.contentsTemplate = m_template;
        m_setup.writePage = [this](const std::string& path, const std::string& text) {
            m_calls.push_back("write " + FileNameOf(path));
            return WriteFileBytes(path, text);
        };
        m_setup.commands.recompile = [this] { m_calls.push_back("recompile"); };
        m_setup.commands.about = [this] { m_calls.push_back("about"); };
        m_setup.commands.close = [this] { m_calls.push_back("close"); };
        m_setup.commands.saveCurrentProject = [this] {
            m_calls.push_back("save project");
            return 0u;
        };
    }

    void Load() { m_editor.Form_Load(m_tree, m_view, m_setup); }
    std::string Page(const std::string& name) const { return m_pages.Path() + name; }

    test::TempFolder m_pages;
    test::TempFolder m_templates;
    std::string m_template;
    CHelpPrjTree m_tree;
    CHeadlessTreeView m_view;
    HelpEditorSetup m_setup;
    frmHelpEditor m_editor;
    std::vector<std::string> m_calls;
};

// --- opening ---

TEST_F(HelpEditorFormTest, LoadingShowsTheTreeAndOpensTheRootPage)
{
    Load();
    EXPECT_TRUE(m_editor.IsOpen());
    EXPECT_EQ(m_view.TopKeys(), (std::vector<std::string> { "P" }));
    EXPECT_EQ(m_view.ChildrenKeys("P"), (std::vector<std::string> { "A", "B", "C" }));
    EXPECT_EQ(m_view.SelectedKey(), "P");
    EXPECT_EQ(m_editor.OpenedFileURL(), Page("Welcome.htm"));
    EXPECT_EQ(m_editor.LoadedDocURL(), Page("Welcome.htm"));
    EXPECT_EQ(m_editor.Page().text, "<html><body><p>Welcome.htm</p></body></html>");
    EXPECT_FALSE(m_editor.Dirty());
    ASSERT_FALSE(m_ui->ProgressCalls().empty());
    EXPECT_EQ(m_ui->ProgressCalls()[0].text, "Filling treeview...");
    EXPECT_NE(TraceText().find("baseFolder = " + m_pages.Path()), std::string::npos);
}

// --- moving between pages ---

TEST_F(HelpEditorFormTest, ADirtyPageIsSavedBeforeAnotherOpens)
{
    Load();
    m_editor.DocumentChanged("<html><body><p>edited welcome</p></body></html>");
    EXPECT_TRUE(m_editor.Dirty());
    m_editor.SelectNode("A");
    EXPECT_EQ(m_calls, (std::vector<std::string> { "write Welcome.htm" }));
    EXPECT_EQ(m_pages.Read("Welcome.htm"), "<html><body><p>edited welcome</p></body></html>");
    EXPECT_EQ(m_editor.LoadedDocURL(), Page("Alpha.htm"));
    EXPECT_EQ(m_editor.Page().text, "<html><body><p>Alpha.htm</p></body></html>");
    EXPECT_FALSE(m_editor.Dirty());

    // A clean page is not written again.
    m_editor.SelectNode("B");
    EXPECT_EQ(m_calls.size(), 1u);
    EXPECT_NE(TraceText().find("Save_CurrentDocumentIfDirty(1) -&gt; HTMLEditor.SaveDocument"), std::string::npos);
}

TEST_F(HelpEditorFormTest, AnotherBookmarkOfTheOpenPageOnlyMovesThere)
{
    Load();
    CHelpPrjTreeNode* form = m_tree.MapItem("B.frmMain");
    DocumentedControls controls;
    controls.items.push_back({ "cmdOK", "cmdOK", "frmMain_cmdOK", "OK", false, false });
    m_tree.AddControls(*form, form->Level(), controls, false);

    m_editor.SelectNode("B.frmMain");
    m_editor.DocumentChanged("<html><body><h1>Main, edited</h1></body></html>");
    m_editor.SelectNode("B.frmMain.cmdOK");
    EXPECT_EQ(m_editor.Page().bookmark, "frmMain_cmdOK");
    EXPECT_EQ(m_editor.Page().text, "<html><body><h1>Main, edited</h1></body></html>");
    EXPECT_TRUE(m_editor.Dirty()) << "the same page is neither saved nor reloaded";
    EXPECT_TRUE(m_calls.empty());
}

TEST_F(HelpEditorFormTest, AnAbsentPageShowsTheTemplateAndOnlyItsFirstSaveMakesTheFile)
{
    Load();
    m_editor.SelectNode("C");
    const EditorPage& page = m_editor.Page();
    EXPECT_TRUE(page.fromTemplate);
    EXPECT_EQ(page.text, kContentsTemplate);
    EXPECT_EQ(m_editor.OpenedFileURL(), Page("Gamma.htm"));
    EXPECT_EQ(m_editor.LoadedDocURL(), m_template);
    EXPECT_FALSE(FileExists(Page("Gamma.htm")));

    m_editor.SelectNode("A");
    m_editor.SelectNode("C");
    EXPECT_FALSE(FileExists(Page("Gamma.htm"))) << "looking at an absent page makes no file";

    ASSERT_TRUE(m_editor.SaveDocument("<html><body>gamma</body></html>"));
    EXPECT_EQ(m_pages.Read("Gamma.htm"), "<html><body>gamma</body></html>");
    EXPECT_EQ(m_templates.Read("Contents.htm"), kContentsTemplate) << "the template is never written";
    EXPECT_EQ(m_editor.LoadedDocURL(), Page("Gamma.htm"));
    EXPECT_FALSE(m_editor.Page().fromTemplate);
}

TEST_F(HelpEditorFormTest, EditsOfAnAbsentPageAreSavedToItWhenItIsSelectedAgain)
{
    Load();
    m_editor.SelectNode("C");
    m_editor.DocumentChanged("<html><body>new gamma</body></html>");
    m_editor.SelectNode("C");
    EXPECT_EQ(m_pages.Read("Gamma.htm"), "<html><body>new gamma</body></html>");
    EXPECT_FALSE(m_editor.Page().fromTemplate);
    EXPECT_EQ(m_editor.Page().text, "<html><body>new gamma</body></html>");
}

TEST_F(HelpEditorFormTest, APageDeletedWithItsNodeIsNotWrittenBack)
{
    Load();
    m_editor.SelectNode("A");
    m_editor.DocumentChanged("<html><body>alpha, unsaved</body></html>");
    m_ui->QueueAnswer(vbYes);
    EXPECT_TRUE(m_editor.Command("mnuDelete"));
    EXPECT_FALSE(FileExists(Page("Alpha.htm")));
    EXPECT_EQ(m_view.SelectedKey(), "P");
    EXPECT_EQ(m_editor.LoadedDocURL(), Page("Welcome.htm"));
    EXPECT_TRUE(m_calls.empty());
}

TEST_F(HelpEditorFormTest, AFollowedLinkSelectsTheNodeOfItsPage)
{
    Load();
    m_editor.DocumentNavigated(Page("Beta.htm"), "");
    EXPECT_EQ(m_view.SelectedKey(), "B");
    EXPECT_EQ(m_editor.LoadedDocURL(), Page("Beta.htm"));
    EXPECT_EQ(m_editor.Page().text, "<html><body><p>Beta.htm</p></body></html>");
}

TEST_F(HelpEditorFormTest, AFailedWriteKeepsThePageDirty)
{
    m_setup.writePage = [](const std::string&, const std::string&) { return false; };
    Load();
    m_editor.DocumentChanged("<html>changed</html>");
    EXPECT_FALSE(m_editor.SaveDocument("<html>changed</html>"));
    EXPECT_TRUE(m_editor.Dirty());
}

TEST_F(HelpEditorFormTest, SearchesAndBrokenLinksLeaveTheirTargetInThePage)
{
    Load();
    m_editor.TreeMenu().LoadHTMLPageAndFindFirstSearchedEntry(Page("Alpha.htm"), "colour");
    EXPECT_EQ(m_editor.Page().findText, "colour");
    EXPECT_EQ(m_editor.LoadedDocURL(), Page("Alpha.htm"));
    m_editor.TreeMenu().GoToBrokenLink(Page("Beta.htm"), "gone.htm");
    EXPECT_EQ(m_editor.Page().findUrl, "gone.htm");
    EXPECT_EQ(m_editor.Page().findText, "");
}

// --- renaming ---

TEST_F(HelpEditorFormTest, RenamingAFormTopicRetitlesItsDescriptionAndTheOpenPage)
{
    Load();
    m_editor.SelectNode("B.frmMain");
    ASSERT_TRUE(m_editor.TreeMenu().StartRename());
    ASSERT_TRUE(m_editor.TreeMenu().EndRename("Orders"));

    CXmlForm form;
    ASSERT_TRUE(form.Load(m_pages.Path() + "xml/frmMain.xml"));
    EXPECT_EQ(form.Text, "Orders");
    const std::string& text = m_editor.Page().text;
    EXPECT_NE(text.find("<title>Orders</title>"), std::string::npos) << text;
    EXPECT_NE(text.find("<h1>Orders</h1>"), std::string::npos) << text;
    EXPECT_NE(text.find("<a name=\"frmMain_cmdOK\">OK</a>"), std::string::npos) << "sections keep their headings";
    EXPECT_TRUE(m_editor.Dirty());
}

TEST_F(HelpEditorFormTest, RenamingATopicWithoutH1RetitlesItsFirstHeadingAnchor)
{
    m_pages.Write("Alpha.htm", "<html><body><h2><a name=\"top\">Alpha</a></h2><h2>Next</h2></body></html>");
    Load();
    m_editor.SelectNode("A");
    m_editor.TreeMenu().StartRename();
    m_editor.TreeMenu().EndRename("First");
    EXPECT_NE(m_editor.Page().text.find("<h2><a name=\"top\">First</a></h2><h2>Next</h2>"), std::string::npos)
        << m_editor.Page().text;

    // A topic whose page is not the open one leaves the page alone.
    std::string before = m_editor.Page().text;
    m_view.Select("C");
    m_editor.TreeMenu().StartRename();
    m_editor.TreeMenu().EndRename("Third");
    EXPECT_EQ(m_editor.Page().text, before);
}

// --- commands and closing ---

TEST_F(HelpEditorFormTest, CommandsThatUseThePagesSaveTheOpenOneFirst)
{
    Load();
    m_editor.DocumentChanged("<html>welcome v2</html>");
    EXPECT_TRUE(m_editor.Command("About"));
    EXPECT_TRUE(m_editor.Command("Recompile"));
    EXPECT_EQ(m_calls, (std::vector<std::string> { "about", "write Welcome.htm", "recompile" }));
    EXPECT_FALSE(m_editor.Command("ExportToWord")) << "not supplied, not offered";
    std::vector<std::string> offered = m_editor.EditorCommands();
    EXPECT_EQ(offered, (std::vector<std::string> { "About", "Recompile", "Close", "Exit" }));
    EXPECT_FALSE(m_editor.Command("Nonsense"));
}

TEST_F(HelpEditorFormTest, ClosingSavesTheDirtyPageWithoutAskingAndTheChangedProject)
{
    Load();
    m_editor.SelectNode("C");
    m_editor.TreeMenu().KeyDown(treekeys::kSpace, 0);
    EXPECT_TRUE(m_tree.WasChanged());
    m_editor.SelectNode("A");
    m_editor.DocumentChanged("<html>alpha v2</html>");
    EXPECT_TRUE(m_editor.Command("Close"));
    EXPECT_EQ(m_calls, (std::vector<std::string> { "write Alpha.htm", "save project", "close" }));
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
    EXPECT_FALSE(m_editor.IsOpen());
    EXPECT_EQ(m_tree.Root(), nullptr) << "the tree is loaded again for the next editor";
    EXPECT_FALSE(m_editor.Command("About"));
    m_editor.Form_Unload();
    EXPECT_EQ(m_calls.size(), 3u);
}

TEST_F(HelpEditorFormTest, ClosingWithoutChangesWritesNothing)
{
    Load();
    m_editor.SelectNode("B");
    EXPECT_TRUE(m_editor.Command("Exit"));
    EXPECT_EQ(m_calls, (std::vector<std::string> { "close" }));
}

TEST_F(HelpEditorFormTest, TheStateCarriesPageMenuAndSelection)
{
    Load();
    m_editor.SelectNode("A");
    m_editor.Command("mnuCopy");
    m_editor.Command("mnuXML");
    HelpEditorState state = m_editor.State();
    EXPECT_TRUE(state.open);
    EXPECT_EQ(state.selectedKey, "A");
    EXPECT_EQ(state.page.openedFileUrl, Page("Alpha.htm"));
    EXPECT_EQ(state.undoStackLength, 2u);
    EXPECT_EQ(state.infoText.rfind("<Topic level = \"1\"", 0), 0u);
    ASSERT_FALSE(state.treeMenu.empty());
    EXPECT_EQ(state.treeMenu.front().name, "mnuUndo");
    EXPECT_TRUE(state.treeMenu.front().enabled);
    EXPECT_FALSE(state.dirty);
}

}  // namespace
}  // namespace scriv
