#include <gtest/gtest.h>

#include "foundation/Paths.h"
#include "generation/CScrivant.h"
#include "model/CAddInProject.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

class HelpProjectFileTest : public test::CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        Connect();
        CAddInProject& project = UseProject("Shop", m_out.Path());
        project.FileName = "Shop";
        project.SetTitle("Shop Help");
        for (const char* page : { "b.htm", "A.htm", "main.htm", "hh_toc_java.htm", "hh_index_java.htm", "ss.html" })
            m_out.Write(page, "x");
        m_out.Write("images/z.jpg", "x");
        m_out.Write("images/y.bmp", "x");
        m_out.Write("images/notes.txt", "x");
        ASSERT_EQ(Tree().Load(m_data.Write("c.xml", R"(<Project Caption="Shop" GeneratedHtmlFile="A.htm"/>)"), true), 0u);
    }

    test::TempFolder m_out;
};

TEST_F(HelpProjectFileTest, TheProjectFileListsTopicsPicturesAndAliasesInItsLayout)
{
    Parameters().SetAssociateHelpIndex(false);
    Parameters().AddSearchTabToHelp = false;
    Parameters().LanguageCode = "";
    EXPECT_EQ(Scriv().HHPText(), "[Options]\r\n"
                                 "Binary index = No\r\n"
                                 "Compatibility = 1.1 Or later\r\n"
                                 "Compiled file = Shop.chm\r\n"
                                 "Contents file = Shop.hhc\r\n"
                                 "index file = \r\n"
                                 "Default Topic = A.htm\r\n"
                                 "Display compile progress=Yes\r\n"
                                 "Full-text search=No\r\n"
                                 "Title=Shop Help\r\n"
                                 "[Files]\r\n"
                                 "A.htm\r\n"
                                 "b.htm\r\n"
                                 "images\\y.bmp\r\n"
                                 "images\\z.jpg\r\n"
                                 "[ALIAS]\r\n"
                                 "IDH_A=A.htm\r\n"
                                 "IDH_b=b.htm\r\n"
                                 "[MAP]\r\n"
                                 "#include Shop.h\r\n"
                                 "[TEXT POPUPS]\r\n"
                                 "#include Shop.h\r\n"
                                 "#include Shop.txt\r\n");
}

TEST_F(HelpProjectFileTest, ALanguageCodeNamesLanguageAndFontAndTheIndexIsAssociated)
{
    Parameters().SetAssociateHelpIndex(true);
    Parameters().AddSearchTabToHelp = true;
    Parameters().LanguageCode = "1031";
    std::string text = Scriv().HHPText();
    EXPECT_NE(text.find("index file = Shop.hhk\r\n"), std::string::npos);
    EXPECT_NE(text.find("Full-text search=Yes\r\nLanguage=0x407 German (Germany)\r\nDefault Font=Arial,8,0\r\nTitle="),
        std::string::npos)
        << text;
    Parameters().LanguageCode = "99999";
    EXPECT_EQ(Scriv().HHPText().find("Language="), std::string::npos);
}

TEST_F(HelpProjectFileTest, TheTextPopupsNameEveryTopic)
{
    ASSERT_EQ(Scriv().WriteHHPFile({}), 0u);
    EXPECT_TRUE(FileExists(m_out / "Shop.hhp"));
    EXPECT_EQ(m_out.Read("Shop.txt"), ".topic A \r\nRefers to : A.htm\r\n.topic b \r\nRefers to : b.htm\r\n");
}

}  // namespace
}  // namespace scriv
