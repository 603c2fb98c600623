// SPDX-License-Identifier: MIT
#pragma once

#include "NolvexLib/ImageFormat.h"
#include "NolvexLib/Optional.h"
#include "NolvexLibImage/ImageDescriptor.h"
#include "NolvexLibWx/widgets/ImageSaveSettingsDialog.h"

#include <map>

namespace Nolvex::Viewer {

/// Proposes how to save: as the user chose last for the same format, and at first with the colours and the
/// alpha that the picture has, as far as the format allows.
class SaveDefaults : public Wx::ImageSaveSettingsDialog::IDefaultsProvider
{
public:
    /// The picture that the next question is about.
    void setPicture(const ImageDescriptor& picture) { m_picture = picture; }

    Optional<Wx::ImageSaveSettings> getDefaults(ImageFormat format, std::uint32_t flags) override;
    void storeSettings(ImageFormat format, const Wx::ImageSaveSettings& settings) override;

private:
    ImageDescriptor m_picture;
    std::map<ImageFormat, Wx::ImageSaveSettings> m_chosen;
};

} // namespace Nolvex::Viewer
