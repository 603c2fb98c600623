// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Array.h"
#include "NolvexLib/Function.h"
#include "apps/viewer/Workspace.h"

#include <wx/arrstr.h>
#include <wx/panel.h>

class WXDLLIMPEXP_FWD_CORE wxListBox;

namespace Nolvex::Wx {

class TextControl;

} // namespace Nolvex::Wx

namespace Nolvex::Viewer {

/// The list of the open pictures, with a field above it for a text that the listed names contain. Selecting a
/// picture shows it, and Delete closes it. The reference is marked.
class PicturesPanel : public wxPanel
{
public:
    /// `show` and `close` are called with the picture that the user has chosen. The workspace must outlive
    /// the panel.
    PicturesPanel(wxWindow* parent, Workspace& workspace, const Function<void(PictureId)>& show,
                  const Function<void(PictureId)>& close);

    /// Selects the row of the current picture. To be called when a picture that the user has selected could
    /// not be read; changes of the workspace are followed without a call.
    void selectCurrent();

private:
    void follow(Flags<Workspace::Change> changes);
    void fill();
    bool removeRow(const Array<PictureId>& listed, const wxArrayString& labels);
    String labelOf(const OpenPicture& picture) const;
    void onFilter(wxCommandEvent& event);
    void onSelected(wxCommandEvent& event);
    void onKey(wxKeyEvent& event);

    Workspace& m_workspace;
    Function<void(PictureId)> m_show;
    Function<void(PictureId)> m_close;
    Wx::TextControl* m_filter = nullptr;
    wxListBox* m_list = nullptr;
    Array<PictureId> m_listed; // in the order of the rows
    wxArrayString m_labels;
};

} // namespace Nolvex::Viewer
