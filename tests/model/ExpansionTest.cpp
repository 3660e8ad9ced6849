#include <gtest/gtest.h>

#include "model/CHeadlessTreeView.h"
#include "model/CHelpPrjTree.h"
#include "model/IHelpPrjSourceProject.h"
#include "model/Serializers.h"
#include "server/CScrivServerAgent.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

// A source project held in memory: the forms of whichever project the host
// has current.
class MemorySourceProject : public IHelpPrjSourceProject {
public:
    explicit MemorySourceProject(std::string name)
        : m_name(std::move(name))
    {
    }
    bool init(const std::string&, const std::string&) override { return true; }
    void Terminate() override { }
    bool IsValid() const override { return true; }
    std::string ProjectType() const override { return "VB"; }
    std::string Name() const override { return m_name; }
    bool IsProjectGroup() const override { return false; }
    SourceItems& Forms() override { return m_forms; }
    bool CouldHaveReports() const override { return false; }
    SourceItems& Reports() override { return m_empty; }
    bool CouldHaveTables() const override { return false; }
    SourceItems& Tables() override { return m_empty; }
    bool CouldHaveQueries() const override { return false; }
    SourceItems& Queries() override { return m_empty; }
    bool CouldHaveMacros() const override { return false; }
    SourceItems& Macros() override { return m_empty; }
    SourceItems& Worksheets() override { return m_empty; }
    SourceItems& Charts() override { return m_empty; }

private:
    std::string m_name;
    SourceItems m_forms;
    SourceItems m_empty;
};

// Makes one FORM node per name it is told, for the project it is given.
class NamesSerializer : public IXmlSerializer {
public:
    explicit NamesSerializer(std::vector<std::string> names)
        : m_names(std::move(names))
    {
    }
    std::string XmlText() const override { return {}; }
    const std::vector<std::string>& XmlCollection(CHelpPrjTree&, IHelpPrjSourceProject& source) override
    {
        for (const std::string& name : m_names)
            m_collection.push_back("<FORM Name=\"" + name + "\" Key=\"" + name + "\" caption=\"" + name + " of "
                + source.Name() + "\" ProcessCode=\"999\" type=\"2\"/>");
        return m_collection;
    }
    void Reset() override { m_collection.clear(); }

private:
    std::vector<std::string> m_names;
    std::vector<std::string> m_collection;
};

class NamesFactory : public IClassFactory {
public:
    std::unique_ptr<IXmlSerializer> CreateObject(const std::string& name) override
    {
        if (name != "Names")
            return nullptr;
        return std::make_unique<NamesSerializer>(std::vector<std::string> { "frmA", "frmB" });
    }
    std::unique_ptr<IXmlSerializer> CreateFormsListObject() override { return CreateObject("Names"); }
    std::unique_ptr<IXmlSerializer> CreateReportsListObject() override { return nullptr; }
    std::unique_ptr<IXmlSerializer> CreateTablesListObject() override { return nullptr; }
    std::unique_ptr<IXmlSerializer> CreateQueriesListObject() override { return nullptr; }
    std::unique_ptr<IXmlSerializer> CreateMacrosListObject() override { return nullptr; }
    std::unique_ptr<IXmlSerializer> CreateWorksheetsListObject() override { return nullptr; }
    std::unique_ptr<IXmlSerializer> CreateChartsListObject() override { return nullptr; }
};

class ExpansionTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Connect(R"(<Host><Project Name="Sales" FullPath="/a/Sales.vbp" Active="true"/><Project Name="Stock" FullPath="/b/Stock.vbp"/></Host>)");
        UseProject("Help", m_data.Path());
    }

    CHelpPrjTree::SourceProjectProvider Provider()
    {
        return [this] { return std::make_unique<MemorySourceProject>(Server().Agent().CurrentSourceProjectName()); };
    }

    static std::vector<std::string> Keys(const CHelpPrjTreeNode& node)
    {
        std::vector<std::string> keys;
        for (const auto& child : node.ChildNodes())
            keys.push_back(child->Key());
        return keys;
    }

    NamesFactory m_factory;
};

TEST_F(ExpansionTest, ExpansionsStandBehindTheSkippedSerializerNode)
{
    Tree().Load("", true, "<Project><Dialogs><All Serializer='Names'/><Note/></Dialogs></Project>");
    Tree().ExpandSerializerNodes(m_factory, Provider());
    CHelpPrjTreeNode* dialogs = Tree().MapItem("Dialogs");
    EXPECT_EQ(Keys(*dialogs), (std::vector<std::string> { "All", "Sales.frmA", "Sales.frmB", "Note" }));
    EXPECT_TRUE(Tree().MapItem("All")->Skipped());
    CHelpPrjTreeNode* form = Tree().MapItem("Sales.frmA");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->Level(), 3);
    EXPECT_EQ(form->ParentNode(), dialogs);
    EXPECT_TRUE(form->NewUIObject);
    EXPECT_EQ(form->Caption(), "frmA of Sales");
    EXPECT_EQ(form->ProcessCode(), 999);
}

