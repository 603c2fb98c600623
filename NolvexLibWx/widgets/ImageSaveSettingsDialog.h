// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Flags.h"
#include "NolvexLib/ImageFormatDescriptor.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/Polymorphic.h"
#include "NolvexLib/Stack.h"
#include "NolvexLibWx/Export.h"
#include "NolvexLibWx/widgets/ImageSaveSettings.h"

#include <wx/dialog.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

class WXDLLIMPEXP_FWD_CORE wxRadioButton;
class WXDLLIMPEXP_FWD_CORE wxSizer;

namespace Nolvex {
class ModalEnd;
} // namespace Nolvex

namespace Nolvex::Wx {

class CheckBox;

/// Asks the user which colour format to write into an image file, and whether to include alpha.
/// docs/image-save-settings.md describes the dialog.
class NOLVEXLIBWX_EXPORT ImageSaveSettingsDialog : public wxDialog
{
public:
    /// Remembers the user's choices. An application implements this interface.
    class NOLVEXLIBWX_EXPORT IDefaultsProvider : public Polymorphic
    {
    public:
        /// Returns what the dialog shows first, or nullopt for the defaults of the format. `flags` are the
        /// flags of the format's descriptor, shifted right by 8; the lowest bit tells whether the format
        /// supports alpha.
        virtual Optional<ImageSaveSettings> getDefaults(ImageFormat format, std::uint32_t flags) = 0;

        /// Called after the user has confirmed the dialog.
        virtual void storeSettings(ImageFormat format, const ImageSaveSettings& settings) = 0;
    };

    /// Shows the dialog and returns the user's choice, or nullopt if the user cancels or the parent is
    /// destroyed meanwhile. Returns nullopt, too, if a dialog is needed and the library is not started. A
    /// format that leaves no choice gets no dialog and the settings DEFAULT with alpha. Both pointers may be
    /// null. The `defaults` must outlive the dialog, and are not asked if there is no dialog; an exception of
    /// theirs leaves this function when the dialog is closed.
    static Optional<ImageSaveSettings> requestSettingsFromUser(wxWindow* parent, ImageFormat format,
                                                               IDefaultsProvider* defaults);

    /// The same for a format that the caller describes, such as one of its own.
    static Optional<ImageSaveSettings> requestSettingsFromUser(wxWindow* parent,
                                                               const ImageFormatDescriptor& format,
                                                               IDefaultsProvider* defaults);

    ~ImageSaveSettingsDialog() override;

    /// Cancels. The function that requests the settings destroys the dialog afterwards.
    bool Destroy() override;

private:
    struct Destroyer;

    struct Choices
    {
        Flags<ColorFormat> colorFormats; ///< empty if there is no choice
        bool alpha;
    };

    static Choices choicesOf(const ImageFormatDescriptor& format);

    ImageSaveSettingsDialog(wxWindow* parent, const Choices& choices, const ImageSaveSettings& initial);

    void addColorFormats(wxSizer& rows, Flags<ColorFormat> allowed, ColorFormat initial);
    void addAlphaCheckBox(wxSizer& rows, bool includeAlpha);
    void addButtons(wxSizer& rows);
    wxRadioButton* selectedColorFormat() const;
    ImageSaveSettings settings(ImageSaveSettings initial) const;
    void selectNeighbour(std::size_t distance);
    void setFirstFocus();
    void closeWithParent();
    void end(int result);

    void onButton(wxEvent& event);
    void onCharHook(wxKeyEvent& event);
    void onColorFormatKey(wxKeyEvent& event);
    void onAlphaKey(wxKeyEvent& event);
    void onParentDestroyed(wxWindowDestroyEvent& event);

    Stack<std::pair<ColorFormat, wxRadioButton*>> m_colorFormats;
    CheckBox* m_alpha = nullptr; // null if alpha is no choice
    std::unique_ptr<ModalEnd> m_ending;
};

} // namespace Nolvex::Wx
