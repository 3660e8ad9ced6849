#include <gtest/gtest.h>

#include "host/access/AccessDefinition.h"
#include "host/access/CW_AccessFormProcessor.h"
#include "support/CoreFixture.h"
#include "uidesc/CClientUIObjectRawXml.h"
#include "uidesc/CClientUIObjectXml.h"
#include "uidesc/CXmlForm.h"
#include "uidesc/CXmlSection.h"

namespace scriv {
namespace {

// A form of 480 pixels: a header of 40, a detail of 200 and a footer of 20.
const char* const kForm = R"(Begin Form
    Width =7200
    Caption =""
    HelpContextId =77
    Begin
        Begin TextBox
            SpecialEffect =2
        End
    End
    Begin FormHeader
        Height =600
        Name ="FormHeader"
        Begin
            Begin Label
                Left =150
                Top =150
                Width =3000
                Height =300
                Name ="lblTitle"
                Caption ="Customers"
            End
        End
    End
    Begin Section
        Height =3000
        Name ="Detail"
        Begin
            Begin TextBox
                Left =1500
                Top =300
                Width =1500
                Height =300
                TabIndex =1
                Name ="City"
                StatusBarText ="Where the customer is"
                Begin
                    Begin Label
                        Left =150
                        Top =300
                        Width =1200
                        Height =300
                        Name ="lblCity"
                        Caption ="&City:"
                    End
                End
            End
            Begin OptionGroup
                Left =4500
                Top =300
                Width =1500
                Height =1500
                TabIndex =2
                Name ="grpShip"
                Begin
                    Begin Label
                        Left =4650
                        Top =150
                        Width =900
                        Height =300
                        Name ="lblShip"
                        Caption ="Ship via"
                    End
                    Begin OptionButton
                        Left =4800
                        Top =750
                        Width =300
                        Height =300
                        Name ="optPost"
                        Begin
                            Begin Label
                                Left =5100
                                Top =750
                                Width =600
                                Height =300
                                Name ="lblPost"
                                Caption ="Post"
                            End
                        End
                    End
                End
            End
            Begin Tab
                Left =150
                Top =1500
                Width =3000
                Height =1200
                TabIndex =3
                Name ="tabMore"
                Begin
                    Begin Page
                        Left =225
                        Top =1875
                        Width =2850
                        Height =750
                        Name ="pgOne"
                        Caption ="One"
                        Begin
                            Begin CheckBox
                                Left =450
                                Top =2100
                                Width =300
                                Height =300
                                Name ="chkVip"
                            End
                        End
                    End
                    Begin Page
                        Name ="pgTwo"
                        Caption ="Two"
                    End
                End
            End
            Begin Subform
                Left =3300
                Top =2100
                Width =3000
                Height =600
                Name ="sfrmLines"
                SourceObject ="Form.sfrmLines"
            End
            Begin Line
                Left =0
                Top =2900
                Width =7200
                Name ="linBottom"
            End
        End
    End
    Begin FormFooter
        Height =300
        Name ="FormFooter"
    End
    Begin PageHeader
        Height =600
        Name ="PageHeader"
    End
End
)";

class AccessFormProcessorTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        m_definition = AccessDefinition::Parse(kForm, "frmCustomers.form");
    }

    std::unique_ptr<CXmlForm> Describe(bool report = false)
    {
        CW_AccessFormProcessor processor(m_definition, "frmCustomers", report, 42);
        std::string raw = CClientUIObjectRawXml().Get_(processor, report ? 3 : 2, processor.Component(), 1, false,
            "MS ACCESS", false, false);
        return CClientUIObjectXml().AdjustForm(raw, report ? 3 : 2, true, 2, "", "", "images", false);
    }

    static CXmlControl* Control(CXmlForm& form, const std::string& name)
    {
        for (CXmlControl* control : form.AllControls())
            if (control->Name == name)
                return control;
        return nullptr;
    }

    AccessDefinition m_definition;
};

TEST_F(AccessFormProcessorTest, AFormInFormViewHasItsSectionsRecordSelectorAndNavigationButtons)
{
    auto form = Describe();
    ASSERT_TRUE(form);
    EXPECT_EQ(form->Type_(), "Form");
    // Without a caption the form is called by its name.
    EXPECT_EQ(form->Caption(), "frmCustomers");
    EXPECT_EQ(form->HelpContextId, 77);
    // A sizable frame, the record selector and the navigation buttons; the page header is for print only.
    EXPECT_EQ(form->ClientAreaOffsetX, 4 + 14);
    EXPECT_EQ(form->ClientAreaOffsetY, 4 + 18);
    EXPECT_EQ(form->Width, 8 + 14 + 480);
    EXPECT_EQ(form->Height, 8 + 18 + 40 + 200 + 20 + 18);
    ASSERT_EQ(form->Sections().Count(), 3u);
    EXPECT_EQ(form->Sections().At(1).value->Name, "Detail");
    EXPECT_EQ(form->Sections().At(1).value->ClientAreaOffsetY, 40);
    EXPECT_EQ(form->Sections().At(2).value->ClientAreaOffsetY, 240);
    EXPECT_EQ(form->Sections().At(1).value->AccessFormRecordSelectorWidth, 14);
}

