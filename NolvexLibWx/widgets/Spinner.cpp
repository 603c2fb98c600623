// SPDX-License-Identifier: MIT
#include "NolvexLibWx/widgets/Spinner.h"

#include "NolvexLib/StopException.h"
#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/MoveFocus.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/widgets/OskaBorder.h"
#include "NolvexLibWx/widgets/detail/SpinnerArrows.h"
#include "NolvexLibWx/widgets/detail/SpinnerDrag.h"
#include "NolvexLibWx/widgets/detail/SpinnerField.h"
#include "NolvexLibWx/widgets/detail/SpinnerValue.h"

#include <wx/sizer.h>
#include <wx/spinctrl.h>

#include <utility>

namespace Nolvex {

namespace {

constexpr const char* SOURCE = "widgets/Spinner";
constexpr int FIRST_REPEAT_TIME = 200; // milliseconds
constexpr int REPEAT_TIME = 50;
constexpr int PAGE_STEPS = 10;

} // namespace

wxDEFINE_EVENT(Wx::CUSTSPINNER_START_EDITING, wxActivateEvent);
wxDEFINE_EVENT(Wx::CUSTSPINNER_END_EDITING, wxActivateEvent);
wxDEFINE_EVENT(Wx::CUSTSPINNER_TEXT_FOCUS_GET, wxFocusEvent);
wxDEFINE_EVENT(Wx::CUSTSPINNER_TEXT_FOCUS_LOST, wxFocusEvent);

class Wx::Spinner::Account : public AccessibleControl
{
public:
    explicit Account(Spinner& spinner) : m_spinner(spinner) {}

    AccessibleRole role() const override { return AccessibleRole::SPINNER; }

    String name() const override { return toString(m_spinner.GetLabel()); }

    Optional<AccessibleValue> value() const override
    {
        const Detail::SpinnerValue& number = *m_spinner.m_number;
        return AccessibleValue{number.value(), number.minValue(), number.maxValue(),
                               number.clickAmount(number.stepAmount()),
                               toString(m_spinner.m_field->shownValue())};
    }

