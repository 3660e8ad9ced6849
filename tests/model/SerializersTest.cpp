#include <gtest/gtest.h>

#include <regex>

#include "model/CHelpPrjTree.h"
#include "model/CScrivantParameters.h"
#include "model/IHelpPrjSourceProject.h"
#include "model/Serializers.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

using test::CoreFixture;

// A source project of forms held in memory.
class FormsOnlyProject : public IHelpPrjSourceProject {
public:
    void AddForm(const std::string& name, const std::string& caption, const std::string& subType = {})
    {
        auto item = std::make_unique<CHelpPrjSourceItem>();
        item->SubType = "Form";
        item->FormName = name;
        item->FormCaption = caption;
        item->GUIObjectSubType = subType;
        m_forms.Add(name, std::move(item));
    }

    bool init(const std::string&, const std::string&) override { return true; }
    void Terminate() override { }
    bool IsValid() const override { return true; }
    std::string ProjectType() const override { return "VB"; }
    std::string Name() const override { return "Orders"; }
    bool IsProjectGroup() const override { return false; }
    SourceItems& Forms() override { return m_forms; }
    bool CouldHaveReports() const override { return false; }
    SourceItems& Reports() override { return m_none; }
    bool CouldHaveTables() const override { return false; }
    SourceItems& Tables() override { return m_none; }
    bool CouldHaveQueries() const override { return false; }
    SourceItems& Queries() override { return m_none; }
    bool CouldHaveMacros() const override { return false; }
    SourceItems& Macros() override { return m_none; }
    SourceItems& Worksheets() override { return m_none; }
    SourceItems& Charts() override { return m_none; }

private:
    SourceItems m_forms;
    SourceItems m_none;
};

constexpr const char* kHost = R"(<Host><Project Name="Orders" FullPath="/apps/orders/Orders.vbp" Type="VB6" Active="true">
  <Form Name="frmMain" Text="Main window"/></Project></Host>)";

class FormsListTest : public CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Connect(kHost);
        EXPECT_EQ(m_tree.Load("", true, "<Project Key='P'><Dialogs Key='D'/></Project>"), 0u);
    }

    // Gives the tree a topic whose page has the name.
    void TakeFileName(const std::string& key, const std::string& fileName)
    {
        EXPECT_EQ(m_tree.Load("", true,
                      "<Project Key='P'><Dialogs Key='D'><Topic Key='" + key + "' GeneratedHtmlFile='" + fileName
                          + "'/></Dialogs></Project>"),
            0u);
    }

    CHelpPrjTree m_tree;
    FormsOnlyProject m_source;
};

// --- the string of a form ---

TEST_F(FormsListTest, AFormBecomesOneFormElementString)
{
    m_source.AddForm("frmMain", "Main - window");
    clsVBFormsList list;
    const std::vector<std::string>& items = list.XmlCollection(m_tree, m_source);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0],
        "<FORM Name=\"frmMain\" Key=\"Orders.Form_frmMain\" caption=\"Main &#45; window\" icon = \"form\" "
        "ProcessCode=\"999\" GeneratedHTMLFile = \"Orders_Form_frmMain.htm\" TemplateHTMLFile = \"Form.htm\" "
        "title = \"Main &#45; window\" type = \"2 \" SourceProjectType = \"VB6\"  SourceProjectName = \"Orders\" />");
}

TEST_F(FormsListTest, IdentifyingControlsByNameCaptionsTheFormByItsName)
{
    Parameters().SetIdentifyControls(1);
    m_source.AddForm("frmMain", "Main window");
    clsVBFormsList list;
    std::string item = list.XmlCollection(m_tree, m_source).at(0);
    EXPECT_NE(item.find(" caption=\"frmMain\" "), std::string::npos) << item;
    EXPECT_NE(item.find(" title = \"Main window\" "), std::string::npos);
}

TEST_F(FormsListTest, AUserControlCarriesItsSubType)
{
    m_source.AddForm("ctlGrid", "Grid", "UserControl");
    clsVBFormsList list;
    std::string item = list.XmlCollection(m_tree, m_source).at(0);
    EXPECT_NE(item.find("type = \"2 \" GUIObjectSubType = \"UserControl\"  SourceProjectType = \"VB6\" "),
        std::string::npos)
        << item;
}

TEST_F(FormsListTest, TheTextHasOneLinePerFormAndResetEmptiesIt)
{
    m_source.AddForm("frmA", "A");
    m_source.AddForm("frmB", "B");
    clsVBFormsList list;
    list.XmlCollection(m_tree, m_source);
    std::string text = list.XmlText();
    ASSERT_GT(text.size(), 13u);
    EXPECT_EQ(text.substr(text.size() - 13), "\"Orders\" />\r\n");
    EXPECT_EQ(Split(text, "\r\n").size(), 3u);
    EXPECT_NE(text.find("Key=\"Orders.Form_frmA\""), std::string::npos);
    EXPECT_LT(text.find("frmA"), text.find("frmB"));
    list.Reset();
    EXPECT_EQ(list.XmlText(), "");
}

