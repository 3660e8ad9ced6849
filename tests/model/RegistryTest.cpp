#include <gtest/gtest.h>

#include <regex>

#include "foundation/CXMLFile.h"
#include "foundation/ErrorMessage.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "model/CAddInProjects.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CHelpPrjTree.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

const char* kHost = R"(<Host>
  <Project Name="Orders" FullPath="/apps/orders/Orders.vbp" Type="VB6" Active="true"/>
</Host>)";

const std::string kEmptyRegistry = "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n<Projects>\r\n</Projects>\r\n";

// A project file with a title and an images folder of its own.
std::string ProjectFileText(const std::string& title, const std::string& pics)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n<ScrivProject>\r\n<Project level = \"1\" title=\"" + title
        + "\" key=\"P\" />\r\n<Settings>\r\n<Options>\r\n  <Option Name = \"SubFolderForScreenshots\" Value = \"" + pics
        + "\" />\r\n</Options>\r\n</Settings>\r\n</ScrivProject>\r\n";
}

std::unique_ptr<CAddInProject> MakeProject(const std::string& name, const std::string& folder,
    const std::string& fileName, const std::string& source = "/apps/orders/Orders.vbp")
{
    auto project = std::make_unique<CAddInProject>();
    project->Name = name;
    project->Folder = folder;
    project->FileName = fileName;
    project->SourceProjectFullPath = source;
    return project;
}

bool SomeBoxSays(const ScriptedUserInterface& ui, const std::string& text)
{
    for (const MessageBoxRequest& box : ui.MessageBoxes())
        if (box.text.find(text) != std::string::npos)
            return true;
    return false;
}

class RegistryTest : public test::CoreFixture {
protected:
    std::string RegistryPath() const { return m_dir / "reg/ScrivantProjects.xml"; }

    // A registry file holding the given project lines.
    std::string WriteRegistry(const std::string& lines)
    {
        return m_dir.Write("reg/ScrivantProjects.xml",
            "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n<Projects>\r\n" + lines + "</Projects>\r\n");
    }

    static std::string Line(const std::string& name, const std::string& folder, const std::string& fileName)
    {
        return "  <Project Name = \"" + name + "\" FileName = \"" + fileName + "\" Folder = \"" + folder
            + "\" SourceProjectFullPath = \"/apps/orders/Orders.vbp\" SUID = \"{S}\" HUID = \"{H-" + name + "}\"  />\r\n";
    }

    test::TempFolder m_dir;
};

// --- the file format ---

TEST_F(RegistryTest, TwoProjectsAreWrittenByteForByteAndOneWithoutAFileNameIsLeftOut)
{
    CAddInProjects registry;
    registry.init(RegistryPath());
    auto first = MakeProject("Orders Help", "/h/orders/", "Orders");
    first->SUID = "{S1}";
    first->HUID = "{A-1}";
    auto second = MakeProject("Billing", "/h/bill/", "Billing", "/apps/bill.vbp");
    second->SUID = "{S2}";
    second->HUID = "{B}";
    CAddInProject* unnamedFile = registry.Add(MakeProject("Draft", "/h/draft/", ""));
    registry.Add(std::move(first));
    registry.Add(std::move(second));

    ASSERT_EQ(registry.Save(), 0u);
    EXPECT_EQ(m_dir.Read("reg/ScrivantProjects.xml"),
        "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n"
        "<Projects>\r\n"
        "  <Project Name = \"Orders Help\" FileName = \"Orders\" Folder = \"&#47;h&#47;orders&#47;\" "
        "SourceProjectFullPath = \"&#47;apps&#47;orders&#47;Orders.vbp\" SUID = \"{S1}\" HUID = \"{A&#45;1}\"  />\r\n"
        "  <Project Name = \"Billing\" FileName = \"Billing\" Folder = \"&#47;h&#47;bill&#47;\" "
        "SourceProjectFullPath = \"&#47;apps&#47;bill.vbp\" SUID = \"{S2}\" HUID = \"{B}\"  />\r\n"
        "</Projects>\r\n");
    EXPECT_FALSE(registry.Project("Orders Help")->IsNew);
    EXPECT_FALSE(registry.Project("Billing")->IsNew);
    EXPECT_TRUE(unnamedFile->IsNew);
}

TEST_F(RegistryTest, QuotesAndAmpersandsAreEncodedAndReadBack)
{
    const std::string name = "Tom & \"Jerry\" <Help>";
    const std::string folder = "/h/R&D \"new\"/";
    {
        CAddInProjects registry;
        registry.init(RegistryPath());
        registry.Add(MakeProject(name, folder, "A&B"));
        ASSERT_EQ(registry.Save(), 0u);
    }
    std::string text = m_dir.Read("reg/ScrivantProjects.xml");
    EXPECT_NE(text.find("Name = \"Tom &#38; &#34;Jerry&#34; &#60;Help&#62;\""), std::string::npos) << text;

    CAddInProjects reread;
    reread.init(RegistryPath());
    ASSERT_EQ(reread.Count(), 1u);
    CAddInProject* project = reread.Projects().front();
    EXPECT_EQ(project->Name, name);
    EXPECT_EQ(project->Folder, folder);
    EXPECT_EQ(project->FileName, "A&B");
    EXPECT_FALSE(project->IsNew);
}

