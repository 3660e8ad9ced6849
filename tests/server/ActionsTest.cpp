#include <gtest/gtest.h>

#include "foundation/IUserInterface.h"
#include "foundation/LoadedForms.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "model/CAddInProjects.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CScrivantParameters.h"
#include "server/CScrivActions.h"
#include "support/CoreFixture.h"
#include "wizard/CHelpWizardForm.h"

namespace scriv {
namespace {

// A new help project for a source project whose folder is a temporary one; the
// shipped settings put the help into its CHM subfolder.
class ActionsTest : public test::CoreFixture {
protected:
    void ConnectTo(const std::string& folder)
    {
        Connect("<Host><Project Name=\"Orders\" FullPath=\"" + folder + "Orders.vbp\" Active=\"true\"/></Host>");
    }

    void SetUp() override
    {
        CoreFixture::SetUp();
        ConnectTo(m_app.Path());
        Data().Unattended = true;
    }

    // Runs the wizard as a person would, choosing the folder for the help.
    void NewProjectInto(const std::string& folder)
    {
        Data().Unattended = false;
        ASSERT_EQ(Server().OpenNewProject(), 0u);
        CHelpWizardForm* wizard = Server().Actions().Wizard();
        ASSERT_NE(wizard, nullptr);
        while (wizard->CurrentPage()->Name != "FolderForGeneratedFiles")
            wizard->NextPage();
        wizard->SetControlValue("txtDirToSaveHtml", folder);
        wizard->Finish();
    }

    std::string Help(const std::string& name) const { return m_app.Path() + "CHM/" + name; }

    std::vector<std::string> BoxTexts() const
    {
        std::vector<std::string> texts;
        for (const auto& box : m_ui->MessageBoxes())
            texts.push_back(box.text);
        return texts;
    }

    test::TempFolder m_app;
};

TEST_F(ActionsTest, AnUnattendedNewProjectIsGeneratedRegisteredAndCounted)
{
    ASSERT_EQ(Server().OpenNewProject(), 0u);
    EXPECT_TRUE(FileExists(Help("Welcome.htm")));
    EXPECT_TRUE(FileExists(Help("Dialogs.htm")));
    EXPECT_TRUE(FileExists(Help("Orders.svp")));
    ASSERT_FALSE(m_ui->MessageBoxes().empty());
    const MessageBoxRequest& last = m_ui->MessageBoxes().back();
    EXPECT_EQ(last.title, "Help Generation Completed");
    EXPECT_EQ(last.flags, msgbox::kInformation);
    EXPECT_EQ(last.text, "The Scrivant added:\r\n"
                         "- 2 new help pages with 2 sections,\r\n"
                         "- 0 screenshots,\r\n"
                         "- 0 index entries in generated help.");
    EXPECT_TRUE(Data().Projects().IsSavedProject("Orders"));
    std::string registry = *ReadFileText(Data().ProjectsFilePath());
    EXPECT_NE(registry.find("Name = \"Orders\""), std::string::npos) << registry;
    // The settings the run used were saved.
    EXPECT_TRUE(FileExists(Data().SettingsFilePath()));
    EXPECT_EQ(LoadedForms().Find("frmHelpWizard"), nullptr);
    EXPECT_EQ(Server().Actions().Wizard(), nullptr);
}

TEST_F(ActionsTest, AFolderThatHoldsAProjectIsRefusedAndNothingIsRegistered)
{
    test::TempFolder other;
    other.Write("CHM/Else.svp", "<ScrivProject/>");
    m_client->Disconnect();
    ConnectTo(other.Path());
    Data().Unattended = true;
    EXPECT_EQ(Server().OpenNewProject(), 0u);
    ASSERT_FALSE(m_ui->MessageBoxes().empty());
    EXPECT_EQ(m_ui->MessageBoxes().back().text, "Target folder '" + other.Path() + "CHM/'\r\n"
                                                "already has Scrivant project 'Else.svp'\r\n"
                                                "Please select another target folder.");
    EXPECT_FALSE(Data().Projects().IsSavedProject("Orders"));
    EXPECT_FALSE(FileExists(other.Path() + "CHM/Orders.svp"));
    // The wizard stays open so that another folder can be chosen.
    ASSERT_NE(Server().Actions().Wizard(), nullptr);
    EXPECT_TRUE(Server().Actions().Wizard()->Shown());
}

TEST_F(ActionsTest, AFolderWithoutWriteAccessIsRefused)
{
    NewProjectInto("/proc/");
    ASSERT_FALSE(m_ui->MessageBoxes().empty());
    EXPECT_EQ(m_ui->MessageBoxes().back().text,
        "Target folder '/proc/' is no write access.\r\nPlease select or enter another target folder name.");
    EXPECT_FALSE(Data().Projects().IsSavedProject("Orders"));
}

TEST_F(ActionsTest, AFolderThatCannotBeMadeIsRefused)
{
    NewProjectInto("/proc/no/such/");
    ASSERT_FALSE(m_ui->MessageBoxes().empty());
    EXPECT_EQ(m_ui->MessageBoxes().back().text,
        "Target folder '/proc/no/such/' cannot be created.\r\nPlease select or enter another target folder name.");
}

TEST_F(ActionsTest, APercentSignAsksAndNoGoesOnWhileYesChoosesAgain)
{
    test::TempFolder other;
    std::string folder = other.Path() + "50%/";
    MakeFolders(folder);
    m_client->Disconnect();
    ConnectTo(folder);
    Data().Unattended = true;
    m_ui->QueueAnswer(vbYes);
    Server().OpenNewProject();
    ASSERT_FALSE(m_ui->MessageBoxes().empty());
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags, 52);
    EXPECT_NE(m_ui->MessageBoxes()[0].text.find("contains character '%'.A help file (.chm) will not work correctly"),
        std::string::npos);
    EXPECT_FALSE(FileExists(folder + "CHM/Welcome.htm"));

