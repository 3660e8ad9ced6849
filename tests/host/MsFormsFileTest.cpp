// The controls of VBA user forms read from their .frx: the bundled example,
// strings of both widths, and damaged or foreign bytes that must fail cleanly.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "foundation/CTraceLog.h"
#include "foundation/Paths.h"
#include "foundation/ScrivError.h"
#include "host/excel/MsFormsFile.h"
#include "support/CoreFixture.h"

namespace scriv {
namespace {

// Little-endian bytes of one structure: values aligned to their size from its start.
struct Bytes {
    std::string data;

    Bytes& Put(std::uint64_t value, std::size_t size)
    {
        while (data.size() % size)
            data += '\0';
        for (std::size_t i = 0; i < size; ++i)
            data += static_cast<char>(value >> (8 * i) & 0xFF);
        return *this;
    }
    Bytes& Raw(std::string_view bytes)
    {
        data += bytes;
        return *this;
    }
    Bytes& Pad()
    {
        while (data.size() % 4)
            data += '\0';
        return *this;
    }
};

constexpr std::uint32_t kCompressed = 0x80000000;

// A label's properties: a caption of the given bytes and size flag, and a size in HIMETRIC.
std::string LabelObject(std::string_view caption, std::uint32_t sizeAndFlag)
{
    Bytes body;
    body.Put(0x28, 4).Put(sizeAndFlag, 4).Raw(caption).Pad().Put(2540, 4).Put(635, 4);
    Bytes object;
    object.Put(0, 1).Put(2, 1).Put(body.data.size(), 2).Raw(body.data);
    return object.data;
}

// A site: name, ID, tab index, class index, object size and position.
std::string Site(std::string_view name, int id, int classIndex, std::size_t objectSize, int left, int top)
{
    Bytes body;
    body.data = std::string(4, '\0'); // the header, so that alignment counts from the site's start
    body.Put(0x1E5, 4).Put(name.size() | kCompressed, 4).Put(id, 4).Put(objectSize, 4).Put(0, 2).Put(classIndex, 2);
    body.Raw(name).Pad().Put(left, 4).Put(top, 4);
    std::string site = body.data;
    std::size_t size = site.size() - 4;
    site[0] = site[1] = 0;
    site[2] = static_cast<char>(size & 0xFF);
    site[3] = static_cast<char>(size >> 8);
    return site;
}

// A form of 240 x 120 pixels whose stream "f" lists the sites.
std::string FormStream(const std::vector<std::string>& sites)
{
    Bytes form;
    form.Put(0, 1).Put(4, 1).Put(16, 2).Put(0x408, 4).Put(3, 4).Put(6350, 4).Put(3175, 4);
    form.Put(0, 2); // no classes
    std::string list;
    for (const std::string& site : sites)
        list += site;
    std::string depths = sites.size() > 1 ? std::string { '\0', static_cast<char>(0x80 | sites.size()), 1 }
        : sites.size() == 1                 ? std::string { '\0', 1 }
                                            : std::string();
    while (depths.size() % 4)
        depths += '\0';
    std::string counts;
    for (std::uint32_t value : { static_cast<std::uint32_t>(sites.size()), static_cast<std::uint32_t>(depths.size() + list.size()) })
        for (int i = 0; i < 4; ++i)
            counts += static_cast<char>(value >> (8 * i) & 0xFF);
    return form.data + counts + depths + list;
}

CompoundStorage OneLabel(std::string_view caption, std::uint32_t sizeAndFlag)
{
    std::string object = LabelObject(caption, sizeAndFlag);
    CompoundStorage storage;
    storage.streams["f"] = FormStream({ Site("lblName", 1, 21, object.size(), 254, 508) });
    storage.streams["o"] = object;
    return storage;
}

class MsFormsFileTest : public test::CoreFixture {
};

TEST_F(MsFormsFileTest, TheExampleFormsControlsComeWithTheirKindsCaptionsAndPlaces)
{
    MsFormsForm form = MsFormsFile::Load(test::ExamplesFolder() + "ExcelDemo/frmFilter.frx");
    EXPECT_EQ(HimetricToPixels(form.width), 320);
    EXPECT_EQ(HimetricToPixels(form.height), 228);
    EXPECT_EQ(form.fontName, "Tahoma");
    EXPECT_DOUBLE_EQ(form.fontSize, 8.25);
    ASSERT_EQ(form.controls.size(), 7u);
    struct Expected {
        const char* name;
        MsFormsControlType type;
        const char* caption;
        int left, top, width, height;
    };
    const Expected expected[] = {
        { "lblRegions", MsFormsControlType::Label, "Regions:", 8, 8, 150, 14 },
        { "lstRegions", MsFormsControlType::ListBox, "", 8, 24, 150, 124 },
        { "fraPeriod", MsFormsControlType::Frame, "Period", 168, 8, 144, 72 },
        { "chkTotals", MsFormsControlType::CheckBox, "Show totals", 168, 88, 144, 18 },
        { "txtTitle", MsFormsControlType::TextBox, "", 8, 156, 304, 22 },
        { "cmdApply", MsFormsControlType::CommandButton, "Apply", 156, 190, 76, 26 },
        { "cmdCancel", MsFormsControlType::CommandButton, "Cancel", 236, 190, 76, 26 },
    };
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const MsFormsControl& control = form.controls[i];
        SCOPED_TRACE(expected[i].name);
        EXPECT_EQ(control.name, expected[i].name);
        EXPECT_EQ(control.type, expected[i].type);
        EXPECT_EQ(control.caption, expected[i].caption);
        EXPECT_EQ(control.tabIndex, static_cast<int>(i));
        EXPECT_EQ(HimetricToPixels(control.left), expected[i].left);
        EXPECT_EQ(HimetricToPixels(control.top), expected[i].top);
        EXPECT_EQ(HimetricToPixels(control.width), expected[i].width);
        EXPECT_EQ(HimetricToPixels(control.height), expected[i].height);
        EXPECT_TRUE(control.visible);
    }
    EXPECT_EQ(form.controls[1].tag, "regions");
    EXPECT_EQ(form.controls[3].value, "1");
    EXPECT_FALSE(form.controls[3].enabled);
    EXPECT_TRUE(form.controls[4].enabled);
    EXPECT_EQ(form.controls[4].value, "Sales by region");
    EXPECT_EQ(form.controls[5].controlTipText, "Show the chosen regions");
    EXPECT_EQ(form.controls[5].id, 8);

