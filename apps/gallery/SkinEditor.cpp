// SPDX-License-Identifier: MIT
#include "apps/gallery/SkinEditor.h"

#include "NolvexLibWx/Accessibility.h"
#include "NolvexLibWx/ColourConversions.h"
#include "NolvexLibWx/DpiScaling.h"
#include "NolvexLibWx/FileDialogs.h"
#include "NolvexLibWx/MessageDialog.h"
#include "NolvexLibWx/NativeWindows.h"
#include "NolvexLibWx/widgets/ApplySkinRecursive.h"
#include "NolvexLibWx/widgets/AutoSizedButton.h"
#include "NolvexLibWx/widgets/CollapsiblePanel.h"
#include "NolvexLibWx/widgets/ColorPickerButton.h"
#include "NolvexLibWx/widgets/ComboBox.h"
#include "NolvexLibWx/widgets/StaticText.h"
#include "apps/gallery/SkinFile.h"
#include "apps/gallery/Skins.h"
#include "apps/picker/WatchedPickerFactory.h"

#include <wx/sizer.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace Nolvex::Gallery {

namespace {

constexpr int WIDTH = 170; // design units, here and below
constexpr int GAP = 6;
const wxSize SWATCH_SIZE(44, 20);

// Recolouring all windows takes some milliseconds. The mouse moves more often than this.
constexpr int PREVIEW_PERIOD = 40; // milliseconds

const wchar_t* const OWN_SKIN = L"Own";

const Array<Io::FileFilter>& filters()
{
    static const Array<Io::FileFilter> ALL{{L"Skins", {L"*.xml"}}, {L"All files", {}}};
    return ALL;
}

// Returns the index of the skin that the gallery brings along, or their number if the skin is another one.
int indexOf(const Wx::GuiSkin& skin)
{
    const auto& skins = builtInSkins();
    return static_cast<int>(std::ranges::find(skins, skin, &NamedSkin::skin) - skins.begin());
}

String nameOf(const Wx::GuiSkin& skin)
{
    const auto index = static_cast<std::size_t>(indexOf(skin));
    return index < builtInSkins().size() ? builtInSkins()[index].name : OWN_SKIN;
}

RgbBytes toBytes(const Rgb& color)
{
    return Wx::toRgbBytes(Wx::toWxColour(color));
}

} // namespace

SkinEditor::SkinEditor(wxWindow* parent, Program program)
    : wxPanel(parent), m_program(std::move(program)), m_tools(new wxPanel(this))
{
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(new Wx::StaticText(this, wxID_ANY, L"Skin", 0, Wx::TextFlag::BOLD), 0, wxBOTTOM,
              Wx::scaleByDpi(GAP));
    m_tools->SetSizer(new wxBoxSizer(wxVERTICAL));
    rows->Add(m_tools, 0, wxEXPAND | wxBOTTOM, Wx::scaleByDpi(2 * GAP));
    rows->Add(makeSwatches(), 0, wxEXPAND);
    SetSizer(rows);
    setSkin(m_skin);
    rebuild();
    m_previewTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { onPreviewTime(); });
}

SkinEditor::~SkinEditor() = default;

void SkinEditor::rebuild()
{
    m_tools->DestroyChildren();
    m_tools->GetSizer()->Clear();
    makeTools();
    Wx::applySkinRecursive(m_tools, Wx::GuiSkin::DEFAULT());
    Layout();
}

void SkinEditor::makeTools()
{
    m_choice = new Wx::ComboBox(
        m_tools, wxID_ANY, WIDTH,
        [this](int id) {
            const auto index = static_cast<std::size_t>(id);
            if (index < builtInSkins().size())
                applyLater(builtInSkins()[index].skin);
        },
        {}, true);
    Array<Wx::ComboBox::Item> items;
    for (const NamedSkin& skin : builtInSkins())
        items.push_back({skin.name, static_cast<int>(items.size()), {}});
    const int chosen = indexOf(m_skin);
    if (chosen == static_cast<int>(items.size()))
        items.push_back({OWN_SKIN, chosen, {}});
    m_choice->setData(items);
    m_choice->selectIndex(chosen, false);
    Wx::setAccessibleName(*m_choice, L"Skin");
    m_tools->GetSizer()->Add(m_choice, 0, wxEXPAND | wxBOTTOM, Wx::scaleByDpi(GAP));

    auto* row = new wxBoxSizer(wxHORIZONTAL);
    const auto add = [&](const wchar_t* label, const Function<void()>& onClick) {
        auto* button = new Wx::AutoSizedButton(m_tools, label, (WIDTH - GAP) / 2, 0);
        button->setClickCallback(onClick);
        row->Add(button, 1, row->IsEmpty() ? 0 : wxLEFT, Wx::scaleByDpi(GAP));
    };
    // The dialogs run when the click is over, since applying a skin replaces the buttons.
    add(L"Load...", [this] { CallAfter([this] { askToLoad(); }); });
    add(L"Save...", [this] { CallAfter([this] { askToSave(); }); });
    m_tools->GetSizer()->Add(row, 0, wxEXPAND);
}

