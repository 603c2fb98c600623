// SPDX-License-Identifier: MIT
#include "NolvexLibWx/MessageDialog.h"

#include "NolvexLib/MainThread.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/MemoryImages.h"
#include "NolvexLibWx/Monitors.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/StringConversions.h"
#include "NolvexLibWx/WindowIcon.h"
#include "NolvexLibWx/detail/MessageCut.h"
#include "NolvexLibWx/detail/MessageDialogControls.h"
#include "NolvexLibWx/detail/ModalDialogs.h"
#include "NolvexLibWx/detail/ModalEnd.h"
#include "NolvexLibWx/detail/NativeMessageDialog.h"
#include "NolvexLibWx/paint/DensePixels.h"
#include "NolvexLibWx/platform/OwnedDialog.h"
#include "NolvexLibWx/resources/MessageIcons.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/AutoSizedButton.h"
#include "NolvexLibWx/widgets/GuiSkin.h"
#include "NolvexLibWx/widgets/StaticBitmap.h"
#include "NolvexLibWx/widgets/StaticText.h"

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/sizer.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace Nolvex {

namespace {

constexpr int MAX_TEXT_WIDTH = 450;
constexpr int ICON_SIZE = 32;
constexpr int MIN_BUTTON_WIDTH = 75;
constexpr int MIN_BUTTON_HEIGHT = 24;

// A tab would be drawn as one character of no certain width.
String withoutTabs(String message)
{
    return std::move(message.replaceAll(L"\t", L"    "));
}

long frameStyle(bool hasTitle, MessageDialogControls controls)
{
    long style = wxCAPTION | wxSTAY_ON_TOP;
    if (isListed(controls, Wx::MessageDialogControl::FRAME_CLOSE))
        style |= wxCLOSE_BOX;
    if (isListed(controls, Wx::MessageDialogControl::FRAME_ICON))
        style |= wxSYSTEM_MENU;
    if (!hasTitle && (style & (wxCLOSE_BOX | wxSYSTEM_MENU)) == 0)
        style &= ~wxCAPTION;
    return style;
}

// Returns an invalid bitmap for NONE and for values outside the enumeration.
wxBitmap builtInImage(Wx::MessageDialogIcon icon)
{
    const auto decode = [](const unsigned* data, int size) {
        return Wx::convertMemoryToBitmap(data, size, wxBITMAP_TYPE_ANY);
    };
    switch (icon) {
    case Wx::MessageDialogIcon::ERROR:
        return decode(Resources::MESSAGE_ERROR_ICON, Resources::MESSAGE_ERROR_ICON_SIZE);
    case Wx::MessageDialogIcon::WARNING:
        return decode(Resources::MESSAGE_WARNING_ICON, Resources::MESSAGE_WARNING_ICON_SIZE);
    case Wx::MessageDialogIcon::INFO:
        return decode(Resources::MESSAGE_INFO_ICON, Resources::MESSAGE_INFO_ICON_SIZE);
    case Wx::MessageDialogIcon::QUESTION:
        return decode(Resources::MESSAGE_QUESTION_ICON, Resources::MESSAGE_QUESTION_ICON_SIZE);
    case Wx::MessageDialogIcon::SUCCESS:
        return decode(Resources::MESSAGE_SUCCESS_ICON, Resources::MESSAGE_SUCCESS_ICON_SIZE);
    case Wx::MessageDialogIcon::NONE:
        break;
    }
    return {};
}

using KeyMap = Stack<std::pair<int, int>>; // key codes, in ascending order, and identifiers

bool isBefore(const std::pair<int, int>& entry, int keyCode)
{
    return entry.first < keyCode;
}

// The last control that has a key gets the key.
KeyMap keyMap(MessageDialogControls controls)
{
    KeyMap keys;
    for (const Wx::MessageDialogControl* control : controls) {
        for (const int keyCode : control->keyCodesToBind()) {
            const auto place = std::lower_bound(keys.begin(), keys.end(), keyCode, isBefore);
            if (place != keys.end() && place->first == keyCode)
                place->second = control->m_controlId;
            else
                keys.insert(place, {keyCode, control->m_controlId});
        }
    }
    return keys;
}

wxBitmap& frameIcon()
{
    static wxBitmap icon;
    return icon;
}

Pixel centre(const Bucket& region)
{
    return {(region.min.x + region.max.x) / 2, (region.min.y + region.max.y) / 2};
}

// wxGTK does not know how high frames are before it has shown one, and takes them for nothing.
int unknownFrameHeight(const wxDialog& dialog)
{
    constexpr int LIKELY_HEIGHT = 40;
    return dialog.GetSize() == dialog.GetClientSize() ? Wx::scaleByDpi(LIKELY_HEIGHT) : 0;
}

// The screen rectangle of the owner or, without an owner, the work area of the dialog's monitor.
Bucket regionAround(wxDialog& dialog)
{
    const WindowHandle owner = Wx::getOwnerAsNativeHandle(Wx::getWindowNativeHandle(&dialog));
    return owner ? Wx::getScreenRegion(owner)
                 : Wx::getMonitorRegionByWindow(&dialog, Wx::MonitorRegionType::WORK_AREA);
}

} // namespace

Wx::MessageDialog::MessageDialog(WindowHandle owner, const String& title, const String& message,
                                 MessageDialogIcon icon, MessageDialogControls controls)
    : m_ending(std::make_unique<ModalEnd>(*this))
{
    create(owner, title, message, icon, {controls.begin(), controls.end()});
}

Wx::MessageDialog::~MessageDialog() = default;

void Wx::MessageDialog::create(WindowHandle owner, const String& title, String message,
                               MessageDialogIcon icon, Stack<const MessageDialogControl*> controls)
{
    message = withoutTabs(std::move(message));
    if (isListed(controls, MessageDialogButton::CANCEL) &&
        !isListed(controls, MessageDialogControl::FRAME_CLOSE))
        controls.push_back(&MessageDialogControl::FRAME_CLOSE);
    wxDialog::Create(nullptr, wxID_ANY, toWxString(title), wxDefaultPosition, wxDefaultSize,
                     frameStyle(!title.isEmpty(), controls));
    Platform::attachOwner(*this, owner, [this] { end(MessageDialogControl::FRAME_CLOSE.m_controlId); });
    Platform::markAsAlert(*this);
    createText(message);
    createIcon(icon);
    createButtons(controls);
    layOut();
    bindKeys(controls);
    Platform::takeKeys(*this);
    Bind(wxEVT_CLOSE_WINDOW,
         [this](wxCloseEvent& /*event*/) { end(MessageDialogControl::FRAME_CLOSE.m_controlId); });
    if (isListed(controls, MessageDialogControl::FRAME_ICON))
        setIcon(this, frameIcon());
    applySkinRecursive(this, GuiSkin::DEFAULT());
    fitAndPlace();
}

void Wx::MessageDialog::createText(const String& message)
{
    const int width = scaleByDpi(MAX_TEXT_WIDTH);
    m_text = new StaticText(this, wxID_ANY, {});
    const int height =
        getMonitorRegionByPoint(centre(regionAround(*this)), MonitorRegionType::WORK_AREA).height();
    m_text->SetLabel(toWxString(MessageCut::prepared(message, *m_text, width, height)));
    m_text->SetMaxSize(wxSize(width, m_text->GetMaxHeight()));
    m_text->Wrap(m_text->GetMaxWidth());
}

void Wx::MessageDialog::createIcon(MessageDialogIcon icon)
{
    const wxBitmap bitmap = builtInImage(icon);
    if (!bitmap.IsOk())
        return;
    wxImage image = bitmap.ConvertToImage();
    const int size = scaleByDpi(ICON_SIZE);
    const int density = screenDensity(*this);
    image.Rescale(size * density, size * density, wxIMAGE_QUALITY_HIGH);
    m_icon = new StaticBitmap(this, wxID_ANY, denseBitmap(image, density));
}

void Wx::MessageDialog::createButtons(const Stack<const MessageDialogControl*>& controls)
{
    for (const MessageDialogControl* control : controls) {
        const auto* description = dynamic_cast<const MessageDialogButton*>(control);
        if (description == nullptr)
            continue;
        auto* button =
            new AutoSizedButton(this, toWxString(description->m_label), MIN_BUTTON_WIDTH, MIN_BUTTON_HEIGHT);
        button->Enable(description->m_enabled);
        button->setClickCallback([this, id = description->m_controlId] { end(id); });
        m_buttons.push_back(button);
    }
}

void Wx::MessageDialog::layOut()
{
    const int border = wxSizerFlags::GetDefaultBorder();
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    if (m_icon != nullptr)
        row->Add(m_icon, 0, wxRIGHT | wxCENTRE, 2 * border);
    row->Add(m_text, 0, wxCENTRE, 0);
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(row, 1, wxEXPAND | wxALL, 2 * border);
    if (!m_buttons.empty()) {
        auto* buttons = new wxBoxSizer(wxHORIZONTAL);
        buttons->AddStretchSpacer();
        for (AutoSizedButton* button : m_buttons)
            buttons->Add(button);
        rows->Add(buttons, 0, wxEXPAND | wxALL, border);
    }
    SetSizer(rows);
}

void Wx::MessageDialog::bindKeys(const Stack<const MessageDialogControl*>& controls)
{
    Bind(wxEVT_CHAR_HOOK, [this, keys = keyMap(controls)](wxKeyEvent& event) {
        const int keyCode = event.GetKeyCode();
        const auto found = std::lower_bound(keys.begin(), keys.end(), keyCode, isBefore);
        if (found != keys.end() && found->first == keyCode)
            end(found->second);
        else
            event.Skip();
    });
}

void Wx::MessageDialog::fitAndPlace()
{
    Fit();
    const Pixel middle = centre(regionAround(*this));
    const int room =
        getMonitorRegionByPoint(middle, MonitorRegionType::WORK_AREA).height() - unknownFrameHeight(*this);
    if (GetSize().y > room) {
        MessageCut::byHeight(*m_text, GetSize().y - room);
        Fit();
    }
    // wxGTK keeps the client size, not the size with the frame, when it learns how wide the frame is.
    SetClientSize(GetClientSize());
    smartPositionWindow(this, {middle.x - GetSize().x / 2, middle.y - GetSize().y / 2});
}

void Wx::MessageDialog::EndModal(int controlId)
{
    wxDialog::EndModal(controlId);
}

// Another cause may come while the modal loop is still being left. The dialog must then neither change its
// result nor be destroyed, since the caller of ShowModal owns the dialog.
void Wx::MessageDialog::end(int controlId)
{
    if (ModalDialogs::isOpen(*this)) {
        if (IsModal())
            m_ending->end(controlId);
    } else {
        SetReturnCode(controlId);
        Destroy();
    }
}

void Wx::MessageDialog::overrideFrameIcon(const wxBitmap& bitmap)
{
    frameIcon() = bitmap;
}

bool Wx::showOkDialog(WindowHandle owner, const String& title, const String& message, MessageDialogIcon icon)
{
    const MessageDialogControl* const controls[] = {&MessageDialogButton::OK,
                                                    &MessageDialogControl::FRAME_CLOSE};
    return Detail::showMessageDialogImpl(owner, title, message, icon, controls) ==
           MessageDialogButton::OK.m_controlId;
}

bool Wx::showOkCancelDialog(WindowHandle owner, const String& title, const String& message,
                            MessageDialogIcon icon)
{
    const MessageDialogControl* const controls[] = {&MessageDialogButton::OK, &MessageDialogButton::CANCEL};
    return Detail::showMessageDialogImpl(owner, title, message, icon, controls) ==
           MessageDialogButton::OK.m_controlId;
}

bool Wx::showYesNoDialog(WindowHandle owner, const String& title, const String& message,
                         MessageDialogIcon icon)
{
    const MessageDialogControl* const controls[] = {&MessageDialogButton::YES, &MessageDialogButton::NO};
    return Detail::showMessageDialogImpl(owner, title, message, icon, controls) ==
           MessageDialogButton::YES.m_controlId;
}

int Wx::Detail::showMessageDialogImpl(WindowHandle owner, const String& title, const String& message,
                                      MessageDialogIcon icon, MessageDialogControls controls)
{
    Stack<const MessageDialogControl*> listed(controls.begin(), controls.end());
    listed.push_back(&MessageDialogControl::FRAME_ICON);
    if (!ModalDialogs::arePossible())
        return MessageDialogControl::FRAME_CLOSE.m_controlId;
    if (!isMainThread())
        return NativeMessageDialog::show(owner, title, withoutTabs(message), icon, listed);
    MessageDialog dialog(owner, title, message, icon, listed);
    return dialog.ShowModal();
}

} // namespace Nolvex
