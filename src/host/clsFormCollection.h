#pragma once

#include <string>
#include <vector>

#include "host/IClientFormProcessor.h"

namespace scriv {

// Forms with their captions, kept in order of caption (without regard to case);
// forms of equal captions stay in the order added.
class clsFormCollection {
public:
    // processor answers the caption of a form added without one.
    explicit clsFormCollection(IClientFormProcessor& processor)
        : m_processor(processor)
    {
    }
    void Add(IHostObject* form, std::string caption = {});
    std::size_t Count() const { return m_forms.size(); }
    IHostObject* Item(std::size_t index) const { return m_forms.at(index); }
    const std::vector<IHostObject*>& Items() const { return m_forms; }
    // The caption a form was added with; empty for a form not in the collection.
    std::string Caption(const IHostObject* form) const;
    auto begin() const { return m_forms.begin(); }
    auto end() const { return m_forms.end(); }

private:
    IClientFormProcessor& m_processor;
    std::vector<IHostObject*> m_forms;
    std::vector<std::string> m_captions;
};

}  // namespace scriv
