#include <gtest/gtest.h>

#include "foundation/CCodePages.h"
#include "foundation/LoadedForms.h"
#include "foundation/Paths.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CScrivantParameters.h"
#include "support/CoreFixture.h"
#include "wizard/CHelpWizardForm.h"

namespace scriv {
namespace {

class WizardTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Connect(R"(<Host><Project Name="Orders" FullPath="/apps/orders/Orders.vbp" Active="true"/></Host>)");
        ASSERT_EQ(Data().ReLoadSettings(Data().SettingsFilePath(), false), 0u);
    }

    std::vector<std::string> PageNames() const
    {
        std::vector<std::string> names;
        for (const auto& page : m_wizard.Pages())
            names.push_back(page->Name);
        return names;
    }

    // Moves forward to the page of that name.
    void GoTo(const std::string& name)
    {
        while (m_wizard.CurrentPage() && m_wizard.CurrentPage()->Name != name && m_wizard.ForwardEnabled())
            m_wizard.NextPage();
        ASSERT_EQ(m_wizard.CurrentPage()->Name, name);
    }

    CHelpWizardFormPageControl& Control(const std::string& name)
    {
        CHelpWizardFormPageControl* control = m_wizard.CurrentPage()->Control(name);
        EXPECT_NE(control, nullptr) << name;
        return *control;
    }

    CHelpWizardForm m_wizard;
};

TEST_F(WizardTest, ThePagesComeInTheOrderOfTheDefinition)
{
    ASSERT_TRUE(m_wizard.init(Data().GetSettings()));
    std::vector<std::string> names = PageNames();
    ASSERT_EQ(names.size(), 15u);
    EXPECT_EQ(names.front(), "Introduction");
    EXPECT_EQ(names[1], "HelpProject");
    EXPECT_EQ(names.back(), "Generate");
    EXPECT_EQ(m_wizard.CodePages().GetCodePageByLanguageCode("1033")->LName, "English (United States)");
}

TEST_F(WizardTest, WebProjectsGetNoScreenshotOrMenuPage)
{
    m_client->Disconnect();
    Connect(R"(<Host><Project Name="Site" FullPath="/web/Site.csproj" Type="ASP.NET"/></Host>)");
    ASSERT_TRUE(m_wizard.init(Data().GetSettings()));
    std::vector<std::string> names = PageNames();
    EXPECT_EQ(std::count(names.begin(), names.end(), "Screenshots"), 0);
    EXPECT_EQ(std::count(names.begin(), names.end(), "MenusPage"), 0);
    EXPECT_EQ(names.size(), 13u);
}

TEST_F(WizardTest, PagesShowTheOptionsAndNavigationKeepsWithinThePages)
{
    Parameters().SetHelpProjectName("OrdersHelp");
    Parameters().AddHotSpotsForForm = true;
    Parameters().AddImageForForm = false;
    ASSERT_TRUE(m_wizard.init(Data().GetSettings()));
    m_wizard.Show();
    EXPECT_EQ(m_wizard.StepNumber(), 1);
    EXPECT_FALSE(m_wizard.BackEnabled());
    EXPECT_TRUE(m_wizard.ForwardEnabled());
    EXPECT_EQ(Control("lblIntroduction").Value, Control("lblIntroduction").Text);
    m_wizard.PreviousPage();
    EXPECT_EQ(m_wizard.StepNumber(), 1);

    GoTo("HelpProject");
    EXPECT_EQ(Control("txtName").Value, "OrdersHelp");
    GoTo("FolderForGeneratedFiles");
    // A tag in an option shows resolved.
    EXPECT_EQ(Control("txtDirToSaveHtml").Value, "/apps/orders/CHM");
    GoTo("FormsPage");
    EXPECT_EQ(Control("chkAddHotspots").Value, "1");
    EXPECT_EQ(Control("chkAddImage").Value, "0");
    GoTo("Generate");
    EXPECT_FALSE(m_wizard.ForwardEnabled());
    m_wizard.NextPage();
    EXPECT_EQ(m_wizard.CurrentPage()->Name, "Generate");
}