TEST_F(RegistryTest, AMissingFileIsWrittenEmptyWithItsFolder)
{
    std::string path = m_dir / "deep/er/ScrivantProjects.xml";
    CAddInProjects registry;
    registry.init(path);
    EXPECT_EQ(m_dir.Read("deep/er/ScrivantProjects.xml"), kEmptyRegistry);
    EXPECT_EQ(registry.Count(), 0u);
    EXPECT_EQ(registry.Path(), path);
}

TEST_F(RegistryTest, SavingKeepsThePreviousFileAsBak)
{
    CAddInProjects registry;
    registry.init(RegistryPath());
    registry.Add(MakeProject("One", "/h/one/", "One"));
    ASSERT_EQ(registry.Save(), 0u);
    std::string firstSave = m_dir.Read("reg/ScrivantProjects.xml");
    registry.Add(MakeProject("Two", "/h/two/", "Two"));
    ASSERT_EQ(registry.Save(), 0u);
    EXPECT_EQ(m_dir.Read("reg/ScrivantProjects.xml.bak"), firstSave);
    EXPECT_NE(m_dir.Read("reg/ScrivantProjects.xml").find("Name = \"Two\""), std::string::npos);
}

// --- reading ---

TEST_F(RegistryTest, TitleAndImagesFolderComeFromTheProjectFileAndAnEmptyTitleReadsAsTheName)
{
    m_dir.Write("orders/Orders.svp", ProjectFileText("Orders &#38; More", "shots"));
    WriteRegistry(Line("Orders", m_dir / "orders/", "Orders") + Line("Gone", m_dir / "gone/", "Gone"));
    CAddInProjects registry;
    registry.init(RegistryPath());
    ASSERT_EQ(registry.Count(), 2u);
    CAddInProject* orders = registry.Project("orders");
    ASSERT_NE(orders, nullptr);
    EXPECT_EQ(orders->Title(), "Orders & More");
    EXPECT_EQ(orders->PicsSubfolderName, "shots");
    EXPECT_EQ(orders->SUID, "{S}");
    EXPECT_EQ(orders->HUID, "{H-Orders}");
    EXPECT_FALSE(orders->IsNew);
    // A project whose file is missing is still listed, titled by its name.
    CAddInProject* gone = registry.Project("Gone");
    ASSERT_NE(gone, nullptr);
    EXPECT_EQ(gone->Title(), "Gone");
    EXPECT_EQ(gone->PicsSubfolderName, "");
}

TEST_F(RegistryTest, TheLowerCaseNameAttributeComesFirstAndANamelessEntryIsSkipped)
{
    WriteRegistry("  <Project name=\"lower\" Name=\"Upper\" FileName=\"a\" Folder=\"/x/\" />\r\n"
                  "  <Project Name=\"Upper only\" FileName=\"b\" Folder=\"/x/\" />\r\n"
                  "  <Project FileName=\"c\" Folder=\"/x/\" />\r\n");
    CAddInProjects registry;
    registry.init(RegistryPath());
    ASSERT_EQ(registry.Count(), 2u);
    EXPECT_NE(registry.Project("lower"), nullptr);
    EXPECT_NE(registry.Project("Upper only"), nullptr);
    // Entries without identities get them at load.
    EXPECT_EQ(registry.Project("lower")->HUID.size(), 38u);
}

TEST_F(RegistryTest, ACorruptFileWithAGoodBakLoadsFromTheCopyWhichReplacesTheFile)
{
    std::string good = "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n<Projects>\r\n" + Line("Kept", "/k/", "Kept")
        + "</Projects>\r\n";
    m_dir.Write("reg/ScrivantProjects.xml.bak", good);
    m_dir.Write("reg/ScrivantProjects.xml", "<Projects><Project Name=\"half");
    CAddInProjects registry;
    registry.init(RegistryPath());
    ASSERT_EQ(registry.Count(), 1u);
    EXPECT_NE(registry.Project("Kept"), nullptr);
    EXPECT_EQ(m_dir.Read("reg/ScrivantProjects.xml"), good);
}

