#include <gtest/gtest.h>

#include <filesystem>
#include <pugixml.hpp>
#include <set>

#include "desktop/CW_IDEVB6Context.h"
#include "desktop/RenderedWindows.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "foundation/StringUtil.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/clsFormCollection.h"
#include "host/vb6/Vb6FormFile.h"
#include "model/CHelpPrjTreeNode.h"
#include "server/CScrivServerAgent.h"
#include "support/CoreFixture.h"
#include "uidesc/CXmlForm.h"

namespace scriv {
namespace {

std::string ReadBytes(const std::string& path)
{
    return ReadFileText(path).value_or("<missing>");
}

struct Box {
    int x { 0 };
    int y { 0 };
    int width { 0 };
    int height { 0 };
};

std::pair<int, int> IntPair(const char* text)
{
    std::vector<std::string> parts = Split(text, ",");
    if (parts.size() != 2)
        return { -99999, -99999 };
    return { std::stoi(Trim(parts[0])), std::stoi(Trim(parts[1])) };
}

Box BoxOf(const pugi::xml_node& element)
{
    auto [x, y] = IntPair(element.attribute("Location").value());
    auto [width, height] = IntPair(element.attribute("Size").value());
    return { x, y, width, height };
}

bool Inside(const Box& inner, const Box& outer)
{
    return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.width <= outer.x + outer.width
        && inner.y + inner.height <= outer.y + outer.height;
}

// What a description of a form breaks of the rules every form must keep.
class DescriptionChecker {
public:
    explicit DescriptionChecker(std::string formName)
        : m_form(std::move(formName))
    {
    }

    void Check(const pugi::xml_node& form)
    {
        auto [width, height] = IntPair(form.attribute("WindowSize").value());
        auto [offsetX, offsetY] = IntPair(form.attribute("ClientAreaOffset").value());
        Box client { 0, 0, width - offsetX, height - offsetY };
        for (const pugi::xml_node& control : form.child("Controls").children())
            CheckControl(control, client);
        for (const pugi::xpath_node& element : form.select_nodes("//MenuEntry"))
            if (std::string(element.node().parent().name()) != "Menu")
                Fail("menu entry " + std::string(element.node().attribute("Name").value()) + " outside Menu");
    }

    const std::vector<std::string>& Failures() const { return m_failures; }

private:
    void CheckControl(const pugi::xml_node& control, const Box& container)
    {
        std::string name = control.attribute("Name").value();
        std::string type = control.name();
        if (type == "Menu" || type == "MenuEntry")
            Fail(name + " is a menu among the controls");
        Box box = BoxOf(control);
        if (!Inside(box, container))
            Fail(name + " lies outside its container");
        std::vector<pugi::xml_node> children(control.child("Controls").children().begin(),
            control.child("Controls").children().end());
        if (type == "TabControl")
            CheckPages(name, children);
        for (const pugi::xml_node& child : children)
            CheckControl(child, box);
    }

    void CheckPages(const std::string& tabName, const std::vector<pugi::xml_node>& pages)
    {
        if (pages.empty())
            Fail(tabName + " has no pages");
        for (std::size_t i = 0; i < pages.size(); ++i) {
            std::string expected = std::to_string(i) + "_" + tabName;
            if (std::string(pages[i].name()) != "Page" || pages[i].attribute("Name").value() != expected)
                Fail(tabName + " page " + std::to_string(i) + " is " + pages[i].attribute("Name").value());
            if (pages[i].attribute("TabPageIndex").as_int(-1) != static_cast<int>(i))
                Fail(expected + " has the wrong TabPageIndex");
        }
    }

    void Fail(const std::string& text) { m_failures.push_back(m_form + ": " + text); }

    std::string m_form;
    std::vector<std::string> m_failures;
};

class Vb6IdeContextTest : public test::CoreFixture {
protected:
    CW_IDEVB6Context& Open(const std::string& path)
    {
        auto host = CW_IDEVB6Context::Open(path);
        CW_IDEVB6Context* opened = host.get();
        ConnectHost(std::move(host));
        Parameters().SetFolderForGeneratedHelp(m_out.Path());
        Parameters().Charset = "utf-8";
        return *opened;
    }

