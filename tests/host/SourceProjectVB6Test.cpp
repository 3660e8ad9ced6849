#include <gtest/gtest.h>

#include "host/CSourceProjectVB6.h"
#include "model/CHelpPrjTree.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

class SourceProjectVB6Test : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        m_app.Write("Orders.vbp", "Type=Exe\r\nForm=frmMain.frm\r\nform=..\\shared\\frmShared.frm\r\n"
                                  "UserControl=ctlDate.ctl\r\nModule=modMain; modMain.bas\r\nClass=clsOrder; clsOrder.cls\r\n"
                                  "Form=frmMissing.frm\r\nForm=frmMdi.frm\r\nName=\"Orders\"\r\n");
        m_app.Write("frmMain.frm", "VERSION 5.00\r\nBegin VB.Form frmMain \r\n   Caption         =   \"Orders \"\"today\"\"\"\r\n"
                                   "   ClientHeight    =   3000\r\nEnd\r\nAttribute VB_Name = \"frmMain\"\r\n");
        m_app.Write("frmMdi.frm", "VERSION 5.00\r\nBegin VB.MDIForm frmMdi\r\n   BackColor = &H8000000C&\r\n   Caption = \"Main window\"\r\nEnd\r\n");
        m_app.Write("ctlDate.ctl", "VERSION 5.00\r\nBegin VB.UserControl ctlDate\r\n   Begin VB.TextBox txtDay\r\n"
                                   "      Caption = \"not the form's\"\r\n   End\r\nEnd\r\n");
        m_shared.Write("frmShared.frm", "VERSION 5.00\r\nBegin VB.Form frmShared\r\n   Caption = \"Shared \xE9t\xE9\"\r\nEnd\r\n");
    }

    test::TempFolder m_root;
    test::TempFolder& m_appFolder = m_root;
    struct Sub {
        test::TempFolder& root;
        std::string name;
        std::string Write(const std::string& file, const std::string& text) const { return root.Write(name + "/" + file, text); }
        std::string Path() const { return root.Path() + name + "/"; }
    };
    Sub m_app { m_root, "app" };
    Sub m_shared { m_root, "shared" };
};

TEST_F(SourceProjectVB6Test, TheFormsOfTheProjectFileAreListedWithNameAndCaption)
{
    CSourceProjectVB6 project;
    ASSERT_TRUE(project.init(m_app.Path() + "Orders.vbp", "vb6"));
    ASSERT_TRUE(project.IsValid());
    EXPECT_EQ(project.Name(), "Orders");
    SourceItems& forms = project.Forms();
    ASSERT_EQ(forms.Count(), 4u);
    EXPECT_EQ(forms.At(0).key, "frmMain");
    EXPECT_EQ(forms.At(0).value->FormCaption, "Orders \"today\"");
    EXPECT_EQ(forms.At(0).value->GUIObjectSubType, "");
    // A path that climbs out of the project's folder is joined to it.
    EXPECT_EQ(forms.At(1).value->FormName, "frmShared");
    EXPECT_EQ(forms.At(1).value->FormCaption, "Shared \xC3\xA9t\xC3\xA9");
    // A user control whose first nested block comes before any caption keeps its file's name.
    EXPECT_EQ(forms.At(2).value->FormName, "ctlDate");
    EXPECT_EQ(forms.At(2).value->FormCaption, "ctlDate");
    EXPECT_EQ(forms.At(2).value->GUIObjectSubType, "UserControl");
    EXPECT_EQ(forms.At(3).value->FormName, "frmMdi");
    EXPECT_EQ(forms.At(3).value->FormCaption, "Main window");
    EXPECT_FALSE(project.CouldHaveReports());
    EXPECT_EQ(project.Reports().Count(), 0u);
}

TEST_F(SourceProjectVB6Test, OtherTypesAreLeftToOtherReaders)
{
    CSourceProjectVB6 project;
    EXPECT_FALSE(project.init(m_app.Path() + "Orders.vbp", "C#"));
    CHelpPrjSourceProject front;
    EXPECT_FALSE(front.init(m_app.Path() + "Orders.vbp", "MS ACCESS"));
    EXPECT_FALSE(front.IsValid());
    EXPECT_EQ(front.Forms().Count(), 0u);
    ASSERT_TRUE(front.init(m_app.Path() + "Orders.vbp", "VB6"));
    EXPECT_EQ(front.Forms().Count(), 4u);
}

TEST_F(SourceProjectVB6Test, AProjectFileThatCannotBeReadIsNoValidProject)
{
    CSourceProjectVB6 project;
    EXPECT_TRUE(project.init(m_app.Path() + "Missing.vbp", "VB6"));
    EXPECT_FALSE(project.IsValid());
}

TEST_F(SourceProjectVB6Test, ANewHelpProjectGetsATopicPerFormOfTheApplication)
{
    Connect("<Host><Project Name=\"Orders\" FullPath=\"" + m_app.Path() + "Orders.vbp\" Active=\"true\"/></Host>");
    UseProject("Orders", m_data.Path());
    Data().Projects().CurrentProject()->FileName.clear();
    ASSERT_EQ(Scriv().LoadTreviewForActiveProject(false), 0u);
    CHelpPrjTreeNode* dialogs = Tree().MapItem("Dialogs");
    ASSERT_NE(dialogs, nullptr);
    std::vector<std::string> keys;
    for (const auto& child : dialogs->ChildNodes())
        keys.push_back(child->Key());
    EXPECT_EQ(keys, (std::vector<std::string> { "AllDialogs", "Orders.Form_frmMain", "Orders.Form_frmShared",
                        "Orders.Form_ctlDate", "Orders.Form_frmMdi" }));
    CHelpPrjTreeNode* main = Tree().MapItem("Orders.Form_frmMain");
    EXPECT_EQ(main->ProcessCode(), 999);
    EXPECT_EQ(main->ObjectType(), 2);
    EXPECT_EQ(main->Caption(), "Orders \"today\"");
    EXPECT_EQ(main->GeneratedHTMLFile(), "Orders_Form_frmMain.htm");
    EXPECT_EQ(main->TemplateHtmlFile(), "Form.htm");
    EXPECT_EQ(main->SourceProjectName(), "Orders");
    EXPECT_EQ(main->PropertyValue("GUIObjectSubType"), "");
    EXPECT_EQ(Tree().MapItem("Orders.Form_ctlDate")->PropertyValue("GUIObjectSubType"), "UserControl");
}

}  // namespace
}  // namespace scriv
