// SPDX-License-Identifier: MIT
#include "apps/picker/WatchedPickerFactory.h"

#include "apps/picker/ColorPickerFactory.h"

#include <memory>
#include <utility>

namespace Nolvex::Picker {

namespace {

class WatchedPicker : public IColorPicker
{
public:
    WatchedPicker(AutoPtr<IColorPicker> picker, Function<void()> onEnded)
        : m_picker(std::move(picker)), m_onEnded(std::move(onEnded))
    {}

    void setPreviewCallback(const Function<void(const Rgb&)>& onPreview) override
    {
        m_picker->setPreviewCallback(onPreview);
    }

    void setCommitCallback(const Function<void(const Rgb&)>& onCommit) override
    {
        m_picker->setCommitCallback(onCommit);
    }

    void runModal() override
    {
        try {
            m_picker->runModal();
        } catch (...) {
            m_onEnded();
            throw;
        }
        m_onEnded();
    }

    wxPoint getPosition() const override { return m_picker->getPosition(); }

private:
    AutoPtr<IColorPicker> m_picker;
    Function<void()> m_onEnded;
};

} // namespace

WatchedPickerFactory::WatchedPickerFactory(Function<void()> onEnded) : m_onEnded(std::move(onEnded)) {}

AutoPtr<IColorPicker> WatchedPickerFactory::createPicker(WindowHandle owner, const String& title,
                                                         const wxPoint& position, const Rgb& initial)
{
    return std::make_unique<WatchedPicker>(ColorPickerFactory().createPicker(owner, title, position, initial),
                                           m_onEnded);
}

} // namespace Nolvex::Picker
