#include <gtest/gtest.h>

#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CScrivantParameters.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

class SettingsTest : public test::CoreFixture {
protected:
    std::string SettingsFile(const std::string& options)
    {
        return m_data.Write("ScrivantSettings.xml",
            "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n<Settings>\r\n<Options>\r\n" + options
                + "</Options>\r\n</Settings>\r\n");
    }

    CScrivantParameters m_parameters;
    CAddInSettingsXmlFile m_settings { m_parameters };
};

TEST_F(SettingsTest, OptionsAreTypedByTheirText)
{
    m_settings.SetOptionValue("Flag", OptionValue::Bool(true));
    m_settings.SetOptionText("Name", "Orders");
    EXPECT_EQ(m_settings.GetOptionValue("FLAG").kind, OptionValue::Kind::Boolean);
    EXPECT_TRUE(m_settings.GetOptionValue("flag").AsBool());
    EXPECT_EQ(m_settings.OptionText("name"), "Orders");
    EXPECT_TRUE(m_settings.GetOptionValue("Missing").IsEmpty());
    m_settings.SetOptionText("flag", "FALSE");
    EXPECT_EQ(m_settings.GetOptionValue("Flag").kind, OptionValue::Kind::Boolean);
    EXPECT_FALSE(m_settings.GetOptionValue("Flag").AsBool());
    // New options keep the order of first use.
    ASSERT_EQ(m_settings.Options().size(), 2u);
    EXPECT_EQ(m_settings.Options()[0].Name, "Flag");
}

TEST_F(SettingsTest, TheShippedSettingsLoadWithTheirDefaults)
{
    ASSERT_EQ(m_settings.Load(test::SourceDataFolder() + "Settings/ScrivantSettings.xml", false), 0u);
    EXPECT_EQ(m_parameters.IdentifyControls(), 0);
    EXPECT_EQ(m_parameters.ImagesFormat(), 3);
    EXPECT_TRUE(m_parameters.AddHotSpotsForForm);
    EXPECT_TRUE(m_parameters.CompileHTMLHelp);
    EXPECT_TRUE(m_parameters.GenerateHelpForForms);
    EXPECT_FALSE(m_parameters.GenerateHelpForTables);
    EXPECT_EQ(m_parameters.Charset, "utf-8");
    EXPECT_EQ(m_parameters.NameOfFolderForGeneratedImages(), "images/");
    EXPECT_EQ(m_parameters.MSWordTOCLowerHeadingLevel, 2);
    // Without a host the project location is the temporary folder.
    EXPECT_EQ(m_parameters.FolderForGeneratedHelp(), scriv::TempFolder() + "CHM/");
}

TEST_F(SettingsTest, ValuesWithQuotesAndAmpersandsSurviveASaveAndLoad)
{
    m_parameters.Copyright = "\"Acme\" & Sons <2026>";
    m_parameters.Organization = "R&D";
    std::string path = m_data / "ScrivantSettings.xml";
    m_settings.Save(path);
    EXPECT_NE(m_data.Read("ScrivantSettings.xml").find("Value = \"&#34;Acme&#34; &#38; Sons &#60;2026&#62;\""),
        std::string::npos);
    CScrivantParameters reloaded;
    CAddInSettingsXmlFile other(reloaded);
    ASSERT_EQ(other.Load(path, false), 0u);
    EXPECT_EQ(reloaded.Copyright, "\"Acme\" & Sons <2026>");
    EXPECT_EQ(reloaded.Organization, "R&D");
}

TEST_F(SettingsTest, TheSavedFileHasTheFixedLayoutAndPlaceholders)
{
    m_parameters.ApplicationNameStr = "Orders";
    m_parameters.SetFolderForGeneratedHelp("/apps/orders/CHM/");
    m_parameters.VerboseTracing = true;
    m_settings.Save(m_data / "ScrivantSettings.xml");
    std::string text = m_data.Read("ScrivantSettings.xml");
    EXPECT_EQ(text.rfind("<?xml version=\"1.0\" encoding=\"utf-8\" ?>\r\n<Settings>\r\n<Options>\r\n"
                         "  <Option Name = \"Version\" Value = \"0.1.0\" />\r\n",
                  0),
        0u)
        << text;
    EXPECT_NE(text.find("  <Option Name = \"Application\" Value = \"{Application}\" />\r\n"), std::string::npos);
    EXPECT_NE(text.find("  <Option Name = \"FolderForGeneratedHelp\" Value = \"{Project Location}CHM\" />\r\n"),
        std::string::npos);
    EXPECT_EQ(text.find("VerboseTracing"), std::string::npos);
    EXPECT_EQ(text.find("WizardUnattendedExecution"), std::string::npos);
    EXPECT_TRUE(text.size() > 2 && text.substr(text.size() - 13) == "</Settings>\r\n");
}