TEST_F(FormsListTest, TheStringsLoadAsFormTopics)
{
    m_source.AddForm("frmMain", "Main window");
    clsVBFormsList list;
    list.XmlCollection(m_tree, m_source);
    CHelpPrjTree tree;
    ASSERT_EQ(tree.Load("", true, "<Project Key='P'>" + list.XmlText() + "</Project>"), 0u);
    CHelpPrjTreeNode* form = tree.MapItem("Orders.Form_frmMain");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->Tag(), "FORM");
    EXPECT_EQ(form->ObjectType(), 2);
    EXPECT_EQ(form->ProcessCode(), 999);
    EXPECT_EQ(form->GeneratedHTMLFile(), "Orders_Form_frmMain.htm");
    EXPECT_EQ(form->TemplateHtmlFile(), "Form.htm");
    EXPECT_EQ(form->Icon(), "form");
    EXPECT_EQ(form->SourceProjectName(), "Orders");
    EXPECT_EQ(form->Caption(), "Main window");
}

// --- page names that are taken ---

TEST_F(FormsListTest, ATakenPageNameGetsTheHostsFormPrefix)
{
    TakeFileName("Old", "orders_form_FRMMAIN.htm");
    m_source.AddForm("frmMain", "Main");
    clsVBFormsList list;
    std::string item = list.XmlCollection(m_tree, m_source).at(0);
    EXPECT_NE(item.find("GeneratedHTMLFile = \"dlg__Orders_Form_frmMain.htm\""), std::string::npos) << item;
}

TEST_F(FormsListTest, WhenThePrefixedNameIsTakenTooTheTimeOfDayIsAdded)
{
    ASSERT_EQ(m_tree.Load("", true,
                  "<Project Key='P'><Topic Key='A' GeneratedHtmlFile='Orders_Form_frmMain.htm'/>"
                  "<Topic Key='B' GeneratedHtmlFile='dlg__Orders_Form_frmMain.htm'/></Project>"),
        0u);
    m_source.AddForm("frmMain", "Main");
    clsVBFormsList list;
    std::string item = list.XmlCollection(m_tree, m_source).at(0);
    std::smatch match;
    ASSERT_TRUE(std::regex_search(item, match, std::regex("GeneratedHTMLFile = \"([^\"]*)\""))) << item;
    EXPECT_TRUE(std::regex_match(match[1].str(), std::regex("dlg__Orders_Form_frmMain_[0-2][0-9][0-5][0-9][0-5][0-9]\\.htm")))
        << match[1];
}

// --- the factory ---

TEST_F(FormsListTest, TheFactoryMakesTheFormsListOnlyForItsExactName)
{
    CHelpPrjTreeCF factory;
    EXPECT_NE(dynamic_cast<clsVBFormsList*>(factory.CreateObject("GetVBFormsXml").get()), nullptr);
    EXPECT_EQ(factory.CreateObject("getvbformsxml"), nullptr);
    EXPECT_EQ(factory.CreateObject("GetVBReportsXml"), nullptr);
    EXPECT_NE(dynamic_cast<clsVBFormsList*>(factory.CreateFormsListObject().get()), nullptr);
    EXPECT_EQ(factory.CreateReportsListObject(), nullptr);
    EXPECT_EQ(factory.CreateTablesListObject(), nullptr);
    EXPECT_EQ(factory.CreateChartsListObject(), nullptr);
}

// --- the source items ---

TEST(SourceItemTest, EachKindHasItsObjectTypeCode)
{
    CHelpPrjSourceItem item;
    const std::vector<std::pair<std::string, int>> kinds { { "Form", 2 }, { "Report", 3 }, { "Table", 0 },
        { "Query", 1 }, { "Macro", 4 }, { "Worksheet", 81 }, { "Chart", 82 }, { "report", 3 }, { "Module", -1 },
        { "", -1 } };
    for (const auto& [kind, code] : kinds) {
        item.SubType = kind;
        EXPECT_EQ(item.ObjectType(), code) << kind;
    }
}

TEST_F(FormsListTest, TheNormalizedFormNameIsTransliteratedForAFileName)
{
    CHelpPrjSourceItem item;
    item.FormName = "frmRésumé";
    EXPECT_EQ(item.FormNameNormalized(), "frmResume");

    // The page is named by the transliterated name, the node keeps the real one.
    m_source.AddForm("frmRésumé", "Résumé");
    clsVBFormsList list;
    std::string entry = list.XmlCollection(m_tree, m_source).at(0);
    EXPECT_NE(entry.find("GeneratedHTMLFile = \"Orders_Form_frmResume.htm\""), std::string::npos) << entry;
    EXPECT_EQ(entry.rfind("<FORM Name=\"frmRésumé\" ", 0), 0u);
}

}  // namespace
}  // namespace scriv
