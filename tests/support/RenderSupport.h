#pragma once

#include <functional>
#include <ostream>
#include <memory>
#include <string>

#include "desktop/CFormRenderer.h"
#include "desktop/Picture.h"
#include "foundation/StringUtil.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6FormFile.h"
#include "support/TestSupport.h"

namespace scriv {

// How test failures print rectangles and colours.
inline void PrintTo(const PixelRect& rect, std::ostream* out)
{
    *out << rect.left << "," << rect.top << " " << rect.width << "x" << rect.height;
}

inline void PrintTo(const Rgb& colour, std::ostream* out)
{
    *out << "rgb(" << int { colour.r } << "," << int { colour.g } << "," << int { colour.b } << ")";
}

}  // namespace scriv

namespace scriv::test {

// A form file read from text ("\n" becomes CR LF, as the IDE writes), with
// a form processor and a renderer over it.
class FormUnderTest {
public:
    FormUnderTest(const std::string& text, const std::string& path, RenderOptions options = {})
        : m_file(std::make_unique<Vb6FormFile>(Vb6FormFile::Parse(ReplaceAll(text, "\n", "\r\n"), path)))
        , m_processor(std::make_unique<CW_IDEVB6FormProcessor>(*m_file))
        , m_form(m_processor->FindActualFormOfComponent(m_processor->Component(), false, false))
        , m_renderer(std::make_unique<CFormRenderer>(*m_processor, m_form, *m_file, options))
    {
    }

    CW_IDEVB6FormProcessor& Processor() { return *m_processor; }
    IHostObject* Form() { return m_form; }
    CFormRenderer& Renderer() { return *m_renderer; }
    const Vb6FormFile& File() { return *m_file; }

    // The processor's object of the control of that name, or null.
    IHostObject* Control(const std::string& name) { return Find(m_form, name); }

private:
    IHostObject* Find(IHostObject* parent, const std::string& name)
    {
        for (IHostObject* child : m_processor->ControlsCollectionGet(parent)) {
            if (EqualsNoCase(m_processor->ControlNameGet(child), name))
                return child;
            if (IHostObject* found = Find(child, name))
                return found;
        }
        return nullptr;
    }

    std::unique_ptr<Vb6FormFile> m_file;
    std::unique_ptr<CW_IDEVB6FormProcessor> m_processor;
    IHostObject* m_form { nullptr };
    std::unique_ptr<CFormRenderer> m_renderer;
};

// How many pixels of the rectangle satisfy the test.
inline int CountPixels(const Picture& picture, const PixelRect& rect, const std::function<bool(Rgb)>& test)
{
    int count = 0;
    for (int y = rect.top; y < rect.Bottom(); ++y)
        for (int x = rect.left; x < rect.Right(); ++x)
            if (test(picture.Pixel(x, y)))
                ++count;
    return count;
}

inline bool IsDark(Rgb colour)
{
    return colour.r < 100 && colour.g < 100 && colour.b < 100;
}

inline std::function<bool(Rgb)> Is(Rgb wanted)
{
    return [wanted](Rgb colour) { return colour == wanted; };
}

inline constexpr Rgb kButtonFace { 212, 208, 200 };
inline constexpr Rgb kWhite { 255, 255, 255 };
inline constexpr Rgb kRed { 255, 0, 0 };

}  // namespace scriv::test