TEST_F(WizardTest, ChangedControlsReachSettingsAndParametersWhenThePageIsLeft)
{
    ASSERT_TRUE(m_wizard.init(Data().GetSettings()));
    m_wizard.Show();
    GoTo("Author");
    ASSERT_TRUE(m_wizard.SetControlValue("txtCopyright", "(c) 2026 Acme"));
    EXPECT_FALSE(m_wizard.SetControlValue("txtNoSuchControl", "x"));
    m_wizard.NextPage();
    EXPECT_EQ(Data().GetSettings().OptionText("Copyright"), "(c) 2026 Acme");
    EXPECT_EQ(Parameters().Copyright, "(c) 2026 Acme");

    GoTo("NameOptions");
    EXPECT_EQ(Control("optCaption").Value, "1");
    m_wizard.SetControlValue("optName", "1");
    EXPECT_EQ(Control("optCaption").Value, "0");
    GoTo("FormsPage");
    m_wizard.SetControlValue("chkAddImage", "false");
    m_wizard.RefreshCurrentPage();
    EXPECT_EQ(Parameters().IdentifyControls(), 1);
    EXPECT_EQ(Data().GetSettings().OptionText("IdentifyBy"), "Name");
    EXPECT_FALSE(Parameters().AddImageForForm);
}

TEST_F(WizardTest, ACheckBoxOptionThatIsNoBooleanReadsAsUnticked)
{
    Data().GetSettings().SetOptionText("AddSearchTabToHelp", "perhaps");
    ASSERT_TRUE(m_wizard.init(Data().GetSettings()));
    // init takes the parameters into the options; this one is set after it.
    Data().GetSettings().SetOptionText("AddSearchTabToHelp", "perhaps");
    m_wizard.Show();
    GoTo("HelpIndex");
    EXPECT_EQ(Control("chkSearch").Value, "0");
}

TEST_F(WizardTest, CancelPutsTheParametersBack)
{
    Parameters().Copyright = "before";
    ASSERT_TRUE(m_wizard.init(Data().GetSettings()));
    m_wizard.Show();
    EXPECT_NE(LoadedForms().Find("frmHelpWizard"), nullptr);
    GoTo("Author");
    m_wizard.SetControlValue("txtCopyright", "after");
    m_wizard.NextPage();
    EXPECT_EQ(Parameters().Copyright, "after");
    m_wizard.Cancel();
    EXPECT_EQ(Parameters().Copyright, "before");
    EXPECT_FALSE(m_wizard.OK());
    EXPECT_EQ(LoadedForms().Find("frmHelpWizard"), nullptr);
}

TEST_F(WizardTest, WithoutADefinitionThereAreNoPages)
{
    test::TempFolder home;
    test::TempFolder data;
    ConfigureFolders({ home.Path(), data.Path() });
    EXPECT_FALSE(m_wizard.init(Data().GetSettings()));
    m_wizard.Show();
    m_wizard.NextPage();
    EXPECT_EQ(m_wizard.CurrentPage(), nullptr);
}

TEST_F(WizardTest, SamplePagesAreMadeFromTheTemplatesAndRemovedAtTheEnd)
{
    Parameters().ApplicationNameStr = "Order Desk";
    ASSERT_TRUE(m_wizard.init(Data().GetSettings()));
    std::string sample = m_wizard.WizSampleApplicationPageHtmlFullPath();
    ASSERT_TRUE(FileExists(sample));
    std::string text = *ReadFileText(sample);
    EXPECT_NE(text.find("Welcome to the help of Order Desk."), std::string::npos);
    EXPECT_EQ(text.find("{{charset}}"), std::string::npos);
    m_wizard.Terminate();
    EXPECT_FALSE(FileExists(sample));
}

TEST_F(WizardTest, TheIndexPictureFollowsTheIndexOptions)
{
    Parameters().SetAssociateHelpIndex(false);
    Parameters().AddSearchTabToHelp = false;
    Parameters().FillIndexFromAppObjectsAndControls = true;
    EXPECT_EQ(FileNameOf(m_wizard.ShowHelpOptionsPics()), "index000.bmp");
    Parameters().AddSearchTabToHelp = true;
    EXPECT_EQ(FileNameOf(m_wizard.ShowHelpOptionsPics()), "index010.bmp");
    Parameters().SetAssociateHelpIndex(true);
    EXPECT_EQ(FileNameOf(m_wizard.ShowHelpOptionsPics()), "index111.bmp");
}

}  // namespace
}  // namespace scriv