wxWindow* SkinEditor::makeSwatches()
{
    auto* content = new wxPanel(this);
    auto* grid = new wxFlexGridSizer(2, Wx::scaleByDpi(wxSize(GAP, GAP / 2)));
    grid->AddGrowableCol(0);
    for (std::size_t i = 0; i < SKIN_FIELDS.size(); ++i) {
        grid->Add(new Wx::StaticText(content, wxID_ANY, SKIN_FIELDS[i].name), 0, wxALIGN_CENTRE_VERTICAL);
        grid->Add(m_swatches[i] = makeSwatch(content, SKIN_FIELDS[i]));
    }
    content->SetSizerAndFit(grid);
    auto* panel = new Wx::CollapsiblePanel(this, Wx::GuiSkin::DEFAULT(), L"Colours", content);
    panel->setCollapsed(false);
    return panel;
}

Wx::ColorPickerButton* SkinEditor::makeSwatch(wxWindow* parent, const SkinField& field)
{
    auto onEnded = [self = wxWeakRef<SkinEditor>(this)] {
        if (self)
            self->onPickerEnded();
    };
    auto* swatch = new Wx::ColorPickerButton(std::make_unique<Picker::WatchedPickerFactory>(onEnded), parent,
                                             field.name, SWATCH_SIZE, true);
    swatch->SetMinSize(Wx::scaleByDpi(SWATCH_SIZE));
    swatch->onPreview = [this, field](const Rgb& color) { tryColor(field, color); };
    swatch->onChange = [this, field](const Rgb& color) { takeColor(field, color); };
    return swatch;
}

void SkinEditor::setSkin(const Wx::GuiSkin& skin)
{
    m_skin = m_tried = skin;
    for (std::size_t i = 0; i < SKIN_FIELDS.size(); ++i)
        m_swatches[i]->setColor(Wx::toRgb(Wx::toWxColour(skin.*SKIN_FIELDS[i].color)), false);
}

void SkinEditor::tryColor(const SkinField& field, const Rgb& color)
{
    m_tried.*field.color = toBytes(color);
    if (!m_previewTimer.IsRunning())
        m_previewTimer.StartOnce(PREVIEW_PERIOD);
}

void SkinEditor::takeColor(const SkinField& field, const Rgb& color)
{
    m_skin.*field.color = toBytes(color);
    applyLater(m_skin);
}

void SkinEditor::onPreviewTime()
{
    m_program.preview(m_tried);
}

// A cancelled picker leaves the swatch and the program with the colour that was tried last.
void SkinEditor::onPickerEnded()
{
    if (m_tried != m_skin)
        applyLater(m_skin);
}

void SkinEditor::applyLater(const Wx::GuiSkin& skin)
{
    m_previewTimer.Stop();
    setSkin(skin);
    CallAfter([this] {
        m_previewTimer.Stop();
        m_program.apply(m_skin, nameOf(m_skin));
    });
}

void SkinEditor::load(const Io::Path& file)
{
    const Expected<Wx::GuiSkin, String> loaded = loadSkin(file);
    if (!loaded)
        return showError(loaded.error());
    m_file = file;
    applyLater(*loaded);
}

void SkinEditor::save(const Io::Path& file)
{
    const String error = saveSkin(m_skin, file);
    if (!error.isEmpty())
        return showError(error);
    m_file = file;
}

void SkinEditor::askToLoad()
{
    const wxWeakRef<SkinEditor> self(this);
    const Io::Path file = Wx::filenameOpenDlg(Wx::getWindowNativeHandle(wxGetTopLevelParent(this)),
                                              L"Load a skin", filters(), m_file);
    if (self && !file.isEmpty())
        load(file);
}

void SkinEditor::askToSave()
{
    const wxWeakRef<SkinEditor> self(this);
    const Io::Path initial = m_file.isEmpty() ? Io::Path(L"skin.xml") : m_file;
    const Io::Path file =
        Wx::filenameSaveDlg(Wx::getWindowNativeHandle(wxGetTopLevelParent(this)), L"Save the skin", filters(),
                            Wx::FileSelect::OverwritePrompt, initial);
    if (self && !file.isEmpty())
        save(file);
}

void SkinEditor::showError(const String& message)
{
    Wx::showOkDialog(Wx::getWindowNativeHandle(wxGetTopLevelParent(this)), L"Skin", message,
                     Wx::MessageDialogIcon::ERROR);
}

} // namespace Nolvex::Gallery
