#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "model/CAddInProjects.h"
#include "model/CHelpPrjSelector.h"
#include "model/CHelpPrjTree.h"
#include "model/OpenHelpProject.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

const char* kHost = R"(<Host>
  <Project Name="Orders" FullPath="/apps/orders/Orders.vbp" Type="VB6" Active="true"/>
</Host>)";
const std::string kSource = "/apps/orders/Orders.vbp";

void MakeReadOnly(const std::string& path)
{
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0) << path;
}

class OpenHelpProjectTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Connect(kHost);
    }

    // A project file in its own folder below the test folder.
    std::string WriteProjectFile(const std::string& folder, const std::string& name, const std::string& title = {},
        const std::string& pics = {})
    {
        std::string root = "<Project level = \"1\" name = \"" + name + "\" key=\"P\"";
        if (!title.empty())
            root += " title=\"" + title + "\"";
        if (!pics.empty())
            root += " PicsSubfolderName = \"" + pics + "\"";
        return m_dir.Write(folder + "/" + name + ".svp",
            "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n<ScrivProject>\r\n" + root
                + " />\r\n<Settings>\r\n<Options>\r\n</Options>\r\n</Settings>\r\n</ScrivProject>\r\n");
    }

    // Registers a saved project of the host's source project over a project file.
    CAddInProject* Register(const std::string& folder, const std::string& name, const std::string& source = kSource)
    {
        WriteProjectFile(folder, name);
        auto project = std::make_unique<CAddInProject>();
        project->Name = name;
        project->Folder = m_dir / (folder + "/");
        project->FileName = name;
        project->SourceProjectFullPath = source;
        project->IsNew = false;
        return Registry().Add(std::move(project));
    }

    CAddInProjects& Registry() { return Data().Projects(); }

    std::uint32_t SetCurrent(const std::string& path, bool regenerate = false)
    {
        CHelpPrjSelector selector;
        selector.init();
        std::uint32_t result = selector.SetCurrent(path, regenerate);
        selector.Terminate();
        return result;
    }

    test::TempFolder m_dir;
};

// --- SetCurrent ---

