// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ImageFormat.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibImage/ImageDescriptor.h"
#include "NolvexLibWx/widgets/ImageSaveSettingsDialog.h"

#include <map>

namespace Nolvex::Viewer {

class Settings;

/// Proposes how to save: as the user chose last for the same format, in this run or an earlier one, and at
/// first with the colours and the alpha that the picture has, as far as the format allows.
class SaveDefaults : public Wx::ImageSaveSettingsDialog::IDefaultsProvider
{
public:
    /// The settings keep the choices, and must outlive this object.
    explicit SaveDefaults(Settings& settings) : m_settings(settings) {}

    /// The picture that the next question is about.
    void setPicture(const ImageDescriptor& picture) { m_picture = picture; }

    Optional<Wx::ImageSaveSettings> getDefaults(ImageFormat format, std::uint32_t flags) override;
    void storeSettings(ImageFormat format, const Wx::ImageSaveSettings& settings) override;

private:
    Settings& m_settings;
    ImageDescriptor m_picture;
    std::map<ImageFormat, Wx::ImageSaveSettings> m_chosen;
};

} // namespace Nolvex::Viewer
