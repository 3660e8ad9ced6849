#pragma once

#include <string>

namespace scriv {

class CXmlControl;
class CXmlForm;

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

private:
    void TakeCompoundControlScreenshot(CXmlForm& form, CXmlControl& control, int hwnd, const std::string& targetFolder);

    int m_taken { 0 };
};

}  // namespace scriv