TEST_F(RegistryTest, ACorruptFileWithoutACopyRaisesTheParseError)
{
    m_dir.Write("reg/ScrivantProjects.xml", "<Projects><Project Name=\"half");
    CAddInProjects registry;
    try {
        registry.init(RegistryPath());
        FAIL() << "no error raised";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), 0x80040002u);
        EXPECT_TRUE(std::regex_match(error.Description(), std::regex(R"(XML Projects file parse error \[.+\])")))
            << error.Description();
    }
    EXPECT_EQ(registry.Count(), 0u);
    // The registry has had its one load.
    WriteRegistry(Line("Later", "/l/", "Later"));
    EXPECT_NO_THROW(registry.init(RegistryPath()));
    EXPECT_EQ(registry.Count(), 0u);
}

TEST_F(RegistryTest, AFileWithoutProjectsRaisesTheFirstCode)
{
    m_dir.Write("reg/ScrivantProjects.xml", "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n<Registry/>\r\n");
    CAddInProjects registry;
    try {
        registry.init(RegistryPath());
        FAIL() << "no error raised";
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Code(), 0x80040001u);
        EXPECT_EQ(error.Description().rfind("XML Projects file parse error [", 0), 0u) << error.Description();
    }
}

TEST_F(RegistryTest, AProjectFileThatDoesNotParseIsReportedAndLeftOutWhileTheRestLoads)
{
    m_dir.Write("bad/Bad.svp", "<ScrivProject><Project title=\"x\"");
    m_dir.Write("good/Good.svp", ProjectFileText("Good", "images"));
    WriteRegistry(Line("Bad", m_dir / "bad/", "Bad") + Line("Good", m_dir / "good/", "Good"));
    CAddInProjects registry;
    registry.init(RegistryPath());
    EXPECT_EQ(registry.Count(), 1u);
    EXPECT_EQ(registry.Project("Bad"), nullptr);
    EXPECT_NE(registry.Project("Good"), nullptr);
    EXPECT_TRUE(SomeBoxSays(*m_ui,
        "XML project file parse error [Bad].\r\nThis project will be removed from the list of available projects."));
    EXPECT_NE(TraceText().find("0x80040003"), std::string::npos);
    EXPECT_EQ(ErrorCounter(), 1);
}

TEST_F(RegistryTest, WithoutAPathAnErrorBoxSaysSoAndTheListStaysEmpty)
{
    CAddInProjects registry;
    registry.init("");
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Projects definitions XML file is not defined.");
    EXPECT_EQ(m_ui->MessageBoxes()[0].title, "Scrivant Add-In");
    EXPECT_EQ(m_ui->MessageBoxes()[0].source, "CAddInProjects.Init");
    EXPECT_EQ(registry.Count(), 0u);
}

TEST_F(RegistryTest, AFileThatCannotBeMadeIsReported)
{
    std::string blocker = m_dir.Write("blocker", "a file, not a folder");
    std::string path = blocker + "/ScrivantProjects.xml";
    CAddInProjects registry;
    registry.init(path);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Can't find project definitions XML file '" + path + "'");
}

// --- identities and names ---

TEST_F(RegistryTest, TwoHelpProjectsOfOneSourceProjectShareTheSuidAndDifferInTheHuid)
{
    CAddInProjects registry;
    CAddInProject* first = registry.Add(MakeProject("A", "/a/", "A", "/apps/Orders.vbp"));
    CAddInProject* second = registry.Add(MakeProject("B", "/b/", "B", "/APPS/orders.VBP"));
    CAddInProject* other = registry.Add(MakeProject("C", "/c/", "C", "/apps/Billing.vbp"));
    std::regex guid(R"(\{[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\})");
    EXPECT_TRUE(std::regex_match(first->SUID, guid)) << first->SUID;
    EXPECT_TRUE(std::regex_match(first->HUID, guid)) << first->HUID;
    EXPECT_EQ(first->SUID, second->SUID);
    EXPECT_NE(first->HUID, second->HUID);
    EXPECT_NE(other->SUID, first->SUID);
}

TEST_F(RegistryTest, AUniqueNameSkipsSavedProjectsButNotUnsavedOnes)
{
    CAddInProjects registry;
    registry.Add(MakeProject("Help", "/h/", "Help"));
    EXPECT_EQ(registry.GetUniqueProjectName("Help"), "Help");
    registry.Project("Help")->IsNew = false;
    registry.Add(MakeProject("Help1", "/h1/", "Help1"))->IsNew = false;
    EXPECT_EQ(registry.GetUniqueProjectName("Help"), "Help2");
    EXPECT_EQ(registry.GetUniqueProjectName("help"), "help2");
}

// --- with a host and a loaded tree ---

class RegistryWithHostTest : public RegistryTest {
protected:
    void SetUp() override
    {
        RegistryTest::SetUp();
        Connect(kHost);
    }
};