    // The option buttons live in the frame's own storage, placed in the frame.
    const std::vector<MsFormsControl>& options = form.controls[2].children;
    ASSERT_EQ(options.size(), 2u);
    EXPECT_EQ(options[0].name, "optYear");
    EXPECT_EQ(options[0].type, MsFormsControlType::OptionButton);
    EXPECT_EQ(options[0].caption, "Whole year");
    EXPECT_EQ(options[0].value, "1");
    EXPECT_EQ(options[1].caption, "Last quarter");
    EXPECT_EQ(options[1].value, "0");
    EXPECT_EQ(HimetricToPixels(options[1].left), 8);
    EXPECT_EQ(HimetricToPixels(options[1].top), 40);
    EXPECT_EQ(HimetricToPixels(options[1].width), 128);
}

TEST_F(MsFormsFileTest, StringsAreReadInTheCodePageWhenCompressedAndInUtf16Otherwise)
{
    MsFormsForm narrow = MsFormsFile::Parse(OneLabel("Gr\xF6\xDF" "e", 5 | kCompressed), "narrow.frx");
    ASSERT_EQ(narrow.controls.size(), 1u);
    EXPECT_EQ(narrow.controls[0].caption, "Größe");
    EXPECT_EQ(narrow.controls[0].name, "lblName");
    EXPECT_EQ(HimetricToPixels(narrow.controls[0].left), 10);
    EXPECT_EQ(HimetricToPixels(narrow.controls[0].top), 19);
    EXPECT_EQ(HimetricToPixels(narrow.controls[0].width), 96);
    EXPECT_EQ(HimetricToPixels(narrow.controls[0].height), 24);
    EXPECT_EQ(HimetricToPixels(narrow.width), 240);

    std::string wide("G\0r\0\xF6\0\xDF\0" "e\0 \0\xAC\x20", 14);
    MsFormsForm utf16 = MsFormsFile::Parse(OneLabel(wide, 14), "wide.frx");
    ASSERT_EQ(utf16.controls.size(), 1u);
    EXPECT_EQ(utf16.controls[0].caption, "Größe €");
    // The size after the caption is found behind its padding.
    EXPECT_EQ(HimetricToPixels(utf16.controls[0].width), 96);

    // Half a UTF-16 character is damage: the label is left out, the form stands.
    MsFormsForm odd = MsFormsFile::Parse(OneLabel(wide.substr(0, 13), 13), "odd.frx");
    EXPECT_TRUE(odd.controls.empty());
    EXPECT_NE(TraceText().find("odd.frx: the control lblName is left out"), std::string::npos) << TraceText();
}

TEST_F(MsFormsFileTest, ACutStreamLeavesOutWhatItCutAndNeverReadsPastIt)
{
    CompoundStorage whole = OneLabel("Name", 4 | kCompressed);
    std::size_t objectSize = whole.streams["o"].size();
    for (std::size_t length = 0; length < objectSize; ++length) {
        CompoundStorage cut = whole;
        cut.streams["o"].resize(length);
        MsFormsForm form = MsFormsFile::Parse(cut, "cut.frx");
        EXPECT_TRUE(form.controls.empty()) << length;
    }
    EXPECT_NE(TraceText().find("cut.frx: the control lblName is left out: its properties beyond the end"),
        std::string::npos);

    std::size_t formSize = whole.streams["f"].size();
    int failures = 0;
    for (std::size_t length = 0; length < formSize; ++length) {
        CompoundStorage cut = whole;
        cut.streams["f"].resize(length);
        try {
            MsFormsForm form = MsFormsFile::Parse(cut, "cutform.frx");
            ADD_FAILURE() << "a form cut at " << length << " was read with " << form.controls.size() << " controls";
        } catch (const ScrivError& error) {
            EXPECT_NE(error.Description().find("cutform.frx"), std::string::npos);
            ++failures;
        }
    }
    EXPECT_EQ(failures, static_cast<int>(formSize));
    EXPECT_NE(TraceText().find("cutform.frx: the form cannot be read"), std::string::npos);

    CompoundStorage none;
    EXPECT_THROW(MsFormsFile::Parse(none, "empty.frx"), ScrivError);
}

TEST_F(MsFormsFileTest, ControlsOfUnknownClassesAndFramesWithoutStorageAreLeftOut)
{
    std::string label = LabelObject("Kept", 4 | kCompressed);
    CompoundStorage storage;
    storage.streams["f"] = FormStream({ Site("ctlChart", 1, 0x8000, 0, 0, 0), Site("fraLost", 2, 14, 0, 0, 0),
        Site("lblKept", 3, 21, label.size(), 0, 0) });
    storage.streams["o"] = label;
    MsFormsForm form = MsFormsFile::Parse(storage, "mixed.frx");
    ASSERT_EQ(form.controls.size(), 1u);
    EXPECT_EQ(form.controls[0].name, "lblKept");
    EXPECT_EQ(form.controls[0].caption, "Kept");
    std::string trace = TraceText();
    EXPECT_NE(trace.find("mixed.frx: the control ctlChart is left out: a control of class 32768"), std::string::npos) << trace;
    EXPECT_NE(trace.find("mixed.frx: the control fraLost is left out: no storage i2"), std::string::npos) << trace;
}

// A tab strip's properties with the captions of its tabs, each padded to four bytes.
std::string TabStripObject(const std::vector<std::string>& captions)
{
    Bytes items;
    for (const std::string& caption : captions)
        items.Put(caption.size() | kCompressed, 4).Raw(caption).Pad();
    Bytes body;
    body.Put(0x30, 4).Put(items.data.size(), 4).Put(9525, 4).Put(5080, 4).Raw(items.data);
    Bytes object;
    object.Put(0, 1).Put(2, 1).Put(body.data.size(), 2).Raw(body.data);
    return object.data;
}

TEST_F(MsFormsFileTest, AMultipagesPagesTakeTheCaptionsOfItsTabStrip)
{
    std::string strip = TabStripObject({ "General", "Zone tampon" });
    std::string label = LabelObject("On the second page", 18 | kCompressed);
    CompoundStorage storage;
    storage.streams["f"] = FormStream({ Site("mpgMain", 5, 57, 0, 254, 254) });
    CompoundStorage& multipage = storage.storages["i5"];
    multipage.streams["f"] = FormStream({ Site("", 6, 18, strip.size(), 0, 0), Site("pagGeneral", 7, 7, 0, 0, 0),
        Site("pagZone", 8, 7, 0, 0, 0) });
    multipage.streams["o"] = strip;
    multipage.storages["i7"].streams["f"] = FormStream({});
    multipage.storages["i8"].streams["f"] = FormStream({ Site("lblNote", 9, 21, label.size(), 127, 127) });
    multipage.storages["i8"].streams["o"] = label;

    MsFormsForm form = MsFormsFile::Parse(storage, "pages.frx");
    ASSERT_EQ(form.controls.size(), 1u);
    const MsFormsControl& control = form.controls[0];
    EXPECT_EQ(control.type, MsFormsControlType::MultiPage);
    EXPECT_EQ(HimetricToPixels(control.width), 240);
    ASSERT_EQ(control.children.size(), 2u);
    EXPECT_EQ(control.children[0].name, "pagGeneral");
    EXPECT_EQ(control.children[0].caption, "General");
    EXPECT_TRUE(control.children[0].children.empty());
    EXPECT_EQ(control.children[1].caption, "Zone tampon");
    ASSERT_EQ(control.children[1].children.size(), 1u);
    EXPECT_EQ(control.children[1].children[0].caption, "On the second page");
    EXPECT_EQ(HimetricToPixels(control.children[1].children[0].left), 5);

    // A tab strip standing alone keeps its tabs and its size.
    storage = CompoundStorage();
    storage.streams["f"] = FormStream({ Site("tabView", 1, 18, strip.size(), 0, 0) });
    storage.streams["o"] = strip;
    form = MsFormsFile::Parse(storage, "strip.frx");
    ASSERT_EQ(form.controls.size(), 1u);
    EXPECT_EQ(form.controls[0].tabs, (std::vector<std::string> { "General", "Zone tampon" }));
    EXPECT_EQ(HimetricToPixels(form.controls[0].width), 360);
    EXPECT_EQ(HimetricToPixels(form.controls[0].height), 192);
}

TEST_F(MsFormsFileTest, RandomBytesFailCleanly)
{
    std::mt19937 random(20240611);
    auto noise = [&](std::size_t size) {
        std::string bytes(size, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() & 0xFF);
        return bytes;
    };
    CompoundStorage whole = OneLabel("Name", 4 | kCompressed);
    int read = 0;
    int refused = 0;
    for (int round = 0; round < 2000; ++round) {
        CompoundStorage storage = whole;
        // Random streams, and the real ones with a few bytes changed.
        if (round % 2) {
            storage.streams["f"] = noise(random() % 200);
            storage.streams["o"] = noise(random() % 200);
        } else {
            for (int change = 0; change < 3; ++change) {
                std::string& stream = storage.streams[random() % 2 ? "f" : "o"];
                stream[random() % stream.size()] = static_cast<char>(random() & 0xFF);
            }
        }
        try {
            MsFormsFile::Parse(storage, "noise.frx");
            ++read;
        } catch (const ScrivError& error) {
            EXPECT_NE(error.Description().find("noise.frx"), std::string::npos);
            ++refused;
        }
    }
    // Both ways out were taken: changed bytes that still read, and bytes refused.
    EXPECT_GT(read, 0);
    EXPECT_GT(refused, 0);
    test::TempFolder folder;
    std::string path = folder.Write("noise.frx", "LB" + noise(4000));
    EXPECT_THROW(MsFormsFile::Load(path), ScrivError);
    EXPECT_NE(TraceText().find("noise.frx holds no compound file"), std::string::npos);
    EXPECT_THROW(MsFormsFile::Load(JoinPath(folder.Path(), "missing.frx")), ScrivError);
}

}  // namespace
}  // namespace scriv
