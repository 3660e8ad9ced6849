#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// A Windows Forms form as its designer code builds it: the statements of
// InitializeComponent in C# or Visual Basic, read for the subset the
// designer writes (components created, their properties, containers filled
// through Controls, the items of menus, tool strips and lists). A statement
// the reader does not know is skipped and traced, never a failure.
namespace scriv {

// A value of the designer code, as far as the reader understands it.
struct DesignValue {
    enum class Kind {
        None, // not understood (a resource, a call)
        Text,
        Number,
        Boolean,
        Pair, // Point, Size, SizeF
        Enum, // one member or several joined by | / Or: names
        Reference, // another component: text is its name
        Font,
        Colour,
        List, // an array: items
        New, // a new object of a type: text is the type as written
    };
    Kind kind { Kind::None };
    std::string text;
    double number { 0 };
    bool flag { false };
    double a { 0 };
    double b { 0 };
    std::vector<std::string> names;
    std::vector<DesignValue> items;
    // Font: family in text, size in number (points), style names in names.
    // Colour: 0xRRGGBB in rgb, or a system colour's name in text.
    std::uint32_t rgb { 0 };
    bool systemColour { false };

    bool Has(std::string_view name) const;
};

// One component of the form: a control, a menu or tool strip item, a column.
struct DesignComponent {
    // The field name ("button1"); the form itself is "this".
    std::string name;
    // The type without its namespace ("Button"), and as written.
    std::string type;
    std::string fullType;
    std::map<std::string, DesignValue, std::less<>> properties;
    // Child controls in the order of their Controls collection (index 0 is the front).
    std::vector<DesignComponent*> controls;
    // Items of a tool strip or menu (Items, DropDownItems, MenuItems, Buttons),
    // the columns of a list view or grid.
    std::vector<DesignComponent*> items;
    // The texts of a list or combo box.
    std::vector<std::string> listItems;
    DesignComponent* parent { nullptr };
    DesignComponent* owner { nullptr };

    // The property of that name (without regard to case), or null.
    const DesignValue* Property(std::string_view propertyName) const;
    std::string Text(std::string_view propertyName) const;
    // A number property, or the fallback.
    double Number(std::string_view propertyName, double fallback) const;
    bool Boolean(std::string_view propertyName, bool fallback) const;
    // The member of an enum property ("Fill"), or "".
    std::string EnumValue(std::string_view propertyName) const;
    // The name the control goes by: its Name property, else its field's.
    std::string ControlName() const;
};

enum class DesignLanguage { CSharp, Basic };

class WinFormDesign {
public:
    // Reads the InitializeComponent of the code; a text without one gives a
    // form with no components.
    static WinFormDesign Read(std::string_view code, DesignLanguage language, std::string formClass = {});
    // Reads a designer (or code) file; the language is the file's (.vb is
    // Visual Basic, anything else C#). Raises ScrivError when it cannot be read.
    static WinFormDesign Load(const std::string& path);

    WinFormDesign();
    WinFormDesign(WinFormDesign&&) noexcept;
    WinFormDesign& operator=(WinFormDesign&&) noexcept;
    ~WinFormDesign();

    DesignComponent& Form() { return *m_form; }
    const DesignComponent& Form() const { return *m_form; }
    // The component of that field name, or null; "this" and "Me" are the form.
    DesignComponent* Find(std::string_view name) const;
    // Every component, in the order it was created.
    const std::vector<std::unique_ptr<DesignComponent>>& Components() const { return m_components; }
    // The statements that were not understood, as written.
    const std::vector<std::string>& Skipped() const { return m_skipped; }
    // The class of the form, from the code around InitializeComponent.
    const std::string& FormClass() const { return m_formClass; }
    bool HasInitializeComponent() const { return m_found; }
    // Adds a component of that field name and full type ("System.Windows.Forms.Button");
    // the caller places it in a container.
    DesignComponent& Create(const std::string& name, const std::string& fullType);

private:
    friend class DesignerStatementReader;

    std::unique_ptr<DesignComponent> m_form;
    std::vector<std::unique_ptr<DesignComponent>> m_components;
    std::vector<std::string> m_skipped;
    std::string m_formClass;
    bool m_found { false };
};

// The type name without its namespace: "System.Windows.Forms.Button" gives "Button".
std::string ShortTypeName(std::string_view fullType);

}  // namespace scriv
