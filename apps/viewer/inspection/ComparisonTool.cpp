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

Optional<DifferenceMeasure> measureOf(Command mode)
{
    switch (mode) {
    case COMPARE_DIFFERENCE:
        return DifferenceMeasure::SIGNED;
    case COMPARE_ABSOLUTE:
        return DifferenceMeasure::ABSOLUTE;
    case COMPARE_SQUARED:
        return DifferenceMeasure::SQUARED;
    case COMPARE_RELATIVE:
        return DifferenceMeasure::RELATIVE;
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

void ComparisonTool::show()
{
    m_task.cancel();
    m_difference.reset();
    const OpenPicture* const reference = m_workspace.reference();
    const SharedPicture referencePicture = reference != nullptr ? reference->picture : nullptr;
    const SharedPicture picture = m_workspace.currentPicture();
    showInView(m_flipped ? referencePicture : picture);
    const bool isSideBySide = m_mode == COMPARE_SIDE_BY_SIDE && !m_flipped && picture != referencePicture;
    m_view.setComparison(isSideBySide ? referencePicture : nullptr, m_view.divider());
    if (!m_flipped && picture && referencePicture && picture != referencePicture) {
        if (const Optional<DifferenceMeasure> wanted = measureOf(m_mode))
            measure(*wanted, picture, referencePicture);
    }
    m_shown();
}

// Pictures of the same frame are looked at in the same place.
void ComparisonTool::showInView(const SharedPicture& picture)
{
    const SharedPicture before = m_view.picture();
    m_view.setPicture(picture, picture && before && picture->frameSize() == before->frameSize());
}

void ComparisonTool::measure(DifferenceMeasure measure, const SharedPicture& picture,
                             const SharedPicture& reference)
{
    m_task.start(
        [measure, picture, reference](const Progress& progress) {
            return differenceOf(*picture, *reference, measure, progress);
        },
        [this](const Optional<Result>& result) { onMeasured(result); });
}

void ComparisonTool::onMeasured(const Optional<Result>& result)
{
    if (!result) {
        m_messages.complain(L"There is not enough memory for the comparison.");
        return;
    }
    if (!*result) {
        m_messages.complain(result->error());
        return;
    }
    m_difference = **result;
    showInView(m_difference->picture);
    m_messages.report(L"Compared: " + m_difference->picture->name() + L": mean " +
                      numberText(m_difference->mean) + L", PSNR " + numberText(m_difference->psnr) + L" dB.");
    m_shown();
}

} // namespace Nolvex::Viewer
