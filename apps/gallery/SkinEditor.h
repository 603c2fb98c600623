// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Io/Path.h"
#include "NolvexLib/Rgb.h"
#include "NolvexLib/String.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "apps/gallery/SkinFields.h"

#include <wx/panel.h>
#include <wx/timer.h>

#include <array>

class WXDLLIMPEXP_FWD_CORE wxSizer;

namespace Nolvex::Wx {

class ColorPickerButton;
class ComboBox;

} // namespace Nolvex::Wx

namespace Nolvex::Gallery {

/// Edits the skin of the program: a choice of the skins that the gallery brings along, a swatch for each
/// colour, and buttons to load and save skins.
///
/// The colours that the user tries in a picker are previewed in the windows, at most 25 times a second. A
/// colour that the user chooses is applied to the whole program.
class SkinEditor : public wxPanel
{
public:
    /// What the editor asks of the program. A timer calls `preview` while the modal picker runs. `apply` is
    /// called when no handler of the editor's windows runs, so that `apply` may rebuild these windows.
    struct Program
    {
        /// Shows the skin for the moment.
        Function<void(const Wx::GuiSkin& skin)> preview;

        /// Makes the skin the default one. The name is for the user.
        Function<void(const Wx::GuiSkin& skin, const String& name)> apply;
    };

    SkinEditor(wxWindow* parent, Program program);
    ~SkinEditor() override;

    /// Shows the skin, and calls nothing.
    void setSkin(const Wx::GuiSkin& skin);

    const Wx::GuiSkin& skin() const { return m_skin; }

    /// Makes the controls that keep the colours of a skin anew, in the default skin.
    void rebuild();

    /// Reads the skin from the file and applies the skin. If that is not possible, a message tells the user
    /// why, and the skin stays as it was.
    void load(const Io::Path& file);

    /// Writes the skin into the file, or tells the user why that is not possible.
    void save(const Io::Path& file);

    Wx::ComboBox* choice() const { return m_choice; }

    /// Returns the swatch of the field with that index.
    Wx::ColorPickerButton* swatch(std::size_t field) const { return m_swatches[field]; }

private:
    void makeTools();
    wxWindow* makeSwatches();
    Wx::ColorPickerButton* makeSwatch(wxWindow* parent, const SkinField& field);
    void tryColor(const SkinField& field, const Rgb& color);
    void takeColor(const SkinField& field, const Rgb& color);
    void onPreviewTime();
    void onPickerEnded();
    void applyLater(const Wx::GuiSkin& skin);
    void askToLoad();
    void askToSave();
    void showError(const String& message);

    Program m_program;
    Wx::GuiSkin m_skin = Wx::GuiSkin::DEFAULT();
    Wx::GuiSkin m_tried = Wx::GuiSkin::DEFAULT(); // equals m_skin unless a picker runs
    wxTimer m_previewTimer;
    wxPanel* m_tools;
    Wx::ComboBox* m_choice = nullptr; // child of the tools
    std::array<Wx::ColorPickerButton*, SKIN_FIELDS.size()> m_swatches{};
    Io::Path m_file; // that was loaded or saved last
};

} // namespace Nolvex::Gallery