    void setValue(double value) override { m_spinner.changeByUser(static_cast<float>(value)); }

private:
    Spinner& m_spinner;
};

Wx::Spinner::Spinner(wxWindow* parent, int id, int width, float minValue, float maxValue, float defaultValue,
                     int precision, float step)
    : wxPanel(parent, id, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE),
      m_layout(new wxBoxSizer(wxHORIZONTAL)),
      m_field(std::make_unique<Detail::SpinnerField>()),
      m_arrows(std::make_unique<Detail::SpinnerArrows>()),
      m_number(std::make_unique<Detail::SpinnerValue>()),
      m_drag(std::make_unique<Detail::SpinnerDrag>())
{
    auto* const border = new OskaBorder(this);
    border->addChild(m_field->make(border, width));
    m_layout->Add(border, 0, wxALIGN_CENTER, 0);
    m_layout->Add(m_arrows->make(this), 0, 0, 0);
    SetSizerAndFit(m_layout);
    bindArrow(*m_arrows->up());
    bindArrow(*m_arrows->down());
    bindField(*m_field->control());
    Bind(wxEVT_TIMER, &Spinner::onRepeat, this);
    Bind(wxEVT_SPINCTRLDOUBLE, &Spinner::onValueEvent, this);
    configure(minValue, maxValue, defaultValue, precision, step, true);
    setValue(defaultValue, false);
    m_repeatTimer.SetOwner(this, wxID_ANY);
    bindGroupExit(*this);
    describeAs<Account>(*this);
}

Wx::Spinner::~Spinner()
{
    m_repeatTimer.Stop();
    // Destroying a text field that has the focus makes an event, which must not apply the typed value.
    if (TextControl* const field = textField())
        field->Unbind(wxEVT_KILL_FOCUS, &Spinner::onTextFocusLost, this);
    m_field->release(GetParent());
    // The handlers of the children use members of the spinner.
    DestroyChildren();
}

void Wx::Spinner::bindArrow(Arrow& arrow)
{
    arrow.Bind(wxEVT_LEFT_DOWN, [this, &arrow](wxMouseEvent& event) { onArrowDown(arrow, event); });
    arrow.Bind(wxEVT_LEFT_UP, [this, &arrow](wxMouseEvent&) { onArrowUp(arrow); });
    arrow.Bind(wxEVT_MOTION, [this, &arrow](wxMouseEvent& event) { onArrowMoved(arrow, event); });
    arrow.Bind(wxEVT_RIGHT_UP, [this, &arrow](wxMouseEvent&) { onArrowRightUp(arrow); });
    arrow.Bind(wxEVT_MOUSE_CAPTURE_LOST,
               [this, &arrow](wxMouseCaptureLostEvent&) { onArrowCaptureLost(arrow); });
    arrow.Bind(wxEVT_ENTER_WINDOW, [this, &arrow](wxMouseEvent& event) { onArrowEntered(arrow, event); });
    arrow.Bind(wxEVT_LEAVE_WINDOW, [this, &arrow](wxMouseEvent&) { onArrowLeft(arrow); });
}

void Wx::Spinner::bindField(TextControl& field)
{
    field.Bind(wxEVT_TEXT_ENTER, &Spinner::onTextEnter, this);
    field.Bind(wxEVT_SET_FOCUS, &Spinner::onTextFocusGet, this);
    field.Bind(wxEVT_KILL_FOCUS, &Spinner::onTextFocusLost, this);
    field.Bind(wxEVT_KEY_DOWN, &Spinner::onTextKeyDown, this);
}

Wx::StaticBitmap* Wx::Spinner::upArrow() const
{
    return m_arrows->up();
}

Wx::StaticBitmap* Wx::Spinner::downArrow() const
{
    return m_arrows->down();
}

Wx::TextControl* Wx::Spinner::textField() const
{
    return m_field->control();
}

void Wx::Spinner::configure(float minValue, float maxValue, float defaultValue, int precision, float step,
                            bool notify)
{
    const wxWeakRef<Spinner> self(this);
    m_number->setRange(minValue, maxValue, defaultValue);
    setPrecision(precision, notify);
    if (!self)
        return;
    m_number->setStep(step);
    Refresh(false);
    updateAccessible(*this);
}

float Wx::Spinner::value() const
{
    return m_number->value();
}

void Wx::Spinner::setValue(float value, bool notify)
{
    applyValue(value, notify);
}

void Wx::Spinner::setPrecision(int digits, bool notify)
{
    setPrecision(Function<int()>([digits] { return digits; }), notify);
}

void Wx::Spinner::setPrecision(Function<int()> source, bool notify)
{
    if (!source)
        Nolvex::Detail::throwStopException(SOURCE, __LINE__);
    m_number->setPrecision(std::move(source));
    if (m_number->isFinite())
        changeValue(m_number->exactValue(), notify);
}

void Wx::Spinner::setText(const String& text)
{
    if (TextControl* const field = textField())
        field->ChangeValue(toWxString(text));
}

void Wx::Spinner::setTooltip(const String& text)
{
    if (TextControl* const field = textField())
        field->setTooltip(text);
    setAccessibleDescription(*this, text);
}

void Wx::Spinner::callOnValueChange(Function<void(float)> callback)
{
    m_onValueChange = std::move(callback);
}

void Wx::Spinner::setClickSpeedOverride(Function<Optional<float>()> source)
{
    m_clickSpeedOverride = std::move(source);
}

void Wx::Spinner::SetFocus()
{
    const wxWeakRef<Spinner> self(this);
    if (TextControl* const field = textField())
        field->SetFocus();
    if (self)
        m_field->selectAll();
}

void Wx::Spinner::SetLabel(const wxString& label)
{
    m_label = label;
    // The focus is in the field, so that screen readers announce the name of the field.
    if (TextControl* const field = textField())
        setAccessibleName(*field, toString(label));
    updateAccessible(*this);
}

void Wx::Spinner::changeByUser(float value)
{
    if (value == m_number->value())
        return;
    if (sendEditing(CUSTSPINNER_START_EDITING, true) && applyValue(value, true))
        sendEditing(CUSTSPINNER_END_EDITING, false);
}

const wxBitmap& Wx::Spinner::arrowPicture(bool up, ArrowLook look)
{
    return Arrow::picture(up, look);
}

bool Wx::Spinner::applyValue(float requested, bool notify)
{
    const wxWeakRef<Spinner> self(this);
    m_field->showValue(toWxString(m_number->assign(requested)));
    if (!self)
        return false;
    Refresh(false);
    updateAccessible(*this);
    if (!notify)
        return true;
    wxSpinDoubleEvent event(wxEVT_SPINCTRLDOUBLE, GetId(), static_cast<double>(m_number->value()));
    return send(event);
}

bool Wx::Spinner::changeValue(float target, bool notify)
{
    if (!applyValue(target, notify))
        return false;
    m_number->carryRemainder(target);
    return true;
}

float Wx::Spinner::clickAmount() const
{
    const Optional<float> speed = m_clickSpeedOverride ? m_clickSpeedOverride() : Optional<float>();
    return speed.value_or(m_number->stepAmount());
}

bool Wx::Spinner::makeStep(bool increasing, int count)
{
    const Detail::SpinnerValue::Step step = m_number->step(increasing, clickAmount(), count);
    return step.carriesRemainder ? changeValue(step.target, true) : applyValue(step.target, true);
}

bool Wx::Spinner::send(wxEvent& event)
{
    const wxWeakRef<Spinner> self(this);
    event.SetId(GetId());
    event.SetEventObject(this);
    event.ResumePropagation(wxEVENT_PROPAGATE_MAX);
    ProcessEvent(event);
    return self.get() != nullptr;
}

bool Wx::Spinner::sendEditing(const wxEventTypeTag<wxActivateEvent>& type, bool active)
{
    wxActivateEvent event(type, active, 0, wxActivateEvent::Reason_Unknown);
    return send(event);
}

bool Wx::Spinner::sendTextFocus(const wxEventTypeTag<wxFocusEvent>& type)
{
    wxFocusEvent event(type, 0);
    return send(event);
}

void Wx::Spinner::onArrowDown(Arrow& arrow, const wxMouseEvent& event)
{
    if (arrow.isHeld())
        return;
    arrow.press().begin(Press::Means::MOUSE);
    m_drag->begin(arrow, event.GetPosition());
    m_valueAtPress = value();
    arrow.show(ArrowLook::PRESSED);
    m_increasing = arrow.isUp();
    m_repeatTimer.Start(FIRST_REPEAT_TIME, wxTIMER_CONTINUOUS);
    sendEditing(CUSTSPINNER_START_EDITING, true);
}

void Wx::Spinner::onRepeat(wxTimerEvent& /*event*/)
{
    // An arrow that was destroyed while it was held is never released.
    if (m_arrows->held() == nullptr) {
        m_repeatTimer.Stop();
        return;
    }
    if (m_repeatTimer.GetInterval() == FIRST_REPEAT_TIME) {
        m_repeatTimer.Stop();
        m_repeatTimer.Start(REPEAT_TIME, wxTIMER_CONTINUOUS);
    }
    makeStep(m_increasing, 1);
}

void Wx::Spinner::onArrowMoved(Arrow& arrow, const wxMouseEvent& event)
{
    const wxPoint position = event.GetPosition();
    if (!m_drag->isMotion(arrow, position) && arrow.isHeld())
        return;
    m_repeatTimer.Stop();
    if (!arrow.isHeld()) {
        m_drag->hover(position);
        return;
    }
    const Optional<int> distance = m_drag->move(*this, arrow, position);
    if (!distance)
        return;
    if (!std::exchange(m_changedByMouse, true))
        m_arrows->show(ArrowLook::PRESSED);
    changeValue(m_number->dragged(*distance, scaleByDpi(1)), true);
}

void Wx::Spinner::onArrowUp(Arrow& arrow)
{
    const wxWeakRef<Arrow> released(&arrow);
    // A handler of the step may open a dialog, in which neither the mouse is held nor the step repeated.
    arrow.press().freeMouse();
    m_repeatTimer.Stop();
    if (!m_changedByMouse && !makeStep(m_increasing, 1))
        return;
    if (released)
        endInteraction(*released);
}

void Wx::Spinner::onArrowRightUp(Arrow& arrow)
{
    const wxWeakRef<Arrow> released(&arrow);
    arrow.press().freeMouse();
    m_repeatTimer.Stop();
    if (!applyValue(m_changedByMouse ? m_valueAtPress : m_number->defaultValue(), true))
        return;
    if (!released || endInteraction(*released))
        Refresh(true);
}

void Wx::Spinner::onArrowCaptureLost(Arrow& arrow)
{
    // A handler may destroy the arrow only after wxWidgets has noticed that the mouse is lost.
    if (!arrow.press().hasLostMouse())
        endInteraction(arrow);
    else if (stopInteraction(arrow))
        CallAfter([this] { sendEditing(CUSTSPINNER_END_EDITING, false); });
}

bool Wx::Spinner::stopInteraction(Arrow& arrow)
{
    if (!arrow.press().cancel())
        return false;
    m_repeatTimer.Stop();
    m_changedByMouse = false;
    m_arrows->show(ArrowLook::NORMAL);
    return true;
}

bool Wx::Spinner::endInteraction(Arrow& arrow)
{
    return !stopInteraction(arrow) || sendEditing(CUSTSPINNER_END_EDITING, false);
}

void Wx::Spinner::onArrowEntered(Arrow& arrow, const wxMouseEvent& event)
{
    if (m_arrows->held() != nullptr)
        return;
    // Windows sends a motion with this event. GTK does not, so that a drag would begin at an older position.
    m_drag->hover(event.GetPosition());
    arrow.show(ArrowLook::HOVERED);
}

void Wx::Spinner::onArrowLeft(Arrow& arrow)
{
    if (m_arrows->held() == nullptr)
        arrow.show(ArrowLook::NORMAL);
}

void Wx::Spinner::onValueEvent(wxSpinDoubleEvent& event)
{
    const wxWeakRef<Spinner> self(this);
    if (m_onValueChange)
        m_onValueChange(static_cast<float>(event.GetValue()));
    // In a spinner that the callback has destroyed, no further handlers can be looked for.
    event.Skip(self.get() != nullptr);
}

bool Wx::Spinner::commitText()
{
    const TextControl* const field = textField();
    if (field == nullptr)
        return true;
    const Optional<float> typed = Detail::SpinnerValue::parse(toString(field->GetValue()));
    if (!typed)
        return changeValue(m_number->exactValue(), false);
    if (*typed == value())
        return applyValue(value(), false);
    return sendEditing(CUSTSPINNER_START_EDITING, true) && applyValue(*typed, true) &&
           sendEditing(CUSTSPINNER_END_EDITING, false);
}

void Wx::Spinner::onTextEnter(wxCommandEvent& /*event*/)
{
    const Detail::SpinnerField::Event scope(*m_field, this);
    if (commitText())
        m_field->selectAll();
}

void Wx::Spinner::onTextFocusGet(wxFocusEvent& event)
{
    const Detail::SpinnerField::Event scope(*m_field, this);
    event.Skip(sendTextFocus(CUSTSPINNER_TEXT_FOCUS_GET));
}

void Wx::Spinner::onTextFocusLost(wxFocusEvent& event)
{
    const Detail::SpinnerField::Event scope(*m_field, this);
    event.Skip(commitText() && sendTextFocus(CUSTSPINNER_TEXT_FOCUS_LOST));
}

void Wx::Spinner::onTextKeyDown(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const bool increasing = key == WXK_UP || key == WXK_PAGEUP;
    const bool isPage = key == WXK_PAGEUP || key == WXK_PAGEDOWN;
    if (event.HasAnyModifiers() || (!increasing && !isPage && key != WXK_DOWN)) {
        event.Skip();
        return;
    }
    const Detail::SpinnerField::Event scope(*m_field, this);
    // A typed value is applied before the step.
    if (m_field->isEdited() && !commitText())
        return;
    if (sendEditing(CUSTSPINNER_START_EDITING, true) && makeStep(increasing, isPage ? PAGE_STEPS : 1))
        sendEditing(CUSTSPINNER_END_EDITING, false);
}

} // namespace Nolvex