TEST_F(RegistryWithHostTest, TheServerLoadsItsRegistryFromTheUserDataFolder)
{
    EXPECT_EQ(Data().Projects().Path(), Data().ProjectsFilePath());
    EXPECT_EQ(Data().ProjectsFilePath(), m_data / "ScrivantProjects.xml");
    EXPECT_EQ(m_data.Read("ScrivantProjects.xml"), kEmptyRegistry);
    // And the settings file before it.
    EXPECT_EQ(Data().GetSettings().Path(), Data().SettingsFilePath());
}

TEST_F(RegistryWithHostTest, AProjectWhoseFileIsGoneStaysListedUntilTheSourceProjectsAreListed)
{
    m_dir.Write("old/Old.svp", ProjectFileText("Old", "images"));
    m_dir.Write("new/New.svp", ProjectFileText("New", "images"));
    WriteRegistry(Line("Old", m_dir / "old/", "Old") + Line("Gone", m_dir / "gone/", "Gone")
        + Line("New", m_dir / "new/", "New"));
    CAddInProjects registry;
    registry.init(RegistryPath());
    auto elsewhere = MakeProject("Elsewhere", m_dir / "none/", "None", "/apps/other.vbp");
    registry.Add(std::move(elsewhere));
    ASSERT_EQ(registry.Count(), 4u);

    std::vector<std::string> paths = registry.CurrentSourceProjectSvpProjects();
    EXPECT_EQ(paths, (std::vector<std::string> { m_dir / "new/New.svp", m_dir / "old/Old.svp" }));
    EXPECT_EQ(registry.Project("Gone"), nullptr);
    // A project of another source project is not looked at.
    EXPECT_NE(registry.Project("Elsewhere"), nullptr);
    EXPECT_EQ(registry.Count(), 3u);
}

TEST_F(RegistryWithHostTest, DroppingAGoneProjectThatIsCurrentClearsTheCurrentProject)
{
    CAddInProjects registry;
    registry.SetCurrentProject(registry.Add(MakeProject("Gone", m_dir / "gone/", "Gone")));
    EXPECT_TRUE(registry.CurrentSourceProjectSvpProjects().empty());
    EXPECT_EQ(registry.CurrentProject(), nullptr);
}

TEST_F(RegistryWithHostTest, SaveWritesTheCurrentProjectFileWithItsIdentityThroughTheTree)
{
    CAddInProjects& registry = Data().Projects();
    auto project = MakeProject("Orders & Co", m_dir.Path(), "Orders");
    project->PicsSubfolderName = "shots";
    CAddInProject* current = registry.Add(std::move(project));
    registry.SetCurrentProject(current);
    ASSERT_EQ(Tree().Load("", true, "<Project Key=\"P\" Caption=\"Orders\" Title=\"Orders Help\"/>"), 0u);

    ASSERT_EQ(registry.Save(), 0u);
    ASSERT_TRUE(FileExists(m_dir / "Orders.svp"));
    CXMLFile svp;
    ASSERT_EQ(svp.Load(m_dir / "Orders.svp"), 0u);
    pugi::xml_node root = svp.SelectSingleNode("//Project");
    EXPECT_EQ(std::string(root.attribute("Name").value()), "Orders & Co");
    EXPECT_EQ(std::string(root.attribute("SUID").value()), current->SUID);
    EXPECT_EQ(std::string(root.attribute("HUID").value()), current->HUID);
    EXPECT_EQ(std::string(root.attribute("PicsSubfolderName").value()), "shots");
    // The registry lists it, and a fresh load takes title and images folder from the file.
    CAddInProjects reread;
    reread.init(Data().ProjectsFilePath());
    ASSERT_NE(reread.Project("Orders & Co"), nullptr);
    EXPECT_EQ(reread.Project("Orders & Co")->HUID, current->HUID);
    EXPECT_EQ(reread.Project("Orders & Co")->Title(), "Orders Help");
}

TEST_F(RegistryWithHostTest, SaveCurrentProjectNeedsACurrentProjectWithAFile)
{
    CAddInProjects& registry = Data().Projects();
    registry.Add(MakeProject("Other", m_dir.Path(), "Other"));
    EXPECT_EQ(registry.SaveCurrentProject(), 0u);
    EXPECT_EQ(m_data.Read("ScrivantProjects.xml"), kEmptyRegistry);

    registry.SetCurrentProject(registry.Add(MakeProject("Unnamed file", m_dir.Path(), "")));
    EXPECT_EQ(registry.SaveCurrentProject(), 0u);
    EXPECT_EQ(m_data.Read("ScrivantProjects.xml"), kEmptyRegistry);

    registry.SetCurrentProject(registry.Project("Other"));
    EXPECT_EQ(registry.SaveCurrentProject(), 0u);
    EXPECT_NE(m_data.Read("ScrivantProjects.xml").find("Name = \"Other\""), std::string::npos);
}

}  // namespace
}  // namespace scriv