    m_ui->QueueAnswer(vbNo);
    Server().Actions().Wizard()->Finish();
    EXPECT_TRUE(FileExists(folder + "CHM/Welcome.htm"));
}

TEST_F(ActionsTest, ACancelledRunShowsNoStatisticsAndSavesNoRegistry)
{
    m_ui->CancelAtUpdate(8);
    Server().OpenNewProject();
    std::vector<std::string> texts = BoxTexts();
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts.back(), "Help generation was cancelled by end-user.");
    EXPECT_EQ(m_ui->MessageBoxes().back().flags, msgbox::kCritical);
    for (const std::string& text : texts)
        EXPECT_EQ(text.find("The Scrivant added:"), std::string::npos);
    EXPECT_FALSE(FileExists(Data().ProjectsFilePath()) && ReadFileText(Data().ProjectsFilePath())->find("Orders") != std::string::npos);
    EXPECT_FALSE(Data().GenerationInterrupted);
}

TEST_F(ActionsTest, TheDefinitionFilesAreCheckedInOrder)
{
    test::TempFolder home;
    test::TempFolder data;
    home.Write("Settings/ScrivantWizardDef.xml", "<Wizard/>");
    home.Write("Settings/CodePages.xml", "<CodePages/>");
    ConfigureFolders({ home.Path(), data.Path() });
    EXPECT_EQ(Server().OpenNewProject(), status::kSampleFormMissing);
    EXPECT_EQ(m_ui->MessageBoxes().back().text,
        "Sample form definition file is missing '" + data.Path() + "Settings/SampleForm.xml'.");
}

TEST_F(ActionsTest, AnExistingProjectIsOpenedFromTheChoices)
{
    ASSERT_EQ(Server().OpenNewProject(), 0u);
    std::string project = Help("Orders.svp");
    ASSERT_TRUE(FileExists(project));
    Data().ScrivEngine().UnLoadTreviewForActiveProject();
    m_ui->QueueChoice(0);
    EXPECT_EQ(Server().OpenProject(), 0u);
    ASSERT_FALSE(m_ui->ListRequests().empty());
    EXPECT_EQ(m_ui->ListRequests().back(), (std::vector<std::string> { project, "More Files..." }));
    EXPECT_EQ(Data().Projects().CurrentProject()->Name, "Orders");
    ASSERT_NE(Tree().Root(), nullptr);
    EXPECT_NE(Tree().MapItem("Copyright"), nullptr);
}

TEST_F(ActionsTest, ChoosingNothingOpensNothing)
{
    m_ui->QueueChoice(std::nullopt);
    EXPECT_EQ(Server().OpenProject(), status::kAbandoned);
}

}  // namespace
}  // namespace scriv
