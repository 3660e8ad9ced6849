#include <gtest/gtest.h>

#include <chrono>

#include "foundation/CCodePages.h"
#include "foundation/EventLoop.h"
#include "foundation/Paths.h"
#include "model/CAddInProject.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CHelpPrjTreeNode.h"
#include "server/CScrivActions.h"
#include "server/CTimer.h"
#include "support/CoreFixture.h"
#include "wizard/CHelpWizardForm.h"
#include "wizard/WizardPages.h"
#include "wizard/ctlHelpProjectContents.h"

namespace scriv {
namespace {

using namespace std::chrono_literals;

// The wizard as the server opens it for a new help project of a host made of
// data, answered through the scripted user interface.
class WizardPagesTest : public test::CoreFixture {
protected:
    // The project file is read for the contents; by default it is not there.
    std::string Host(const std::string& type = "VB6", const std::string& projectFile = {}) const
    {
        std::string file = projectFile.empty() ? m_app.Path() + "Orders.vbp" : projectFile;
        return "<Host><Project Name=\"Orders\" FullPath=\"" + file + "\" Type=\"" + type
            + "\" Active=\"true\">"
              "<Form Name=\"frmMain\" Text=\"Order Desk\" WindowSize=\"480, 360\" ClientAreaOffset=\"4, 30\"><Controls/></Form>"
              "<Form Name=\"frmCustomer\" Text=\"Customer\" WindowSize=\"400, 300\" ClientAreaOffset=\"4, 30\"><Controls/></Form>"
              "<Form Name=\"frmAbout\" Text=\"About\" WindowSize=\"300, 200\" ClientAreaOffset=\"4, 30\"><Controls/></Form>"
              "</Project></Host>";
    }

    // Opens the wizard as New Help Project does, with nobody answering for it.
    CHelpWizardForm& Open(const std::string& type = "VB6", const std::string& projectFile = {})
    {
        Connect(Host(type, projectFile));
        Data().Unattended = false;
        EXPECT_EQ(Server().OpenNewProject(), 0u);
        CHelpWizardForm* wizard = Server().Actions().Wizard();
        EXPECT_NE(wizard, nullptr);
        EXPECT_TRUE(wizard->Shown());
        return *wizard;
    }

    static void GoTo(CHelpWizardForm& wizard, const std::string& name)
    {
        while (wizard.CurrentPage()->Name != name && wizard.ForwardEnabled())
            wizard.NextPage();
        ASSERT_EQ(wizard.CurrentPage()->Name, name);
    }

    static CHelpWizardFormPageControl& Control(CHelpWizardForm& wizard, const std::string& name)
    {
        CHelpWizardFormPageControl* control = wizard.CurrentPage()->Control(name);
        EXPECT_NE(control, nullptr) << name;
        return *control;
    }

    static std::vector<std::string> ItemValues(const CHelpWizardFormPageControl& control)
    {
        std::vector<std::string> values;
        for (const auto& item : control.Items)
            values.push_back(item.value);
        return values;
    }

    // Registers a saved help project of that name.
    void RegisterSaved(const std::string& name)
    {
        auto project = std::make_unique<CAddInProject>();
        project->Name = name;
        project->IsNew = false;
        Data().Projects().Add(std::move(project));
    }

