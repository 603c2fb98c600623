// SPDX-License-Identifier: MIT
#include "apps/picker/ColorPickerFactory.h"

#include "NolvexLibWx/FindWindow.h"
#include "apps/picker/ColorPickerDialog.h"
#include "apps/picker/RecentColors.h"

#include <wx/toplevel.h>

#include <memory>
#include <utility>

namespace Nolvex::Picker {

namespace {

// Returns null if the handle is not that of a window of wxWidgets.
wxWindow* findWindow(WindowHandle handle)
{
    for (wxWindow* top : wxTopLevelWindows) {
        if (wxWindow* const found = Wx::findWindowByNativeHandle(top, handle))
            return found;
    }
    return nullptr;
}

class ColorPicker : public IColorPicker
{
public:
    ColorPicker(WindowHandle owner, String title, const wxPoint& position, const Rgb& initial)
        : m_owner(owner), m_title(std::move(title)), m_position(position), m_initial(initial)
    {}

    void setPreviewCallback(const Function<void(const Rgb&)>& onPreview) override { m_onPreview = onPreview; }

    void setCommitCallback(const Function<void(const Rgb&)>& onCommit) override { m_onCommit = onCommit; }

    void runModal() override
    {
        Optional<Rgb> chosen;
        {
            ColorPickerDialog dialog(findWindow(m_owner), m_title, m_position, m_initial, m_onPreview);
            chosen = dialog.run();
            m_position = dialog.GetPosition();
        }
        if (!chosen)
            return;
        RecentColors::shared().add(*chosen);
        // The callback may destroy whatever owns this picker.
        if (const Function<void(const Rgb&)> onCommit = m_onCommit)
            onCommit(*chosen);
    }

    wxPoint getPosition() const override { return m_position; }

private:
    WindowHandle m_owner;
    String m_title;
    wxPoint m_position;
    Rgb m_initial;
    Function<void(const Rgb&)> m_onPreview;
    Function<void(const Rgb&)> m_onCommit;
};

} // namespace

AutoPtr<IColorPicker> ColorPickerFactory::createPicker(WindowHandle owner, const String& title,
                                                       const wxPoint& position, const Rgb& initial)
{
    return std::make_unique<ColorPicker>(owner, title, position, initial);
}

} // namespace Nolvex::Picker
