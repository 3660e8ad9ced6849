#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace scriv {

// A window of the program (the Help Editor, the wizard) as the guards of the
// server see it.
class IHostForm {
public:
    virtual ~IHostForm() = default;
    virtual std::string FormName() const = 0;
    virtual bool IsIconic() const = 0;
    virtual bool Visible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    // Shows a minimised form in its normal size again.
    virtual void Restore() = 0;
    virtual void SetFocus() = 0;
    virtual void Unload() = 0;
};

// The forms that are loaded now. A form enters when it is loaded and leaves
// when it is unloaded.
class CLoadedForms {
public:
    void Register(IHostForm* form);
    void Unregister(IHostForm* form);
    // The first form of that name (compared without regard to case), or nothing.
    IHostForm* Find(std::string_view name) const;
    std::size_t Count() const { return m_forms.size(); }

private:
    std::vector<IHostForm*> m_forms;
};

CLoadedForms& LoadedForms();

}  // namespace scriv