    // The description the generation would save for a form, read back as XML.
    pugi::xml_node Describe(const std::string& form)
    {
        std::unique_ptr<CXmlForm> described = Scriv().DescribeSourceObject(objtype::kForm, form, {});
        m_text = described->XMLSTr();
        pugi::xml_parse_result parsed = m_document.load_string(m_text.c_str());
        EXPECT_TRUE(parsed) << parsed.description() << "\n" << m_text;
        return m_document.document_element();
    }

    pugi::xml_node Control(const pugi::xml_node& form, const std::string& name)
    {
        return form.find_node([&](const pugi::xml_node& node) { return name == node.attribute("Name").value(); });
    }

    test::TempFolder m_out;
    test::TempFolder m_work;
    std::string m_text;
    pugi::xml_document m_document;
};

// --- the bundled examples ---

TEST_F(Vb6IdeContextTest, EveryExampleFormIsDescribedWithItsControlsInsideTheirContainers)
{
    int described = 0;
    for (std::string source : { "OrderDesk/OrderDesk.vbp", "Inventory/Inventory.vbg" }) {
        CW_IDEVB6Context& host = Open(test::ExamplesFolder() + source);
        host.SetUseProjectGroupAsSource(true);
        for (const std::string& project : Split(host.SourceProjectsList(), "|")) {
            Server().Agent().SetCurrentSourceProject(project);
            for (const auto& component : host.Components()) {
                ASSERT_TRUE(component.file) << component.error;
                pugi::xml_node form = Describe(component.name);
                EXPECT_EQ(std::string(form.attribute("Name").value()), component.name);
                EXPECT_EQ(std::string(form.attribute("SourceProjectName").value()), project);
                DescriptionChecker checker(component.name);
                checker.Check(form);
                EXPECT_EQ(checker.Failures(), std::vector<std::string>()) << m_text;
                // A separator of a menu leaves no trace.
                for (const Vb6Block* block : component.file->Form().Descendants()) {
                    if (!block->IsSeparator())
                        continue;
                    EXPECT_EQ(m_text.find("\"" + block->Name() + "\""), std::string::npos) << block->Name();
                }
                ++described;
            }
        }
        m_client->Disconnect();
        m_client.reset();
    }
    EXPECT_EQ(described, 16);
}

TEST_F(Vb6IdeContextTest, TheMainWindowHasItsMenusToolbarAndBars)
{
    Open(test::ExamplesFolder() + "OrderDesk/OrderDesk.vbp");
    pugi::xml_node form = Describe("frmMain");
    EXPECT_STREQ(form.name(), "Form");
    EXPECT_STREQ(form.attribute("OriginalClassName").value(), "VBMDIForm");
    // Caption 18 and menu bar 18 above the client area, and a frame of 4.
    EXPECT_STREQ(form.attribute("ClientAreaOffset").value(), "4, 40");
    EXPECT_STREQ(form.attribute("HelpContextId").value(), "1000");
    pugi::xml_node menu = form.child("Menu");
    EXPECT_STREQ(menu.child("MenuEntry").attribute("Name").value(), "mnuFile");
    EXPECT_STREQ(menu.child("MenuEntry").attribute("Caption").value(), "&File");
    EXPECT_TRUE(Control(menu, "mnuOrdersStatus(2)"));
    pugi::xml_node toolbar = Control(form, "tbrMain");
    ASSERT_TRUE(toolbar);
    std::vector<std::string> buttons;
    for (const pugi::xml_node& button : toolbar.child("Controls").children("ToolbarButton"))
        buttons.push_back(std::string(button.attribute("Name").value()) + "@" + button.attribute("Location").value());
    ASSERT_EQ(buttons.size(), 8u);
    // 609 HIMETRIC a button: one row, each button 23.02 pixels right of the one before.
    EXPECT_EQ(buttons[0], "1_tbrMain@0, 0");
    EXPECT_EQ(buttons[1], "2_tbrMain@23, 0");
    EXPECT_EQ(buttons[7], "8_tbrMain@161, 0");
    EXPECT_STREQ(Control(toolbar, "1_tbrMain").attribute("Size").value(), "23, 22");
    EXPECT_STREQ(Control(toolbar, "1_tbrMain").attribute("Description").value(), "New order");
    EXPECT_TRUE(Control(form, "sbrMain"));
}

// --- measuring a form ---

const char* const kTabbedForm = "VERSION 5.00\r\n"
                                "Object = \"{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0\"; \"TABCTL32.OCX\"\r\n"
                                "Begin VB.Form frmGeo \r\n"
                                "   BorderStyle     =   3  'Fixed Dialog\r\n"
                                "   Caption         =   \"Geometry\"\r\n"
                                "   ClientHeight    =   3000\r\n"
                                "   ClientWidth     =   4500\r\n"
                                "   Begin TabDlg.SSTab tabMain \r\n"
                                "      Height          =   2400\r\n"
                                "      Left            =   150\r\n"
                                "      TabIndex        =   0\r\n"
                                "      Top             =   300\r\n"
                                "      Width           =   4200\r\n"
                                "      Tabs            =   2\r\n"
                                "      Tab             =   1\r\n"
                                "      TabHeight       =   420\r\n"
                                "      TabCaption(0)   =   \"&First\"\r\n"
                                "      TabPicture(0)   =   \"frmGeo.frx\":0000\r\n"
                                "      Tab(0).ControlEnabled=   0   'False\r\n"
                                "      Tab(0).Control(0)=   \"txtA\"\r\n"
                                "      Tab(0).ControlCount=   1\r\n"
                                "      TabCaption(1)   =   \"Second\"\r\n"
                                "      Tab(1).ControlEnabled=   -1  'True\r\n"
                                "      Tab(1).Control(0)=   \"lblB\"\r\n"
                                "      Tab(1).Control(1)=   \"txtB\"\r\n"
                                "      Tab(1).ControlCount=   2\r\n"
                                "      Begin VB.TextBox txtA \r\n"
                                "         Height          =   285\r\n"
                                "         Left            =   -74700\r\n"
                                "         TabIndex        =   1\r\n"
                                "         Top             =   900\r\n"
                                "         Width           =   1500\r\n"
                                "      End\r\n"
                                "      Begin VB.Label lblB \r\n"
                                "         Caption         =   \"&Amount:\"\r\n"
                                "         Height          =   255\r\n"
                                "         Left            =   300\r\n"
                                "         TabIndex        =   2\r\n"
                                "         Top             =   900\r\n"
                                "         Width           =   900\r\n"
                                "      End\r\n"
                                "      Begin VB.TextBox txtB \r\n"
                                "         Height          =   285\r\n"
                                "         Left            =   1350\r\n"
                                "         TabIndex        =   3\r\n"
                                "         Top             =   900\r\n"
                                "         Width           =   1500\r\n"
                                "      End\r\n"
                                "   End\r\n"
                                "End\r\n"
                                "Attribute VB_Name = \"frmGeo\"\r\n";

TEST_F(Vb6IdeContextTest, TabPagesShowTheirControlsWhereTheyStandWhenShown)
{
    m_work.Write("Geo.vbp", "Type=Exe\r\nForm=frmGeo.frm\r\nName=\"Geo\"\r\n");
    m_work.Write("frmGeo.frm", kTabbedForm);
    Open(m_work / "Geo.vbp");
    pugi::xml_node form = Describe("frmGeo");
    // 300 x 200 client pixels, a dialog frame of 4 and a caption of 18.
    EXPECT_STREQ(form.attribute("WindowSize").value(), "308, 226");
    EXPECT_STREQ(form.attribute("ClientAreaOffset").value(), "4, 22");
    pugi::xml_node tab = Control(form, "tabMain");
    EXPECT_STREQ(tab.attribute("Location").value(), "10, 20");
    EXPECT_STREQ(tab.attribute("Size").value(), "280, 160");
    pugi::xml_node first = Control(form, "0_tabMain");
    pugi::xml_node second = Control(form, "1_tabMain");
    ASSERT_TRUE(first && second);
    EXPECT_STREQ(first.attribute("Text").value(), "First");
    EXPECT_STREQ(second.attribute("Text").value(), "Second");
    // Three tabs to a row share the width; the tabs are 28 pixels high.
    EXPECT_STREQ(first.attribute("TabPageTab").value(), "10,20,93,28");
    EXPECT_STREQ(second.attribute("TabPageTab").value(), "103,20,93,28");
    // The control of the page hidden at design time stands 75000 twips to the
    // left in the file; shown, it is where its page puts it.
    pugi::xml_node txtA = Control(first, "txtA");
    ASSERT_TRUE(txtA);
    EXPECT_STREQ(txtA.attribute("Location").value(), "30, 80");
    EXPECT_STREQ(txtA.attribute("Text").value(), "A");
    pugi::xml_node txtB = Control(second, "txtB");
    ASSERT_TRUE(txtB);
    EXPECT_STREQ(txtB.attribute("Location").value(), "100, 80");
    // The label just before a text box names it.
    EXPECT_STREQ(txtB.attribute("Text").value(), "Amount:");
    EXPECT_STREQ(txtB.attribute("Indexes").value(), "Amount");
    EXPECT_FALSE(Control(first, "txtB"));
}

TEST_F(Vb6IdeContextTest, AFormInPixelsKeepsTwipsInItsFile)
{
    // The IDE shows the form's own controls in pixels, and saves them, as
    // every other place and size, in twips.
    m_work.Write("Px.vbp", "Type=Exe\r\nForm=frmPx.frm\r\n");
    m_work.Write("frmPx.frm", "VERSION 5.00\r\nBegin VB.Form frmPx \r\n"
                              "   BorderStyle     =   0  'None\r\n   ClientHeight    =   1500\r\n   ClientWidth     =   3000\r\n"
                              "   ScaleMode       =   3  'Pixel\r\n"
                              "   Begin VB.CommandButton cmdGo \r\n      Caption = \"&Go\"\r\n      Height = 375\r\n"
                              "      Left = 150\r\n      TabIndex = 0\r\n      Top = 300\r\n      Width = 1200\r\n   End\r\n"
                              "   Begin VB.Frame fraBox \r\n      Caption = \"Box\"\r\n      Height = 900\r\n      Left = 1500\r\n"
                              "      TabIndex = 1\r\n      Top = 150\r\n      Width = 1350\r\n"
                              "      Begin VB.CheckBox chkOne \r\n         Caption = \"One\"\r\n         Height = 255\r\n"
                              "         Left = 150\r\n         TabIndex = 2\r\n         Top = 300\r\n         Width = 900\r\n"
                              "      End\r\n   End\r\nEnd\r\n");
    Open(m_work / "Px.vbp");
    pugi::xml_node form = Describe("frmPx");
    EXPECT_STREQ(form.attribute("Name").value(), "frmPx");
    EXPECT_STREQ(form.attribute("WindowSize").value(), "200, 100");
    EXPECT_STREQ(form.attribute("ClientAreaOffset").value(), "0, 0");
    EXPECT_STREQ(Control(form, "cmdGo").attribute("Location").value(), "10, 20");
    EXPECT_STREQ(Control(form, "cmdGo").attribute("Size").value(), "80, 25");
    EXPECT_STREQ(Control(form, "cmdGo").attribute("Text").value(), "Go");
    pugi::xml_node check = Control(form, "chkOne");
    EXPECT_STREQ(check.attribute("Location").value(), "110, 30");
    EXPECT_STREQ(check.attribute("Size").value(), "60, 17");
    EXPECT_STREQ(check.attribute("Level").value(), "1");
}

TEST_F(Vb6IdeContextTest, AToolbarInsideAFrameHasItsButtonsWhereTheFramePutsIt)
{
    m_work.Write("Bar.vbp", "Type=Exe\r\nForm=frmBar.frm\r\n");
    m_work.Write("frmBar.frm",
        "VERSION 5.00\r\nObject = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\r\n"
        "Begin VB.Form frmBar \r\n   ClientHeight = 3000\r\n   ClientWidth = 4500\r\n"
        "   Begin VB.Frame fraTools \r\n      Caption = \"Tools\"\r\n      Height = 1500\r\n      Left = 300\r\n"
        "      TabIndex = 0\r\n      Top = 600\r\n      Width = 3000\r\n"
        "      Begin MSComctlLib.Toolbar tbrTools \r\n         Height = 420\r\n         Left = 150\r\n"
        "         TabIndex = 1\r\n         Top = 300\r\n         Width = 2700\r\n"
        "         ButtonWidth = 1058\r\n         ButtonHeight = 741\r\n"
        "         BeginProperty Buttons {66833FE8-8583-11D1-B16A-00C0F0283628} \r\n            NumButtons = 2\r\n"
        "            BeginProperty Button1 {66833FEA-8583-11D1-B16A-00C0F0283628} \r\n            EndProperty\r\n"
        "            BeginProperty Button2 {66833FEA-8583-11D1-B16A-00C0F0283628} \r\n            EndProperty\r\n"
        "         EndProperty\r\n      End\r\n   End\r\nEnd\r\n");
    Open(m_work / "Bar.vbp");
    pugi::xml_node form = Describe("frmBar");
    // Frame at 20,40; the toolbar 10,20 inside it; buttons of 1058 HIMETRIC, 40 pixels.
    EXPECT_STREQ(Control(form, "tbrTools").attribute("Location").value(), "30, 60");
    EXPECT_STREQ(Control(form, "1_tbrTools").attribute("Location").value(), "30, 60");
    EXPECT_STREQ(Control(form, "2_tbrTools").attribute("Location").value(), "70, 60");
    EXPECT_STREQ(Control(form, "2_tbrTools").attribute("Size").value(), "40, 28");
}

TEST_F(Vb6IdeContextTest, APageOfATabControlOnAnotherPageIsShownWithItsOuterPage)
{
    m_work.Write("Nest.vbp", "Type=Exe\r\nForm=frmNest.frm\r\n");
    m_work.Write("frmNest.frm",
        "VERSION 5.00\r\nObject = \"{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0\"; \"TABCTL32.OCX\"\r\n"
        "Begin VB.Form frmNest \r\n   ClientHeight = 4500\r\n   ClientWidth = 6000\r\n"
        "   Begin TabDlg.SSTab tabOuter \r\n      Height = 4200\r\n      Left = 150\r\n      TabIndex = 0\r\n"
        "      Top = 150\r\n      Width = 5700\r\n      Tabs = 2\r\n      Tab = 0\r\n"
        "      Tab(0).ControlCount = 0\r\n      Tab(1).Control(0) = \"tabInner\"\r\n      Tab(1).ControlCount = 1\r\n"
        "      Begin TabDlg.SSTab tabInner \r\n         Height = 3000\r\n         Left = -74700\r\n"
        "         TabIndex = 1\r\n         Top = 600\r\n         Width = 5100\r\n         Tabs = 3\r\n"
        "         Tab = 0\r\n         Tab(0).ControlCount = 0\r\n         Tab(1).ControlCount = 0\r\n"
        "         Tab(2).Control(0) = \"txtDeep\"\r\n         Tab(2).ControlCount = 1\r\n"
        "         Begin VB.TextBox txtDeep \r\n            Height = 285\r\n            Left = -74400\r\n"
        "            TabIndex = 2\r\n            Top = 900\r\n            Width = 1500\r\n         End\r\n"
        "      End\r\n   End\r\nEnd\r\n");
    CW_IDEVB6Context& host = Open(m_work / "Nest.vbp");
    int handle = host.ActivateComponent(objtype::kForm, "frmNest", true, false);
    auto drawnAt = [&](const std::string& name) -> const RenderedControl* {
        const RenderedWindow* window = RenderedWindows().Find(handle);
        return window ? window->form.Find(name) : nullptr;
    };
    EXPECT_EQ(drawnAt("txtDeep"), nullptr);
    ASSERT_TRUE(host.ActivateControl("Form.frmNest.tabOuter.1_tabOuter.[1].tabInner.2_tabInner.[2]", false, false));
    const RenderedControl* deep = drawnAt("txtDeep");
    ASSERT_NE(deep, nullptr);
    // 150 + 300 + 600 twips right of the client area, 150 + 600 + 900 down.
    EXPECT_EQ(deep->rect.left, 4 + 70);
    EXPECT_EQ(deep->rect.top, 22 + 110);
    host.CloseComponent(objtype::kForm, "frmNest", false);
    EXPECT_EQ(RenderedWindows().Find(handle), nullptr);
}

// --- what cannot be read ---

TEST_F(Vb6IdeContextTest, AFormThatCannotBeReadIsNamedAndTheOthersAreStillRead)
{
    std::string folder = test::CopyExample("OrderDesk", m_work);
    std::string vbp = ReadBytes(folder + "OrderDesk.vbp");
    WriteFileBytes(folder + "OrderDesk.vbp", "Form=frmBroken.frm\r\n" + vbp);
    WriteFileBytes(folder + "frmBroken.frm", "VERSION 5.00\r\nBegin VB.Form frmBroken\r\n   Caption = \"x\r\n"
                                             "   Begin VB.TextBox txtA\r\n   End\r\n");
    CW_IDEVB6Context& host = Open(folder + "OrderDesk.vbp");
    ASSERT_EQ(host.Components().size(), 9u);
    const auto& broken = host.Components().front();
    EXPECT_EQ(broken.name, "frmBroken");
    EXPECT_EQ(broken.file, nullptr);
    EXPECT_NE(broken.error.find("frmBroken.frm"), std::string::npos) << broken.error;
    // The caption's string runs open on the third line.
    EXPECT_NE(broken.error.find("frmBroken.frm(3)"), std::string::npos) << broken.error;
    // Asked for through the command path, the error comes back to the caller.
    try {
        Scriv().DescribeSourceObject(objtype::kForm, "frmBroken", {});
        FAIL();
    } catch (const ScrivError& error) {
        EXPECT_NE(error.Description().find("frmBroken.frm(3)"), std::string::npos) << error.Description();
    }
    EXPECT_STREQ(Describe("frmAbout").attribute("Name").value(), "frmAbout");
}

TEST_F(Vb6IdeContextTest, FilesNamedInAnotherCaseThanTheProjectSaysAreFound)
{
    m_work.Write("APP.VBP", "Type=Exe\r\nForm=Forms\\Form1.frm\r\n");
    m_work.Write("FORMS/FORM1.FRM", "VERSION 5.00\r\nBegin VB.Form Form1\r\n   Caption = \"One\"\r\nEnd\r\n");
    CW_IDEVB6Context& host = Open(m_work / "APP.VBP");
    ASSERT_EQ(host.Components().size(), 1u);
    EXPECT_EQ(host.Components()[0].error, "");
    EXPECT_EQ(host.Components()[0].path, m_work / "FORMS/FORM1.FRM");
    EXPECT_STREQ(Describe("form1").attribute("Text").value(), "One");
}

TEST_F(Vb6IdeContextTest, AMissingFormFileIsSaidToBeMissing)
{
    m_work.Write("App.vbp", "Type=Exe\r\nForm=frmGone.frm\r\n");
    CW_IDEVB6Context& host = Open(m_work / "App.vbp");
    ASSERT_EQ(host.Components().size(), 1u);
    EXPECT_EQ(host.Components()[0].error, "The form file '" + (m_work / "frmGone.frm") + "' does not exist.");
}

TEST_F(Vb6IdeContextTest, AnUnknownCommandIsRefusedWithItsName)
{
    CW_IDEVB6Context& host = Open(test::ExamplesFolder() + "OrderDesk/OrderDesk.vbp");
    try {
        host.ProcessCallBack("<cmd name=\"Xyz\"><params /></cmd>");
        FAIL();
    } catch (const ScrivError& error) {
        EXPECT_EQ(error.Description(), "Undefined callback command [Xyz]");
        EXPECT_EQ(error.Source(), "CW_IDEVB6Context.IHostIDEContext_ProcessCallBack");
    }
    EXPECT_EQ(host.ProcessCallBack("<cmd name=\"CurrentSourceProjectName\"><params /></cmd>"),
        "<cmd name=\"CurrentSourceProjectName\"><params RetValue=\"OrderDesk\" /></cmd>");
}

// --- writing back into the application ---

std::map<std::string, std::string> FolderBytes(const std::string& folder)
{
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files[entry.path().string()] = ReadBytes(entry.path().string());
    return files;
}

TEST_F(Vb6IdeContextTest, AHelpContextIdChangesOneLineOfItsFormAndNothingElse)
{
    std::string folder = test::CopyExample("OrderDesk", m_work);
    std::map<std::string, std::string> before = FolderBytes(folder);
    Open(folder + "OrderDesk.vbp");
    CScrivServerAgent& agent = Server().Agent();
    agent.SetComponentHelpContextId(objtype::kForm, "frmCustomer", 2010);
    agent.SetComponentHelpContextId(objtype::kForm, "frmAbout", 2020);
    EXPECT_TRUE(agent.CurrentSourceProjectIsDirty());
    agent.SaveMakeRun(true, false, false);
    std::map<std::string, std::string> after = FolderBytes(folder);

    for (const auto& [path, bytes] : before) {
        if (EndsWithNoCase(path, "frmCustomer.frm") || EndsWithNoCase(path, "frmAbout.frm"))
            continue;
        EXPECT_EQ(after[path], bytes) << path;
    }
    std::string customer = before[folder + "frmCustomer.frm"];
    std::string expected = ReplaceAll(customer, "   HelpContextID   =   1010\r\n", "   HelpContextID   =   2010\r\n");
    ASSERT_NE(expected, customer);
    EXPECT_EQ(after[folder + "frmCustomer.frm"], expected);

    // frmAbout had none: exactly one line more, and every other line as it was.
    std::vector<std::string> oldLines = Split(before[folder + "frmAbout.frm"], "\r\n");
    std::vector<std::string> newLines = Split(after[folder + "frmAbout.frm"], "\r\n");
    ASSERT_EQ(newLines.size(), oldLines.size() + 1);
    auto added = std::mismatch(oldLines.begin(), oldLines.end(), newLines.begin()).second;
    EXPECT_EQ(Trim(*added), "HelpContextID   =   2020");
    newLines.erase(added);
    EXPECT_EQ(newLines, oldLines);
    EXPECT_FALSE(agent.CurrentSourceProjectIsDirty());
}

TEST_F(Vb6IdeContextTest, TheHelpFileGoesIntoTheProjectFileAndMakingIsRefusedPolitely)
{
    std::string folder = test::CopyExample("OrderDesk", m_work);
    std::string vbp = ReadBytes(folder + "OrderDesk.vbp");
    Open(folder + "OrderDesk.vbp");
    CScrivServerAgent& agent = Server().Agent();
    agent.SetHelpFileForCurrentSourceProject(folder + "CHM/OrderDesk.chm");
    // Nothing is written before the project is saved.
    EXPECT_EQ(ReadBytes(folder + "OrderDesk.vbp"), vbp);
    agent.SaveMakeRun(true, true, false);
    EXPECT_EQ(ReadBytes(folder + "OrderDesk.vbp"),
        ReplaceAll(vbp, "HelpFile=\"\"\r\n", "HelpFile=\"OrderDesk.chm\"\r\n"));
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    EXPECT_NE(m_ui->MessageBoxes()[0].text.find("cannot be made or run"), std::string::npos);
}

// --- a group ---

TEST_F(Vb6IdeContextTest, TheProjectsOfAGroupAreTheSourceProjectsWithTheStartupOneCurrent)
{
    CW_IDEVB6Context& host = Open(test::ExamplesFolder() + "Inventory/Inventory.vbg");
    CScrivServerAgent& agent = Server().Agent();
    EXPECT_EQ(agent.GetSourceProjectsList(), (std::vector<std::string> { "InventoryApp", "InventoryReports" }));
    EXPECT_EQ(agent.CurrentSourceProjectName(), "InventoryApp");
    EXPECT_TRUE(agent.ComponentExistsTest(objtype::kForm, "frmReorder"));
    EXPECT_FALSE(agent.ComponentExistsTest(objtype::kForm, "frmReportPicker"));
    agent.SetCurrentSourceProject("InventoryReports");
    EXPECT_EQ(agent.CurrentSourceProjectLocation(), test::ExamplesFolder() + "Inventory/Reports/");
    std::set<std::string> names;
    for (const auto& component : host.Components())
        names.insert(component.name);
    EXPECT_EQ(names, (std::set<std::string> { "frmReportPicker", "frmPrintPreview", "ctlPageNav", "docReportSummary" }));
    pugi::xml_node document = Describe("docReportSummary");
    EXPECT_STREQ(document.attribute("OriginalClassName").value(), "UserDocument");
    // A user document has no frame of its own.
    EXPECT_STREQ(document.attribute("ClientAreaOffset").value(), "0, 0");
}

TEST_F(Vb6IdeContextTest, AGroupOpensWithoutTheProjectsItCannotRead)
{
    m_work.Write("One/One.vbp", "Type=Exe\r\nForm=frmOne.frm\r\nName=\"One\"\r\n");
    m_work.Write("One/frmOne.frm", "VERSION 5.00\r\nBegin VB.Form frmOne\r\nEnd\r\n");
    m_work.Write("Three/Three.vbp", "Type=Exe\r\nName=\"Three\"\r\n");
    m_work.Write("All.vbg", "VBGROUP 5.0\r\nProject=One\\One.vbp\r\nProject=Two\\Two.vbp\r\nStartupProject=Three\\Three.vbp\r\n");
    CW_IDEVB6Context& host = Open(m_work / "All.vbg");
    EXPECT_EQ(host.SourceProjectsList(), "One|Three");
    EXPECT_EQ(host.CurrentSourceProjectName(), "Three");
    ASSERT_EQ(host.OpenErrors().size(), 1u);
    EXPECT_NE(host.OpenErrors()[0].find("Two.vbp"), std::string::npos) << host.OpenErrors()[0];

    m_work.Write("None.vbg", "VBGROUP 5.0\r\nProject=Two\\Two.vbp\r\n");
    try {
        CW_IDEVB6Context::Open(m_work / "None.vbg");
        FAIL();
    } catch (const ScrivError& error) {
        EXPECT_NE(error.Description().find("Two.vbp"), std::string::npos) << error.Description();
    }
}

TEST_F(Vb6IdeContextTest, AFormCollectionKeepsItsFormsInOrderOfCaption)
{
    CW_IDEVB6Context& host = Open(test::ExamplesFolder() + "OrderDesk/OrderDesk.vbp");
    std::vector<std::unique_ptr<CW_IDEVB6FormProcessor>> processors;
    for (const char* name : { "frmOrder", "frmAbout", "frmCustomer", "frmLogin" }) {
        CW_IDEVB6Context::Component* component = host.FindComponent(name);
        processors.push_back(std::make_unique<CW_IDEVB6FormProcessor>(*component->file, component->windowHandle));
    }
    clsFormCollection forms(*processors[0]);
    // Without a caption the form's own counts: "Order", "About Order Desk".
    forms.Add(processors[0]->Component());
    forms.Add(processors[1]->Component());
    forms.Add(processors[2]->Component(), "about order desk");
    forms.Add(processors[3]->Component(), "Zebra");
    ASSERT_EQ(forms.Count(), 4u);
    EXPECT_EQ(forms.Item(0), processors[1]->Component());
    EXPECT_EQ(forms.Item(1), processors[2]->Component());
    EXPECT_EQ(forms.Item(2), processors[0]->Component());
    EXPECT_EQ(forms.Item(3), processors[3]->Component());
    EXPECT_EQ(forms.Caption(processors[0]->Component()), "Order");
    EXPECT_EQ(forms.Caption(nullptr), "");
}

}  // namespace
}  // namespace scriv