TEST_F(SettingsTest, AnOptionWithAnEmptyValueIsAbsentAndItsDefaultRuleApplies)
{
    std::string path = SettingsFile("  <Option Name = \"Charset\" Value = \"\" />\r\n"
                                    "  <Option Name = \"ListOfTagsToParseContentsFrom\" Value = \"\" />\r\n");
    ASSERT_EQ(m_settings.Load(path, false), 0u);
    EXPECT_TRUE(m_settings.GetOptionValue("Charset").IsEmpty());
    EXPECT_EQ(m_parameters.Charset, "windows-1252");
    EXPECT_EQ(m_parameters.ListOfTagsToParseContentsFrom, (std::vector<std::string> { "H2" }));
}

TEST_F(SettingsTest, OutOfRangeValuesFallBack)
{
    std::string path = SettingsFile("  <Option Name = \"MSWordTOCLowerHeadingLevel\" Value = \"10\" />\r\n"
                                    "  <Option Name = \"IdentifyBy\" Value = \"Name\" />\r\n"
                                    "  <Option Name = \"SnapshotFormat\" Value = \"Bitmap\" />\r\n"
                                    "  <Option Name = \"LastUsedFolderForCapturedImages\" value = \"/pics\" />\r\n");
    ASSERT_EQ(m_settings.Load(path, false), 0u);
    EXPECT_EQ(m_parameters.MSWordTOCLowerHeadingLevel, 2);
    EXPECT_EQ(m_parameters.IdentifyControls(), 1);
    EXPECT_EQ(m_parameters.ImagesFormat(), 1);
    EXPECT_EQ(m_parameters.LastUsedFolderForCapturedImages, "/pics");
}

TEST_F(SettingsTest, ProjectFieldsAreTakenOnlyFromAProjectFile)
{
    std::string options = "  <Option Name = \"HelpProjectName\" Value = \"OrdersHelp\" />\r\n"
                          "  <Option Name = \"Application\" Value = \"Orders\" />\r\n";
    ASSERT_EQ(m_settings.Load(SettingsFile(options), false), 0u);
    EXPECT_EQ(m_parameters.HelpProjectName(), "");
    std::string project = m_data.Write("p.svp", "<ScrivProject><Project/><Settings><Options>" + options
            + "</Options></Settings></ScrivProject>");
    ASSERT_EQ(m_settings.Load(project, true), 0u);
    EXPECT_EQ(m_parameters.HelpProjectName(), "OrdersHelp");
    EXPECT_EQ(m_parameters.ApplicationNameStr, "Orders");
}

TEST_F(SettingsTest, TheProjectLocationResolvesForTheMachineAtHand)
{
    Connect(R"(<Host><Project Name="Orders" FullPath="/apps/orders/Orders.vbp"/></Host>)");
    std::string path = SettingsFile("  <Option Name = \"FolderForGeneratedHelp\" Value = \"{Project Location}CHM\" />\r\n");
    ASSERT_EQ(m_settings.Load(path, false), 0u);
    EXPECT_EQ(m_parameters.FolderForGeneratedHelp(), "/apps/orders/CHM/");
}

TEST_F(SettingsTest, AFileThatDoesNotParseIsReportedAndLeftAlone)
{
    std::string path = m_data.Write("ScrivantSettings.xml", "<Settings><Options></Settings>");
    std::uint32_t code = m_settings.Load(path, false);
    EXPECT_NE(code, 0u);
    ASSERT_EQ(m_ui->MessageBoxes().size(), 1u);
    const std::string& text = m_ui->MessageBoxes()[0].text;
    EXPECT_NE(text.find(FormatCode(code)), std::string::npos) << text;
    EXPECT_NE(text.find("in '" + path + "'"), std::string::npos) << text;
    EXPECT_EQ(m_data.Read("ScrivantSettings.xml"), "<Settings><Options></Settings>");
    EXPECT_EQ(m_settings.Load(m_data.Write("other.xml", "<Other/>"), false), status::kGeneralFailure);
}

TEST_F(SettingsTest, ExclusionsAndReplacementsShapeTheSettingsBlock)
{
    m_settings.SetOptionText("FolderForGeneratedHelp", "/real/folder/");
    m_settings.SetOptionText("LastUsedFolderForGeneratedHelp", "/x/");
    m_settings.SetOptionText("Copyright", "{Copyright} stays");
    std::string text = m_settings.XMLSTr({ "lastusedfolderforgeneratedhelp" }, { { "FolderForGeneratedHelp", "{Project Location}CHM" } });
    EXPECT_EQ(text, "<Settings>\r\n<Options>\r\n"
                    "  <Option Name = \"FolderForGeneratedHelp\" Value = \"{Project Location}CHM\" />\r\n"
                    "  <Option Name = \"Copyright\" Value = \"{Copyright} stays\" />\r\n"
                    "</Options>\r\n</Settings>\r\n");
}

}  // namespace
}  // namespace scriv