TEST_F(ExpansionTest, AGroupAsSourceExpandsOncePerProjectAndRestoresTheCurrentOne)
{
    Parameters().UseProjectGroupAsSource = true;
    CAddInProject* project = Data().Projects().CurrentProject();
    project->HasSeveralSourceProjects = true;
    Tree().Load("", true, "<Project><Dialogs><All Serializer='Names'/></Dialogs></Project>");
    Tree().ExpandSerializerNodes(m_factory, Provider());
    EXPECT_EQ(Keys(*Tree().MapItem("Dialogs")),
        (std::vector<std::string> { "All", "Sales.frmA", "Sales.frmB", "Stock.frmA", "Stock.frmB" }));
    EXPECT_EQ(Tree().MapItem("Stock.frmB")->Caption(), "frmB of Stock");
    EXPECT_EQ(Server().Agent().CurrentSourceProjectName(), "Sales");
}

TEST_F(ExpansionTest, AKeyThatIsTakenGetsANumber)
{
    Tree().Load("", true, "<Project><Sales.frmA/><Dialogs><All Serializer='Names'/></Dialogs></Project>");
    Tree().ExpandSerializerNodes(m_factory, Provider());
    EXPECT_EQ(Keys(*Tree().MapItem("Dialogs")), (std::vector<std::string> { "All", "frmA1", "Sales.frmB" }));
}

TEST_F(ExpansionTest, ASerializerTheFactoryDoesNotKnowIsLeftAsItIs)
{
    Tree().Load("", true, "<Project><Dialogs><All Serializer='Unknown'/></Dialogs></Project>");
    Tree().ExpandSerializerNodes(m_factory, Provider());
    EXPECT_FALSE(Tree().MapItem("All")->Skipped());
    EXPECT_EQ(Tree().MapItem("Dialogs")->ChildCount(), 1u);
}

TEST_F(ExpansionTest, GroupPagesSetTheGenerationOptions)
{
    Parameters().GenerateHelpForForms = false;
    Parameters().GenerateHelpForReports = true;
    Parameters().GenerateHelpForTables = true;
    Tree().Load("", true, R"(<Project><Dialogs TemplateHtmlFile="Dialogs.htm"/><Reports TemplateHtmlFile="REPORTS.htm" skipped="true"/>
        <Tables TemplateHtmlFile="Tables.htm" skipped="true"/></Project>)");
    Tree().SetGroupFlagsFromTree();
    EXPECT_TRUE(Parameters().GenerateHelpForForms);
    EXPECT_FALSE(Parameters().GenerateHelpForReports);
    EXPECT_FALSE(Parameters().GenerateHelpForTables);
    EXPECT_TRUE(CHelpPrjTree::IsGroupTemplate(*Tree().MapItem("Reports")));
    EXPECT_FALSE(CHelpPrjTree::IsGroupTemplate(*Tree().Root()));
}

TEST_F(ExpansionTest, ObjectNodesAreFoundByTheirTags)
{
    Tree().Load("", true, "<Project><Dialogs><FORM Key='f'/><Report Key='r'/></Dialogs><Chart Key='c'/><Note/></Project>");
    std::vector<std::string> keys;
    for (CHelpPrjTreeNode* node : Tree().ObjectNodes())
        keys.push_back(node->Key());
    EXPECT_EQ(keys, (std::vector<std::string> { "f", "r", "c" }));
}

TEST_F(ExpansionTest, ListCodesGoToTheFormsAndReportsGroups)
{
    Tree().Load("", true, "<Project><A Caption='Forms'><B Caption='Reports'/></A><C Caption='Other'/></Project>");
    Tree().Root()->SetFormsReportsProcessCode(2);
    EXPECT_EQ(Tree().MapItem("A")->ProcessCode(), 2);
    EXPECT_EQ(Tree().MapItem("B")->ProcessCode(), 2);
    EXPECT_EQ(Tree().MapItem("C")->ProcessCode(), 0);
    Tree().Root()->SetFormsReportsProcessCode(-1);
    EXPECT_EQ(Tree().MapItem("A")->ProcessCode(), 2);
}

TEST_F(ExpansionTest, TheViewCanShowNamesInsteadOfCaptions)
{
    Tree().Load("", true, "<Project Caption='Help'><F Name='frmMain' Caption='Main window'/><N Caption='Plain'/></Project>");
    CHeadlessTreeView view;
    Tree().DisplayInTreeview(&view);
    Tree().Root()->SwitchNameCaption(true);
    EXPECT_EQ(view.Text("F"), "frmMain");
    EXPECT_EQ(view.Text("N"), "Plain");
    Tree().Root()->SwitchNameCaption(false);
    EXPECT_EQ(view.Text("F"), "Main window");
}

}  // namespace
}  // namespace scriv
