#include <gtest/gtest.h>

#include "foundation/Paths.h"
#include "foundation/StringUtil.h"
#include "model/CAddInProject.h"
#include "support/CoreFixture.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"
#include "uidesc/clsFrmRptHelpContextIds.h"

namespace scriv {
namespace {

class HelpContextIdsTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Connect(R"(<Host><Project Name="App" FullPath="/apps/App.vbp" Type="VB6" Active="true">
            <Form Name="frmOne"/><Form Name="frmTwo"/><Form Name="ctlPart"/></Project></Host>)");
        m_project = &UseProject("App", m_out.Path());
        MakeFolders(m_project->XmlFormsFolder());
    }

    // A description saved where the generation keeps it, and noted.
    void AddForm(const std::string& xml)
    {
        CXmlForm form;
        ASSERT_TRUE(form.LoadXml(xml)) << form.XmlParseError().Reason();
        form.SaveXml(m_project->XmlFormsFolder());
        m_ids.ExtractUsedHelpContextIds(form);
    }

    std::unique_ptr<CXmlForm> Saved(const std::string& uniqueName)
    {
        auto form = std::make_unique<CXmlForm>();
        EXPECT_TRUE(form->Load(m_project->XmlFormsFolder() + uniqueName + ".xml"));
        return form;
    }

    test::TempFolder m_out;
    CAddInProject* m_project { nullptr };
    clsFrmRptHelpContextIds m_ids;
};

TEST_F(HelpContextIdsTest, ADuplicateIdIsNotedAndStaysOnBoth)
{
    AddForm(R"(<Form Name="frmOne" HtmlFileName="App_frmOne.htm"><Controls>
        <TextBox Name="txtA" ClassName="TextBox" HelpContextId="7"/>
        <TextBox Name="txtB" ClassName="TextBox" HelpContextId="7"/></Controls></Form>)");
    EXPECT_TRUE(m_ids.IsUsed(7));
    ASSERT_EQ(m_ids.Duplicates().size(), 1u);
    EXPECT_EQ(m_ids.Duplicates()[0], "7*App_frmOnetxtA*App_frmOnetxtB");
    m_ids.AssignHelpContextIds();
    std::unique_ptr<CXmlForm> form = Saved("App_frmOne");
    EXPECT_EQ(form->GetControl("txtA")->HelpContextId, 7);
    EXPECT_EQ(form->GetControl("txtB")->HelpContextId, 7);
    // The form had none: it takes the lowest free one.
    EXPECT_EQ(form->HelpContextId, 1);
    EXPECT_EQ(form->NewHelpContextIdsCount, 1);
}

TEST_F(HelpContextIdsTest, FreeIdsFillTheGapsFromOne)
{
    AddForm(R"(<Form Name="frmOne" HtmlFileName="App_frmOne.htm" HelpContextId="1"><Controls>
        <TextBox Name="txtA" ClassName="TextBox" HelpContextId="2"/>
        <TextBox Name="txtB" ClassName="TextBox" HelpContextId="4"/></Controls></Form>)");
    EXPECT_EQ(m_ids.NextFreeId(), 3);
    EXPECT_EQ(m_ids.NextFreeId(), 5);
    // A form seen before is not noted again.
    AddForm(R"(<Form Name="frmOne" HtmlFileName="App_frmOne.htm" HelpContextId="9"/>)");
    EXPECT_FALSE(m_ids.IsUsed(9));
    EXPECT_EQ(m_ids.Forms().size(), 1u);
}

TEST_F(HelpContextIdsTest, AUserControlGetsNoIdButItsControlsDo)
{
    AddForm(R"(<Form Name="ctlPart" HtmlFileName="App_ctlPart.htm" GUIObjectSubType="UserControl"><Controls>
        <TextBox Name="txtDay" ClassName="TextBox"/></Controls></Form>)");
    m_ids.AssignHelpContextIds();
    std::unique_ptr<CXmlForm> form = Saved("App_ctlPart");
    EXPECT_EQ(form->HelpContextId, 0);
    EXPECT_EQ(form->GetControl("txtDay")->HelpContextId, 1);
}

TEST_F(HelpContextIdsTest, TheMapFileHasALinePerFormAndNewIdsGoBackOnlyWhenAllowed)
{
    AddForm(R"(<Form Name="frmOne" HtmlFileName="App frmOne.htm" HelpContextId="12"/>)");
    AddForm(R"(<Form Name="frmTwo" HtmlFileName="App_frmTwo.htm"/>)");
    m_ids.AssignHelpContextIds();
    Parameters().SetHelpProjectName("App");
    m_ids.SetHelpContextIds();
    EXPECT_EQ(m_out.Read("App.h"), "#define IDH_App_frmOne  12\r\n#define IDH_App_frmTwo  1\r\n");
    EXPECT_EQ(m_out.Read("HelpContextIds.h"), "#define IDH_ALL_DIALOGS 2\r\n#define IDH_ALL_FORMS   1\r\n"
                                              "#define IDH_ALL_REPORTS 2 \r\n#define IDH_App_frmOne  12\r\n"
                                              "#define IDH_App_frmTwo  1\r\n");
    EXPECT_EQ(m_host->CountCalls("SetComponentHelp"), 0);

    Parameters().SaveApplicationChanges = true;
    m_host->ClearCalls();
    m_ids.SetHelpContextIds();
    // Only the form that got a new id is written back.
    EXPECT_EQ(m_host->CountCalls("SetComponentHelp"), 1);
    EXPECT_EQ(m_host->CountCalls("CloseComponent"), 1);
}

TEST_F(HelpContextIdsTest, ADatabaseHasNoIdsForTheListsOfAllForms)
{
    Connect(R"(<Host><Project Name="Db" FullPath="/apps/Db.mdb" Type="MS ACCESS" Active="true"/></Host>)");
    EXPECT_EQ(m_ids.GroupIdsText(), "");
    Connect(R"(<Host><Project Name="App" FullPath="/apps/App.vbp" Type="VB6" Active="true"/></Host>)");
    EXPECT_NE(m_ids.GroupIdsText(), "");
}

}  // namespace
}  // namespace scriv
