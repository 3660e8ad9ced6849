#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/excel/CompoundFile.h"

// The controls of a VBA user form as Excel keeps them in the binary half of
// its export (.frx): a compound file whose stream "f" lists the controls
// (their sites), whose stream "o" holds each control's own properties, and
// whose storages "i<ID>" hold the controls inside a frame or multipage.
namespace scriv {

enum class MsFormsControlType {
    Label,
    TextBox,
    ListBox,
    ComboBox,
    CheckBox,
    OptionButton,
    ToggleButton,
    CommandButton,
    Frame,
    Image,
    ScrollBar,
    SpinButton,
    TabStrip,
    MultiPage,
    Page,
};

struct MsFormsControl {
    std::string name;
    MsFormsControlType type { MsFormsControlType::Label };
    std::int32_t id { 0 };
    int tabIndex { -1 };
    std::int32_t helpContextId { 0 };
    bool visible { true };
    bool enabled { true };
    // Place in its container and size, in HIMETRIC (1/100 mm).
    int left { 0 };
    int top { 0 };
    int width { 0 };
    int height { 0 };
    std::string caption;
    // The text of a text or combo box, the state of a check or option button ("1", "0").
    std::string value;
    std::string tag;
    std::string controlTipText;
    // The captions of a tab strip's tabs.
    std::vector<std::string> tabs;
    // The controls of a frame or page, the pages of a multipage.
    std::vector<MsFormsControl> children;
};

struct MsFormsForm {
    std::string caption;
    // The client area in HIMETRIC.
    int width { 0 };
    int height { 0 };
    // The form's font, when it names one; size in points.
    std::string fontName;
    double fontSize { 0 };
    std::vector<MsFormsControl> controls;
};

// The name of a control type as Visual Basic for Applications calls it ("CommandButton").
const char* MsFormsTypeName(MsFormsControlType type);

// Pixels at 96 per inch of a HIMETRIC measure, rounded.
int HimetricToPixels(int himetric);

class MsFormsFile {
public:
    // The form kept in the .frx at offset (the number after the colon of the
    // export's OleObjectBlob). Raises ScrivError naming the file when it
    // cannot be read or holds no form there; a control that cannot be read
    // is left out with a trace line.
    static MsFormsForm Load(const std::string& path, std::size_t offset = 0);
    // The form of the compound file's root storage; source names it in trace
    // lines and errors. Raises ScrivError when the stream "f" is missing or
    // damaged; a control that cannot be read is left out with a trace line.
    static MsFormsForm Parse(const CompoundStorage& storage, const std::string& source);
};

}  // namespace scriv