    test::TempFolder m_app;
};

TEST_F(WizardPagesTest, EveryPageHasItsRulesAndAPreviewBesideIt)
{
    CHelpWizardForm& wizard = Open();
    std::vector<std::pair<std::string, WizardPreview::Kind>> seen;
    for (;;) {
        CHelpWizardFormPage* page = wizard.CurrentPage();
        ASSERT_NE(page->PageControl, nullptr);
        EXPECT_EQ(page->PageControl->ControlName(), "ctl" + page->Name);
        WizardPreview preview = wizard.CurrentPreview();
        seen.emplace_back(page->Name, preview.kind);
        EXPECT_TRUE(FileExists(preview.path)) << page->Name << ": " << preview.path;
        if (!wizard.ForwardEnabled())
            break;
        wizard.NextPage();
    }
    ASSERT_EQ(seen.size(), 15u);
    for (const auto& [name, kind] : seen) {
        bool picture = name == "HelpIndex" || name == "Generate";
        EXPECT_EQ(kind, picture ? WizardPreview::Kind::Picture : WizardPreview::Kind::Page) << name;
    }
}

TEST_F(WizardPagesTest, TheSampleFormFollowsTheChoicesAndStandsWithItsPictureAndStyleSheet)
{
    CHelpWizardForm& wizard = Open();
    std::string sample = wizard.CurrentPreview().path;
    EXPECT_EQ(FileNameOf(sample), "~SampleForm.html");
    std::string text = *ReadFileText(sample);
    EXPECT_NE(text.find("<IMG SRC=\"images/SampleForm.jpg\""), std::string::npos) << text;
    EXPECT_NE(text.find("href=\"Office10.css\""), std::string::npos);
    EXPECT_TRUE(FileExists(FolderOf(sample) + "images/SampleForm.jpg"));
    EXPECT_TRUE(FileExists(FolderOf(sample) + "Office10.css"));
    EXPECT_NE(text.find("Customer"), std::string::npos);

    GoTo(wizard, "FormsPage");
    ASSERT_TRUE(wizard.SetControlValue("chkAddImage", "0"));
    EXPECT_FALSE(Parameters().AddImageForForm);
    text = *ReadFileText(wizard.CurrentPreview().path);
    EXPECT_EQ(text.find("<IMG"), std::string::npos);

    GoTo(wizard, "ReportsPage");
    EXPECT_EQ(FileNameOf(wizard.CurrentPreview().path), "~SampleReport.html");

    // Every sample goes with the wizard.
    std::string folder = CHelpWizardForm::SampleFolder();
    Server().Actions().Wizard()->Cancel();
    EXPECT_FALSE(FileExists(sample));
    EXPECT_FALSE(FolderExists(folder));
}

TEST_F(WizardPagesTest, TheTextPagesShowTheValuesTypedOnTheirPage)
{
    CHelpWizardForm& wizard = Open();
    GoTo(wizard, "Application");
    ASSERT_TRUE(wizard.SetControlValue("txtApplication", "Order Desk Pro"));
    EXPECT_EQ(Parameters().ApplicationNameStr, "Order Desk Pro");
    EXPECT_NE(ReadFileText(wizard.CurrentPreview().path)->find("Welcome to the help of Order Desk Pro."),
        std::string::npos);
    GoTo(wizard, "Author");
    ASSERT_TRUE(wizard.SetControlValue("txtOrganization", "Acme Tools"));
    EXPECT_EQ(FileNameOf(wizard.CurrentPreview().path), "~Author.html");
    EXPECT_NE(ReadFileText(wizard.CurrentPreview().path)->find("is made by Acme Tools."), std::string::npos);
}

TEST_F(WizardPagesTest, AnEmptyNameBecomesAUniqueOneAndTheTitleThatOfTheApplication)
{
    Connect(Host());
    RegisterSaved("Orders");
    RegisterSaved("Orders1");
    Data().Unattended = false;
    ASSERT_EQ(Server().OpenNewProject(), 0u);
    CHelpWizardForm& wizard = *Server().Actions().Wizard();
    EXPECT_EQ(Data().Projects().CurrentProject()->Name, "Orders2");
    // The name box starts empty when the settings name no project.
    wizard.Settings()->SetOptionText("HelpProjectName", "");
    Parameters().SetHelpProjectName("");
    GoTo(wizard, "HelpProject");
    EXPECT_EQ(Control(wizard, "txtName").Value, "Orders2");
    EXPECT_EQ(Control(wizard, "txtTitle").Value, "Orders2");
    EXPECT_EQ(Parameters().HelpProjectName(), "Orders2");
    EXPECT_EQ(wizard.Settings()->OptionText("HelpProjectName"), "Orders2");
    EXPECT_EQ(wizard.Settings()->OptionText("HelpProjectTitle"), "Orders2");
}

TEST_F(WizardPagesTest, ANewNameRenamesTheHelpProjectUnlessAnotherHasIt)
{
    Connect(Host());
    RegisterSaved("Archive");
    Data().Unattended = false;
    ASSERT_EQ(Server().OpenNewProject(), 0u);
    CHelpWizardForm& wizard = *Server().Actions().Wizard();
    GoTo(wizard, "HelpProject");
    auto& page = dynamic_cast<ctlHelpProject&>(*wizard.CurrentPage()->PageControl);

    ASSERT_TRUE(wizard.SetControlValue("txtName", "OrdersHelp"));
    EXPECT_EQ(Data().Projects().CurrentProject()->Name, "OrdersHelp");
    EXPECT_EQ(Parameters().HelpProjectName(), "OrdersHelp");
    EXPECT_TRUE(page.NameProblem().empty());

    ASSERT_TRUE(wizard.SetControlValue("txtName", "Archive"));
    EXPECT_EQ(page.NameProblem(), "Scrivant project already exists 'Archive'.");
    EXPECT_EQ(Data().Projects().CurrentProject()->Name, "OrdersHelp");
    EXPECT_EQ(Parameters().HelpProjectName(), "OrdersHelp");
    // The box keeps the name the project has, also when the page is left.
    EXPECT_EQ(Control(wizard, "txtName").Value, "OrdersHelp");
    wizard.NextPage();
    EXPECT_EQ(Parameters().HelpProjectName(), "OrdersHelp");
    wizard.PreviousPage();
    ASSERT_TRUE(wizard.SetControlValue("txtName", "  "));
    EXPECT_EQ(page.NameProblem(), "A help project needs a name.");
    EXPECT_EQ(Control(wizard, "txtName").Value, "OrdersHelp");

    ASSERT_TRUE(wizard.SetControlValue("txtTitle", "Order Desk Help"));
    EXPECT_EQ(Data().Projects().CurrentProject()->Title(), "Order Desk Help");
    EXPECT_EQ(Parameters().HelpProjectTitle(), "Order Desk Help");
    EXPECT_NE(ReadFileText(wizard.CurrentPreview().path)->find("<p>Order Desk Help - "), std::string::npos);
}

TEST_F(WizardPagesTest, TheProjectGroupBoxReloadsTheWizardOnlyWhenItChangesTheSource)
{
    CHelpWizardForm& first = Open();
    GoTo(first, "HelpProject");
    // Set to what it is: nothing happens.
    ASSERT_TRUE(first.SetControlValue("chkGenerateHelpForProjectGroup", "0"));
    EXPECT_TRUE(first.Shown());
    EXPECT_FALSE(Server().RequestQueue()->HasPendingTimer());
    EXPECT_TRUE(m_ui->ProgressCalls().empty());

    ASSERT_TRUE(first.SetControlValue("chkGenerateHelpForProjectGroup", "1"));
    EXPECT_FALSE(first.Shown());
    const auto& progress = m_ui->ProgressCalls();
    ASSERT_GE(progress.size(), 3u);
    EXPECT_EQ(progress[0].kind, ScriptedUserInterface::ProgressKind::Init);
    EXPECT_EQ(progress[0].text, "Reloading Wizard form");
    EXPECT_EQ(progress[1].kind, ScriptedUserInterface::ProgressKind::Update);
    EXPECT_EQ(progress.back().kind, ScriptedUserInterface::ProgressKind::Dispose);
    // The settings file has the choice before the wizard is opened again.
    EXPECT_NE(ReadFileText(Data().SettingsFilePath())->find("<Option Name = \"UseProjectGroupAsSource\" Value = \"true\" />"),
        std::string::npos);
    ASSERT_TRUE(Server().RequestQueue()->HasPendingTimer());
    ASSERT_TRUE(LogicLoop().RunUntil([&] { return !Server().RequestQueue()->HasPendingTimer(); }, 3s));
    CHelpWizardForm* reopened = Server().Actions().Wizard();
    ASSERT_NE(reopened, nullptr);
    EXPECT_TRUE(reopened->Shown());
    EXPECT_EQ(reopened->CurrentPage()->Name, "Introduction");
    EXPECT_TRUE(Parameters().UseProjectGroupAsSource);
}

TEST_F(WizardPagesTest, TheFolderButtonAsksForAFolder)
{
    CHelpWizardForm& wizard = Open();
    GoTo(wizard, "FolderForGeneratedFiles");
    EXPECT_EQ(Control(wizard, "txtDirToSaveHtml").Value, m_app.Path() + "CHM");
    m_ui->QueueFolder(std::nullopt);
    ASSERT_TRUE(wizard.ClickControl("cmdOpen"));
    EXPECT_EQ(Control(wizard, "txtDirToSaveHtml").Value, m_app.Path() + "CHM");
    m_ui->QueueFolder(m_app.Path() + "help");
    ASSERT_TRUE(wizard.ClickControl("cmdOpen"));
    ASSERT_EQ(m_ui->FolderRequests().size(), 2u);
    EXPECT_EQ(m_ui->FolderRequests()[0].title, "Select folder for generated files");
    EXPECT_EQ(m_ui->FolderRequests()[0].startFolder, m_app.Path() + "CHM");
    EXPECT_EQ(Control(wizard, "txtDirToSaveHtml").Value, m_app.Path() + "help/");
    EXPECT_EQ(Parameters().FolderForGeneratedHelp(), m_app.Path() + "help/");
    EXPECT_FALSE(wizard.ClickControl("cmdNoSuchButton"));
}

TEST_F(WizardPagesTest, TheStyleSheetsAreThoseOfTheTemplatesOrAFileChosen)
{
    CHelpWizardForm& wizard = Open();
    GoTo(wizard, "CSSFullPath");
    CHelpWizardFormPageControl& css = Control(wizard, "cboCSS");
    EXPECT_EQ(ItemValues(css), (std::vector<std::string> { "Office10.css", "browserhelp.css" }));
    EXPECT_EQ(css.Value, "Office10.css");

    m_app.Write("house.css", "body { color: teal }");
    m_ui->QueueFile(m_app.Path() + "house.css");
    ASSERT_TRUE(wizard.ClickControl("cmdBrowseForCSS"));
    ASSERT_EQ(m_ui->FileRequests().size(), 1u);
    EXPECT_EQ(m_ui->FileRequests()[0].title, "Select CSS file...");
    EXPECT_EQ(m_ui->FileRequests()[0].pattern, "*.css");
    EXPECT_EQ(css.Value, m_app.Path() + "house.css");
    EXPECT_EQ(css.Items.back().value, m_app.Path() + "house.css");
    EXPECT_EQ(Parameters().CSSFullPath(), m_app.Path() + "house.css");
    // The sample now wears the chosen style sheet.
    std::string sample = wizard.CurrentPreview().path;
    EXPECT_NE(ReadFileText(sample)->find("href=\"house.css\""), std::string::npos);
    EXPECT_EQ(*ReadFileText(FolderOf(sample) + "house.css"), "body { color: teal }");
}

TEST_F(WizardPagesTest, ALanguageRefillsTheCharsetsWithItsOwn)
{
    CHelpWizardForm& wizard = Open();
    GoTo(wizard, "Language");
    CHelpWizardFormPageControl& language = Control(wizard, "cboLanguage");
    CHelpWizardFormPageControl& charset = Control(wizard, "cboCharset");
    EXPECT_EQ(language.Items.size(), wizard.CodePages().Count());
    EXPECT_EQ(language.Value, "1033");
    EXPECT_EQ(ItemValues(charset), (std::vector<std::string> { "windows-1252", "iso-8859-1", "utf-8" }));

    ASSERT_TRUE(wizard.SetControlValue("charsetless", "x") == false);
    ASSERT_TRUE(wizard.SetControlValue("cboCharset", "windows-1252"));
    ASSERT_TRUE(wizard.SetControlValue("cboLanguage", "1049"));
    EXPECT_EQ(ItemValues(charset), (std::vector<std::string> { "windows-1251", "koi8-r", "utf-8" }));
    // A charset the language has not gives way to its first one.
    EXPECT_EQ(charset.Value, "windows-1251");
    EXPECT_EQ(Parameters().Charset, "windows-1251");
    EXPECT_EQ(Parameters().LanguageCode, "1049");
    EXPECT_EQ(Parameters().Language, "RU");

    ASSERT_TRUE(wizard.SetControlValue("cboCharset", "utf-8"));
    ASSERT_TRUE(wizard.SetControlValue("cboLanguage", "1031"));
    EXPECT_EQ(charset.Value, "utf-8");
    EXPECT_EQ(Parameters().Charset, "utf-8");
    EXPECT_NE(ReadFileText(wizard.CurrentPreview().path)->find("lang=\"de"), std::string::npos);
}

TEST_F(WizardPagesTest, OpeningTheCompiledHelpAndTheEditorExcludeEachOther)
{
    CHelpWizardForm& wizard = Open();
    GoTo(wizard, "Generate");
    ASSERT_TRUE(wizard.SetControlValue("chkOpenHTML", "1"));
    ASSERT_TRUE(wizard.SetControlValue("chkOpenHtmlEditor", "1"));
    EXPECT_EQ(Control(wizard, "chkOpenHTML").Value, "0");
    EXPECT_FALSE(Parameters().OpenHTMLHelp);
    EXPECT_TRUE(Parameters().OpenHTMLEditor);
    ASSERT_TRUE(wizard.SetControlValue("chkOpenHTML", "1"));
    EXPECT_EQ(Control(wizard, "chkOpenHtmlEditor").Value, "0");
    EXPECT_FALSE(Parameters().OpenHTMLEditor);
    // Clearing one leaves the other as it is.
    ASSERT_TRUE(wizard.SetControlValue("chkOpenHTML", "0"));
    EXPECT_EQ(Control(wizard, "chkOpenHtmlEditor").Value, "0");
    ASSERT_TRUE(wizard.SetControlValue("chkOpenHtmlEditor", "1"));
    ASSERT_TRUE(wizard.SetControlValue("chkOpenHtmlEditor", "0"));
    EXPECT_EQ(Control(wizard, "chkOpenHTML").Value, "0");
    EXPECT_EQ(FileNameOf(wizard.CurrentPreview().path), "GeneratedHelp.bmp");
}

TEST_F(WizardPagesTest, WithTheTraceOnTracingAndAnUnattendedNextRunAreOfferedTickedWithoutFiringTheirEvents)
{
    CHelpWizardForm& wizard = Open();
    GoTo(wizard, "Generate");
    EXPECT_TRUE(Control(wizard, "chkVerboseTracing").Visible);
    EXPECT_EQ(Control(wizard, "chkVerboseTracing").Value, "1");
    EXPECT_EQ(Control(wizard, "chkWizardUnattendedExecution").Value, "1");
    // Filling the page is no change of the person's: nothing reached the parameters.
    EXPECT_FALSE(Parameters().VerboseTracing);
    EXPECT_FALSE(Parameters().WizardUnattendedExecution);
    ASSERT_TRUE(wizard.SetControlValue("chkWizardUnattendedExecution", "0"));
    EXPECT_FALSE(Parameters().WizardUnattendedExecution);
    wizard.RefreshCurrentPage();
    EXPECT_TRUE(Parameters().VerboseTracing);

    DeleteFileIfExists(m_data.Path() + "trace.txt");
    wizard.PreviousPage();
    wizard.NextPage();
    EXPECT_FALSE(Control(wizard, "chkVerboseTracing").Visible);
    EXPECT_FALSE(Control(wizard, "chkWizardUnattendedExecution").Visible);
}

TEST_F(WizardPagesTest, WebFormsOfferNoPictureNorHotSpotsAndOnlyDatabasesANormalView)
{
    {
        Connect(Host("ASP.NET"));
        CHelpWizardForm wizard;
        // As New Help Project leaves them for web forms.
        Parameters().AddImageForForm = false;
        Parameters().AddHotSpotsForForm = false;
        ASSERT_TRUE(wizard.init(Data().GetSettings()));
        wizard.Show();
        GoTo(wizard, "FormsPage");
        EXPECT_FALSE(Control(wizard, "chkAddHotspots").Enabled);
        EXPECT_FALSE(Control(wizard, "chkAddImage").Enabled);
        EXPECT_TRUE(Control(wizard, "chkAddControlsList").Enabled);
        EXPECT_FALSE(wizard.SetControlValue("chkAddImage", "1"));
        EXPECT_FALSE(Parameters().AddImageForForm);
        wizard.Terminate();
        m_client->Disconnect();
        m_client.reset();
    }
    {
        Connect(Host("MS ACCESS"));
        CHelpWizardForm wizard;
        ASSERT_TRUE(wizard.init(Data().GetSettings()));
        wizard.Show();
        GoTo(wizard, "Screenshots");
        EXPECT_TRUE(Control(wizard, "chkMakeNormalViewScreenshots").Visible);
        EXPECT_TRUE(Control(wizard, "lblHostNote").Visible);
        GoTo(wizard, "FormsPage");
        EXPECT_TRUE(Control(wizard, "chkAddImage").Enabled);
        wizard.Terminate();
        m_client->Disconnect();
        m_client.reset();
    }
    CHelpWizardForm& wizard = Open("VB6");
    GoTo(wizard, "Screenshots");
    EXPECT_FALSE(Control(wizard, "chkMakeNormalViewScreenshots").Visible);
    EXPECT_FALSE(Control(wizard, "lblHostNote").Visible);
    // The three picture formats.
    ASSERT_TRUE(wizard.SetControlValue("optpicPng", "1"));
    EXPECT_EQ(Parameters().ImagesType(), "png");
    ASSERT_TRUE(wizard.SetControlValue("optpicBmp", "1"));
    EXPECT_EQ(Parameters().ImagesType(), "bmp");
    EXPECT_EQ(Control(wizard, "optpicPng").Value, "0");
}

TEST_F(WizardPagesTest, TheIndexPictureFollowsTheBoxesOfItsPage)
{
    CHelpWizardForm& wizard = Open();
    GoTo(wizard, "HelpIndex");
    ASSERT_TRUE(wizard.SetControlValue("chkAssociate", "0"));
    ASSERT_TRUE(wizard.SetControlValue("chkSearch", "0"));
    EXPECT_EQ(FileNameOf(wizard.CurrentPreview().path), "index000.bmp");
    ASSERT_TRUE(wizard.SetControlValue("chkSearch", "1"));
    ASSERT_TRUE(wizard.SetControlValue("chkFillIndex", "1"));
    EXPECT_EQ(FileNameOf(wizard.CurrentPreview().path), "index010.bmp");
    ASSERT_TRUE(wizard.SetControlValue("chkAssociate", "1"));
    EXPECT_EQ(FileNameOf(wizard.CurrentPreview().path), "index111.bmp");
    EXPECT_TRUE(FileExists(wizard.CurrentPreview().path));
}

TEST_F(WizardPagesTest, CancelPutsBackTheOptionsThePagesChanged)
{
    CHelpWizardForm& wizard = Open();
    std::string before = Data().GetSettings().OptionText("SnapshotFormat");
    GoTo(wizard, "Screenshots");
    ASSERT_TRUE(wizard.SetControlValue("optpicBmp", "1"));
    EXPECT_EQ(Data().GetSettings().OptionText("SnapshotFormat"), "Bitmap");
    wizard.Cancel();
    EXPECT_EQ(Data().GetSettings().OptionText("SnapshotFormat"), before);
    EXPECT_EQ(Server().Actions().Wizard(), nullptr);
}

TEST_F(WizardPagesTest, TheContentsPageShowsTheTopicsToComeAndLetsGoOfThemAtTheEnd)
{
    CHelpWizardForm& wizard = Open("VB6", test::ExamplesFolder() + "OrderDesk/OrderDesk.vbp");
    GoTo(wizard, "NameOptions");
    ASSERT_TRUE(wizard.SetControlValue("optName", "1"));
    GoTo(wizard, "HelpProjectContents");
    auto& page = dynamic_cast<ctlHelpProjectContents&>(*wizard.CurrentPage()->PageControl);
    ASSERT_NE(page.Tree(), nullptr);
    std::string shown = page.TreeView().Render();
    // Names, not captions, as the controls are to be identified.
    EXPECT_NE(shown.find("frmCustomer"), std::string::npos) << shown;
    EXPECT_EQ(page.TreeView().SelectedKey(), page.Tree()->Root()->TreeViewNode());

    CHelpPrjTreeNode* customer = nullptr;
    page.Tree()->Traverse(
        [&](CHelpPrjTreeNode& node) {
            if (node.Name() == "frmCustomer")
                customer = &node;
        },
        false);
    ASSERT_NE(customer, nullptr);
    ASSERT_TRUE(page.Select(customer->TreeViewNode()));
    EXPECT_FALSE(page.Select("no such key"));
    std::string preview = wizard.CurrentPreview().path;
    EXPECT_EQ(FileNameOf(preview), "~frmCustomer.html");
    std::string text = *ReadFileText(preview);
    EXPECT_NE(text.find("<title>[Topic title]</title>"), std::string::npos) << text;
    EXPECT_NE(text.find("The text of this topic will be written here when the help is generated."), std::string::npos);

    // Without the tree operations the menu is offered but does nothing.
    std::vector<ctlHelpProjectContents::MenuEntry> menu = page.PopupMenu();
    ASSERT_EQ(menu.size(), 5u);
    EXPECT_EQ(menu[0].caption, "Exclude");
    EXPECT_FALSE(menu[0].enabled);
    EXPECT_FALSE(page.MenuClick("mnuUp"));

    CHelpPrjTree* tree = page.Tree();
    wizard.Cancel();
    ASSERT_NE(Data().LoadedTree(), nullptr);
    tree->Traverse([](CHelpPrjTreeNode& node) { EXPECT_EQ(node.TreeView(), nullptr) << node.Name(); }, false);
    EXPECT_EQ(tree->TreeView(), nullptr);
}

}  // namespace
}  // namespace scriv
