// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/Function.h"
#include "NolvexLib/Noncopyable.h"
#include "NolvexLib/Optional.h"
#include "NolvexLib/String.h"
#include "apps/viewer/BackgroundTask.h"
#include "apps/viewer/Command.h"
#include "apps/viewer/Messages.h"
#include "apps/viewer/Workspace.h"
#include "apps/viewer/inspection/PictureDifference.h"

class WXDLLIMPEXP_FWD_CORE wxWindow;

namespace Nolvex::Viewer {

class CommandStates;
class ImageView;

/// Decides what the view shows of the current picture and the reference: the picture alone, both with a
/// divider between them, the reference in the place of the picture, or their difference. Differences are
/// measured in the background; the picture is shown meanwhile. If only the pixels of the compared pictures
/// change, the difference stays until the next one has been measured.
class ComparisonTool : private Noncopyable
{
public:
    /// `shown` is called whenever the view shows something else. The window, the workspace, the view and the
    /// states must outlive the tool.
    ComparisonTool(wxWindow& window, Workspace& workspace, ImageView& view, CommandStates& states,
                   Messages messages, const Function<void()>& shown);

    /// One of the COMPARE commands.
    void setMode(Command mode);

    Command mode() const { return m_mode; }

    /// Shows the reference in the place of the picture, or the picture again.
    void flip();

    bool isFlipped() const { return m_flipped; }

    /// The difference that the view shows, or nullopt.
    const Optional<PictureDifference>& difference() const { return m_difference; }

    /// Waits until a difference that is being measured is shown.
    void finish();

private:
    using Result = Expected<PictureDifference, String>;

    /// What is measured.
    struct Subject
    {
        PictureId picture;
        PictureId reference;
        DifferenceMeasure measure;

        friend bool operator==(const Subject&, const Subject&) = default;
    };

    bool hasReference();
    void onReference();
    void onChanged(Flags<Workspace::Change> changes);
    void show();
    void showInView(const SharedPicture& picture);
    Optional<Subject> subject() const;
    bool isArriving() const;
    void follow(const Subject& wanted);
    void measure();
    void onMeasured(const Optional<Result>& result);

    Workspace& m_workspace;
    ImageView& m_view;
    CommandStates& m_states;
    Messages m_messages;
    Function<void()> m_shown;
    Command m_mode = COMPARE_NOTHING;
    bool m_flipped = false;
    Optional<PictureDifference> m_difference;
    Optional<Subject> m_subject; // of the difference that is shown or measured
    bool m_measuredOnce = false; // at least one state of the subject
    bool m_outdated = false;     // pixels have changed since the measuring has begun
    BackgroundTask<Result> m_task;
};

} // namespace Nolvex::Viewer
