// SPDX-License-Identifier: MIT
#include "apps/viewer/inspection/ComparisonTool.h"

#include "apps/viewer/CommandStates.h"
#include "apps/viewer/inspection/InformationText.h"
#include "apps/viewer/view/ImageView.h"

#include <utility>

namespace Nolvex::Viewer {

namespace {

constexpr Command MODES[] = {COMPARE_NOTHING,  COMPARE_SIDE_BY_SIDE, COMPARE_DIFFERENCE,
                             COMPARE_ABSOLUTE, COMPARE_SQUARED,      COMPARE_RELATIVE};

const wchar_t* const NO_MEMORY = L"There is not enough memory for the comparison.";

String measuredMessage(const PictureDifference& difference)
{
    return L"Compared: " + difference.picture->name() + L": mean " + numberText(difference.mean) +
           L", PSNR " + numberText(difference.psnr) + L" dB.";
}

Optional<DifferenceMeasure> measureOf(Command mode)
{
    switch (mode) {
    case COMPARE_DIFFERENCE:
        return DifferenceMeasure::SIGNED;
    case COMPARE_ABSOLUTE:
        return DifferenceMeasure::MAGNITUDE;
    case COMPARE_SQUARED:
        return DifferenceMeasure::SQUARED;
    case COMPARE_RELATIVE:
        return DifferenceMeasure::PROPORTION;
    default:
        return {};
    }
}

} // namespace

ComparisonTool::ComparisonTool(wxWindow& window, Workspace& workspace, ImageView& view, CommandStates& states,
                               Messages messages, const Function<void()>& shown)
    : m_workspace(workspace), m_view(view), m_states(states), m_messages(std::move(messages)), m_shown(shown)
{
    for (const Command mode : MODES)
        bindCommand(window, mode, [this, mode] { setMode(mode); });
    bindCommand(window, FLIP, [this] { flip(); });
    bindCommand(window, SET_REFERENCE, [this] { onReference(); });
    m_workspace.observe([this](Flags<Workspace::Change> changes) { onChanged(changes); });
}

bool ComparisonTool::hasReference()
{
    if (m_workspace.reference() != nullptr)
        return true;
    m_messages.complain(L"There is nothing to compare with. Show a picture and set it as the reference "
                        L"(Ctrl+R), then show another one.");
    return false;
}

void ComparisonTool::setMode(Command mode)
{
    m_mode = mode == COMPARE_NOTHING || hasReference() ? mode : COMPARE_NOTHING;
    m_flipped = false;
    m_states.check(m_mode, true);
    show();
}

void ComparisonTool::flip()
{
    if (!m_flipped && !hasReference())
        return;
    m_flipped = !m_flipped;
    show();
}

void ComparisonTool::onReference()
{
    const OpenPicture* const shown = m_workspace.current();
    if (shown == nullptr)
        return;
    m_workspace.setReference(shown->id);
    m_messages.report(L"\"" + shown->name + L"\" is the reference now.");
}

void ComparisonTool::onChanged(Flags<Workspace::Change> changes)
{
    using Change = Workspace::Change;
    if (m_workspace.reference() == nullptr && m_mode != COMPARE_NOTHING) {
        m_mode = COMPARE_NOTHING;
        m_states.check(m_mode, true);
    }
    if (changes.has(Change::CURRENT) || m_workspace.reference() == nullptr)
        m_flipped = false;
    if (changes != Change::LIST)
        show();
}

void ComparisonTool::finish()
{
    while (m_task.isRunning())
        m_task.finish();
}

Optional<ComparisonTool::Subject> ComparisonTool::subject() const
{
    const OpenPicture* const shown = m_workspace.current();
    const OpenPicture* const reference = m_workspace.reference();
    const Optional<DifferenceMeasure> measure = measureOf(m_mode);
    const bool isPossible = measure && !m_flipped && shown != nullptr && reference != nullptr &&
                            shown->picture && reference->picture && shown->picture != reference->picture;
    return isPossible ? Subject{shown->id, reference->id, *measure} : Optional<Subject>();
}

void ComparisonTool::show()
{
    const Optional<Subject> wanted = subject();
    if (wanted && wanted == m_subject)
        return follow(*wanted);
    m_subject = wanted;
    m_task.cancel();
    m_difference.reset();
    m_measuredOnce = false;
    const OpenPicture* const reference = m_workspace.reference();
    const SharedPicture referencePicture = reference != nullptr ? reference->picture : nullptr;
    const SharedPicture picture = m_workspace.currentPicture();
    showInView(m_flipped ? referencePicture : picture);
    const bool isSideBySide = m_mode == COMPARE_SIDE_BY_SIDE && !m_flipped && picture != referencePicture;
    m_view.setComparison(isSideBySide ? referencePicture : nullptr, m_view.divider());
    if (wanted)
        measure();
    m_shown();
}

// A picture that arrives piece by piece changes faster than it can be measured. What is being measured is
// shown, and then the last state is measured.
void ComparisonTool::follow(const Subject& wanted)
{
    if (m_task.isRunning())
        m_outdated = true;
    else
        measure();
    if (!m_difference)
        showInView(m_workspace.find(wanted.picture)->picture);
    m_shown();
}

// Pictures of the same frame are looked at in the same place.
void ComparisonTool::showInView(const SharedPicture& picture)
{
    const SharedPicture before = m_view.picture();
    m_view.setPicture(picture, picture && before && picture->frameSize() == before->frameSize());
}

void ComparisonTool::measure()
{
    m_outdated = false;
    m_task.start(
        [measure = m_subject->measure, picture = m_workspace.find(m_subject->picture)->picture,
         reference = m_workspace.find(m_subject->reference)->picture](const Progress& progress) {
            return differenceOf(*picture, *reference, measure, progress);
        },
        [this](const Optional<Result>& result) { onMeasured(result); });
}

void ComparisonTool::onMeasured(const Optional<Result>& result)
{
    const bool isFirst = !std::exchange(m_measuredOnce, true);
    const bool isToldInLog = isFirst || !isArriving();
    if (result && *result) {
        m_difference = **result;
        showInView(m_difference->picture);
        if (isToldInLog)
            m_messages.report(measuredMessage(*m_difference));
    } else {
        m_difference.reset();
        showInView(m_workspace.currentPicture());
        if (isToldInLog)
            m_messages.complain(result ? result->error() : String(NO_MEMORY));
    }
    if (m_outdated)
        measure();
    m_shown();
}

// The log would fill with the numbers of a picture that arrives piece by piece. The information tells them.
bool ComparisonTool::isArriving() const
{
    return m_workspace.find(m_subject->picture)->origin == PictureOrigin::SENDER ||
           m_workspace.find(m_subject->reference)->origin == PictureOrigin::SENDER;
}

} // namespace Nolvex::Viewer
