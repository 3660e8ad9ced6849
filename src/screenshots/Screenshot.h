#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace scriv {

class CXmlControl;
class CXmlForm;
class PictureFileWriter;

// What a single form's screenshot needs of the generation: the form's
// normalised description, and its topic written beside the picture. The
// server makes its generator the current one.
class IFormPageMaker {
public:
    virtual ~IFormPageMaker() = default;
    // The normalised description of one component, or nothing when the host has none.
    virtual std::unique_ptr<CXmlForm> CreateNormalizedXmlDef(int objectType, const std::string& name, int hwnd,
        bool designView, const std::string& picFullPath, const std::string& htmlFullPath, bool noScreenshots,
        const std::string& hostProjectType, bool keepOpen)
        = 0;
    // Writes the topic of a form description to htmlFullPath.
    virtual void SaveFormPage(CXmlForm& form, const std::string& htmlFullPath) = 0;
};

IFormPageMaker* CurrentFormPageMaker();
void SetCurrentFormPageMaker(IFormPageMaker* maker);

// Photographs a form for its topic: the whole window, and a picture of each
// compound control (tab control, tab page, frame, container) on which that
// control's own image map lies.
class Screenshot {
public:
    // Captures the form of a description whose window the host has drawn,
    // and its compound controls, into targetFolder (the pictures keep their
    // names). Raises when the text is no description.
    void LocateObjectsAndTakeScreenshots(CXmlForm& form, const std::string& targetFolder);
    // The same for a description given as text.
    void LocateObjectsAndTakeScreenshots(const std::string& formXml, const std::string& targetFolder);

    // The control's path as the host knows it: "Form.frmOrder.tabOrder.1_tabOrder.[1]".
    static std::string PageName(const CXmlForm& form, const CXmlControl& control);
    // Pictures written by the last call.
    int PicturesTaken() const { return m_taken; }
    // Pictures go to the writer's thread instead of being written at once.
    void SetPictureWriter(PictureFileWriter* writer) { m_writer = writer; }

    // --- one form at a time, as a screenshot tool asks ---
    // Every call below clears the last error first and answers false with
    // LastErrDscr set when it cannot do what it is asked.

    // Opens a help project (a .svp) for the calls below; the same path again does nothing.
    bool LoadProject(const std::string& svpFullPath);
    // Photographs a form of the application and, unless htmlFileName is
    // empty, writes its topic beside the picture. With picType -1 the loaded
    // project says where and how; otherwise picType is 1 (bitmap) or 2 (JPEG)
    // and "{{FormName}}" in the file names becomes the form's name.
    bool TakeVB6FormScreenshot(const std::string& formName, int picType, const std::string& targetFolder,
        const std::string& pictureFileName, const std::string& htmlFileName);
    // The same for a form of a Visual Studio project, found by the window
    // handle the host drew it under.
    bool TakeWinFormScreenshot(int hwnd, int picType, const std::string& targetFolder,
        const std::string& pictureFileName, const std::string& htmlFileName);
    // Photographs a window alone, without a page.
    bool TakeWindowScreenshot(int hwnd, int picType, const std::string& targetFolder, const std::string& pictureFileName);

    const std::string& LoadedProjectSnapshotFormat() const { return m_snapshotFormat; }
    const std::string& LoadedProjectHtmlFolder() const { return m_htmlFolder; }
    const std::string& LoadedProjectPicsFolder() const { return m_picsFolder; }
    const std::string& TakenImageFullPath() const { return m_takenImage; }
    std::uint32_t LastErrNum() const { return m_errNum; }
    const std::string& LastErrDscr() const { return m_errDescription; }
    const std::string& LastErrStr() const { return m_errText; }

private:
    void TakeCompoundControlScreenshot(CXmlForm& form, CXmlControl& control, int hwnd, const std::string& targetFolder);
    bool TakeNamedForm(const std::string& formName, int picType, const std::string& targetFolder,
        const std::string& pictureFileName, const std::string& htmlFileName, bool isVSNet);
    bool Take(const std::string& formName, int picType, const std::string& pictureFullPath, const std::string& htmlFullPath,
        bool isVSNet = false);
    bool Fail(const std::string& description, std::uint32_t number = 0x80040001);
    void ClearError();

    int m_taken { 0 };
    PictureFileWriter* m_writer { nullptr };
    std::string m_loadedPath;
    std::string m_snapshotFormat;
    std::string m_htmlFolder;
    std::string m_picsFolder;
    std::string m_takenImage;
    std::uint32_t m_errNum { 0 };
    std::string m_errDescription;
    std::string m_errText;
};

}  // namespace scriv