TEST_F(OpenHelpProjectTest, AnEmptyPathTakesTheNewestProjectOfTheSourceProject)
{
    Register("a", "First");
    CAddInProject* second = Register("b", "Second");
    Register("c", "Foreign", "/apps/other.vbp");
    ASSERT_EQ(SetCurrent(""), 0u);
    EXPECT_EQ(Registry().CurrentProject(), second);
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

TEST_F(OpenHelpProjectTest, AnEmptyPathWithoutProjectsIsAbandonedSilently)
{
    Register("c", "Foreign", "/apps/other.vbp");
    EXPECT_EQ(SetCurrent(""), status::kAbandoned);
    EXPECT_EQ(Registry().CurrentProject(), nullptr);
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

TEST_F(OpenHelpProjectTest, AMissingFileIsReportedAndAbandoned)
{
    std::string path = m_dir / "nowhere/Lost.svp";
    EXPECT_EQ(SetCurrent(path), 0x8003FE09u);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Help project file doesn't exist: " + path);
    EXPECT_EQ(m_ui->MessageBoxes()[0].title, "Scrivant Add-In");
}

TEST_F(OpenHelpProjectTest, AKnownProjectBecomesCurrentWithoutANewEntry)
{
    CAddInProject* first = Register("a", "First");
    Register("b", "Second");
    ASSERT_EQ(SetCurrent(first->SVPFullPath()), 0u);
    EXPECT_EQ(Registry().CurrentProject(), first);
    EXPECT_EQ(Registry().Count(), 2u);
    EXPECT_FALSE(first->IsNew);
}

TEST_F(OpenHelpProjectTest, AForeignProjectFileIsRegisteredAsANewProjectOfTheSourceProject)
{
    CAddInProject* sibling = Register("a", "Orders");
    std::string path = WriteProjectFile("billing", "Billing", "Billing &#38; Invoices", "shots");
    ASSERT_EQ(SetCurrent(path), 0u);
    CAddInProject* current = Registry().CurrentProject();
    ASSERT_NE(current, nullptr);
    EXPECT_EQ(current, Registry().Project("Billing"));
    EXPECT_EQ(current->Title(), "Billing & Invoices");
    EXPECT_EQ(current->FileName, "Billing");
    EXPECT_EQ(current->Folder, m_dir / "billing/");
    EXPECT_EQ(current->SVPFullPath(), path);
    EXPECT_EQ(current->PicsSubfolderName, "shots");
    EXPECT_EQ(current->SourceProjectFullPath, kSource);
    EXPECT_TRUE(current->IsNew);
    EXPECT_EQ(current->SUID, sibling->SUID);
    EXPECT_NE(current->HUID, sibling->HUID);
    EXPECT_EQ(current->HUID.size(), 38u);
}

TEST_F(OpenHelpProjectTest, AForeignProjectWhoseNameIsTakenIsRefused)
{
    CAddInProject* known = Register("a", "Billing");
    Registry().SetCurrentProject(known);
    std::string path = WriteProjectFile("copy", "Billing");
    EXPECT_EQ(SetCurrent(path), 0x8003FE09u);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text, "Project name already defined - Billing");
    EXPECT_EQ(Registry().Count(), 1u);
    EXPECT_EQ(Registry().CurrentProject(), nullptr);
}

TEST_F(OpenHelpProjectTest, ARelativePathIsTakenFromTheWorkingFolder)
{
    CAddInProject* known = Register("a", "Known");
    std::string cwd = std::filesystem::current_path().string();
    std::filesystem::current_path(m_dir.Path());
    std::uint32_t result = SetCurrent("a/../a/Known.svp");
    std::filesystem::current_path(cwd);
    ASSERT_EQ(result, 0u);
    EXPECT_EQ(Registry().CurrentProject(), known);
}

TEST_F(OpenHelpProjectTest, ALoadedTreeIsSavedWithItsProjectAndUnloadedBeforeTheSwitch)
{
    CAddInProject* first = Register("a", "First");
    CAddInProject* second = Register("b", "Second");
    Registry().SetCurrentProject(first);
    ASSERT_EQ(Tree().Load("", true, "<Project Key=\"P\" Caption=\"First\" Title=\"First edited\"/>"), 0u);
    DeleteFileIfExists(first->SVPFullPath());

    ASSERT_EQ(SetCurrent(second->SVPFullPath()), 0u);
    EXPECT_EQ(Registry().CurrentProject(), second);
    ASSERT_TRUE(FileExists(first->SVPFullPath()));
    EXPECT_NE(m_dir.Read("a/First.svp").find("HUID = \"" + std::string("{")), std::string::npos);
    EXPECT_FALSE(Scriv().HasHelpProjectTree());
}

TEST_F(OpenHelpProjectTest, RegenerateLoadsTheTreeOfTheNewProject)
{
    CAddInProject* second = Register("b", "Second");
    ASSERT_EQ(SetCurrent(second->SVPFullPath(), true), 0u);
    ASSERT_TRUE(Scriv().HasHelpProjectTree());
    ASSERT_NE(Tree().Root(), nullptr);
    EXPECT_EQ(Tree().Root()->Name(), "Second");
}

// --- the dialog's operations ---

TEST_F(OpenHelpProjectTest, TheChoicesAreTheExistingProjectsThenMoreFiles)
{
    CAddInProject* first = Register("a", "First");
    CAddInProject* second = Register("b", "Second");
    Register("c", "Foreign", "/apps/other.vbp");
    EXPECT_EQ(OpenHelpProjectChoices(),
        (std::vector<std::string> { second->SVPFullPath(), first->SVPFullPath(), "More Files..." }));
}

TEST_F(OpenHelpProjectTest, MoreFilesAsksForAProjectFile)
{
    std::string path = WriteProjectFile("x", "Picked");
    m_ui->QueueFile(path);
    ASSERT_EQ(OpenHelpProjectChoice("More Files..."), 0u);
    ASSERT_EQ(m_ui->FileRequests().size(), 1u);
    EXPECT_EQ(m_ui->FileRequests()[0].filterName, "Scrivant Project (SVP)");
    EXPECT_EQ(m_ui->FileRequests()[0].pattern, "*.svp");
    ASSERT_NE(Registry().CurrentProject(), nullptr);
    EXPECT_EQ(Registry().CurrentProject()->Name, "Picked");
    // Nothing in it is read-only, so nothing more is asked.
    EXPECT_TRUE(m_ui->MessageBoxes().empty());
}

TEST_F(OpenHelpProjectTest, CancellingTheFileChoiceAbandons)
{
    m_ui->QueueFile(std::nullopt);
    EXPECT_EQ(OpenHelpProjectChoice("More Files..."), status::kAbandoned);
    EXPECT_EQ(Registry().CurrentProject(), nullptr);
}

TEST_F(OpenHelpProjectTest, ReadOnlyFilesAreCountedPerFolder)
{
    m_dir.Write("ro/a.htm", "a");
    m_dir.Write("ro/b.htm", "b");
    m_dir.Write("ro/c.htm", "c");
    m_dir.Write("ro/sub/d.htm", "d");
    MakeReadOnly(m_dir / "ro/a.htm");
    MakeReadOnly(m_dir / "ro/c.htm");
    MakeReadOnly(m_dir / "ro/sub/d.htm");
    EXPECT_EQ(GetQtyOfReadOnlyFiles(m_dir / "ro/"), 2);
    EXPECT_EQ(GetQtyOfReadOnlyFiles(m_dir / "ro"), 2);
    EXPECT_EQ(GetQtyOfReadOnlyFiles(m_dir / "missing/"), 0);
}

TEST_F(OpenHelpProjectTest, TheFirstFolderWithReadOnlyFilesCounts)
{
    CAddInProject* project = Register("p", "P");
    project->PicsSubfolderName = "pics";
    m_dir.Write("p/xml/f1.xml", "x");
    m_dir.Write("p/pics/i1.jpg", "x");
    m_dir.Write("p/pics/i2.jpg", "x");
    EXPECT_EQ(ReadOnlyFilesOfProject(*project), 0);

    MakeReadOnly(m_dir / "p/pics/i1.jpg");
    MakeReadOnly(m_dir / "p/pics/i2.jpg");
    EXPECT_EQ(ReadOnlyFilesOfProject(*project), 2);
    MakeReadOnly(m_dir / "p/xml/f1.xml");
    EXPECT_EQ(ReadOnlyFilesOfProject(*project), 1);
    m_dir.Write("p/t1.htm", "x");
    m_dir.Write("p/t2.htm", "x");
    m_dir.Write("p/t3.htm", "x");
    MakeReadOnly(m_dir / "p/t1.htm");
    MakeReadOnly(m_dir / "p/t2.htm");
    MakeReadOnly(m_dir / "p/t3.htm");
    EXPECT_EQ(ReadOnlyFilesOfProject(*project), 3);
}

TEST_F(OpenHelpProjectTest, AProjectWithReadOnlyFilesAsksBeforeOpening)
{
    CAddInProject* project = Register("p", "P");
    MakeReadOnly(project->SVPFullPath());

    m_ui->QueueAnswer(vbNo);
    EXPECT_EQ(OpenHelpProjectChoice(project->SVPFullPath()), status::kAbandoned);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_EQ(m_ui->MessageBoxes()[0].text,
        "Some of the files of selected Scrivant project \r\n"
        "are read-only. Editing and saving of these files could result in errors.\r\n"
        "As a result of these errors you can loose your edits.\r\n"
        "Would you like to continue opening selected Scrivant project anyway ?");
    EXPECT_EQ(m_ui->MessageBoxes()[0].flags & 7, msgbox::kYesNo);

    m_ui->QueueAnswer(vbYes);
    EXPECT_EQ(OpenHelpProjectChoice(project->SVPFullPath()), 0u);
    EXPECT_EQ(Registry().CurrentProject(), project);
}

TEST(OpenHelpProjectWithoutServerTest, TheSelectorNeedsAServer)
{
    CHelpPrjSelector selector;
    EXPECT_THROW(selector.init(), ScrivError);
}

}  // namespace
}  // namespace scriv