TEST_F(AccessFormProcessorTest, SectionsInsideTheUnnamedBlockAsAccessExportsThemAreFoundAlike)
{
    // Access's own export keeps the sections in the block of the controls'
    // defaults; the form must come out as it does with them beside it.
    std::string text = kForm;
    const std::string defaultsEnd = "        End\n    End\n    Begin FormHeader";
    ASSERT_NE(text.find(defaultsEnd), std::string::npos);
    text.replace(text.find(defaultsEnd), defaultsEnd.size(), "        End\n    Begin FormHeader");
    ASSERT_EQ(text.substr(text.size() - 4), "End\n");
    text.insert(text.size() - 4, "    End\n");
    auto beside = Describe();
    m_definition = AccessDefinition::Parse(text, "frmCustomers.form");
    auto inside = Describe();
    ASSERT_TRUE(beside && inside);
    ASSERT_EQ(inside->Sections().Count(), 3u);
    EXPECT_EQ(inside->Height, beside->Height);
    EXPECT_EQ(inside->XMLSTr(), beside->XMLSTr());
    CXmlControl* city = Control(*inside, "City");
    ASSERT_NE(city, nullptr);
    EXPECT_EQ(city->Top, 40 + 20);
}

TEST_F(AccessFormProcessorTest, ControlsStandWhereTheirSectionPutsThem)
{
    auto form = Describe();
    ASSERT_TRUE(form);
    CXmlControl* city = Control(*form, "City");
    ASSERT_NE(city, nullptr);
    EXPECT_EQ(city->Left, 100);
    EXPECT_EQ(city->Top, 40 + 20);
    EXPECT_EQ(city->ControlSectionName, "Detail");
    // A text box is named by the label attached to it; the label says whose it is.
    EXPECT_EQ(city->Caption(), "City");
    EXPECT_EQ(city->Description, "Where the customer is");
    CXmlControl* label = Control(*form, "lblCity");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->ParentControlName, "City");
    EXPECT_EQ(Control(*form, "lblTitle")->Top, 10);
    // The members of an option group end where the section has them.
    CXmlControl* post = Control(*form, "optPost");
    ASSERT_NE(post, nullptr);
    EXPECT_EQ(post->Left, 320);
    EXPECT_EQ(post->Top, 40 + 50);
    EXPECT_EQ(post->ParentControl()->Name, "grpShip");
    EXPECT_EQ(post->Caption(), "Post");
    // Lines are not documented.
    EXPECT_EQ(Control(*form, "linBottom"), nullptr);
}

TEST_F(AccessFormProcessorTest, TabPagesAndSubformsAreDescribed)
{
    auto form = Describe();
    ASSERT_TRUE(form);
    CXmlControl* tab = Control(*form, "tabMore");
    ASSERT_NE(tab, nullptr);
    EXPECT_EQ(tab->ClassName, "TabControl");
    ASSERT_EQ(tab->Controls().Count(), 2u);
    CXmlControl* second = Control(*form, "1_tabMore");
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->Caption(), "Two");
    CXmlControl* first = Control(*form, "0_tabMore");
    EXPECT_EQ(second->TabLeft, first->TabLeft + first->TabWidth);
    EXPECT_EQ(first->TabTop, 40 + 100 + 2);
    CXmlControl* vip = Control(*form, "chkVip");
    ASSERT_NE(vip, nullptr);
    EXPECT_EQ(vip->Left, 30);
    EXPECT_EQ(vip->Top, 40 + 140);
    // A subform is a control of its own: its form has a page of its own.
    CXmlControl* subform = Control(*form, "sfrmLines");
    ASSERT_NE(subform, nullptr);
    EXPECT_EQ(subform->ClassName, "Subform");
    EXPECT_EQ(subform->Controls().Count(), 0u);
}

TEST_F(AccessFormProcessorTest, AReportShowsEverySectionUnderItsBar)
{
    auto report = Describe(true);
    ASSERT_TRUE(report);
    EXPECT_EQ(report->Type_(), "Report");
    ASSERT_EQ(report->Sections().Count(), 4u);
    EXPECT_EQ(report->Sections().At(3).value->Name, "PageHeader");
    EXPECT_EQ(report->Sections().At(1).value->DesignTimeHeaderHeight, 18);
    // The sections stack with their bars; a control stands below its section's bar.
    EXPECT_EQ(report->Sections().At(1).value->ClientAreaOffsetY, 18 + 40);
    EXPECT_EQ(Control(*report, "City")->Top, 18 + 40 + 18 + 20);
    EXPECT_EQ(report->ClientAreaOffsetX, 4);
    EXPECT_EQ(Control(*report, "sfrmLines")->ClassName, "Subreport");
}

}  // namespace
}  // namespace scriv
