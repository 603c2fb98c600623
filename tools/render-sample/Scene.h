// SPDX-License-Identifier: MIT
#pragma once

#include "tools/render-sample/Vector3.h"

#include <optional>

namespace Nolvex::RenderSample {

/// The direction is of length 1.
struct Ray
{
    Vector3 origin;
    Vector3 direction;
};

/// COATED is matte under a clear coat; a LAMP gives off its colour and reflects nothing.
enum class Finish
{
    MATTE,
    COATED,
    METAL,
    GLASS,
    LAMP
};

/// The normal is of length 1 and points out of the body.
struct Hit
{
    double distance = 0.0;
    Vector3 position;
    Vector3 normal;
    Finish finish = Finish::MATTE;
    Vector3 colour;
};

/// Returns the first hit of the ray: a sphere, a window, or the floor.
std::optional<Hit> nearestHit(const Ray& ray);

/// Returns the light that a white matte body reflects from the place at `u` and `v`, in [0, 1), of each
/// window. The mean over all places is the brightness of the body.
Vector3 windowLight(const Vector3& position, const Vector3& normal, double u, double v);

/// Returns the light of the sky in a direction.
Vector3 sky(const Vector3& direction);

} // namespace Nolvex::RenderSample
