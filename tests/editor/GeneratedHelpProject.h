#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "foundation/ErrorMessage.h"
#include "foundation/Paths.h"
#include "desktop/CW_IDEVB6Context.h"
#include "model/CAddInSettingsXmlFile.h"
#include "model/CHelpPrjTree.h"
#include "support/CoreFixture.h"

namespace scriv::test {

// The help project of the bundled OrderDesk example, generated once per test
// program (without the compiler) and copied for each test into a folder of
// its own, so that a test may break its pages as it likes.
class GeneratedHelpProject : public CoreFixture {
protected:
    void SetUp() override
    {
        CoreFixture::SetUp();
        if (!Generated())
            Generate();
        std::filesystem::copy(Generated()->Path() + "CHM/", m_work.Path(), std::filesystem::copy_options::recursive);
        // The generation's error reports and connections are not the test's.
        SetErrorCounter(0);
    }

    // The project's folder, with a final separator.
    std::string Folder() const { return m_work.Path(); }
    std::string Page(const std::string& name) const { return m_work / name; }
    std::string SvpPath() const { return m_work / "OrderDesk.svp"; }

    // The generated pages of the project's tree, as the editor lists them.
    std::vector<std::string> Pages() const
    {
        CHelpPrjTree tree;
        tree.HTMLHelpProjectRootDir = m_work.Path();
        EXPECT_EQ(tree.Load(SvpPath(), false), 0u);
        return tree.GetFilesHTMLCollection();
    }

    TempFolder m_work;

private:
    static std::unique_ptr<TempFolder>& Generated()
    {
        static std::unique_ptr<TempFolder> folder;
        return folder;
    }

    void Generate()
    {
        auto folder = std::make_unique<TempFolder>();
        std::string example = CopyExample("OrderDesk", *folder);
        ConnectHost(CW_IDEVB6Context::Open(example + "OrderDesk.vbp"));
        Data().Unattended = true;
        Data().OverrideOption("FolderForGeneratedHelp", OptionValue::Text(folder->Path() + "CHM/"));
        Data().OverrideOption("CompileHTMLHelp", OptionValue::Bool(false));
        ASSERT_EQ(Server().OpenNewProject(), 0u);
        ASSERT_TRUE(FileExists(folder->Path() + "CHM/OrderDesk.svp"));
        m_client->Disconnect();
        m_client.reset();
        Generated() = std::move(folder);
    }
};

}  // namespace scriv::test
